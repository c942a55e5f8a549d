#include "ui/editor/editorParts.h"

#include <cmath>

#include "ui/toolkit/nativeExtras.h"
#include "ui/toolkit/strings.h"

namespace tavisk {
namespace {

/// Only what does not fit needs a tool tip; whether it does can change with the window's size.
void updateToolTip(wxStaticText& label) {
    label.InvalidateBestSize();
    const bool fits = label.GetBestSize().x <= label.GetSize().x;
    const wxString tip = fits ? wxString() : label.GetLabelText();
    if (label.GetToolTipText() != tip) label.SetToolTip(tip);
}

/// Relative brightness as the eye sees it, 0 to 1.
double luminance(const wxColour& colour) {
    const auto linear = [](unsigned char part) {
        const double value = part / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.Red()) + 0.7152 * linear(colour.Green()) +
           0.0722 * linear(colour.Blue());
}

/// A static box asks for room for its controls as they are placed now, so that it could never
/// become smaller again. What they need is known to the sizer.
class Frame final : public wxStaticBox {
public:
    using wxStaticBox::wxStaticBox;

protected:
    wxSize DoGetBestSize() const override { return GetTextExtent(GetLabelText()); }
};

}  // namespace

int spacing(const wxWindow* window) { return window->FromDIP(6); }

int groupSpacing(const wxWindow* window) { return window->FromDIP(12); }

wxString indexed(const char* name, int index) { return wxString::Format("%s(%d)", name, index); }

wxButton* newButton(wxWindow* parent, const wxString& name, const wxString& caption, long style) {
    return new wxButton(parent, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, style,
                        wxDefaultValidator, name);
}

wxCheckBox* newCheckBox(wxWindow* parent, const wxString& name, const wxString& caption) {
    return new wxCheckBox(parent, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, 0,
                          wxDefaultValidator, name);
}

wxStaticText* newLabel(wxWindow* parent, const wxString& name, const wxString& caption,
                       long style) {
    return new wxStaticText(parent, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, style,
                            name);
}

wxStaticText* newFieldLabel(wxWindow* parent, const wxString& name, const wxString& caption,
                            const wxString& widest, long elide, wxSize (*look)(wxStaticText&)) {
    wxStaticText* const label = newLabel(parent, name, widest, wxST_NO_AUTORESIZE | elide);
    const wxSize besides = look ? look(*label) : wxSize(0, 0);
    label->InvalidateBestSize();
    label->SetMinSize(label->GetBestSize() + besides);
    label->SetLabelText(caption);
    label->Bind(wxEVT_SIZE, [label](wxSizeEvent& event) {
        updateToolTip(*label);
        event.Skip();
    });
    return label;
}

wxStaticBox* newFrame(wxWindow* parent, const wxString& name, const wxString& caption) {
    auto* const frame =
        new Frame(parent, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, 0, name);
    styleCaption(*frame);
    return frame;
}

wxSizer* framed(wxStaticBox* frame, wxSizer* content) {
    auto* const sizer = new wxStaticBoxSizer(frame, wxVERTICAL);
    sizer->Add(content, wxSizerFlags(1).Expand().Border(wxALL, spacing(frame)));
    return sizer;
}

wxSizer* row(std::initializer_list<wxWindow*> controls) {
    auto* const sizer = new wxBoxSizer(wxHORIZONTAL);
    for (wxWindow* control : controls) {
        if (!sizer->IsEmpty()) sizer->AddSpacer(spacing(control));
        sizer->Add(control, wxSizerFlags().CentreVertical());
    }
    return sizer;
}

void setFieldText(wxStaticText& label, const std::string& utf8) {
    const wxString text = toWx(utf8);
    if (label.GetLabelText() == text) return;
    label.SetLabelText(text);
    updateToolTip(label);
}

void setSampleColour(wxStaticText& label, const wxColour& colour) {
    if (label.GetForegroundColour() == colour && label.UseBackgroundColour()) return;
    // The page is white, so the label is, too, unless its text could not be read on white.
    constexpr double leastContrast = 3;
    const double contrast = 1.05 / (luminance(colour) + 0.05);
    label.SetForegroundColour(colour);
    label.SetBackgroundColour(contrast < leastContrast ? *wxBLACK : *wxWHITE);
}

}  // namespace tavisk
