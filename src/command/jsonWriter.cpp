#include "command/jsonWriter.h"

#include <algorithm>
#include <utility>

#include "base/text.h"

namespace tavisk {
namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

void appendEscaped(std::string& json, unsigned char byte) {
    constexpr std::string_view digits = "0123456789abcdef";
    switch (byte) {
        case '"': json += "\\\""; break;
        case '\\': json += "\\\\"; break;
        case '\n': json += "\\n"; break;
        case '\r': json += "\\r"; break;
        case '\t': json += "\\t"; break;
        default:
            if (byte >= 0x20) {
                json += static_cast<char>(byte);
            } else {
                json += "\\u00";
                json += digits[byte >> 4];
                json += digits[byte & 15];
            }
    }
}

}  // namespace

JsonWriter& JsonWriter::begin(char bracket, Layout layout) {
    separate();
    json_ += bracket;
    levels_.push_back({bracket == '{' ? '}' : ']', layout});
    return *this;
}

JsonWriter& JsonWriter::end() {
    const Level level = levels_.back();
    levels_.pop_back();
    const bool hasLine =
        level.isEmpty ? level.layout == Layout::openLines : level.layout != Layout::inLine;
    if (hasLine) json_ += '\n';
    json_ += level.end;
    if (levels_.empty()) json_ += '\n';
    return *this;
}

JsonWriter& JsonWriter::name(std::string_view name) {
    separate();
    appendText(name);
    json_ += ": ";
    isNamed_ = true;
    return *this;
}

JsonWriter& JsonWriter::text(std::string_view text) {
    separate();
    appendText(text);
    return *this;
}

JsonWriter& JsonWriter::textOrNull(std::string_view text) {
    return text.empty() ? null() : this->text(text);
}

std::string JsonWriter::take() { return std::exchange(json_, {}); }

JsonWriter& JsonWriter::plain(std::string_view value) {
    separate();
    json_ += value;
    return *this;
}

void JsonWriter::separate() {
    if (std::exchange(isNamed_, false) || levels_.empty()) return;
    Level& level = levels_.back();
    const bool isFirst = std::exchange(level.isEmpty, false);
    if (level.layout != Layout::inLine) {
        json_ += isFirst ? "\n" : ",\n";
    } else if (!isFirst) {
        json_ += ", ";
    }
}

void JsonWriter::appendText(std::string_view text) {
    json_ += '"';
    while (!text.empty()) {
        const std::size_t valid = std::min(findInvalidUtf8(text), text.size());
        for (const char c : text.substr(0, valid))
            appendEscaped(json_, static_cast<unsigned char>(c));
        text.remove_prefix(valid);
        if (text.empty()) break;
        json_ += replacementCharacter;
        text.remove_prefix(1);
    }
    json_ += '"';
}

}  // namespace tavisk
