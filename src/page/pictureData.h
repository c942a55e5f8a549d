// Pictures as addresses that hold their data.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavisk {

/// The MIME type that the bytes themselves tell; none where they are no picture that browsers know.
std::optional<std::string_view> pictureType(std::string_view bytes) noexcept;

/// The MIME type of the bytes or else of the file extension.
std::string_view pictureType(std::string_view bytes, std::string_view extension);

/// "data:image/png;base64,..."
std::string dataAddress(std::string_view type, std::string_view bytes);

/// An address without data: what it stands for is missing.
inline constexpr std::string_view emptyAddress = "data:,";

}  // namespace tavisk
