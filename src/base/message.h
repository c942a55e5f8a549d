// Message boxes as data: what is shown, and what can be answered.
#pragma once

#include <string>

namespace tavisk {

/// Button and icon codes of the message boxes in use.
enum class BoxStyle : int {
    ok = 0,
    okCritical = 16,
    okCancelQuestion = 33,
    yesNoCancelQuestion = 35,
    okInformation = 64,
};

enum class Answer : int { ok = 1, cancel = 2, yes = 6, no = 7 };

inline constexpr const char* defaultTitle = "Tavisk";

struct Message {
    std::string text;
    std::string title = defaultTitle;
    BoxStyle style = BoxStyle::ok;

    bool operator==(const Message&) const = default;
};

/// The platform's report of an error that a handler did not expect.
Message errorReport(int number, const std::string& text);

}  // namespace tavisk
