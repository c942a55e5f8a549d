#include "ui/toolkit/wxDialogs.h"

#include <wx/colordlg.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>
#include <wx/textdlg.h>

#include "base/text.h"
#include "ui/toolkit/strings.h"

namespace tavisk {
namespace {

long styleOf(BoxStyle style) {
    switch (style) {
        case BoxStyle::ok: return wxOK | wxICON_NONE;
        case BoxStyle::okCritical: return wxOK | wxICON_ERROR;
        case BoxStyle::okCancelQuestion: return wxOK | wxCANCEL | wxICON_QUESTION;
        case BoxStyle::yesNoCancelQuestion: return wxYES_NO | wxCANCEL | wxICON_QUESTION;
        case BoxStyle::okInformation: return wxOK | wxICON_INFORMATION;
    }
    return wxOK;
}

Answer answerOf(int button) {
    switch (button) {
        case wxID_YES: return Answer::yes;
        case wxID_NO: return Answer::no;
        case wxID_OK: return Answer::ok;
        default: return Answer::cancel;
    }
}

/// "Description (*.a; *.b)" with the patterns as the dialog wants them.
wxString wildcard(const wxString& description) {
    wxString patterns = description.AfterFirst('(').BeforeLast(')');
    patterns.Replace(" ", "");
    return patterns.empty() ? description : description + "|" + patterns;
}

}  // namespace

Answer WxDialogs::messageBox(const Message& message) {
    prepare();
    wxMessageDialog box(parent_, toWx(replaceAll(message.text, "\r\n", "\n")), toWx(message.title),
                        styleOf(message.style));
    return answerOf(box.ShowModal());
}

std::string WxDialogs::inputBox(std::string_view prompt, std::string_view title,
                                std::string_view defaultText) {
    prepare();
    wxTextEntryDialog box(parent_, toWx(replaceAll(prompt, "\r\n", "\n")), toWx(title),
                          toWx(defaultText));
    return box.ShowModal() == wxID_OK ? utf8Of(box.GetValue()) : std::string();
}

std::string WxDialogs::openFile(std::string_view filter) {
    prepare();
    wxFileDialog dialog(parent_, wxFileSelectorPromptStr, wxString(), wxString(),
                        wildcard(toWx(filter)), wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    return dialog.ShowModal() == wxID_OK ? utf8Of(dialog.GetPath()) : std::string();
}

Colour WxDialogs::chooseColour() {
    prepare();
    wxColourDialog dialog(parent_);
    if (dialog.ShowModal() == wxID_OK)
        lastColour_ = dialog.GetColourData().GetColour().GetRGB() & 0xFFFFFFU;
    return lastColour_;
}

}  // namespace tavisk
