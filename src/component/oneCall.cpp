#include "component/oneCall.h"

#include <atomic>
#include <thread>

namespace tavisk {
namespace {

/// The thread of the call that is running; none between calls.
std::atomic<std::thread::id> running;

}  // namespace

OneCall::OneCall() noexcept {
    std::thread::id other;
    const std::thread::id self = std::this_thread::get_id();
    admitted_ = running.compare_exchange_strong(other, self);
    nested_ = !admitted_ && other == self;
}

OneCall::~OneCall() {
    if (admitted_) running = std::thread::id();
}

bool OneCall::isRunning() noexcept { return running.load() != std::thread::id(); }

}  // namespace tavisk
