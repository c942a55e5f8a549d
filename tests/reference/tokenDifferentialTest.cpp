// Single texts, numbers and names: the component's procedures against the literal ones.
#include <cmath>
#include <set>

#include "base/codePage1252.h"
#include "base/text.h"
#include "formulas/formulaCatalogue.h"
#include "formulas/formulaparse.h"
#include "formulas/tokens.h"
#include "page/imageMarkup.h"
#include "page/nodeRow.h"
#include "reference/differential.h"
#include "reference/pageReference.h"
#include "reference/random.h"
#include "reference/tokenReference.h"
#include "support/xml.h"

namespace tavisk::reference {
namespace {

void collectTexts(const PlainNode& node, std::vector<std::u16string>& texts) {
    for (const PlainAttribute& attribute : node.attributes)
        texts.push_back(attribute.text);
    for (const PlainNode& child : node.children)
        collectTexts(child, texts);
}

/// Every attribute text of the document through both procedures.
template <class Is, class Expected>
std::string compareTexts(const TestDocument& document, Is is, Expected expected) {
    std::vector<std::u16string> texts;
    collectTexts(document.plain, texts);
    for (const std::u16string& text : texts) {
        const std::string utf8 = utf8Of(text);
        const auto isOutcome = outcomeOf([&] { return is(utf8); });
        const auto expectedOutcome = outcomeOf([&] { return expected(text); });
        if (isOutcome == expectedOutcome) continue;
        return "error " + std::to_string(isOutcome.error) + ", expected " +
               std::to_string(expectedOutcome.error) + "\n text     [" + utf8.substr(0, 500) +
               "]\n" + firstDifference(isOutcome.result, expectedOutcome.result);
    }
    return {};
}

FormulaCatalogue catalogueOf(const std::vector<PlainFormula>& formulas) {
    FormulaCatalogue catalogue;
    for (const PlainFormula& formula : formulas) {
        catalogue.add({utf8Of(formula.name), utf8Of(formula.value), utf8Of(formula.description),
                       formula.standard});
    }
    return catalogue;
}

std::u16string randomLetters(Random& random, const std::u16string& letters, std::size_t below) {
    std::u16string text;
    for (std::size_t left = random.below(below); left > 0; --left) {
        text += letters[random.below(letters.size())];
    }
    return text;
}

/// Runs as one line, so that all kinds of them compare alike.
std::string line(std::size_t start, std::size_t length, TokenKind kind) {
    return std::to_string(start) + "+" + std::to_string(length) + ":" +
           std::to_string(static_cast<int>(kind)) + " ";
}

TokenKind kindOf(PlainColour colour) {
    switch (colour) {
        case PlainColour::blueImage: return TokenKind::image;
        case PlainColour::green: return TokenKind::overlay;
        case PlainColour::blueExternal: return TokenKind::externalImage;
        default: return TokenKind::formula;
    }
}

template <class Text>
std::string scanned(const Text& text) {
    std::vector<Token> tokens{Token{7, 7, TokenKind::image}};
    scanTokens(text, tokens);
    std::string lines;
    for (const Token& token : tokens)
        lines += line(token.start, token.length, token.kind);
    return lines;
}

std::string randomNumberText(Random& random) {
    static const std::vector<std::string> parts{" ", "\t", "\n", "+", "-",   ".",  "e", "E", "0",
                                                "1", "5",  "25", "9", "327", "68", "x", ","};
    std::string text;
    const std::size_t count = random.below(8);
    for (std::size_t i = 0; i < count; ++i)
        text += random.pick(parts);
    return text;
}

/// Numbers may come out as a text that shows them exactly.
std::string shown(double number) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%a", number);
    return buffer;
}

template <class Is, class Expected>
void compareNumbers(Is is, Expected expected) {
    const std::uint64_t first = numberFromEnvironment("TAVISK_SEED", 1);
    const std::uint64_t count = numberFromEnvironment("TAVISK_RANDOM_DOCUMENTS", 20000);
    for (std::uint64_t i = 0; i < count && !testing::Test::HasFailure(); ++i) {
        Random random(first + i);
        const std::string text = randomNumberText(random);
        const auto isOutcome = outcomeOf([&] { return is(text); });
        const auto expectedOutcome = outcomeOf([&] { return expected(utf16Of(text)); });
        EXPECT_EQ(isOutcome.error, expectedOutcome.error) << "[" << text << "]";
        EXPECT_EQ(isOutcome.result, expectedOutcome.result) << "[" << text << "]";
    }
}

}  // namespace

