// Lets the windows work until something has happened.
#pragma once

#include <chrono>
#include <functional>
#include <wx/evtloop.h>

namespace tavisk::test {

/// Handles events until `happened`; false when it has not happened within a time that is far longer
/// than it can take.
inline bool pumpUntil(const std::function<bool()>& happened,
                      std::chrono::seconds limit = std::chrono::seconds(30)) {
    constexpr unsigned long waitMilliseconds = 20;
    const auto end = std::chrono::steady_clock::now() + limit;
    wxGUIEventLoop loop;
    const wxEventLoopActivator active(&loop);
    while (!happened()) {
        if (std::chrono::steady_clock::now() > end) return false;
        loop.DispatchTimeout(waitMilliseconds);
        loop.ProcessIdle();
    }
    return true;
}

/// Handles what is pending, idle work included.
inline void pumpPending() {
    wxGUIEventLoop loop;
    const wxEventLoopActivator active(&loop);
    do {
        while (loop.Pending())
            loop.Dispatch();
    } while (loop.ProcessIdle());
}

}  // namespace tavisk::test
