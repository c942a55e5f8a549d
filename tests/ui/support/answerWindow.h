// A window with an answer box as the editor has it: a session behind the box, and a control before
// and after it.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <wx/button.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/uiaction.h>

#include "base/error.h"
#include "editor/answerText.h"
#include "editor/editorSession.h"
#include "ui/editor/answerBox.h"
#include "ui/support/pump.h"
#include "ui/toolkit/strings.h"

namespace tavisk::test {

/// The colour that each character of the control has on the screen: '.' black, 'b' blue, 'g' green,
/// 'o' olive, '?' any other; of those from `from` up to `to`.
std::string shownColours(const AnswerBox& box, std::size_t from = 0,
                         std::size_t to = std::string::npos);

// One of two code units is one character here, whatever the control counts.
std::size_t characterCount(std::u16string_view text);
std::size_t unitBehind(std::u16string_view text, std::size_t characters);

/// The control's own position behind so many characters.
long placeBehind(const AnswerBox& box, std::size_t characters);

/// Selects whole characters, counted from 0.
void selectCharacters(AnswerBox& box, std::size_t from, std::size_t to);

/// What the rule asks for, character by character: black, then every pair of backquotes in turn.
std::string ruledColours(std::u16string_view text);

/// The first character that can be seen, and the one behind the last.
std::pair<std::size_t, std::size_t> seenCharacters(const AnswerBox& box);

/// How many pieces of different colours each line has at most.
std::size_t mostPiecesInLine(const AnswerBox& box);

/// How far the view is scrolled down, in pixels.
double scrolledBy(const AnswerBox& box);

/// How many pixels of the box, as it is drawn now, have which colour (0x00BBGGRR).
using Drawing = std::map<Colour, std::size_t>;
Drawing drawingOf(const AnswerBox& box);

/// The colour that covers most of it.
Colour paperOf(const Drawing& drawing);

/// An input method of which nothing is installed: Ctrl+Shift+U and the number of a character.
void usePlainInputMethod(const AnswerBox& box);

/// The desktop's own themes, light or dark.
void useDarkTheme(bool dark);

class AnswerWindow {
public:
    AnswerWindow() {
        auto* const column = new wxBoxSizer(wxVERTICAL);
        for (wxWindow* control : {static_cast<wxWindow*>(before), static_cast<wxWindow*>(box)})
            column->Add(control, control == box ? 1 : 0, wxEXPAND | wxALL, border);
        column->Add(after, 0, wxEXPAND | wxALL, border);
        panel->SetSizer(column);
        frame->SetClientSize(width, height);
        box->Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
            ++changes;
            try {
                if (change) change();
            } catch (const RunTimeError& failure) {
                error = failure.number();
            }
        });
    }
    AnswerWindow(const AnswerWindow&) = delete;
    AnswerWindow& operator=(const AnswerWindow&) = delete;
    ~AnswerWindow() {
        delete frame;
        pumpPending();
    }

    /// Shown on the screen, with the focus in the box.
    void open() {
        frame->Show();
        frame->Raise();
        box->SetFocus();
        ASSERT_TRUE(pumpUntil([this] { return frame->IsActive() && box->HasFocus(); }));
    }
    /// The session's text as after a click on another node.
    void showNode(const std::u16string& text) {
        changeAnswerText(editor.session, text);
        box->showOther(panelText().text, panelText().tokens);
    }
    /// The session's text as after a command.
    void showCommand() { box->show(panelText().text, panelText().tokens); }

    /// By real keys, which arrive in their time: wait for what they do.
    void type(const char* text) { wxUIActionSimulator().Text(text); }
    void press(int key, int modifiers = wxMOD_NONE) { wxUIActionSimulator().Char(key, modifiers); }
    bool becomes(const std::u16string& text) {
        return pumpUntil([&] { return box->text() == text; });
    }

    NodePanel& panelText() { return editor.session.panel; }
    std::string value() {
        return std::string(GetAttributeValue(editor.session.currentnode, "value", "(none)"));
    }

    static constexpr int width = 500;
    static constexpr int height = 260;
    static constexpr int border = 8;

    EditorSession editor{"<a/><b/>"};
    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "Answer");
    wxPanel* panel = new wxPanel(frame);
    wxButton* before = new wxButton(panel, wxID_ANY, "Before");
    AnswerBox* box = new AnswerBox(panel);
    wxButton* after = new wxButton(panel, wxID_ANY, "After");
    int changes = 0;  ///< how often the box told of a change
    int error = 0;    ///< of the last change that failed
    /// As the editor handles it.
    std::function<void()> change = [this] {
        changeAnswerText(editor.session, box->text());
        box->colour(panelText().text, panelText().tokens);
    };
};

}  // namespace tavisk::test
