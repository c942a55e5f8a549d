// Random texts, formulas and pictures: the component expands tokens exactly as the literal
// procedures do.
//
// One record per line: "F" name, tab, value; "I" name, tab, extension, tab, width, tab, height
// (missing fields are missing attributes); "R" a text that, without its backquotes, is repeated up
// to the length limit; any other line is text.
#include "formulas/tokens.h"

#include "base/text.h"
#include "formulas/formulaCatalogue.h"
#include "formulas/formulaparse.h"
#include "fuzz/fuzz.h"
#include "page/imageMarkup.h"
#include "reference/plainText.h"
#include "reference/tokenReference.h"
#include "xml/dom.h"

namespace tavisk::fuzz {
namespace {

using Fields = std::vector<std::u16string>;

const std::string imageFolder = "/doc/temp_images/";

struct TokenInput {
    std::vector<reference::PlainFormula> formulas;
    reference::PlainNode document{reference::Kind::document, u"", {}, u"", {}};
    std::u16string text;
};

bool isXmlCharacter(char16_t c) {
    return c >= 0x20 ? c < 0xD800 || (c > 0xDFFF && c < 0xFFFE)
                     : c == u'\t' || c == u'\n' || c == u'\r';
}

/// Every input stands for a text: a byte that is not UTF-8 counts as the character of its number.
std::u16string lenientText(std::string_view bytes) {
    std::u16string text;
    while (!bytes.empty()) {
        const std::size_t bad = findInvalidUtf8(bytes);
        const std::string_view good = bytes.substr(0, bad);
        text += reference::utf16Of(std::string(good));
        bytes.remove_prefix(good.size());
        if (bytes.empty()) break;
        text += static_cast<char16_t>(static_cast<unsigned char>(bytes.front()));
        bytes.remove_prefix(1);
    }
    for (char16_t& c : text) {
        const bool surrogate = c >= 0xD800 && c <= 0xDFFF;
        if (!surrogate && !isXmlCharacter(c)) c = u' ';
    }
    return text;
}

Fields split(const std::u16string& text, char16_t separator) {
    Fields fields{u""};
    for (const char16_t c : text) {
        if (c == separator) {
            fields.emplace_back();
        } else {
            fields.back() += c;
        }
    }
    return fields;
}

void addImage(TokenInput& input, const Fields& fields) {
    static const Fields names{u"name", u"extension", u"width", u"height"};
    reference::PlainNode image;
    image.name = u"image";
    for (std::size_t i = 0; i < fields.size() && i < names.size(); ++i) {
        image.attributes.push_back({names[i], fields[i]});
    }
    input.document.children.push_back(std::move(image));
}

/// Backquotes at the limit would only make the literal procedures slow.
void addRepeated(std::u16string& text, const std::u16string& line) {
    const std::u16string part = reference::replaceEvery(line, u"`", u"");
    if (part.empty()) return;
    while (text.size() + part.size() <= maxCount)
        text += part;
}

TokenInput inputOf(std::string_view bytes) {
    TokenInput input;
    for (const std::u16string& line : split(lenientText(bytes), u'\n')) {
        const std::u16string rest = line.empty() ? line : line.substr(1);
        switch (line.empty() ? u'\0' : line.front()) {
            case u'F': {
                Fields fields = split(rest, u'\t');
                fields.resize(2);
                input.formulas.push_back({fields[0], fields[1], u"", true});
                break;
            }
            case u'I': addImage(input, split(rest, u'\t')); break;
            case u'R': addRepeated(input.text, rest); break;
            default: input.text += line; break;
        }
    }
    return input;
}

FormulaCatalogue catalogueOf(const TokenInput& input) {
    FormulaCatalogue catalogue;
    for (const reference::PlainFormula& formula : input.formulas) {
        catalogue.add(
            {reference::utf8Of(formula.name), reference::utf8Of(formula.value), {}, true});
    }
    return catalogue;
}

void fill(dom::Document& document, const TokenInput& input) {
    dom::Node& base = document.append(document.root(), document.createElement("cabinetinfo"));
    for (const reference::PlainNode& image : input.document.children) {
        dom::Node& element = document.append(base, document.createElement("image"));
        for (const reference::PlainAttribute& attribute : image.attributes) {
            document.addAttribute(element, reference::utf8Of(attribute.name),
                                  reference::utf8Of(attribute.text));
        }
    }
}

struct Outcome {
    int error = 0;
    std::string text;

