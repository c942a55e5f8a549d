// One call at a time, on one thread.
#pragma once

namespace tavisk {

/// A call of the host while it runs.
class OneCall {
public:
    OneCall() noexcept;
    OneCall(const OneCall&) = delete;
    OneCall& operator=(const OneCall&) = delete;
    ~OneCall();

    /// False while another call is running; that one is left alone.
    bool admitted() const noexcept { return admitted_; }
    /// Whether the call that is running is on this thread.
    bool isNested() const noexcept { return nested_; }
    /// Whether a call is running now, on any thread.
    static bool isRunning() noexcept;

private:
    bool admitted_ = false;
    bool nested_ = false;
};

}  // namespace tavisk
