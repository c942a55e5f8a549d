// What starting and sharing a toolkit asks of the one below wxWidgets.
#pragma once

#include <functional>
#include <memory>

class wxTopLevelWindow;
class wxGUIEventLoop;

namespace tavisk {

/// Whether the native toolkit can run on this thread beside what the process already holds: error
/// 361 if not.
void checkNativeToolkit();

/// Runs `start`, keeping from the host what its native parts print or put into the environment.
bool startQuietly(const std::function<bool()>& start);

/// Input to other windows of the process, wxWidgets' or not, is held back while `modal`.
void setModal(wxTopLevelWindow& frame, bool modal);

/// One pass over the native events.
void dispatchPendingOnce();

/// A loop inside the host's own, whichever that is; ending it does not end the host's.
std::unique_ptr<wxGUIEventLoop> newNestedLoop();

}  // namespace tavisk
