// The frame "Editing" of the editor window.
#include <wx/choice.h>

#include "ui/editor/answerBox.h"
#include "ui/editor/editorControls.h"
#include "ui/editor/editorParts.h"
#include "ui/editor/pictureBox.h"
#include "ui/toolkit/accessible.h"
#include "ui/toolkit/nativeExtras.h"

namespace tavisk {
namespace {

wxChoice* newList(wxWindow* parent, const wxString& name) {
    auto* const list = new wxChoice(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr,
                                    0, wxDefaultValidator, name);
    // Names may be of any length; the list shows what it has room for.
    constexpr int width = 100;
    list->SetMinSize(list->FromDIP(wxSize(width, -1)));
    expectManyNames(*list);
    return list;
}

wxSizer* captioned(wxStaticText* label, wxWindow* control) {
    auto* const sizer = new wxBoxSizer(wxHORIZONTAL);
    sizer->Add(label, wxSizerFlags().CentreVertical());
    sizer->AddSpacer(spacing(label));
    sizer->Add(control, wxSizerFlags(1).CentreVertical());
    return sizer;
}

/// Two buttons in a row, all of one width.
wxSizer* buttonGrid(std::initializer_list<wxButton*> buttons) {
    const int distance = spacing(*buttons.begin());
    auto* const grid = new wxGridSizer(2, distance, distance);
    for (wxButton* button : buttons)
        grid->Add(button, wxSizerFlags().Expand());
    return grid;
}

wxSizer* buildFormulas(wxStaticBox* frame, EditorControls& controls) {
    const char* const noHelp = "Description: No help exists for the selected formula.";
    controls.lblFormulaHelp =
        newLabel(frame, "lblFormulaHelp", noHelp, wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
    controls.Label4 = newLabel(frame, "Label4", "Auto-formula Insertion:");
    controls.lstFormulas = newList(frame, "lstFormulas");
    controls.cmdInsertFormulaAtCursor =
        newButton(frame, "cmdInsertFormulaAtCursor", "In&sert At Cursor");
    controls.cmdInsertFormulaAtEnd = newButton(frame, "cmdInsertFormulaAtEnd", "Insert A&t End");
    controls.cmdFormulaAdd = newButton(frame, "cmdFormulaAdd", "&Add formula");
    controls.cmdFormulaDel = newButton(frame, "cmdFormulaDel", "Remove formu&la");

    constexpr int helpLines = 2;
    wrapText(*controls.lblFormulaHelp, helpLines);
    controls.lblFormulaHelp->SetMinSize(
        wxSize(1, helpLines * controls.lblFormulaHelp->GetCharHeight()));

    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(captioned(controls.Label4, controls.lstFormulas), wxSizerFlags().Expand());
    sizer->AddSpacer(spacing(frame));
    sizer->Add(buttonGrid({controls.cmdInsertFormulaAtCursor, controls.cmdInsertFormulaAtEnd,
                           controls.cmdFormulaAdd, controls.cmdFormulaDel}));
    sizer->AddSpacer(spacing(frame));
    sizer->Add(controls.lblFormulaHelp, wxSizerFlags(1).Expand());
    return sizer;
}

wxSizer* buildImages(wxStaticBox* frame, EditorControls& controls) {
    controls.Label6 = newLabel(frame, "Label6", "Auto-Image Insertion:");
    controls.lstImages = newList(frame, "lstImages");
    controls.cmdInsertImage = newButton(frame, "cmdInsertImage", "In&sert At Cursor");
    controls.cmdAppendImage = newButton(frame, "cmdAppendImage", "Insert A&t End");
    controls.cmdImageOverlay = newButton(frame, "cmdImageOverlay", "Insert As Overla&y");
    controls.cmdExternImage = newButton(frame, "cmdExternImage", "E&xternal Image");
    controls.cmdImageAdd = newButton(frame, "cmdImageAdd", "Add i&mage");
    controls.cmdImageDel = newButton(frame, "cmdImageDel", "Remove Ima&ge");

    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(captioned(controls.Label6, controls.lstImages), wxSizerFlags().Expand());
    sizer->AddSpacer(spacing(frame));
    sizer->Add(
        buttonGrid({controls.cmdInsertImage, controls.cmdAppendImage, controls.cmdImageOverlay,
                    controls.cmdExternImage, controls.cmdImageAdd, controls.cmdImageDel}));
    return sizer;
}

}  // namespace

wxSizer* buildEditing(wxWindow* parent, EditorControls& controls) {
    wxStaticBox* const frame = newFrame(parent, "fraEditor", "Editing");
    controls.fraEditor = frame;

    controls.Label1 = newLabel(frame, "Label1", "Current Field:");
    controls.lblCurrentField =
        newFieldLabel(frame, "lblCurrentField", "", "WWWWWWWWWW", wxST_ELLIPSIZE_MIDDLE);
    controls.Label2 = newLabel(frame, "Label2", "Information Text:");
    controls.txtValue = new AnswerBox(frame);
    controls.txtValue->SetName("txtValue");
    controls.txtValue->Disable();
    wxSizer* const formulas = buildFormulas(frame, controls);
    wxSizer* const images = buildImages(frame, controls);
    controls.Picture1 = new PictureBox(frame);
    controls.Picture1->SetName("Picture1");
    setAccessiblePicture(*controls.Picture1, "Picture preview");

    const wxSize leastText(200, 72);
    controls.txtValue->SetMinSize(frame->FromDIP(leastText));
    const wxSize leastPicture(120, 72);
    controls.Picture1->SetMinSize(frame->FromDIP(leastPicture));

    auto* const text = new wxBoxSizer(wxHORIZONTAL);
    text->Add(controls.txtValue, wxSizerFlags(4).Expand());
    text->AddSpacer(groupSpacing(frame));
    text->Add(controls.Picture1, wxSizerFlags(1).Expand());

    auto* const insertion = new wxBoxSizer(wxHORIZONTAL);
    insertion->Add(formulas, wxSizerFlags(1).Expand());
    insertion->AddSpacer(groupSpacing(frame));
    insertion->Add(images, wxSizerFlags(1).Expand());

    auto* const content = new wxBoxSizer(wxVERTICAL);
    content->Add(captioned(controls.Label1, controls.lblCurrentField), wxSizerFlags().Expand());
    content->AddSpacer(spacing(frame));
    content->Add(controls.Label2);
    content->AddSpacer(spacing(frame));
    content->Add(text, wxSizerFlags(1).Expand());
    content->AddSpacer(groupSpacing(frame));
    content->Add(insertion, wxSizerFlags().Expand());
    return framed(frame, content);
}

}  // namespace tavisk
