// The questions to the user as real dialogs.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "base/dialogs.h"

class wxWindow;

namespace tavisk {

/// Dialogs over one window, or over none. Closing an OK and Cancel box by its window is Cancel.
class WxDialogs final : public Dialogs {
public:
    /// `prepare` runs before each dialog, so that the window behind it can be in step by then.
    explicit WxDialogs(wxWindow* parent, std::function<void()> prepare = {})
        : parent_(parent), prepare_(std::move(prepare)) {}

    Answer messageBox(const Message& message) override;
    std::string inputBox(std::string_view prompt, std::string_view title,
                         std::string_view defaultText) override;
    /// `filter` is the description, with the patterns in parentheses.
    std::string openFile(std::string_view filter) override;
    Colour chooseColour() override;

private:
    void prepare() const {
        if (prepare_) prepare_();
    }

    wxWindow* parent_;
    std::function<void()> prepare_;
    Colour lastColour_ = 0;
};

}  // namespace tavisk
