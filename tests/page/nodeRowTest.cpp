#include "page/nodeRow.h"

#include <gtest/gtest.h>
#include <string>

#include "support/errors.h"
#include "support/xml.h"

namespace tavisk {
namespace {

using test::element;
using test::errorOf;
using test::parsed;

/// The row of an element "n" with these attributes.
std::string row(const std::string& attributes) {
    const auto document = parsed("<cabinet><n " + attributes + "/></cabinet>");
    return renderNodeRow(element(*document, "n"));
}

/// The row of the first node below `cabinet`.
std::string rowOf(const std::string& content) {
    const auto document = parsed("<cabinet>" + content + "</cabinet>");
    return renderNodeRow(*element(*document, "cabinet").firstChild());
}

/// One cell over both columns.
std::string wide(const std::string& cell) {
    return "<tr>\r\n\t<td colspan=2>\r\n\t\t" + cell + "\r\n\t</td>\r\n</tr>\r\n";
}

std::string twoCells(const std::string& title, const std::string& answer) {
    return "<tr>\r\n\t<td>\r\n\t\t" + title + "\r\n\t</td>\r\n\t<td>\r\n\t\t" + answer +
           "\r\n\t</td>\r\n</tr>\r\n";
}

std::string plain(const std::string& text) {
    return "<font color=\"#000000\" size=\"+0\">" + text + "</font>";
}

std::string sized(const std::string& size, const std::string& text) {
    return "<font color=\"#000000\" size=\"" + size + "\">" + text + "</font>";
}

TEST(NodeRow, NodeWithoutAttributesShowsItsTitleInPlainTags) {
    EXPECT_EQ(row(""),
              "<tr>\r\n\t<td colspan=2>\r\n\t\t<font color=\"#000000\" size=\"+0\">n</font>"
              "\r\n\t</td>\r\n</tr>\r\n");
}

TEST(NodeRow, TitleAndAnswerStandInTwoCells) {
    EXPECT_EQ(row(R"(value="an answer")"),
              "<tr>\r\n\t<td>\r\n\t\t<font color=\"#000000\" size=\"+0\">n</font>"
              "\r\n\t</td>\r\n\t<td>\r\n\t\t<font color=\"#000000\" size=\"+0\">an answer</font>"
              "\r\n\t</td>\r\n</tr>\r\n");
}

TEST(NodeRow, EmptyAnswerLeavesOneWideCell) { EXPECT_EQ(row(R"(value="")"), wide(plain("n"))); }

TEST(NodeRow, BlankAnswerIsAnAnswer) {
    EXPECT_EQ(row(R"(value=" ")"), twoCells(plain("n"), plain(" ")));
    EXPECT_EQ(row(R"(value="0")"), twoCells(plain("n"), plain("0")));
}

TEST(NodeRow, HiddenTitleLeavesTheAnswerInAWideCell) {
    EXPECT_EQ(row(R"(titlehidden="1" value="a")"), wide(plain("a")));
}

TEST(NodeRow, HiddenTitleShowsEvenAnEmptyAnswer) {
    EXPECT_EQ(row(R"(titlehidden="1")"), wide(plain("")));
}

TEST(NodeRow, HiddenAnswerLeavesTheTitleInAWideCell) {
    EXPECT_EQ(row(R"(answerhidden="1" value="a")"), wide(plain("n")));
}

TEST(NodeRow, BothHiddenGiveNothing) {
    EXPECT_EQ(row(R"(titlehidden="1" answerhidden="1" value="a")"), "");
}

TEST(NodeRow, OnlyTheExactTextOneHides) {
    for (const char* text : {"0", "", "true", "yes", " 1", "1 ", "01", "1.0", "2"}) {
        EXPECT_EQ(row("titlehidden=\"" + std::string(text) + "\" value=\"a\""),
                  twoCells(plain("n"), plain("a")))
            << text;
        EXPECT_EQ(row("answerhidden=\"" + std::string(text) + "\" value=\"a\""),
                  twoCells(plain("n"), plain("a")))
            << text;
    }
}

TEST(NodeRow, AnswerIsInsertedAsItStands) {
    EXPECT_EQ(row(R"(value="&lt;b&gt;&amp;&quot;&#10;é`Rate`")"),
              twoCells(plain("n"), plain("<b>&\"\né`Rate`")));
}

TEST(NodeRow, ColoursAreInsertedAsTheyStand) {
    EXPECT_EQ(row(R"(titlecolor="#FF0000" answercolor="#0000ff" value="a")"),
              twoCells("<font color=\"#FF0000\" size=\"+0\">n</font>",
                       "<font color=\"#0000ff\" size=\"+0\">a</font>"));
    EXPECT_EQ(row(R"(titlecolor="" answercolor="&lt;&quot;red" value="a")"),
              twoCells("<font color=\"\" size=\"+0\">n</font>",
                       "<font color=\"<\"red\" size=\"+0\">a</font>"));
}

TEST(NodeRow, SizesCarryTheirSign) {
    EXPECT_EQ(row(R"(titlefontsize="3" answerfontsize="-2" value="a")"),
              twoCells(sized("+3", "n"), sized("-2", "a")));
    EXPECT_EQ(row(R"(titlefontsize="-2" answerfontsize="3" value="a")"),
              twoCells(sized("-2", "n"), sized("+3", "a")));
}

TEST(NodeRow, SizesAreTheLeadingNumberRoundedDown) {
    const auto titleSize = [](const char* text, const char* size) {
        EXPECT_EQ(row("titlefontsize=\"" + std::string(text) + "\""), wide(sized(size, "n")))
            << text;
        EXPECT_EQ(row("titlehidden=\"1\" answerfontsize=\"" + std::string(text) + "\""),
                  wide(sized(size, "")))
            << text;
    };
    titleSize("", "+0");
    titleSize("large", "+0");
    titleSize("-", "+0");
    titleSize("-0", "+0");
    titleSize("1.9", "+1");
    titleSize("-0.5", "-1");
    titleSize("-2.5", "-3");
    titleSize(" 3", "+3");
    titleSize("3 4", "+3");
    titleSize("+4px", "+4");
    titleSize("1e3", "+1000");
    titleSize("0x10", "+0");
    titleSize("32767.9", "+32767");
    titleSize("-32768", "-32768");
}

TEST(NodeRow, SizesBeyond16BitsOverflow) {
    for (const char* text : {"32768", "-32768.1", "1e9", "-1e400"}) {
        const std::string quoted = "=\"" + std::string(text) + "\"";
        EXPECT_EQ(errorOf([&] { row("titlefontsize" + quoted); }), 6) << text;
        EXPECT_EQ(errorOf([&] { row("answerfontsize" + quoted); }), 6) << text;
        EXPECT_EQ(errorOf([&] { row("style" + quoted); }), 6) << text;
    }
}

TEST(NodeRow, NumbersAreReadEvenOfHiddenTexts) {
    EXPECT_EQ(errorOf([] { row(R"(titlehidden="1" titlefontsize="32768")"); }), 6);
    EXPECT_EQ(errorOf([] { row(R"(answerhidden="1" answerfontsize="32768")"); }), 6);
    EXPECT_EQ(errorOf([] { row(R"(titlehidden="1" answerhidden="1" style="32768")"); }), 6);
}

TEST(NodeRow, EveryStyleBitHasItsTag) {
    const auto styled = [](int style) {
        return row("style=\"" + std::to_string(style) + "\" value=\"a\"");
    };
    EXPECT_EQ(styled(1), twoCells("<b>" + plain("n") + "</b>", plain("a")));
    EXPECT_EQ(styled(2), twoCells("<i>" + plain("n") + "</i>", plain("a")));
    EXPECT_EQ(styled(4), twoCells("<u>" + plain("n") + "</u>", plain("a")));
    EXPECT_EQ(styled(8), twoCells(plain("n"), "<b>" + plain("a") + "</b>"));
    EXPECT_EQ(styled(16), twoCells(plain("n"), "<i>" + plain("a") + "</i>"));
    EXPECT_EQ(styled(32), twoCells(plain("n"), "<u>" + plain("a") + "</u>"));
    EXPECT_EQ(styled(64), twoCells(plain("n"), plain("a")));
}

TEST(NodeRow, StyleNineIsBoldTitleAndBoldAnswer) {
    EXPECT_EQ(row(R"(style="9" value="a")"),
              twoCells("<b>" + plain("n") + "</b>", "<b>" + plain("a") + "</b>"));
}

TEST(NodeRow, TagsCloseInReverseOrder) {
    EXPECT_EQ(row(R"(style="63" value="a")"), twoCells("<b><i><u>" + plain("n") + "</u></i></b>",
                                                       "<b><i><u>" + plain("a") + "</u></i></b>"));
}

TEST(NodeRow, StyleIsTheLeadingNumberRoundedDown) {
    EXPECT_EQ(row(R"(style="2.7")"), wide("<i>" + plain("n") + "</i>"));
    EXPECT_EQ(row(R"(style="bold")"), wide(plain("n")));
    EXPECT_EQ(row(R"(style="")"), wide(plain("n")));
}

TEST(NodeRow, BitsOfANegativeStyleAreThoseOfItsTwosComplement) {
    // -2.5 rounds down to -3, which has every bit but 2.
    EXPECT_EQ(
        row(R"(style="-2.5" value="a")"),
        twoCells("<b><u>" + plain("n") + "</u></b>", "<b><i><u>" + plain("a") + "</u></i></b>"));
}

TEST(NodeRow, TitleShowsUnderscoresAsSpaces) {
    EXPECT_EQ(rowOf("<Getting_started/>"), wide(plain("Getting started")));
    EXPECT_EQ(rowOf("<_a__b_/>"), wide(plain(" a  b ")));
}

TEST(NodeRow, TitleIsTheNameWithoutItsPrefix) {
    EXPECT_EQ(rowOf("<p:a_b xmlns:p=\"urn:p\"/>"), wide(plain("a b")));
}

TEST(NodeRow, AttributesAreFoundByTheirLocalNames) {
    EXPECT_EQ(rowOf("<n xmlns:p=\"urn:p\" p:value=\"1st\" value=\"2nd\"/>"),
              twoCells(plain("n"), plain("1st")));
}

TEST(NodeRow, OtherNodesAreRowsWithTheirBaseNames) {
    EXPECT_EQ(rowOf("text"), wide(plain("")));
    EXPECT_EQ(rowOf("<!--comment-->"), wide(plain("")));
    EXPECT_EQ(rowOf("<![CDATA[data]]>"), wide(plain("")));
    EXPECT_EQ(rowOf("<?a_target data?>"), wide(plain("a target")));
}

TEST(NodeRow, ChildrenAreNotPartOfTheRow) { EXPECT_EQ(rowOf("<n><m/>t</n>"), wide(plain("n"))); }

TEST(NodeRow, AppendedRowFollowsWhatIsThere) {
    std::string html = "before";
    appendNodeRow(html, "n", {});
    EXPECT_EQ(html, "before" + wide(plain("n")));
}

TEST(CapitalizeWords, EveryPartBeginsInUpperCase) {
    EXPECT_EQ(capitalizeWords("how_to_order"), "How To Order");
    EXPECT_EQ(capitalizeWords("a_b"), "A B");
}

TEST(CapitalizeWords, NameWithoutUnderscoreIsOnePart) {
    EXPECT_EQ(capitalizeWords("code"), "Code");
    EXPECT_EQ(capitalizeWords("x"), "X");
}

TEST(CapitalizeWords, RestOfEachPartIsUnchanged) {
    EXPECT_EQ(capitalizeWords("hOW_TO_oRDER"), "HOW TO ORDER");
    EXPECT_EQ(capitalizeWords("cOdE-x y.z"), "COdE-x y.z");
}

TEST(CapitalizeWords, PartsThatBeginWithNoLetterStay) {
    EXPECT_EQ(capitalizeWords("1st_-step_ x"), "1st -step  x");
}

TEST(CapitalizeWords, EmptyPartsStayEmpty) {
    EXPECT_EQ(capitalizeWords(""), "");
    EXPECT_EQ(capitalizeWords("_"), " ");
    EXPECT_EQ(capitalizeWords("a__b"), "A  B");
    EXPECT_EQ(capitalizeWords("_a_"), " A ");
}

}  // namespace
}  // namespace tavisk
