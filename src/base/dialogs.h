// Everything that asks the user something, as an interface: windows answer it in the editor, a
// script answers it in tests.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/message.h"

namespace tavisk {

/// A colour as 0x00BBGGRR.
using Colour = std::uint32_t;

/// All methods are modal and may throw.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    virtual Answer messageBox(const Message& message) = 0;

    /// Empty for an empty answer and for Cancel. UTF-8 in and out.
    virtual std::string inputBox(std::string_view prompt, std::string_view title,
                                 std::string_view defaultText) = 0;

    /// The chosen path, or empty for Cancel.
    virtual std::string openFile(std::string_view filter) = 0;

    /// The colour that the dialog holds when it closes: the one chosen, or after Cancel the one
    /// chosen last in this dialog, black at first. Red, green and blue, or a system colour.
    virtual Colour chooseColour() = 0;
};

}  // namespace tavisk
