// Real dialogs answered by a script: title, text and icon are compared when a dialog opens, then it
// is answered without being shown. A dialog that is not expected, and one that never opens, fail
// the test.
#pragma once

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>
#include <wx/colordlg.h>
#include <wx/filedlg.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textdlg.h>

#include "ui/toolkit/strings.h"

namespace tavisk::test {

/// Puts a colour into the native dialog, from which it is read after OK.
void chooseInDialog(wxColourDialog& dialog, const wxColour& colour);
/// The same for a path.
void chooseInDialog(wxFileDialog& dialog, const std::string& path);

class DialogAnswers final : public wxModalDialogHook {
public:
    DialogAnswers() { Register(); }
    ~DialogAnswers() override {
        for (const Step& step : script_)
            ADD_FAILURE() << "never shown: " << step.what;
    }

    /// `style` as wxWidgets has it, for example wxOK | wxICON_ERROR; `answer` is wxID_YES and so
    /// on.
    DialogAnswers& expectBox(const std::string& text, const std::string& title, long style,
                             int answer = wxID_OK) {
        return expect(boxLine(text, title, style), [answer](wxDialog*) { return answer; });
    }
    /// An empty answer is Cancel.
    DialogAnswers& expectPrompt(const std::string& prompt, const std::string& title,
                                const std::string& defaultText, const std::string& answer) {
        return expect(promptLine(prompt, title, defaultText), [answer](wxDialog* dialog) {
            if (answer.empty()) return static_cast<int>(wxID_CANCEL);
            static_cast<wxTextEntryDialog*>(dialog)->SetValue(toWx(answer));
            return static_cast<int>(wxID_OK);
        });
    }
    /// An empty path is Cancel. The file need not be there, its folder must.
    DialogAnswers& expectOpenFile(const std::string& wildcard, const std::string& path) {
        return expect("open " + wildcard, [path](wxDialog* dialog) {
            if (path.empty()) return static_cast<int>(wxID_CANCEL);
            chooseInDialog(static_cast<wxFileDialog&>(*dialog), path);
            return static_cast<int>(wxID_OK);
        });
    }
    DialogAnswers& expectColour(const wxColour& colour, int answer = wxID_OK) {
        return expect("colour", [colour, answer](wxDialog* dialog) {
            chooseInDialog(static_cast<wxColourDialog&>(*dialog), colour);
            return answer;
        });
    }
    /// Runs when the dialog expected last opens.
    DialogAnswers& during(std::function<void()> action) {
        script_.back().action = std::move(action);
        return *this;
    }

    bool finished() const { return script_.empty(); }
    /// Every dialog that opened.
    const std::vector<std::string>& shown() const { return shown_; }

protected:
    int Enter(wxDialog* dialog) override {
        shown_.push_back(lineOf(dialog));
        if (script_.empty()) {
            ADD_FAILURE() << "nothing expected, but shown: " << shown_.back();
            return wxID_CANCEL;
        }
        const Step step = std::move(script_.front());
        script_.pop_front();
        EXPECT_EQ(shown_.back(), step.what);
        if (step.action) step.action();
        return step.answer(dialog);
    }

private:
    struct Step {
        std::string what;
        std::function<int(wxDialog*)> answer;
        std::function<void()> action;
    };

    static std::string boxLine(const std::string& text, const std::string& title, long style) {
        return "box " + std::to_string(style) + " [" + title + "] " + text;
    }
    static std::string promptLine(const std::string& prompt, const std::string& title,
                                  const std::string& defaultText) {
        return "prompt [" + title + "] " + prompt + " <" + defaultText + ">";
    }
    /// A line is a label, an empty one a space between labels.
    static std::string textOf(const wxTextEntryDialog& prompt) {
        const wxSizer* lines = nullptr;
        for (const wxWindow* child : prompt.GetChildren()) {
            if (dynamic_cast<const wxStaticText*>(child)) lines = child->GetContainingSizer();
        }
        std::string text;
        if (!lines) return text;
        for (const wxSizerItem* item : lines->GetChildren()) {
            if (item != lines->GetChildren().front()) text += '\n';
            if (const auto* label = dynamic_cast<const wxStaticText*>(item->GetWindow()))
                text += utf8Of(label->GetLabelText());
        }
        return text;
    }
    static std::string lineOf(wxDialog* dialog) {
        const std::string title = utf8Of(dialog->GetTitle());
        if (const auto* box = dynamic_cast<wxMessageDialogBase*>(dialog)) {
            constexpr long shown = wxOK | wxCANCEL | wxYES_NO | wxICON_MASK;
            return boxLine(utf8Of(box->GetMessage()), title, box->GetMessageDialogStyle() & shown);
        }
        if (const auto* prompt = dynamic_cast<wxTextEntryDialog*>(dialog)) {
            return promptLine(textOf(*prompt), title, utf8Of(prompt->GetValue()));
        }
        if (const auto* file = dynamic_cast<wxFileDialog*>(dialog))
            return "open " + utf8Of(file->GetWildcard());
        if (dynamic_cast<wxColourDialog*>(dialog)) return "colour";
        return "dialog " + title;
    }

    DialogAnswers& expect(std::string what, std::function<int(wxDialog*)> answer) {
        script_.push_back({std::move(what), std::move(answer), {}});
        return *this;
    }

    std::deque<Step> script_;
    std::vector<std::string> shown_;
};

}  // namespace tavisk::test
