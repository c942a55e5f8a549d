// The handlers behind the property panel's controls.
#pragma once

#include "base/dialogs.h"
#include "editor/formatting.h"

namespace tavisk {

class HelpSession;

/// Each does nothing while no node is selected, except that `clickStyle` clears the box again.
/// Error 6 leaves the attribute as it was.
void changeFontSize(HelpSession& session, int index);
void moveGap(HelpSession& session, int index);
void changeColour(HelpSession& session, Side side, Dialogs& dialogs,
                  OleTranslateColor translate = plainColour);
/// `box` counts from 0 in the order of `styleBits`; its bit is added to or subtracted from the
/// number.
void clickStyle(HelpSession& session, int box, bool ticked);
void clickHidden(HelpSession& session, Side side, bool ticked);
void clickColumnBreak(HelpSession& session, bool ticked);
void clickPageBreak(HelpSession& session, bool ticked);

}  // namespace tavisk
