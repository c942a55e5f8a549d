#include "command/progress.h"

#include <system_error>
#include <utility>

namespace tavisk {
namespace {

constexpr const char* clearLine = "\r\033[K";

}  // namespace

Progress::Progress(std::ostream& err, bool terminal, std::chrono::milliseconds delay)
    : err_(err), delay_(delay) {
    if (!terminal) return;
    try {
        thread_ = std::jthread([this](const std::stop_token& stop) { show(stop); });
    } catch (const std::system_error&) {
        // The work itself does not need the thread.
    }
}

void Progress::end() noexcept {
    if (!thread_.joinable()) return;
    thread_.request_stop();
    thread_.join();
}

void Progress::show(const std::stop_token& stop) {
    const char* shown = nullptr;
    std::unique_lock lock(mutex_);
    for (;;) {
        wake_.wait_for(lock, stop, delay_, [] { return false; });
        if (stop.stop_requested()) break;
        const char* now = phase_;
        if (now != std::exchange(shown, now)) {
            err_ << clearLine << "tavisk: " << now << "..." << std::flush;
        }
    }
    if (shown != nullptr) err_ << clearLine << std::flush;
}

}  // namespace tavisk
