#include "editor/tokenColours.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "reference/random.h"

namespace tavisk {
namespace {

constexpr Colour plain = 0x000000;
constexpr Colour blue = 0xFF0000;
constexpr Colour green = 0x008000;
constexpr Colour olive = 0x008080;

TokenColours coloursOf(std::u16string_view text) {
    TokenColours colours{text.size(), {}};
    scanTokens(text, colours.tokens);
    return colours;
}

std::vector<ColourRun> wrongColours(std::u16string_view shown, std::u16string_view wanted,
                                    UntouchedEnds untouched) {
    std::vector<ColourRun> wrong;
    findWrongColours(coloursOf(shown), coloursOf(wanted), untouched, wrong);
    return wrong;
}

using Runs = std::vector<ColourRun>;

TEST(TokenColours, EachKindHasItsColour) {
    EXPECT_EQ(tokenColour(TokenKind::image), blue);
    EXPECT_EQ(tokenColour(TokenKind::externalImage), blue);
    EXPECT_EQ(tokenColour(TokenKind::overlay), green);
    EXPECT_EQ(tokenColour(TokenKind::formula), olive);
    EXPECT_EQ(plainTextColour, plain);
}

TEST(TokenColours, AnUntouchedTextHasNothingWrong) {
    EXPECT_EQ(wrongColours(u"a `x` b", u"a `x` b", {7, 7}), Runs{});
}

TEST(TokenColours, ATypedCharacterIsColouredAlone) {
    EXPECT_EQ(wrongColours(u"a `x` b", u"ac `x` b", {1, 6}), (Runs{{1, 1, plain}}));
}

TEST(TokenColours, ACharacterTypedIntoATokenTakesItsColour) {
    EXPECT_EQ(wrongColours(u"`!x`", u"`!xy`", {3, 1}), (Runs{{3, 1, green}}));
}

TEST(TokenColours, WhatWasTypedMayHaveAnyColour) {
    // Whether the first or the second of two like characters was typed cannot be seen in the text.
    EXPECT_EQ(wrongColours(u"`x`", u"``x`", {0, 3}), (Runs{{0, 1, olive}, {2, 2, plain}}));
}

TEST(TokenColours, ATypedTildeTurnsAFormulaIntoAPicture) {
    EXPECT_EQ(wrongColours(u"`x`", u"`~x`", {1, 2}), (Runs{{0, 4, blue}}));
}

TEST(TokenColours, AnotherKindOfTheSameColourIsLeftAlone) {
    EXPECT_EQ(wrongColours(u"`~x`", u"`@x`", {1, 2}), (Runs{{1, 1, blue}}));
}

TEST(TokenColours, AnOpeningBackquoteAtTheStartTurnsEverythingRound) {
    EXPECT_EQ(wrongColours(u"a`x`b`!y`c", u"`a`x`b`!y`c", {0, 10}),
              (Runs{{0, 2, olive}, {3, 1, plain}, {5, 2, olive}, {7, 3, plain}}));
}

TEST(TokenColours, ADeletedBackquoteLeavesTheRestPlain) {
    EXPECT_EQ(wrongColours(u"a `x` b", u"a `x b", {4, 2}), (Runs{{2, 2, plain}}));
}

TEST(TokenColours, DeletedTextLeavesNothingToColour) {
    EXPECT_EQ(wrongColours(u"a `x` bcd", u"a `x` d", {6, 1}), Runs{});
}

TEST(TokenColours, PastedTokensAreColoured) {
    EXPECT_EQ(wrongColours(u"ab", u"a`~p``!o`b", {1, 1}), (Runs{{1, 4, blue}, {5, 4, green}}));
}

TEST(TokenColours, ATextThatIsAllNewIsColouredWhole) {
    EXPECT_EQ(wrongColours(u"`a`", u"b `x`", {0, 0}), (Runs{{0, 2, plain}, {2, 3, olive}}));
}

TEST(TokenColours, AnEmptiedTextHasNothingWrong) {
    EXPECT_EQ(wrongColours(u"`a`", u"", {0, 0}), Runs{});
}

TEST(TokenColours, TouchedEndsThatOverlapInTheShorterTextAreCut) {
    // "aa" lost one of its two characters: the start and the end may both claim the other one.
    EXPECT_EQ(wrongColours(u"aa", u"a", {1, 1}), Runs{});
}

TEST(TokenColours, NeighboursOfOneColourAreOneRun) {
    EXPECT_EQ(wrongColours(u"", u"`a``b`", {0, 0}), (Runs{{0, 6, olive}}));
}

std::u16string repeated(std::u16string_view piece, int count) {
    std::u16string text;
    for (int i = 0; i < count; ++i)
        text += piece;
    return text;
}

TEST(TokenColours, TokensOfAnOrdinaryLineAllStay) {
    const std::u16string text = repeated(u"`x` ", 25);
    std::vector<Token> tokens = coloursOf(text).tokens;
    EXPECT_FALSE(keepNear(text, {0, 0}, tokens));
    EXPECT_EQ(tokens, coloursOf(text).tokens);
}

TEST(TokenColours, TokensOfManyOrdinaryLinesAllStay) {
    const std::u16string text = repeated(u"`x` ", 25) + u"\n" + repeated(u"`x` ", 25) + u"\r\n" +
                                repeated(u"`x` ", 25) + u"\r" + repeated(u"`x` ", 25) + u"\u2029" +
                                u"`x`";
    std::vector<Token> tokens = coloursOf(text).tokens;
    EXPECT_FALSE(keepNear(text, {0, 0}, tokens));
    EXPECT_EQ(tokens.size(), 101u);
}

TEST(TokenColours, OfACrowdedLineTheTokensNearByStay) {
    const std::u16string text = repeated(u"`x` ", 26);
    std::vector<Token> tokens = coloursOf(text).tokens;
    EXPECT_TRUE(keepNear(text, {3, 9}, tokens));
    EXPECT_EQ(tokens, (std::vector<Token>{{4, 3, TokenKind::formula}, {8, 3, TokenKind::formula}}));
    tokens = coloursOf(text).tokens;
    EXPECT_TRUE(keepNear(text, {2, 5}, tokens));
    EXPECT_EQ(tokens, (std::vector<Token>{{0, 3, TokenKind::formula}, {4, 3, TokenKind::formula}}));
}

TEST(TokenColours, OfACrowdedLineThatIsNearAllTokensStay) {
    const std::u16string text = repeated(u"`x` ", 26);
    std::vector<Token> tokens = coloursOf(text).tokens;
    EXPECT_FALSE(keepNear(text, {0, text.size()}, tokens));
    EXPECT_EQ(tokens.size(), 26u);
}

TEST(TokenColours, ACrowdedLineTakesNothingFromOthers) {
    const std::u16string text = u"`a`\n" + repeated(u"`x` ", 26) + u"\n`b`";
    std::vector<Token> tokens = coloursOf(text).tokens;
    EXPECT_TRUE(keepNear(text, {0, 0}, tokens));
    EXPECT_EQ(tokens,
              (std::vector<Token>{{0, 3, TokenKind::formula}, {109, 3, TokenKind::formula}}));
}

TEST(TokenColours, ATokenOverSeveralLinesBelongsToTheOneItBeginsIn) {
    const std::u16string text = repeated(u"`x` ", 25) + u"`y\nz` `w`";
    std::vector<Token> tokens = coloursOf(text).tokens;
    EXPECT_TRUE(keepNear(text, {0, 0}, tokens));
    EXPECT_EQ(tokens, (std::vector<Token>{{106, 3, TokenKind::formula}}));
}

/// One letter for each code unit.
std::string painted(const TokenColours& colours) {
    std::string letters(colours.length, '.');
    for (const Token& token : colours.tokens) {
        const Colour colour = tokenColour(token.kind);
        const char letter = colour == blue ? 'b' : colour == green ? 'g' : 'o';
        std::fill_n(letters.begin() + static_cast<std::ptrdiff_t>(token.start), token.length,
                    letter);
    }
    return letters;
}

/// A box whose colours move with its text; what comes in has the colour '?'.
struct ModelBox {
    void replace(std::size_t at, std::size_t removed, const std::u16string& inserted) {
        untouched.start = std::min(untouched.start, at);
        untouched.end = std::min(untouched.end, text.size() - at - removed);
        text.replace(at, removed, inserted);
        colours.replace(at, removed, std::string(inserted.size(), '?'));
    }
    /// Also says whether everything that was coloured had another colour before.
    bool colour() {
        bool needed = true;
        const TokenColours wanted = coloursOf(text);
        std::vector<ColourRun> wrong;
        findWrongColours(shown, wanted, untouched, wrong);
        for (const ColourRun& run : wrong) {
            const char letter = run.colour == plain   ? '.'
                                : run.colour == blue  ? 'b'
                                : run.colour == green ? 'g'
                                                      : 'o';
            needed =
                needed && colours.substr(run.start, run.length).find(letter) == std::string::npos;
            colours.replace(run.start, run.length, run.length, letter);
        }
        shown = wanted;
        untouched = {text.size(), text.size()};
        return needed;
    }

    std::u16string text;
    std::string colours;
    TokenColours shown;
    UntouchedEnds untouched{0, 0};
};

TEST(TokenColours, AfterAnyChangesEverythingIsColouredAsIfAnew) {
    reference::Random random(20240607);
    constexpr std::u16string_view letters = u"`````~!@ab";
    ModelBox box;
    for (int step = 0; step < 20'000; ++step) {
        // Now and then an error keeps the box from being coloured after each change.
        const std::size_t changes = random.chance(15) ? 3 : 1;
        for (std::size_t change = 0; change < changes; ++change) {
            const std::size_t at = random.below(box.text.size() + 1);
            const std::size_t removed =
                std::min(box.text.size() - at, random.chance(50) ? 0 : random.below(6));
            std::u16string inserted;
            for (std::size_t count = random.below(5); count > 0 && box.text.size() < 60; --count)
                inserted += letters[random.below(letters.size())];
            box.replace(at, removed, inserted);
        }
        const bool needed = box.colour();
        ASSERT_EQ(box.colours, painted(coloursOf(box.text))) << "step " << step;
        ASSERT_TRUE(needed || changes > 1) << "step " << step;
    }
}

}  // namespace
}  // namespace tavisk
