// Dialogs answered by a script: the boxes and prompts that a test expects, in order, with the
// answers. A dialog that the script does not have next, and one that is never shown, fail the test.
#pragma once

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/dialogs.h"
#include "base/error.h"

namespace tavisk::test {

class ScriptedDialogs final : public Dialogs {
public:
    ScriptedDialogs() = default;
    ScriptedDialogs(const ScriptedDialogs&) = delete;
    ScriptedDialogs& operator=(const ScriptedDialogs&) = delete;
    ~ScriptedDialogs() override {
        for (const Step& step : script_)
            ADD_FAILURE() << "never shown: " << step.what;
    }

    ScriptedDialogs& expectBox(const Message& message, Answer answer = Answer::ok) {
        return expect(lineOf(message)).answering(answer);
    }
    ScriptedDialogs& expectBox(std::string text, std::string title, BoxStyle style,
                               Answer answer = Answer::ok) {
        return expectBox(Message{std::move(text), std::move(title), style}, answer);
    }
    ScriptedDialogs& expectPrompt(std::string_view prompt, std::string_view title,
                                  std::string_view defaultText, std::string answer) {
        return expect(lineOfPrompt(prompt, title, defaultText)).answering(std::move(answer));
    }
    ScriptedDialogs& expectOpenFile(std::string_view filter, std::string path) {
        return expect(lineOfFilter(filter)).answering(std::move(path));
    }
    ScriptedDialogs& expectColour(Colour colour) {
        expect("colour");
        script_.back().colour = colour;
        return *this;
    }

    /// The step expected last ends in this error instead of its answer.
    ScriptedDialogs& failing(ErrorNumber number) {
        script_.back().error = number;
        return *this;
    }
    /// Runs while the step expected last is on the screen.
    ScriptedDialogs& during(std::function<void()> action) {
        script_.back().action = std::move(action);
        return *this;
    }

    /// Everything shown so far, one text each.
    const std::vector<std::string>& shown() const noexcept { return shown_; }
    bool finished() const noexcept { return script_.empty(); }

    Answer messageBox(const Message& message) override { return next(lineOf(message)).box; }
    std::string inputBox(std::string_view prompt, std::string_view title,
                         std::string_view defaultText) override {
        return next(lineOfPrompt(prompt, title, defaultText)).text;
    }
    std::string openFile(std::string_view filter) override {
        return next(lineOfFilter(filter)).text;
    }
    Colour chooseColour() override { return next("colour").colour; }

private:
    struct Step {
        std::string what;
        Answer box = Answer::cancel;
        std::string text;
        Colour colour = 0;
        std::optional<ErrorNumber> error;
        std::function<void()> action;
    };

    static std::string lineOf(const Message& message) {
        return "box " + std::to_string(static_cast<int>(message.style)) + " [" + message.title +
               "] " + message.text;
    }
    static std::string lineOfPrompt(std::string_view prompt, std::string_view title,
                                    std::string_view defaultText) {
        return "prompt [" + std::string(title) + "] " + std::string(prompt) + " <" +
               std::string(defaultText) + ">";
    }
    static std::string lineOfFilter(std::string_view filter) {
        return "open " + std::string(filter);
    }

    ScriptedDialogs& expect(std::string what) {
        script_.emplace_back().what = std::move(what);
        return *this;
    }
    ScriptedDialogs& answering(Answer answer) {
        script_.back().box = answer;
        return *this;
    }
    ScriptedDialogs& answering(std::string text) {
        script_.back().text = std::move(text);
        return *this;
    }

    Step next(std::string what) {
        shown_.push_back(what);
        if (script_.empty()) {
            ADD_FAILURE() << "nothing expected, but shown: " << what;
            return {};
        }
        Step step = std::move(script_.front());
        script_.pop_front();
        EXPECT_EQ(what, step.what);
        if (step.action) step.action();
        if (step.error) raise(*step.error);
        return step;
    }

    std::deque<Step> script_;
    std::vector<std::string> shown_;
};

}  // namespace tavisk::test
