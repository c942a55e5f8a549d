// What starting and sharing a toolkit asks of the one below wxWidgets.
#pragma once

#include <memory>

class wxApp;
class wxTopLevelWindow;
class wxGUIEventLoop;

namespace tavisk {

/// Starts the native toolkit, or joins the one that runs already. Error 361 when there is no
/// display, or when it cannot run on this thread beside what the process holds.
void startNativeToolkit();

/// An application for wxWidgets that takes the native toolkit as it runs and leaves the host's
/// environment and standard streams alone.
wxApp* newApplication();

/// Input to other windows of the process, wxWidgets' or not, is held back while `modal`.
void setModal(wxTopLevelWindow& frame, bool modal);

/// One pass over the native events.
void dispatchPendingOnce();

/// Whether the event being handled is a request that came over the accessibility bus. The bus is
/// silent until its request has been answered: a window opened meanwhile would be mute.
bool isInsideAccessibilityRequest();

/// A loop inside the host's own, whichever that is; ending it does not end the host's.
std::unique_ptr<wxGUIEventLoop> newNestedLoop();

}  // namespace tavisk
