// What native controls can do and wxWidgets does not offer.
#pragma once

#include <wx/gdicmn.h>

class wxButton;
class wxCheckBox;
class wxChoice;
class wxDC;
class wxRect;
class wxStaticBox;
class wxStaticText;
class wxTopLevelWindow;
class wxWindow;

namespace tavisk {

/// To be called before the window is first shown. Otherwise the window manager may place it by a
/// size of a few pixels, which is what it has until its frame is known.
void placeByRealSize(wxTopLevelWindow& window);

/// Escape clicks the button when the control that has the focus does not need the key itself, for
/// example to give up what an input method is composing.
void setCancelButton(wxTopLevelWindow& window, wxButton& button);

/// Alt and a letter clicks the button or the box of that mnemonic wherever in the window the focus
/// is; of several with the same one, the next gets the focus.
void letMnemonicsReach(wxTopLevelWindow& window);

/// Whether the desktop has OK at the right of Cancel.
bool okStandsLast();

/// Draws a frame's caption as the desktop does: in bold, in line with what is in the frame.
void styleCaption(wxStaticBox& frame);

/// Draws the caption underlined; the font of a check box does not on every platform.
void underlineCaption(wxCheckBox& box);

/// Wraps the text into the label's width; what does not fit into this many lines is left out.
void wrapText(wxStaticText& label, int lines);

/// Room around the text, for a label with a background of its own. Returns what of it the label's
/// best size does not include.
wxSize padText(wxStaticText& label);

/// Paints what is between the controls of `window` where the desktop leaves that to the program.
void paintGap(wxDC& dc, const wxWindow& window, const wxRect& gap);

/// For a list of thousands of names of any length: opening the window costs no more for them, and a
/// name that is longer than the list is wide is shown with its middle left out, or whole in the
/// open list. To be called before there are names.
void expectManyNames(wxChoice& list);

}  // namespace tavisk
