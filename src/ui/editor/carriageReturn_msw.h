// Ends of lines that are not the answer box's own.
#pragma once

namespace tavisk {

/// The control makes an end of a line of every carriage return. This character stands in for those
/// of the document: it is not seen, and no document can hold it.
inline constexpr char16_t carriageReturnInBox = u'\x1F';

}  // namespace tavisk