TEST(TokenDifferential, ColourRunsOfUtf16) {
    forEachRandomDocument([](const TestDocument& document) {
        return compareTexts(
            document, [](const std::string& text) { return scanned(toUtf16(text)); },
            [](const std::u16string& text) {
                std::string lines;
                for (const PlainRun& run : colourRuns(text)) {
                    lines += line(static_cast<std::size_t>(run.start),
                                  static_cast<std::size_t>(run.length), kindOf(run.colour));
                }
                return lines;
            });
    });
}

TEST(TokenDifferential, ColourRunsOfUtf8) {
    forEachRandomDocument([](const TestDocument& document) {
        return compareTexts(
            document, [](const std::string& text) { return scanned(text); },
            [](const std::u16string& text) {
                const std::vector<std::size_t> bytes = byteOffsetsOf(text);
                std::string lines;
                for (const PlainRun& run : colourRuns(text)) {
                    const std::size_t start = bytes[static_cast<std::size_t>(run.start)];
                    const std::size_t end = bytes[static_cast<std::size_t>(run.start + run.length)];
                    lines += line(start, end - start, kindOf(run.colour));
                }
                return lines;
            });
    });
}

TEST(TokenDifferential, Formulaparse) {
    forEachRandomDocument([](const TestDocument& document) {
        const std::vector<PlainFormula> formulas = loadFormulas(document.plain);
        const FormulaCatalogue catalogue = catalogueOf(formulas);
        FormulaParser parser(catalogue);
        return compareTexts(
            document,
            [&](std::string text) {
                parser.parse(text);
                return text;
            },
            [&](const std::u16string& text) { return utf8Of(formulaparse(text, formulas)); });
    });
}

// Few letters, so that what one entry leaves behind is often the token of another one.
TEST(TokenDifferential, FormulaparseOfFewLetters) {
    const std::uint64_t first = numberFromEnvironment("TAVISK_SEED", 1);
    const std::uint64_t count = numberFromEnvironment("TAVISK_RANDOM_DOCUMENTS", 20000);
    for (std::uint64_t seed = first; seed < first + count; ++seed) {
        Random random(seed);
        const bool oddNames = random.chance(20);
        const bool oddValues = random.chance(40);
        std::vector<PlainFormula> formulas(1 + random.below(8));
        for (PlainFormula& formula : formulas) {
            formula.name = randomLetters(random, oddNames ? u"aab`" : u"ab", 4);
            formula.value = randomLetters(random, oddValues ? u"aabb`" : u"ab", 4);
        }
        const std::u16string text = randomLetters(random, u"```abab~", 30);
        const std::string utf8 = utf8Of(text);
        ASSERT_EQ(tavisk::formulaparse(utf8, catalogueOf(formulas)),
                  utf8Of(formulaparse(text, formulas)))
            << "TAVISK_SEED=" << seed << " text [" << utf8 << "]";
    }
}

TEST(TokenDifferential, Imageparse) {
    forEachRandomDocument([](const TestDocument& document) {
        const auto parsed = test::parsed(document.xml);
        ImageParser parser(*parsed, "/doc/temp_images/");
        return compareTexts(
            document,
            [&](std::string text) {
                parser.parse(text);
                return text;
            },
            [&](const std::u16string& text) {
                return utf8Of(imageparse(text, document.plain, u"/doc/temp_images/"));
            });
    });
}

