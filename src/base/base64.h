// Base64 text and the bytes it stands for.
#pragma once

#include <string>
#include <string_view>

namespace tavisk {

/// One line without breaks, padded.
std::string encodeBase64(std::string_view bytes);

/// Replaces `bytes`, whose memory is used again. White space is skipped; false when the rest is not
/// padded base64.
bool decodeBase64(std::string_view text, std::string& bytes);

}  // namespace tavisk
