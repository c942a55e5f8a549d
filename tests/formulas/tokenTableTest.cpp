#include "formulas/tokenTable.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <string>
#include <utility>

#include "support/errors.h"

namespace tavisk {
namespace {

using Entries = std::initializer_list<std::pair<const char*, const char*>>;

std::string replaced(Entries entries, std::string text) {
    TokenTable table;
    for (const auto& [body, replacement] : entries)
        table.add(body, replacement);
    table.replaceIn(text);
    return text;
}

TEST(TokenTable, EmptyTableLeavesTheText) { EXPECT_EQ(replaced({}, "`a`"), "`a`"); }

TEST(TokenTable, EveryOccurrenceIsReplaced) {
    EXPECT_EQ(replaced({{"a", "1"}, {"b", "2"}}, "x`a`y`b`z`a``a`"), "x1y2z11");
}

TEST(TokenTable, UnknownTokensStay) {
    EXPECT_EQ(replaced({{"a", "1"}}, "`b` `~a` `!a` `@a` a `a"), "`b` `~a` `!a` `@a` a `a");
}

TEST(TokenTable, ComparisonIsExact) {
    EXPECT_EQ(replaced({{"Rate", "5"}}, "`rate``Rate ``RATE``Rates`"),
              "`rate``Rate ``RATE``Rates`");
}

TEST(TokenTable, ReplacementMayBeEmptyOrLong) {
    const std::string longText(5000, 'v');
    EXPECT_EQ(replaced({{"a", ""}, {"b", longText.c_str()}}, "x`a`y`b`z"), "xy" + longText + "z");
}

TEST(TokenTable, LongReplacementsAmongManyTokensKeepTheirPlaces) {
    std::string text;
    std::string expected;
    for (int i = 0; i < 300; ++i) {
        text += "<`a`|`b`>";
        expected += "<a rather long replacement|>";
    }
    EXPECT_EQ(replaced({{"a", "a rather long replacement"}, {"b", ""}}, text), expected);
}

TEST(TokenTable, LaterEntrySeesTheValueOfAnEarlierOne) {
    EXPECT_EQ(replaced({{"a", "`b`"}, {"b", "2"}}, "`a`"), "2");
}

TEST(TokenTable, EarlierEntryDoesNotSeeTheValueOfALaterOne) {
    EXPECT_EQ(replaced({{"b", "2"}, {"a", "`b`"}}, "`a`"), "`b`");
}

TEST(TokenTable, ValuesChainThroughSeveralEntries) {
    EXPECT_EQ(replaced({{"a", "<`b`>"}, {"b", "(`c`)"}, {"c", "3"}}, "`a``b``c`"), "<(3)>(3)3");
}

TEST(TokenTable, EntryDoesNotSeeItsOwnValue) {
    EXPECT_EQ(replaced({{"a", "``a``"}}, "`a`"), "``a``");
}

TEST(TokenTable, ValueWithOneBackquoteJoinsTheTextBehindIt) {
    EXPECT_EQ(replaced({{"a", "`"}, {"b", "2"}}, "`a`b`"), "2");
}

TEST(TokenTable, ValueWithOneBackquoteJoinsTheTextBeforeIt) {
    EXPECT_EQ(replaced({{"a", "`"}, {"b", "2"}}, "`b`a`"), "2");
    EXPECT_EQ(replaced({{"b", "2"}, {"a", "`"}}, "`b`a`"), "2a`");
    EXPECT_EQ(replaced({{"a", "b`"}, {"xb", "2"}}, "`x`a`"), "2");
}

TEST(TokenTable, ValuesOfTwoTokensFormATokenTogether) {
    EXPECT_EQ(replaced({{"a", "`c"}, {"b", "`"}, {"c", "3"}}, "`a``b`"), "3");
}

TEST(TokenTable, EmptyValuesBringTheirNeighboursTogether) {
    EXPECT_EQ(replaced({{"a", ""}, {"bc", "2"}}, "`b`a`c`"), "2");
    EXPECT_EQ(replaced({{"a", ""}, {"bxc", "2"}}, "`b`a`x`a`c`"), "2");
    EXPECT_EQ(replaced({{"a", ""}, {"bxc", "2"}, {"d2e", "3"}}, "`d`b`a`x`a`c`e`"), "3");
    EXPECT_EQ(replaced({{"c", ""}, {"a", ""}, {"bd", "2"}}, "`b`a`c``d`"), "2");
}

TEST(TokenTable, NeighbouringTokensShareTheirBackquotes) {
    // What stands between two tokens is a token for the replacement as well; the order decides.
    EXPECT_EQ(replaced({{"x", "X"}, {"a", "1"}, {"b", "2"}}, "`a`x`b`"), "`aXb`");
    EXPECT_EQ(replaced({{"a", "1"}, {"x", "X"}, {"b", "2"}}, "`a`x`b`"), "1x2");
    EXPECT_EQ(replaced({{"a", "1"}, {"b", "2"}}, "`a`b`"), "1b`");
    EXPECT_EQ(replaced({{"b", "2"}, {"a", "1"}}, "`a`b`"), "`a2");
}

TEST(TokenTable, TokenBehindAnUnknownOneMayStartAtItsClosingBackquote) {
    EXPECT_EQ(replaced({{"a", "1"}}, "`unknown`a`"), "`unknown1");
}

TEST(TokenTable, TokenBehindAnOddBackquoteIsFound) {
    EXPECT_EQ(replaced({{"a", "1"}}, "odd ` then `a`"), "odd ` then 1");
}

TEST(TokenTable, OccurrencesDoNotOverlap) {
    EXPECT_EQ(replaced({{"a", "1"}}, "`a`a`"), "1a`");
    EXPECT_EQ(replaced({{"a", "1"}}, "`a`a`a`"), "1a1");
    EXPECT_EQ(replaced({{"a", "1"}, {"y", ""}, {"wz", "9"}}, "`a`a`w`y`z`"), "1a9");
}

TEST(TokenTable, ReplacementIsNotScannedAgainWithTheTextAroundIt) {
    EXPECT_EQ(replaced({{"a", ""}}, "``a`a`"), "`a`");
}

TEST(TokenTable, FirstOfTwoEqualNamesWins) {
    EXPECT_EQ(replaced({{"a", "1"}, {"a", "2"}}, "`a``a`"), "11");
}

TEST(TokenTable, SecondOfTwoEqualNamesSeesWhatTheFirstLeft) {
    EXPECT_EQ(replaced({{"a", "`a`"}, {"a", "2"}}, "`a`"), "2");
    EXPECT_EQ(replaced({{"a", ""}, {"a", "2"}}, "``a`a`"), "2");
}

TEST(TokenTable, EqualNamesBehindTheEntryThatFormedTheTokenAreTriedInTheirOrder) {
    EXPECT_EQ(replaced({{"ac", "1"}, {"b", ""}, {"ac", "2"}, {"ac", "3"}}, "`a`b`c`"), "2");
    EXPECT_EQ(replaced({{"ac", "1"}, {"ac", "2"}, {"b", ""}, {"ac", "3"}}, "`a`b`c`"), "3");
    EXPECT_EQ(replaced({{"ac", "1"}, {"ac", "2"}, {"b", ""}}, "`a`b`c`"), "`ac`");
}

TEST(TokenTable, EmptyNameMatchesTwoAdjacentBackquotes) {
    EXPECT_EQ(replaced({{"", "E"}}, "a``b"), "aEb");
    EXPECT_EQ(replaced({{"", "E"}}, "```"), "E`");
    EXPECT_EQ(replaced({{"", "E"}}, "````"), "EE");
}

TEST(TokenTable, EmptyNameMatchesBetweenAdjacentTokens) {
    EXPECT_EQ(replaced({{"", "E"}, {"a", "1"}, {"b", "2"}}, "`a``b`"), "`aEb`");
    EXPECT_EQ(replaced({{"a", "1"}, {"", "E"}, {"b", "2"}}, "`a``b`"), "12");
}

TEST(TokenTable, EmptyNameMatchesWhatAValueLeavesTogether) {
    EXPECT_EQ(replaced({{"a", ""}, {"", "E"}}, "``a``"), "E");
}

TEST(TokenTable, NameWithABackquoteMatchesTheWholePattern) {
    EXPECT_EQ(replaced({{"a`b", "V"}}, "`a`b`"), "V");
    EXPECT_EQ(replaced({{"a`b", "V"}, {"a", "1"}}, "`a`b`"), "V");
    EXPECT_EQ(replaced({{"a", "1"}, {"a`b", "V"}}, "`a`b`"), "1b`");
}

TEST(TokenTable, NameThatIsABackquoteMatchesThree) {
    EXPECT_EQ(replaced({{"`", "V"}}, "x```y"), "xVy");
    EXPECT_EQ(replaced({{"`", "V"}}, "````"), "V`");
    EXPECT_EQ(replaced({{"a`", "V"}}, "`a``"), "V");
}

TEST(TokenTable, NameThatBeginsLikeAnotherIsAnotherName) {
    EXPECT_EQ(replaced({{"a", "1"}, {"ab", "2"}}, "`a``ab``abc`"), "12`abc`");
}

TEST(TokenTable, NonAsciiNamesAndValues) {
    EXPECT_EQ(replaced({{"größe", "5 €"}, {"名前", "\U0001F600"}}, "é`größe`ü`名前`\U0001F600"),
              "é5 €ü\U0001F600\U0001F600");
}

TEST(TokenTable, NamesAreNotNormalised) {
    EXPECT_EQ(replaced({{"\u00e9", "1"}}, "`e\u0301`"), "`e\u0301`");
}

TEST(TokenTable, NamesMayHoldBlanksAndLineBreaks) {
    EXPECT_EQ(replaced({{"a b", "1"}, {"c\nd", "2"}, {" ", "3"}}, "`a b``c\nd`` `"), "123");
}

TEST(TokenTable, TextIsNotLimited) {
    const std::string filler(40000, 'x');
    EXPECT_EQ(replaced({{"a", "1"}}, filler + "`a`"), filler + "1");
}

TEST(TokenTable, OneTableServesManyTexts) {
    TokenTable table;
    table.add("a", "`b");
    table.add("b", "2");
    std::string first = "`a``";
    std::string second = "`b`";
    std::string third;
    table.replaceIn(first);
    table.replaceIn(second);
    table.replaceIn(third);
    EXPECT_EQ(first, "2");
    EXPECT_EQ(second, "2");
    EXPECT_EQ(third, "");
}

TEST(TokenTable, TextsLeaveNothingBehindForTheNextOne) {
    TokenTable table;
    table.add("a", "`");
    table.add("b", "2");
    std::string first = "`a`x`b``b``b`";
    std::string second = "`s`t`u`v`w`x`y`z`";
    std::string third = "`b`";
    table.replaceIn(first);
    table.replaceIn(second);
    table.replaceIn(third);
    EXPECT_EQ(first, "`x222");
    EXPECT_EQ(second, "`s`t`u`v`w`x`y`z`");
    EXPECT_EQ(third, "2");
}

TEST(TokenTable, TwoThousandEntriesKeepTheirOrder) {
    TokenTable table;
    for (int i = 0; i < 2000; ++i)
        table.add("n" + std::to_string(i), "`n" + std::to_string(i + 1) + "`");
    std::string up = "`n0`";
    table.replaceIn(up);
    EXPECT_EQ(up, "`n2000`");
}

TEST(TokenTable, LongRowsOfReplacementsMakeALateToken) {
    TokenTable table;
    std::string late;
    std::string text = "x`";
    for (int i = 0; i < 20000; ++i) {
        text += "`a`";
        late += "v";
    }
    text += "`y";
    table.add("a", "v");
    table.add(late, "late");
    table.replaceIn(text);
    EXPECT_EQ(text, "xlatey");
}

TEST(TokenTable, ReplacementsThatMultiplyEndInError7) {
    TokenTable table;
    for (char name = 'a'; name < 'z'; ++name) {
        const std::string next{'`', static_cast<char>(name + 1), '`'};
        std::string tenTimes;
        for (int i = 0; i < 10; ++i)
            tenTimes += next;
        table.add(std::string(1, name), tenTimes);
    }
    table.add("z", "");
    std::string text = "`a`";
    EXPECT_EQ(test::errorOf([&] { table.replaceIn(text); }), 7);
}

TEST(TokenTable, LongReplacementsThatComeTooOftenEndInError7) {
    TokenTable table;
    table.add("a", std::string(1 << 20, 'v'));
    std::string text;
    for (int i = 0; i < 65; ++i)
        text += "`a`";
    EXPECT_EQ(test::errorOf([&] { table.replaceIn(text); }), 7);
}

TEST(TokenTable, TooManyLongTextsEndInError7) {
    TokenTable table;
    table.add("a", "`b``b``b``b``b``b``b``b``b``b`");
    table.add("b", std::string(1 << 20, 'v'));
    int error = 0;
    for (int i = 0; i < 1000 && error == 0; ++i) {
        std::string text = "`a`";
        error = test::errorOf([&] { table.replaceIn(text); });
    }
    EXPECT_EQ(error, 7);
}

TEST(TokenTable, ValuesWithBackquotesAreSeenByTheNextEntryOnly) {
    TokenTable table;
    table.add("b", "early");
    table.add("a", "`b``c`");
    table.add("c", "late");
    std::string text = "`a`";
    table.replaceIn(text);
    EXPECT_EQ(text, "`b`late");
}

TEST(TokenTable, NamesWithBackquotesKeepTheirPlaceAmongTheOthers) {
    TokenTable table;
    table.add("a", "1");
    table.add("b`c", "`d`");
    table.add("d", "2");
    table.add("e`f", "3");
    table.add("g", "`e`f`");
    std::string text = "`a``b`c``d``e`f``g`";
    table.replaceIn(text);
    EXPECT_EQ(text, "1223`e`f`");
}

TEST(TokenTable, ManyEntriesCostNothingBesideValuesWithBackquotes) {
    TokenTable table;
    table.add("a", "`b`" + std::string(2000, 'v'));
    for (int i = 0; i < 300000; ++i)
        table.add("n" + std::to_string(i), "");
    std::string text;
    for (int i = 0; i < 10000; ++i)
        text += "`a`";
    table.replaceIn(text);
    EXPECT_EQ(text.size(), std::size_t{20030000});
}

TEST(TokenTable, ManyEqualNamesAreTriedInOneWalk) {
    TokenTable table;
    for (int i = 0; i < 100000; ++i)
        table.add("a", i % 2 == 0 ? "`a`" : "`b`");
    table.add("b", "`a`");
    table.add("a", "end");
    std::string text = "`a`";
    table.replaceIn(text);
    EXPECT_EQ(text, "end");
}

TEST(TokenTable, EndlessSearchingEndsInError7) {
    TokenTable table;
    for (int i = 0; i < 30000; ++i)
        table.add("`" + std::to_string(i), "");
    const std::string text = "`" + std::string(32000, 'v');
    int error = 0;
    for (int i = 0; i < 20 && error == 0; ++i) {
        std::string copy = text;
        error = test::errorOf([&] { table.replaceIn(copy); });
    }
    EXPECT_EQ(error, 7);
}

}  // namespace
}  // namespace tavisk
