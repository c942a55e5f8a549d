// The controls of the editor window, with their names, captions and places.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

class wxButton;
class wxCheckBox;
class wxChoice;
class wxColour;
class wxFrame;
class wxMenuItem;
class wxStaticBox;
class wxStaticText;
class wxToolBar;

namespace tavisk {

class AnswerBox;
class HelpTree;
class PictureBox;

/// Controls that share a name and differ by an index; the window's name is "name(index)".
template <class Control>
using ControlArray = std::map<int, Control*>;

/// The window owns the controls. A frame is the parent of the controls that it contains.
struct EditorControls {
    wxButton* cmdOK = nullptr;
    wxButton* cmdCancel = nullptr;
    wxButton* cmdRefreshButton = nullptr;
    wxButton* cmdPreview = nullptr;
    wxToolBar* toolNodes = nullptr;
    HelpTree* TreeXML = nullptr;

    wxStaticBox* fraFormatting = nullptr;
    wxStaticBox* fraGaps = nullptr;
    wxStaticBox* fraValue = nullptr;
    wxStaticBox* fraTitle = nullptr;
    wxStaticBox* fraEditor = nullptr;

    wxCheckBox* chkPageBreak = nullptr;
    wxCheckBox* chkColumnBreak = nullptr;
    ControlArray<wxButton> cmdMoveGaps;
    ControlArray<wxStaticText> lblGap;
    ControlArray<wxCheckBox> chkHidden;
    ControlArray<wxButton> cmdChangeFont;
    ControlArray<wxButton> ChangeColor;
    ControlArray<wxCheckBox> chkStyle;
    ControlArray<wxStaticText> lblFontSize;
    ControlArray<wxStaticText> lblColor;
    wxStaticText* Label3 = nullptr;

    wxStaticText* Label1 = nullptr;
    wxStaticText* lblCurrentField = nullptr;
    wxStaticText* Label2 = nullptr;
    AnswerBox* txtValue = nullptr;
    wxStaticText* Label4 = nullptr;
    wxChoice* lstFormulas = nullptr;
    wxButton* cmdInsertFormulaAtCursor = nullptr;
    wxButton* cmdInsertFormulaAtEnd = nullptr;
    wxStaticText* lblFormulaHelp = nullptr;
    wxButton* cmdFormulaAdd = nullptr;
    wxButton* cmdFormulaDel = nullptr;
    wxStaticText* Label6 = nullptr;
    wxChoice* lstImages = nullptr;
    wxButton* cmdInsertImage = nullptr;
    wxButton* cmdAppendImage = nullptr;
    wxButton* cmdImageOverlay = nullptr;
    wxButton* cmdExternImage = nullptr;
    wxButton* cmdImageAdd = nullptr;
    wxButton* cmdImageDel = nullptr;
    PictureBox* Picture1 = nullptr;

    wxMenuItem* cmdRefresh = nullptr;
    wxMenuItem* cmdExit = nullptr;
};

/// Menu and toolbar identifiers of `nodeCommands()[index]`.
int menuId(std::size_t index);
int toolId(std::size_t index);

/// Fills an empty frame with controls, menus and toolbar, in the state before the first selection.
EditorControls buildEditor(wxFrame& frame);

/// What a label shows may be longer than its place: the tool tip has it all then.
void setFieldText(wxStaticText& label, const std::string& utf8);

/// Shows a label in a node's own colour, on a ground that keeps it readable in every theme.
void setSampleColour(wxStaticText& label, const wxColour& colour);

}  // namespace tavisk
