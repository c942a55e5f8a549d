#include "command/input.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <istream>
#include <limits>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "base/paths.h"
#include "base/text.h"
#include "command/fileError.h"
#include "command/mappedInput.h"
#include "command/openInput.h"

namespace tavisk {
namespace {

constexpr std::size_t firstBlock = std::size_t{64} << 10;

/// Grows towards an end that is not known before; one byte is kept for the NUL.
class Buffer {
public:
    explicit Buffer(std::size_t sizeHint) { reserve(sizeHint + 2); }

    /// Room for at least one more byte beside the NUL.
    std::pair<char*, std::size_t> room() {
        if (size_ + 1 == capacity_) reserve(capacity_ * 2);
        return {bytes_.get() + size_, capacity_ - size_ - 1};
    }
    void filled(std::size_t count) { size_ += count; }

    dom::Source finish() {
        bytes_[size_] = '\0';
        return {std::move(bytes_), size_};
    }

private:
    void reserve(std::size_t capacity) {
        auto bytes = std::make_unique_for_overwrite<char[]>(capacity);
        if (size_ > 0) std::memcpy(bytes.get(), bytes_.get(), size_);
        bytes_ = std::move(bytes);
        capacity_ = capacity;
    }

    std::unique_ptr<char[]> bytes_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

[[noreturn]] void raiseUnreadable(int error, const std::string& path) {
    const bool missing = error == ENOENT || error == ENOTDIR;
    throw FileError(missing        ? ErrorNumber::fileNotFound
                    : error == EIO ? ErrorNumber::deviceError
                                   : ErrorNumber::permissionDenied,
                    path);
}

dom::Source readFile(const std::string& path, Mapping mapping) {
    if (mapping == Mapping::allowed) {
        if (std::optional<dom::Source> mapped = mapInput(path)) return std::move(*mapped);
    }
    const InputFile file = openInput(path);
    if (!file) raiseUnreadable(errno, path);
    // Straight into the buffer, without a copy in between.
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    std::error_code noSize;
    const std::uintmax_t size = std::filesystem::file_size(pathOf(path), noSize);
    Buffer buffer(noSize ? firstBlock : static_cast<std::size_t>(size));
    for (;;) {
        const auto [to, room] = buffer.room();
        const std::size_t got = std::fread(to, 1, room, file.get());
        buffer.filled(got);
        if (got == room) continue;
        if (std::ferror(file.get()) != 0) raiseUnreadable(errno, path);
        return buffer.finish();
    }
}

dom::Source readStream(std::istream& stream) {
    Buffer buffer(firstBlock);
    errno = 0;
    while (stream) {
        const auto [to, room] = buffer.room();
        stream.read(to, static_cast<std::streamsize>(room));
        buffer.filled(static_cast<std::size_t>(stream.gcount()));
    }
    // To the stream a failed read of the system is the end of the input.
    const bool failed = errno == EIO || errno == EISDIR || errno == EBADF;
    if (stream.bad() || failed) throw FileError(ErrorNumber::deviceError, "standard input");
    return buffer.finish();
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

Message parseError(std::u16string_view before) {
    const auto line = 1 + std::ranges::count(before, u'\n');
    return {"The text is not valid Unicode\r\nline " + std::to_string(line)};
}

std::variant<dom::Source, Message> fromUtf16(std::string_view bytes, ByteOrder order) {
    const std::u16string units = codeUnits(bytes, order);
    const std::u16string_view text = units;
    if (const std::size_t lone = findLoneSurrogate(text); lone != std::u16string_view::npos) {
        return parseError(text.substr(0, lone));
    }
    if (bytes.size() % 2 != 0) return parseError(text);
    return dom::Source::copy(toUtf8(text));
}

}  // namespace

std::variant<dom::Source, Message> readInput(const std::string& file, std::istream& standardInput,
                                             Mapping mapping) {
    dom::Source source = file == "-" ? readStream(standardInput) : readFile(file, mapping);
    const std::string_view bytes(source.bytes.get(), source.size);
    if (const std::optional<ByteOrder> order = utf16Order(bytes)) return fromUtf16(bytes, *order);
    return source;
}

}  // namespace tavisk
