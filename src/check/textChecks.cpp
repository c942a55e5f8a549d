#include "check/textChecks.h"

#include <algorithm>

#include "base/codePage1252.h"
#include "base/text.h"

namespace tavisk {
namespace {

/// UTF-16 positions for ascending byte offsets, in one pass over the text.
class Positions {
public:
    explicit Positions(std::string_view text) : text_(text) {}

    std::size_t at(std::size_t offset) {
        units_ += utf16Length(text_.substr(offset_, offset - offset_));
        offset_ = offset;
        return units_;
    }

private:
    std::string_view text_;
    std::size_t offset_ = 0;
    std::size_t units_ = 0;
};

std::optional<Problem> checkFormulaToken(std::string_view name, const TokenNames& names) {
    const bool broken = name.find('\n') != std::string_view::npos;
    // The page sees "<br>" in place of a line feed.
    const bool known =
        broken ? names.knowsFormula(replaceAll(name, "\n", "<br>")) : names.knowsFormula(name);
    if (known) return std::nullopt;
    std::string message = "No formula is named " + inQuotes(name) + ".";
    if (name.empty()) message = "Two backquotes with nothing in between name no formula.";
    if (broken) message = "From this backquote to the next there is a line break, and no formula.";
    return Problem{Severity::error, "unknown-formula", std::move(message)};
}

std::optional<Problem> checkPictureToken(std::string_view body, TokenKind kind, TokenNames& names) {
    const std::string_view name = body.substr(1);
    if (kind != TokenKind::externalImage) names.usePicture(name);
    // Formulas come first, whatever their names look like.
    if (names.hasFormula(body)) {
        return Problem{Severity::warning, "formula-hides-picture",
                       "A formula is named " + inQuotes(body) +
                           "; its value is shown in place of the picture."};
    }
    if (kind == TokenKind::externalImage || names.hasPicture(name)) return std::nullopt;
    const bool overlay = kind == TokenKind::overlay;
    return Problem{Severity::error, overlay ? "unknown-overlay" : "unknown-picture",
                   "No picture is named " + inQuotes(name) + "."};
}

std::size_t characterLength(char first) {
    const auto byte = static_cast<unsigned char>(first);
    return byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

/// "U+0142" for "ł".
std::string codePointName(std::string_view character) {
    const std::u16string units = toUtf16(character);
    unsigned code = units.front();
    if (units.size() == 2) code = 0x10000u + ((code & 0x3FFu) << 10) + (units.back() & 0x3FFu);
    std::string digits;
    for (; code != 0 || digits.size() < 4; code /= 16)
        digits.insert(digits.begin(), "0123456789ABCDEF"[code % 16]);
    return "U+" + digits;
}

}  // namespace

std::vector<Problem> checkTokens(std::string_view text, TokenNames& names) {
    std::vector<Token> tokens;
    return checkTokens(text, names, tokens);
}

std::vector<Problem> checkTokens(std::string_view text, TokenNames& names,
                                 std::vector<Token>& tokens) {
    std::vector<Problem> problems;
    if (text.find('`') == std::string_view::npos) return problems;
    scanTokens(text, tokens);
    Positions positions(text);
    std::size_t end = 0;
    for (const Token& token : tokens) {
        end = token.start + token.length;
        const std::string_view body = tokenBody(text, token);
        std::optional<Problem> problem = token.kind == TokenKind::formula
                                             ? checkFormulaToken(body, names)
                                             : checkPictureToken(body, token.kind, names);
        if (!problem) continue;
        problem->position = positions.at(token.start);
        problems.push_back(std::move(*problem));
    }
    if (const std::size_t odd = text.find('`', end); odd != std::string_view::npos) {
        problems.push_back({Severity::warning, "odd-backquote",
                            "This backquote has no partner; it is shown as it is.",
                            positions.at(odd)});
    }
    return problems;
}

std::optional<Problem> checkCharacters(std::string_view text, bool hidden) {
    const std::size_t first = findOutsideCodePage1252(text);
    if (first == std::string_view::npos) return std::nullopt;
    std::size_t count = 0;
    std::string_view rest = text;
    for (std::size_t at = first; at != std::string_view::npos; at = findOutsideCodePage1252(rest)) {
        ++count;
        rest.remove_prefix(at + characterLength(rest[at]));
    }
    const std::string_view character = text.substr(first, characterLength(text[first]));
    std::string message =
        "The page cannot hold " + inQuotes(character) + " (" + codePointName(character) + ")";
    if (count > 1) message += " and " + std::to_string(count - 1) + " more in this text";
    message += hidden ? "; it is hidden for now." : ".";
    return Problem{hidden ? Severity::warning : Severity::error, "outside-code-page",
                   std::move(message), utf16Length(text.substr(0, first))};
}

}  // namespace tavisk
