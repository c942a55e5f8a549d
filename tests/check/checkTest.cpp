#include "check/check.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace tavisk {
namespace {

Findings check(std::string_view xml) { return checkDocument(dom::Source::copy(xml)); }

std::string document(std::string_view cabinet, std::string_view rest = "") {
    return "<cabinetinfo>" + std::string(cabinet) + std::string(rest) + "</cabinetinfo>";
}

TEST(CheckDocument, FindsNothingInAGoodDocument) {
    EXPECT_EQ(check(document("<cabinet><A value='`f` `~p`'/></cabinet>",
                             "<formula name='f' value='1'/>"
                             "<image name='p' extension='png'>aGk=</image>")),
              Findings{});
}

TEST(CheckDocument, TellsAParseErrorWithItsLine) {
    const Findings findings = check("<cabinetinfo>\n<cabinet>\n\x01</cabinet></cabinetinfo>");
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].code, "not-well-formed");
    EXPECT_TRUE(findings[0].message.ends_with(" (line 3)")) << findings[0].message;
    EXPECT_EQ(findings[0].severity, Severity::error);
    EXPECT_EQ(findings[0].key, "");
}

TEST(CheckDocument, TellsWhyADocumentIsRejected) {
    EXPECT_EQ(check("<cabinetinfo/>"), (Findings{{Severity::error, "document-rejected", "", "",
                                                  std::nullopt, "No cabinet data found..."}}));
    EXPECT_EQ(check("<other><cabinet/></other>"),
              (Findings{{Severity::error, "document-rejected", "", "", std::nullopt,
                         "Error in XML data: cabinetinfo basenode does not exist"}}));
}

TEST(CheckDocument, OrdersNodesFormulasPictures) {
    const Findings findings = check(
        "<cabinetinfo><image name='p' extension='png'>aGk=</image><formula/>"
        "<cabinet><A value='`'/></cabinet></cabinetinfo>");
    ASSERT_EQ(findings.size(), 3u);
    EXPECT_EQ(findings[0].code, "odd-backquote");
    EXPECT_EQ(findings[1].code, "formula-without-name");
    EXPECT_EQ(findings[2].code, "picture-unused");
}

TEST(CheckDocument, AnEmptyCabinetIsExplainedOnce) {
    const Findings findings = check(document("<cabinet/>"));
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].code, "no-help-nodes");
}

TEST(CheckDocument, TextTooLongOnceItIsFilledIn) {
    const std::string value(20000, 'v');
    EXPECT_EQ(check(document("<cabinet><A value='x'/><B value='`f``f`'/></cabinet>",
                             "<formula name='f' value='" + value + "'/>")),
              (Findings{{Severity::error, "cannot-be-rendered", "cabinet=>B", "", std::nullopt,
                         "With formulas and pictures filled in: run-time error 6, Overflow"}}));
}

TEST(CheckDocument, FormulaValuesThatThePageCannotHold) {
    EXPECT_EQ(check(document("<cabinet><A value='`f`'/></cabinet>",
                             "<formula name='f' value='\xC5\x82'/>")),
              (Findings{{Severity::error, "cannot-be-rendered", "cabinet=>A", "", std::nullopt,
                         "With formulas and pictures filled in: The page cannot hold "
                         "\"\xC5\x82\" (U+0142)."}}));
}

TEST(CheckDocument, AFormulaValueThatIsNotShownIsFine) {
    EXPECT_EQ(check(document("<cabinet><A value='`f`' answerhidden='1'/></cabinet>",
                             "<formula name='f' value='\xC5\x82'/>")),
              Findings{});
}

TEST(CheckDocument, TheHeadingIsFilledInToo) {
    const Findings findings =
        check(document("<cabinet><code value='`f`' answerhidden='1'/></cabinet>",
                       "<formula name='f' value='\xC5\x82'/>"));
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].key, "cabinet=>code");
}

TEST(CheckDocument, AKnownErrorDoesNotHideAnotherNodesError) {
    const Findings findings =
        check(document("<cabinet><A style='x'/><B value='`f``f`'/></cabinet>",
                       "<formula name='f' value='" + std::string(20000, 'v') + "'/>"));
    ASSERT_EQ(findings.size(), 2u);
    EXPECT_EQ(findings[0].key, "cabinet=>A");
    EXPECT_EQ(findings[1].key, "cabinet=>B");
}

TEST(CheckDocument, ColoursThatThePageCannotHold) {
    const Findings findings = check(document("<cabinet><A titlecolor='\xC5\x82'/></cabinet>"));
    ASSERT_EQ(findings.size(), 2u);
    EXPECT_EQ(findings[0].code, "bad-colour");
    EXPECT_EQ(findings[1].code, "cannot-be-rendered");
}

TEST(CheckDocument, ACabinetInsideAFormulaCannotBeSaved) {
    const Findings findings =
        check("<cabinetinfo><formula name='f'><cabinet><A/></cabinet></formula></cabinetinfo>");
    EXPECT_EQ(findings,
              (Findings{{Severity::error, "cannot-be-saved", "", "", std::nullopt,
                         "The document cannot be saved: run-time error 91, Object variable or "
                         "With block variable not set"}}));
}

TEST(CheckDocument, GapsBeyondAllMeasureCannotBeRendered) {
    const Findings findings = check(document("<cabinet><A spaceafter='1000000000'/></cabinet>"));
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].code, "cannot-be-rendered");
    EXPECT_EQ(findings[0].key, "cabinet=>A");
}

TEST(Rejection, JoinsTheLinesOfAMessage) {
    EXPECT_EQ(rejection({"Error in XML data:\r\n\r\nwhy"}),
              (Finding{Severity::error, "document-rejected", "", "", std::nullopt,
                       "Error in XML data: why"}));
}

TEST(Rejection, PutsTheLineOfAParseErrorBehindIt) {
    EXPECT_EQ(rejection({"Reason", Place{7}}),
              (Finding{Severity::error, "not-well-formed", "", "", std::nullopt, "Reason (line 7)",
                       Place{7}}));
}

TEST(Places, AreToldWhereTheyAreWanted) {
    const std::string xml = "<cabinetinfo>\n <cabinet><A value='a `b`'/></cabinet></cabinetinfo>";
    EXPECT_EQ(check(xml).at(0).place, std::nullopt);
    EXPECT_EQ(checkDocument(dom::Source::copy(xml), Places::wanted).at(0).place, (Place{2, 23}));
}

TEST(Places, OfNodesThatFailOnlyWithTheirValues) {
    const std::string xml =
        "<cabinetinfo><cabinet><A/>\n<B value='`f`'/></cabinet><formula name='f' "
        "value='\xC5\x82'/></cabinetinfo>";
    const Findings findings = checkDocument(dom::Source::copy(xml), Places::wanted);
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].code, "cannot-be-rendered");
    EXPECT_EQ(findings[0].place, (Place{2, 1}));
}

}  // namespace
}  // namespace tavisk
