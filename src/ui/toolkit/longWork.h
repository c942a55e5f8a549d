// Work that may take long: the user sees that it goes on.
#pragma once

#include <chrono>
#include <functional>

class wxWindow;

namespace tavisk {

/// How long work runs before the user sees something of it.
struct Patience {
    std::chrono::milliseconds beforeCursor{200};
    std::chrono::milliseconds beforeDialog{2000};
};

/// Runs `work`, which touches no window, on a thread of its own and returns when it is done; its
/// exception travels. First the pointer becomes the wait cursor, then a progress dialog says
/// `what`. No event reaches another window meanwhile.
void runLongWork(wxWindow* parent, const char* what, const std::function<void()>& work,
                 Patience patience = {});

}  // namespace tavisk
