#include "command/input.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <istream>
#include <optional>
#include <string_view>
#include <utility>

#include "base/error.h"
#include "base/fileSystem.h"
#include "base/files.h"
#include "base/text.h"
#include "command/fileError.h"
#include "command/mappedInput.h"

namespace tavisk {
namespace {

constexpr std::size_t unknownSize = std::size_t{64} << 10;

/// Where a document should be, a missing folder is a missing file, and what is no file is not to be
/// read.
[[noreturn]] void raiseUnreadable(ErrorNumber error, const std::string& path) {
    const bool missing = error == ErrorNumber::fileNotFound || error == ErrorNumber::pathNotFound;
    throw FileError(missing                             ? ErrorNumber::fileNotFound
                    : error == ErrorNumber::deviceError ? ErrorNumber::deviceError
                                                        : ErrorNumber::permissionDenied,
                    path);
}

dom::Source sourceOf(Bytes bytes) { return {std::move(bytes.data), bytes.size}; }

dom::Source readFile(const std::string& path, Mapping mapping) {
    const auto opened = fileSystem::openFile(path, fileSystem::Access::read);
    if (const ErrorNumber* error = std::get_if<ErrorNumber>(&opened)) raiseUnreadable(*error, path);
    const auto& file = std::get<fileSystem::OpenFile>(opened);
    if (mapping == Mapping::allowed) {
        if (std::optional<dom::Source> mapped = mapInput(file)) return std::move(*mapped);
    }
    try {
        const std::optional<std::uint64_t> size = file.size();
        return sourceOf(
            readToEnd([&file](char* to, std::size_t room) { return file.read(to, room); },
                      size ? static_cast<std::size_t>(*size) : unknownSize));
    } catch (const RunTimeError& error) {
        raiseUnreadable(static_cast<ErrorNumber>(error.number()), path);
    }
}

dom::Source readStream(std::istream& stream) {
    errno = 0;
    Bytes bytes = readToEnd(
        [&stream](char* to, std::size_t room) {
            stream.read(to, static_cast<std::streamsize>(room));
            return static_cast<std::size_t>(stream.gcount());
        },
        unknownSize);
    // To the stream a failed read of the system is the end of the input.
    const bool failed = errno == EIO || errno == EISDIR || errno == EBADF;
    if (stream.bad() || failed) throw FileError(ErrorNumber::deviceError, "standard input");
    return sourceOf(std::move(bytes));
}

enum class ByteOrder { little, big };

std::optional<ByteOrder> utf16Order(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE")) return ByteOrder::little;
    if (bytes.starts_with("\xFE\xFF")) return ByteOrder::big;
    return std::nullopt;
}

/// Behind the byte order mark; half a code unit at the end is left out.
std::u16string codeUnits(std::string_view bytes, ByteOrder order) {
    std::u16string units(bytes.size() / 2 - 1, u'\0');
    const std::size_t high = order == ByteOrder::big ? 0 : 1;
    for (std::size_t i = 0; i < units.size(); ++i) {
        const auto* pair = reinterpret_cast<const unsigned char*>(bytes.data()) + 2 * (i + 1);
        units[i] = static_cast<char16_t>(pair[high] << 8 | pair[1 - high]);
    }
    return units;
}

bool isHighSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
bool isLowSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

std::size_t findLoneSurrogate(std::u16string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool paired =
            isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1]);
        if (paired) {
            ++i;
        } else if (isHighSurrogate(text[i]) || isLowSurrogate(text[i])) {
            return i;
        }
    }
    return std::u16string_view::npos;
}

[[noreturn]] void reject(std::u16string_view before) {
    const auto line = 1 + std::ranges::count(before, u'\n');
    throw Rejected({"The text is not valid Unicode", Place{static_cast<std::size_t>(line)}});
}

dom::Source fromUtf16(std::string_view bytes, ByteOrder order) {
    const std::u16string units = codeUnits(bytes, order);
    const std::u16string_view text = units;
    if (const std::size_t lone = findLoneSurrogate(text); lone != std::u16string_view::npos) {
        reject(text.substr(0, lone));
    }
    if (bytes.size() % 2 != 0) reject(text);
    return dom::Source::copy(toUtf8(text));
}

}  // namespace

dom::Source readInput(const std::string& file, std::istream& standardInput, Mapping mapping) {
    dom::Source source = file == "-" ? readStream(standardInput) : readFile(file, mapping);
    const std::string_view bytes(source.bytes.get(), source.size);
    if (const std::optional<ByteOrder> order = utf16Order(bytes)) return fromUtf16(bytes, *order);
    return source;
}

}  // namespace tavisk