    bool operator==(const Outcome&) const = default;
};

template <class Action>
Outcome outcomeOf(Action action) {
    try {
        return {0, action()};
    } catch (const RunTimeError& error) {
        return {error.number(), {}};
    } catch (const reference::Failure& failure) {
        return {static_cast<int>(failure.number), {}};
    }
}

void requireEqual(const Outcome& is, const Outcome& expected, const std::string& what) {
    require(is == expected, what + ": error " + std::to_string(is.error) + " [" + is.text +
                                "], expected error " + std::to_string(expected.error) + " [" +
                                expected.text + "]");
}

std::string described(std::size_t start, std::size_t length, int kind) {
    return std::to_string(start) + "+" + std::to_string(length) + ":" + std::to_string(kind) + " ";
}

void requireRuns(const std::u16string& text) {
    const Outcome expected = outcomeOf([&] {
        std::string runs;
        for (const reference::PlainRun& run : reference::colourRuns(text)) {
            runs += described(static_cast<std::size_t>(run.start),
                              static_cast<std::size_t>(run.length), static_cast<int>(run.colour));
        }
        return runs;
    });
    const auto kindNumber = [](TokenKind kind) {
        switch (kind) {
            case TokenKind::image: return static_cast<int>(reference::PlainColour::blueImage);
            case TokenKind::overlay: return static_cast<int>(reference::PlainColour::green);
            case TokenKind::externalImage:
                return static_cast<int>(reference::PlainColour::blueExternal);
            default: return static_cast<int>(reference::PlainColour::olive);
        }
    };
    std::vector<Token> tokens;
    requireEqual(outcomeOf([&] {
                     scanTokens(std::u16string_view(text), tokens);
                     std::string runs;
                     for (const Token& token : tokens) {
                         runs += described(token.start, token.length, kindNumber(token.kind));
                     }
                     return runs;
                 }),
                 expected, "runs");
    const std::string utf8 = reference::utf8Of(text);
    const std::vector<std::size_t> bytes = reference::byteOffsetsOf(text);
    const Outcome expectedBytes = outcomeOf([&] {
        std::string runs;
        for (const reference::PlainRun& run : reference::colourRuns(text)) {
            const std::size_t start = bytes[static_cast<std::size_t>(run.start)];
            const std::size_t end = bytes[static_cast<std::size_t>(run.start + run.length)];
            runs += described(start, end - start, static_cast<int>(run.colour));
        }
        return runs;
    });
    requireEqual(outcomeOf([&] {
                     scanTokens(std::string_view(utf8), tokens);
                     std::string runs;
                     for (const Token& token : tokens) {
                         runs += described(token.start, token.length, kindNumber(token.kind));
                     }
                     return runs;
                 }),
                 expectedBytes, "runs of UTF-8");
}

/// Each step goes on with the literal result of the step before.
void requireExpansion(const TokenInput& input) {
    const std::u16string plainFolder = reference::utf16Of(imageFolder);
    std::u16string text = input.text;
    const auto requireStep = [&](const std::string& what, auto is, auto literal) {
        std::u16string result;
        const std::string before = reference::utf8Of(text);
        const Outcome expected = outcomeOf([&] {
            result = literal(text);
            return reference::utf8Of(result);
        });
        requireEqual(outcomeOf([&] { return is(before); }), expected, what);
        text = result;
    };

    const FormulaCatalogue catalogue = catalogueOf(input);
    dom::Document document;
    fill(document, input);
    requireStep(
        "formulas", [&](const std::string& before) { return formulaparse(before, catalogue); },
        [&](const std::u16string& before) {
            return reference::formulaparse(before, input.formulas);
        });
    requireStep(
        "pictures",
        [&](const std::string& before) { return imageparse(before, document, imageFolder); },
        [&](const std::u16string& before) {
            return reference::imageparse(before, input.document, plainFolder);
        });
    requireStep(
        "overlays",
        [&](const std::string& before) { return overlayparse(before, document, imageFolder, 1); },
        [&](const std::u16string& before) {
            return reference::overlayparse(before, input.document, plainFolder, 1);
        });
}

}  // namespace
}  // namespace tavisk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tavisk;
    const fuzz::TokenInput input = fuzz::inputOf(fuzz::bytesOf(data, size));
    fuzz::requireRuns(input.text);
    try {
        fuzz::requireExpansion(input);
    } catch (const reference::TooLong&) {
        // Values within values grow without end; nothing is compared then.
    }
    return 0;
}
