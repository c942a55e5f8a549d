// The questions to the user as real dialogs.
#pragma once

#include <string>
#include <string_view>

#include "platform/dialogs.h"

class wxWindow;

namespace tavisk {

/// Dialogs over one window, or over none. Closing an OK and Cancel box by its window is Cancel.
class WxDialogs final : public Dialogs {
public:
    explicit WxDialogs(wxWindow* parent) : parent_(parent) {}

    Answer messageBox(const Message& message) override;
    std::string inputBox(std::string_view prompt, std::string_view title,
                         std::string_view defaultText) override;
    /// `filter` is the description, with the patterns in parentheses.
    std::string openFile(std::string_view filter) override;
    Colour chooseColour() override;

private:
    wxWindow* parent_;
    Colour lastColour_ = 0;
};

}  // namespace tavisk
