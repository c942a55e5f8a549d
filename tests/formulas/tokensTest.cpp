#include "formulas/tokens.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>

#include "support/errors.h"

namespace tavisk {

void PrintTo(const Token& token, std::ostream* out) {
    *out << "{" << token.start << "," << token.length << "," << static_cast<int>(token.kind) << "}";
}

namespace {

using test::errorOf;
using enum TokenKind;
using Tokens = std::vector<Token>;

Tokens scanned(std::string_view utf8) {
    Tokens tokens;
    scanTokens(utf8, tokens);
    return tokens;
}

Tokens scanned(std::u16string_view text) {
    Tokens tokens;
    scanTokens(text, tokens);
    return tokens;
}

std::string repeated(std::size_t count, std::string_view what) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += what;
    return text;
}

TEST(TokenKind, IsDecidedByTheFirstCharacterOfTheBody) {
    EXPECT_EQ(tokenKind(U'~'), image);
    EXPECT_EQ(tokenKind(U'!'), overlay);
    EXPECT_EQ(tokenKind(U'@'), externalImage);
    EXPECT_EQ(tokenKind(U'a'), formula);
    EXPECT_EQ(tokenKind(U' '), formula);
    EXPECT_EQ(tokenKind(U'`'), formula);
}

TEST(Tokens, TextWithoutBackquotesHasNone) {
    EXPECT_EQ(scanned(""), Tokens{});
    EXPECT_EQ(scanned("no token ~!@"), Tokens{});
    EXPECT_EQ(scanned(u"no token"), Tokens{});
}

TEST(Tokens, EveryKindIsFoundWithItsBackquotes) {
    const Tokens expected = {
        {1, 3, formula}, {5, 4, image}, {10, 4, overlay}, {15, 4, externalImage}};
    EXPECT_EQ(scanned("x`a`x`~b`x`!c`x`@d`x"), expected);
    EXPECT_EQ(scanned(u"x`a`x`~b`x`!c`x`@d`x"), expected);
}

TEST(Tokens, KindCharacterCountsOnlyDirectlyBehindTheOpeningBackquote) {
    EXPECT_EQ(scanned("`a~`` ~b``a!``a@`"),
              (Tokens{{0, 4, formula}, {4, 5, formula}, {9, 4, formula}, {13, 4, formula}}));
}

TEST(Tokens, AKindCharacterAloneIsAToken) {
    EXPECT_EQ(scanned("`~``!``@`"),
              (Tokens{{0, 3, image}, {3, 3, overlay}, {6, 3, externalImage}}));
}

TEST(Tokens, TwoAdjacentBackquotesAreAFormulaWithAnEmptyName) {
    EXPECT_EQ(scanned("a``b"), (Tokens{{1, 2, formula}}));
    EXPECT_EQ(scanned("````"), (Tokens{{0, 2, formula}, {2, 2, formula}}));
}

TEST(Tokens, EmptyTokenIsAFormulaWhateverFollowsIt) {
    EXPECT_EQ(scanned("``~"), (Tokens{{0, 2, formula}}));
}

TEST(Tokens, LastBackquoteWithoutAPartnerIsText) {
    EXPECT_EQ(scanned("`"), Tokens{});
    EXPECT_EQ(scanned("a`b"), Tokens{});
    EXPECT_EQ(scanned("`a`b`~c"), (Tokens{{0, 3, formula}}));
    EXPECT_EQ(scanned("```"), (Tokens{{0, 2, formula}}));
}

TEST(Tokens, BackquotesPairStrictlyFromLeftToRight) {
    EXPECT_EQ(scanned("`a`b`c`"), (Tokens{{0, 3, formula}, {4, 3, formula}}));
}

TEST(Tokens, NothingNests) {
    EXPECT_EQ(scanned("`~a`!b`c`"), (Tokens{{0, 4, image}, {6, 3, formula}}));
}

TEST(Tokens, ATokenMaySpanLines) { EXPECT_EQ(scanned("`a\r\nb`"), (Tokens{{0, 6, formula}})); }

TEST(Tokens, ThereIsNoEscapeCharacter) { EXPECT_EQ(scanned("\\`a\\`"), (Tokens{{1, 4, formula}})); }

TEST(Tokens, PositionsAreFoundAtEveryOffset) {
    for (std::size_t before = 0; before <= 130; ++before) {
        for (const std::size_t body : {0u, 1u, 30u, 70u}) {
            const std::string text =
                std::string(before, 'x') + "`" + std::string(body, 'y') + "`z`~";
            EXPECT_EQ(scanned(text), (Tokens{{before, body + 2, formula}})) << text;
            EXPECT_EQ(scanned(std::u16string(text.begin(), text.end())),
                      (Tokens{{before, body + 2, formula}}))
                << text;
        }
    }
}

TEST(Tokens, Utf16PositionsCountCodeUnits) {
    EXPECT_EQ(scanned(u"é\U0001F600`€`"), (Tokens{{3, 3, formula}}));
}

TEST(Tokens, Utf8PositionsCountBytes) {
    EXPECT_EQ(scanned("é\U0001F600`€`"), (Tokens{{6, 5, formula}}));
}

TEST(Tokens, ForeignCharactersThatHoldTheBackquotesBitsAreText) {
    EXPECT_EQ(scanned(u"\u6060\u0160\u6000`a`"), (Tokens{{3, 3, formula}}));
}

TEST(Tokens, EarlierResultsAreReplaced) {
    Tokens tokens = {{9, 9, image}};
    scanTokens(std::string_view("`a`"), tokens);
    EXPECT_EQ(tokens, (Tokens{{0, 3, formula}}));
    scanTokens(std::u16string_view(u"none"), tokens);
    EXPECT_EQ(tokens, Tokens{});
}

TEST(Tokens, TextOf32767UnitsPasses) {
    EXPECT_EQ(scanned(std::string(32764, 'x') + "`a`"), (Tokens{{32764, 3, formula}}));
    EXPECT_EQ(scanned(std::u16string(32764, u'x') + u"`a`"), (Tokens{{32764, 3, formula}}));
}

TEST(Tokens, TextOf32768UnitsOverflows) {
    EXPECT_EQ(errorOf([] { scanned(std::string(32768, 'x')); }), 6);
    EXPECT_EQ(errorOf([] { scanned(std::u16string(32768, u'x')); }), 6);
    EXPECT_EQ(errorOf([] { scanned(std::string(32768, '`')); }), 6);
}

TEST(Tokens, LimitDoesNotCountBytes) {
    EXPECT_EQ(scanned(repeated(32767, "é")), Tokens{});
    EXPECT_EQ(scanned(repeated(32765, "€") + "``"), (Tokens{{98295, 2, formula}}));
    EXPECT_EQ(errorOf([] { scanned(repeated(32768, "é")); }), 6);
}

TEST(Tokens, LimitCountsSurrogatePairsAsTwo) {
    EXPECT_EQ(scanned(repeated(16383, "\U0001F600") + "x"), Tokens{});
    EXPECT_EQ(errorOf([] { scanned(repeated(16384, "\U0001F600")); }), 6);
    EXPECT_EQ(errorOf([] { scanned(repeated(16383, "\U0001F600") + "``"); }), 6);
}

TEST(TokenBody, StandsBetweenTheBackquotes) {
    const std::string_view text = "é`~logo```";
    const Tokens tokens = scanned(text);
    ASSERT_EQ(tokens.size(), 2u);
    EXPECT_EQ(tokenBody(text, tokens[0]), "~logo");
    EXPECT_EQ(tokenBody(text, tokens[1]), "");
}

}  // namespace
}  // namespace tavisk
