// The boundary between the toolkit's events and the logic: no exception passes it.
#pragma once

#include <utility>

#include "base/dialogs.h"
#include "base/error.h"

namespace tavisk {

/// Runs one handler. An error ends it and becomes the error report; nothing is thrown.
template <class Handler>
void guarded(Dialogs& dialogs, Handler&& handler) noexcept {
    try {
        std::forward<Handler>(handler)();
    } catch (...) {
        try {
            const RunTimeError error = currentRunTimeError();
            dialogs.messageBox(errorReport(error.number(), error.what()));
        } catch (...) {
            // There is nobody left to tell.
        }
    }
}

}  // namespace tavisk
