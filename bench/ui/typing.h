// Keys as a user types them, and what they cost until they can be seen.
#pragma once

class wxTextCtrl;

namespace tavisk::bench {

/// Sends one key press and its release to a control, as if it came from the display; it returns
/// when they have been handled, before anything is painted.
void pressKey(wxTextCtrl& control, char character);

/// Lets the windows work until the control has been painted and nothing is left to do. Waiting
/// costs no processor time.
void untilPainted(wxTextCtrl& control);

/// Processor time of this process so far, in seconds: a screen shows a new picture 60 times a
/// second at most, and waiting for that is no work.
double processorTime();

}  // namespace tavisk::bench
