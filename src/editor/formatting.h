// Arithmetic of the formatting commands: sizes, gaps, style bits and colours.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/dialogs.h"

namespace tavisk {

/// Which text of a node a control acts on; the number is the control's index.
enum class Side : int { title = 0, answer = 1 };
enum class Gap : int { above = 0, below = 1 };

inline constexpr std::array sides{Side::title, Side::answer};
inline constexpr std::array gaps{Gap::above, Gap::below};

template <class Index>
constexpr std::size_t at(Index index) {
    return static_cast<std::size_t>(index);
}

/// The attributes that the controls stand for, by their index.
inline constexpr std::array<std::string_view, 2> colourNames{"titlecolor", "answercolor"};
inline constexpr std::array<std::string_view, 2> fontSizeNames{"titlefontsize", "answerfontsize"};
inline constexpr std::array<std::string_view, 2> gapNames{"spacebefore", "spaceafter"};

/// The plain red, green and blue of a system or palette colour; -1 when there is none.
using OleTranslateColor = std::int32_t (*)(std::int32_t colour);

/// Plain colours as they are, -1 for anything else: used where no desktop knows better.
std::int32_t plainColour(std::int32_t colour) noexcept;

/// "#" and six upper-case hexadecimal digits. Blue from 128 to 254 comes out one higher; documents
/// in the field hold such colours.
std::string colorToHex(std::int32_t colour, OleTranslateColor translate = plainColour);

/// Value of a group of hexadecimal digits; characters that are none count as 0. Error 6 beyond 16
/// bits.
int hexToInteger(std::string_view digits, int accumulator = 0);

/// The colour of a document's colour text: red, green and blue from characters 2 to 7.
Colour colourOfText(std::string_view text);

/// "Font Size: ", sign, magnitude. The size may be of any magnitude and is rounded down.
std::string fontSizeCaption(double size);

/// "Gap above: " or "Gap below: " and the text.
std::string gapCaption(Gap gap, std::string_view text);

/// "Text Color: " and the text.
std::string colourCaption(std::string_view text);

/// Step of the size and gap buttons 0, 2, 3 and 5, and the side (0 or 1) that they act on.
constexpr int buttonStep(int index) { return (index < 3 ? index : index - 3) - 1; }
constexpr int buttonSide(int index) { return index < 3 ? 0 : 1; }

}  // namespace tavisk
