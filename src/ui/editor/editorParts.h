// The parts that the editor window is built of, and the helpers that they share.
#pragma once

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

class wxFrame;

namespace tavisk {

struct EditorControls;

/// Distances as on the desktop, in pixels of the window's screen: within a group, and between
/// groups and around the window.
int spacing(const wxWindow* window);
int groupSpacing(const wxWindow* window);

/// "name(index)"
wxString indexed(const char* name, int index);

wxButton* newButton(wxWindow* parent, const wxString& name, const wxString& caption,
                    long style = 0);
wxCheckBox* newCheckBox(wxWindow* parent, const wxString& name, const wxString& caption);
wxStaticText* newLabel(wxWindow* parent, const wxString& name, const wxString& caption,
                       long style = 0);
/// A label for texts of any length: it keeps room for `widest`, and `elide` (wxST_ELLIPSIZE_...)
/// says where a longer text gives way. `look` changes how it is drawn and returns the room that
/// this needs besides.
wxStaticText* newFieldLabel(wxWindow* parent, const wxString& name, const wxString& caption,
                            const wxString& widest, long elide,
                            wxSize (*look)(wxStaticText&) = nullptr);

/// A frame with its caption; `content` is laid out in it with the usual distance to its border.
wxStaticBox* newFrame(wxWindow* parent, const wxString& name, const wxString& caption);
wxSizer* framed(wxStaticBox* frame, wxSizer* content);

/// Controls beside each other, with the usual distance.
wxSizer* row(std::initializer_list<wxWindow*> controls);

// Each fills its fields of `controls` and returns what is to be laid out.
wxSizer* buildEditing(wxWindow* parent, EditorControls& controls);
wxSizer* buildFormatting(wxWindow* parent, EditorControls& controls);
void buildMenus(wxFrame& frame, EditorControls& controls);
void buildToolbar(wxFrame& frame, EditorControls& controls);

/// Gives the controls of a window the names and tool tips that their captions do not say.
void describeControls(wxWindow& window);

}  // namespace tavisk