TEST(TokenDifferential, Overlayparse) {
    forEachRandomDocument([](const TestDocument& document) {
        const auto parsed = test::parsed(document.xml);
        const double scale = std::vector<double>{1, 0.5, 2, -1.25}[document.seed % 4];
        return compareTexts(
            document,
            [&](const std::string& text) {
                return tavisk::overlayparse(text, *parsed, "/doc/temp_images/", scale);
            },
            [&](const std::u16string& text) {
                return utf8Of(overlayparse(text, document.plain, u"/doc/temp_images/", scale));
            });
    });
}

TEST(TokenDifferential, CodePage1252) {
    forEachRandomDocument([](const TestDocument& document) {
        return compareTexts(
            document,
            [](std::string text) {
                const bool lacks = findOutsideCodePage1252(text) != std::string::npos;
                try {
                    encodeCodePage1252(text);
                } catch (const RunTimeError&) {
                    if (lacks) throw;
                }
                return lacks ? "one finds a character that the other encodes" : text;
            },
            [](const std::u16string& text) { return codePage1252Of(text); });
    });
}

TEST(TokenDifferential, LeadingNumber) {
    compareNumbers([](const std::string& text) { return shown(leadingNumber(text)); },
                   [](const std::u16string& text) { return shown(leadingNumberOf(text)); });
}

TEST(TokenDifferential, LeadingNumberRoundedDown) {
    compareNumbers([](const std::string& text) { return floor16(leadingNumber(text)); },
                   [](const std::u16string& text) { return floorTo16(leadingNumberOf(text)); });
}

TEST(TokenDifferential, StrictNumber) {
    compareNumbers([](const std::string& text) { return shown(strictNumber(text)); },
                   [](const std::u16string& text) { return shown(strictNumberOf(text)); });
}

TEST(TokenDifferential, StrictNumberRounded) {
    compareNumbers([](const std::string& text) { return round16(strictNumber(text)); },
                   [](const std::u16string& text) { return roundTo16(strictNumberOf(text)); });
}

TEST(TokenDifferential, CapitalizeWords) {
    const std::uint64_t first = numberFromEnvironment("TAVISK_SEED", 1);
    static const std::string alphabet = "_aZ-.9_b";
    for (std::uint64_t seed = first; seed < first + 2000; ++seed) {
        Random random(seed);
        std::string name;
        for (std::size_t left = random.below(10); left > 0; --left) {
            name += alphabet[random.below(alphabet.size())];
        }
        ASSERT_EQ(tavisk::capitalizeWords(name), utf8Of(capitalizeWords(utf16Of(name)))) << name;
    }
}

// A generator that only made errors, or none, would compare nothing of interest.
TEST(TokenDifferential, RandomDocumentsReachPagesAndEveryError) {
    std::set<int> errors;
    std::size_t pages = 0;
    std::size_t longTexts = 0;
    for (std::uint64_t seed = 1; seed <= 3000; ++seed) {
        const TestDocument document = testDocument(seed);
        const int error =
            outcomeOf([&] {
                return preview(document.plain, loadFormulas(document.plain), u"/doc", true);
            }).error;
        errors.insert(error);
        if (error == 0) ++pages;
        std::vector<std::u16string> texts;
        collectTexts(document.plain, texts);
        longTexts += static_cast<std::size_t>(
            std::count_if(texts.begin(), texts.end(), [](const std::u16string& text) {
                return text.size() >= 32700 && text.size() <= 32767;
            }));
    }
    EXPECT_GT(pages, 2000U);
    EXPECT_GT(longTexts, 10U);
    for (const int error : {5, 6, 7, 13, 52})
        EXPECT_EQ(errors.count(error), 1U) << error;
}

}  // namespace tavisk::reference
