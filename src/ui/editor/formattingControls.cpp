// The frame "Basic Appearance" of the editor window.
#include <array>
#include <utility>

#include "ui/editor/editorControls.h"
#include "ui/editor/editorParts.h"
#include "ui/toolkit/nativeExtras.h"

namespace tavisk {
namespace {

/// A label that grows, and what acts on it at the right.
wxSizer* setting(wxStaticText* label, std::initializer_list<wxWindow*> buttons) {
    auto* const sizer = new wxBoxSizer(wxHORIZONTAL);
    sizer->Add(label, wxSizerFlags(1).CentreVertical());
    sizer->AddSpacer(spacing(label));
    sizer->Add(row(buttons), wxSizerFlags().CentreVertical());
    return sizer;
}

/// Rows of one height, so that those of neighbouring frames are on one line.
wxSizer* rows(const wxWindow* frame, std::initializer_list<wxSizer*> sizers) {
    auto* const grid = new wxGridSizer(1, spacing(frame), 0);
    for (wxSizer* sizer : sizers)
        grid->Add(sizer, wxSizerFlags().Expand());
    return grid;
}

std::array<wxButton*, 2> newSteps(wxWindow* parent, const char* name, int smaller,
                                  ControlArray<wxButton>& buttons) {
    const auto add = [&](int index, const char* caption) {
        wxButton* const button = newButton(parent, indexed(name, index), caption, wxBU_EXACTFIT);
        const int side = wxButton::GetDefaultSize(parent).y;
        button->SetMinSize(wxSize(side, side));
        return buttons[index] = button;
    };
    return {add(smaller, "&-"), add(smaller + 2, "&+")};
}

/// Their indices are the bits of the style that they stand for, beginning with bold.
wxSizer* newStyleBoxes(wxWindow* parent, int bold, ControlArray<wxCheckBox>& boxes) {
    const auto add = [&](int bit, const char* caption) {
        return boxes[bit] = newCheckBox(parent, indexed("chkStyle", bit), caption);
    };
    wxCheckBox* const boldBox = add(bold, "&B");
    wxCheckBox* const italicBox = add(bold * 2, "&I");
    wxCheckBox* const underlineBox = add(bold * 4, "&U");
    boldBox->SetFont(boldBox->GetFont().Bold());
    italicBox->SetFont(italicBox->GetFont().Italic());
    underlineBox->SetFont(underlineBox->GetFont().Underlined());
    underlineCaption(*underlineBox);
    // Letters in another font can turn out a little wider on the screen than was measured.
    constexpr int slack = 2;
    for (wxCheckBox* box : {boldBox, italicBox, underlineBox})
        box->SetMinSize(box->GetBestSize() + wxSize(slack, 0));
    return row({boldBox, italicBox, underlineBox});
}

/// The title's and the answer's frame hold the same, with other captions and indices.
struct SideFrame {
    int side;
    const char* edit;
    int smaller;  ///< the font's first button
    int bold;     ///< the first style box
    const char* hide;
};

wxSizer* buildSide(wxStaticBox* frame, const SideFrame& part, EditorControls& controls) {
    const int side = part.side;
    wxStaticText* const colour =
        newFieldLabel(frame, indexed("lblColor", side), "Text Color: #000000",
                      "Text Color: #DDDDDD", wxST_ELLIPSIZE_END, padText);
    setSampleColour(*colour, *wxBLACK);
    controls.lblColor[side] = colour;
    controls.ChangeColor[side] = newButton(frame, indexed("ChangeColor", side), part.edit);

    // Not as wide as a button that closes a window.
    constexpr int padding = 17;
    const int width = colour->GetTextExtent(part.edit).x + colour->FromDIP(2 * padding);
    controls.ChangeColor[side]->SetMinSize(wxSize(width, -1));

    controls.lblFontSize[side] = newFieldLabel(frame, indexed("lblFontSize", side), "Font Size: +0",
                                               "Font Size: +999", wxST_ELLIPSIZE_END);
    const auto [smaller, larger] =
        newSteps(frame, "cmdChangeFont", part.smaller, controls.cmdChangeFont);

    auto* const look = new wxBoxSizer(wxHORIZONTAL);
    look->Add(newStyleBoxes(frame, part.bold, controls.chkStyle), wxSizerFlags().CentreVertical());
    look->AddSpacer(groupSpacing(frame));
    look->AddStretchSpacer();
    controls.chkHidden[side] = newCheckBox(frame, indexed("chkHidden", side), part.hide);
    look->Add(controls.chkHidden[side], wxSizerFlags().CentreVertical());

    return rows(frame, {setting(colour, {controls.ChangeColor[side]}),
                        setting(controls.lblFontSize[side], {smaller, larger}), look});
}

wxSizer* buildGaps(wxStaticBox* frame, EditorControls& controls) {
    const auto gap = [&](int index, const char* caption, const char* widest, int smallerIndex) {
        controls.lblGap[index] =
            newFieldLabel(frame, indexed("lblGap", index), caption, widest, wxST_ELLIPSIZE_END);
        const auto [smaller, larger] =
            newSteps(frame, "cmdMoveGaps", smallerIndex, controls.cmdMoveGaps);
        return setting(controls.lblGap[index], {smaller, larger});
    };
    wxSizer* const above = gap(0, "Gap Above: 0", "Gap Above: 999", 0);
    wxSizer* const below = gap(1, "Gap Below: 0", "Gap Below: 999", 3);

    controls.chkPageBreak = newCheckBox(frame, "chkPageBreak", "&Page Break");
    controls.chkColumnBreak = newCheckBox(frame, "chkColumnBreak", "Column Brea&k");
    auto* const breaks = new wxBoxSizer(wxHORIZONTAL);
    breaks->Add(controls.chkPageBreak, wxSizerFlags().CentreVertical());
    breaks->AddSpacer(spacing(frame));
    breaks->AddStretchSpacer();
    breaks->Add(controls.chkColumnBreak, wxSizerFlags().CentreVertical());
    return rows(frame, {above, below, breaks});
}

}  // namespace

wxSizer* buildFormatting(wxWindow* parent, EditorControls& controls) {
    wxStaticBox* const outer = newFrame(parent, "fraFormatting", "Basic Appearance");
    controls.fraFormatting = outer;
    controls.fraTitle = newFrame(outer, "fraTitle", "Title");
    controls.fraValue = newFrame(outer, "fraValue", "Answer");
    controls.fraGaps = newFrame(outer, "fraGaps", "Gap Control");

    constexpr SideFrame title{0, "&Edit...", 0, 1, "&Hide Title"};
    constexpr SideFrame answer{1, "E&dit...", 3, 8, "Hide &Value"};
    auto* const frames = new wxBoxSizer(wxHORIZONTAL);
    frames->Add(framed(controls.fraTitle, buildSide(controls.fraTitle, title, controls)),
                wxSizerFlags(1).Expand());
    frames->AddSpacer(spacing(outer));
    frames->Add(framed(controls.fraValue, buildSide(controls.fraValue, answer, controls)),
                wxSizerFlags(1).Expand());
    frames->AddSpacer(spacing(outer));
    frames->Add(framed(controls.fraGaps, buildGaps(controls.fraGaps, controls)),
                wxSizerFlags().Expand());

    controls.Label3 =
        newLabel(outer, "Label3", "Note:  For advanced appearance formatting, HTML can be used.");
    auto* const content = new wxBoxSizer(wxVERTICAL);
    content->Add(frames, wxSizerFlags(1).Expand());
    content->AddSpacer(spacing(outer));
    content->Add(controls.Label3);
    return framed(outer, content);
}

}  // namespace tavisk
