// Tells a person at a terminal what a long command is doing.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <ostream>
#include <thread>

namespace tavisk {

/// Writes nothing until `delay` has passed and nothing after `end`. Without a terminal it does
/// nothing at all.
class Progress {
public:
    Progress(std::ostream& err, bool terminal,
             std::chrono::milliseconds delay = std::chrono::seconds(1));
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress() { end(); }

    /// `what` is a literal.
    void phase(const char* what) noexcept { phase_ = what; }

    /// Clears the line. Only then may others write to the terminal.
    void end() noexcept;

private:
    void show(const std::stop_token& stop);

    std::ostream& err_;
    std::chrono::milliseconds delay_;
    std::atomic<const char*> phase_ = "starting";
    std::mutex mutex_;
    std::condition_variable_any wake_;
    std::jthread thread_;
};

}  // namespace tavisk
