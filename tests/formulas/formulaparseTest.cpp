#include "formulas/formulaparse.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <string>
#include <utility>

#include "support/errors.h"

namespace tavisk {
namespace {

using test::errorOf;

using Formulas = std::initializer_list<std::pair<const char*, const char*>>;

FormulaCatalogue catalogueOf(Formulas formulas) {
    FormulaCatalogue catalogue;
    for (const auto& [name, value] : formulas)
        catalogue.add({name, value, "", true});
    return catalogue;
}

std::string expanded(Formulas formulas, const std::string& text) {
    return formulaparse(text, catalogueOf(formulas));
}

/// With a catalogue that knows none of the names in the text.
std::string unknowns(const std::string& text) { return expanded({{"no such name", ""}}, text); }

TEST(Formulaparse, EmptyCatalogueLeavesTheTextUnchanged) {
    EXPECT_EQ(expanded({}, "a`Missing`b``c"), "a`Missing`b``c");
}

TEST(Formulaparse, EmptyCatalogueDoesNotScan) {
    const std::string text(40000, '`');
    EXPECT_EQ(expanded({}, text), text);
}

TEST(Formulaparse, KnownFormulaBecomesItsValue) {
    EXPECT_EQ(expanded({{"Rate", "5"}}, "a`Rate`b"), "a5b");
}

TEST(Formulaparse, UnknownFormulaBecomesUnknown) {
    EXPECT_EQ(expanded({{"Rate", "5"}}, "a`Missing`b"), "aUnknownb");
}

TEST(Formulaparse, NonStandardEntriesTakePart) {
    FormulaCatalogue catalogue;
    catalogue.add({"Rate", "5", "", false});
    EXPECT_EQ(formulaparse("`Rate`", catalogue), "5");
}

TEST(Formulaparse, EmptyValueRemovesTheToken) {
    EXPECT_EQ(expanded({{"Rate", ""}}, "a`Rate`b"), "ab");
}

TEST(Formulaparse, NamesAreCaseSensitive) {
    EXPECT_EQ(expanded({{"Rate", "5"}}, "`rate`"), "Unknown");
}

TEST(Formulaparse, SingleBackquoteIsUnchanged) { EXPECT_EQ(unknowns("a`b"), "a`b"); }

TEST(Formulaparse, OddLastBackquoteIsUnchanged) {
    EXPECT_EQ(unknowns("`abcde` and ` more"), "Unknown and ` more");
}

TEST(Formulaparse, EmptyNameIsAFormulaToken) {
    EXPECT_EQ(unknowns("a``b"), "aUnknownb");
    EXPECT_EQ(expanded({{"", "E"}}, "a``b"), "aEb");
}

TEST(Formulaparse, PictureTokensAreLeftUntouched) {
    EXPECT_EQ(unknowns("`~logo` `!logo` `@C:\\test.jpg`"), "`~logo` `!logo` `@C:\\test.jpg`");
}

TEST(Formulaparse, PictureTokensShiftNothing) {
    EXPECT_EQ(unknowns("`@C:\\test.jpg``abcde``~logo`"), "`@C:\\test.jpg`Unknown`~logo`");
}

TEST(Formulaparse, CatalogueNameMayLookLikeAPictureToken) {
    EXPECT_EQ(expanded({{"~logo", "5"}}, "`~logo`"), "5");
}

TEST(Formulaparse, LaterEntriesSeeBackquotesOfValues) {
    EXPECT_EQ(expanded({{"a", "`b`"}, {"b", "2"}}, "`a`"), "2");
}

TEST(Formulaparse, EarlierEntriesDoNotSeeValues) {
    EXPECT_EQ(expanded({{"b", "2"}, {"a", "`b`"}}, "`a`"), "Unknown");
}

TEST(Formulaparse, UnknownScanSeesBackquotesOfValues) {
    EXPECT_EQ(expanded({{"a", "`"}}, "`a`Missing`"), "Unknown");
    EXPECT_EQ(expanded({{"a", "x`y"}}, "`a` and `~logo`"), "xUnknown~logo`");
}

TEST(Formulaparse, ValuesMayHoldPictureTokens) {
    EXPECT_EQ(expanded({{"a", "`~logo`"}}, "`a`"), "`~logo`");
}

TEST(Formulaparse, KnownFormulasAreReplacedWhereverTheyStand) {
    EXPECT_EQ(expanded({{"a", "1"}}, "`Missing`a`"), "`Missing1");
}

// The scan for unknown formulas goes on at the same index of the changed text, up to the length
// that the text had before. Positions below count from 1.

TEST(FormulaparsePositions, TokenOfSevenCharactersShiftsNothing) {
    EXPECT_EQ(unknowns("`abcde``fghij`k`lmnop`"), "UnknownUnknownkUnknown");
}

TEST(FormulaparsePositions, ShortTokenPushesTheEndOutOfTheScan) {
    // Length 7. "`a`" ends at 3; the text grows by 4, so 4 to 7 are "nown".
    EXPECT_EQ(unknowns("`a` `b`"), "Unknown `b`");
}

TEST(FormulaparsePositions, TokenJustInsideTheOldLengthIsReplaced) {
    // Length 13; in the changed text the second token is at 11 to 13.
    EXPECT_EQ(unknowns("`a`123`b`wxyz"), "Unknown123Unknownwxyz");
}

TEST(FormulaparsePositions, TokenThatEndsBehindTheOldLengthStays) {
    // Length 12; the closing backquote is now at 13.
    EXPECT_EQ(unknowns("`a`123`b`wxy"), "Unknown123`b`wxy");
}

TEST(FormulaparsePositions, GrowthAddsUp) {
    // Length 25. Each token grows the text by 4: the second ends at 6+4, the third at 9+8, the
    // fourth at 12+12, but the fifth at 15+16.
    EXPECT_EQ(unknowns("`a``b``c``d``e`0123456789"), "UnknownUnknownUnknownUnknown`e`0123456789");
}

TEST(FormulaparsePositions, LongTokenMakesTheScanSkipBackquotes) {
    // "`LongName`" ends at 10; the changed text has backquotes at 9 and 11. The scan goes on at 11
    // and takes that closing backquote for an opening one.
    EXPECT_EQ(unknowns("`LongName` `b`"), "Unknown `b`");
}

TEST(FormulaparsePositions, LongTokenMakesLaterBackquotesPairDifferently) {
    // Changed text: "Unknown `b`c`d`", backquotes at 9, 11, 13, 15. From 11 on, "`c`" is the pair;
    // after its replacement 14 to 18 are "nownd", and the last backquote is at 19.
    EXPECT_EQ(unknowns("`LongName` `b`c`d`"), "Unknown `bUnknownd`");
}

TEST(FormulaparsePositions, LongTokenMakesTheScanSkipAWholeToken) {
    // Changed text: "Unknown`b` c`", backquotes at 8, 10, 13; the scan goes on at 11.
    EXPECT_EQ(unknowns("`LongName``b` c`"), "Unknown`b` c`");
}

TEST(FormulaparsePositions, TextBehindAPictureTokenCanBeTakenForAToken) {
    // Changed text: "Unknown`~a`b`c", backquotes at 8, 11, 13. The scan goes on at 11, so that
    // "`b`" is the pair and the picture token loses its closing backquote.
    EXPECT_EQ(unknowns("`Missing1``~a`b`c"), "Unknown`~aUnknownc");
}

TEST(FormulaparsePositions, PairAcrossAPictureTokenDependsOnItsFirstCharacter) {
    // Changed text: "Unknown`b`~x`", backquotes at 8, 10, 13. The scan goes on at 10, where a
    // picture token seems to begin: nothing is replaced.
    EXPECT_EQ(unknowns("`Missing``b`~x`"), "Unknown`b`~x`");
}

TEST(FormulaparsePositions, VeryLongTokenEndsTheScan) {
    // "`thirtycharacters...`" of 32 ends at 32; the changed text has 13 characters left.
    EXPECT_EQ(unknowns("`aaaaaaaaaabbbbbbbbbbcccccccccc``b``c`"), "Unknown`b``c`");
}

TEST(FormulaparsePositions, LengthIsTakenAfterTheKnownFormulas) {
    // With the value the text is "`a`123`b`wxyz".
    EXPECT_EQ(expanded({{"v", "wxyz"}}, "`a`123`b``v`"), "Unknown123Unknownwxyz");
    // "`a`123`b`" alone has 9 characters.
    EXPECT_EQ(expanded({{"v", ""}}, "`a`123`b``v`"), "Unknown123`b`");
}

TEST(FormulaparsePositions, SurrogatePairsCountAsTwo) {
    // Length 3+3+4 = 10: the second token, moved to 8 to 10, is still inside.
    EXPECT_EQ(unknowns("`a``b`\U0001F600\U0001F600"), "UnknownUnknown\U0001F600\U0001F600");
    // One unit less.
    EXPECT_EQ(unknowns("`a``b`\U0001F600x"), "Unknown`b`\U0001F600x");
}

TEST(FormulaparsePositions, OtherForeignCharactersCountAsOne) {
    EXPECT_EQ(unknowns("`a``b`éé"), "Unknown`b`éé");
    EXPECT_EQ(unknowns("`a``b`€€€"), "Unknown`b`€€€");
    EXPECT_EQ(unknowns("`a``b`€€€é"), "UnknownUnknown€€€é");
}

TEST(FormulaparsePositions, SurrogatePairsInsideATokenCountAsTwo) {
    // "`" and three pairs and "`" have 8 units, one more than "Unknown": the opening backquote of
    // "`b`", now at 8, is skipped, and its closing one, at 10, opens.
    EXPECT_EQ(unknowns("`\U0001F600\U0001F600\U0001F600``b`"), "Unknown`b`");
    EXPECT_EQ(unknowns("`\U0001F600\U0001F600x``b`wxyz"), "UnknownUnknownwxyz");
}

TEST(FormulaparsePositions, ScanMayGoOnInsideASurrogatePair) {
    // "`Missin`" ends at 8; the changed text has the pair at 8 and 9, and "`b`" at 11 to 13.
    EXPECT_EQ(unknowns("`Missin`\U0001F600x`b`wxyz"), "Unknown\U0001F600xUnknownwxyz");
}

TEST(FormulaparseLimit, TextOf32767UnitsPasses) {
    const std::string filler(32764, 'x');
    EXPECT_EQ(unknowns(filler + "`a`"), filler + "Unknown");
}

TEST(FormulaparseLimit, TextOf32768UnitsOverflows) {
    EXPECT_EQ(errorOf([] { unknowns(std::string(32768, 'x')); }), 6);
}

TEST(FormulaparseLimit, CountsTheTextWithItsValues) {
    const std::string value32767(32767, 'v');
    const std::string value32768(32768, 'v');
    EXPECT_EQ(expanded({{"a", value32767.c_str()}}, "`a`"), value32767);
    EXPECT_EQ(errorOf([&] { expanded({{"a", value32768.c_str()}}, "`a`"); }), 6);
}

TEST(FormulaparseLimit, LongTextThatItsValuesShortenPasses) {
    const std::string filler(32766, 'x');
    EXPECT_EQ(expanded({{"a", ""}}, filler + "`a`"), filler);
}

TEST(FormulaparseLimit, SurrogatePairsCountAsTwo) {
    std::string text;
    for (int i = 0; i < 16383; ++i)
        text += "\U0001F600";
    EXPECT_EQ(unknowns(text + "x"), text + "x");
    EXPECT_EQ(errorOf([&] { unknowns(text + "xy"); }), 6);
}

TEST(FormulaParser, OneParserServesManyTexts) {
    FormulaParser parser(catalogueOf({{"Rate", "5"}}));
    std::string first = "`Rate`";
    std::string second = "`Missing`";
    std::string third;
    parser.parse(first);
    parser.parse(second);
    parser.parse(third);
    EXPECT_EQ(first, "5");
    EXPECT_EQ(second, "Unknown");
    EXPECT_EQ(third, "");
}

}  // namespace
}  // namespace tavisk
