#include "page/nodeParse.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>

#include "support/errors.h"
#include "support/xml.h"
#include "xml/xmlWriter.h"

namespace tavisk {
namespace {

using test::element;
using test::errorOf;
using test::parsed;

/// A document's `cabinet` copied with everything expanded, under the folder "/t/".
class Rendering {
public:
    explicit Rendering(std::string_view xml) : document_(parsed(xml)) {
        catalogue_.load(*document_);
        NodeParser parser(*document_, catalogue_, "/t/");
        copy_ = parser.nodeparse(&element(*document_, "cabinet"));
    }

    std::string xml() const { return writeXml(*copy_); }
    std::string document() const { return writeXml(*document_); }
    const dom::Node& copy() const { return *copy_; }
    /// The text of the first attribute.
    std::string text() const { return std::string(copy_->attributes()[0].text()); }

private:
    std::unique_ptr<dom::Document> document_;
    FormulaCatalogue catalogue_;
    dom::OwnedNode copy_;
};

/// One answer text, with these elements beside `cabinet`.
std::string answer(const std::string& elements, const std::string& value) {
    return Rendering("<cabinetinfo>" + elements + "<cabinet value=\"" + value +
                     "\"/></cabinetinfo>")
        .text();
}

int errorOfAnswer(const std::string& elements, const std::string& value) {
    return errorOf([&] { answer(elements, value); });
}

constexpr const char* rate = R"(<formula name="Rate" value="5"/>)";
constexpr const char* logo = R"(<image name="logo" extension="gif"/>)";

TEST(NodeParse, NothingGivesNothing) {
    dom::Document document;
    NodeParser parser(document, FormulaCatalogue(), "/t/");
    EXPECT_FALSE(parser.nodeparse(nullptr));
}

TEST(NodeParse, LineFeedBecomesABreak) { EXPECT_EQ(answer("", "a&#10;b&#10;"), "a<br>b<br>"); }

TEST(NodeParse, CarriageReturnStays) { EXPECT_EQ(answer("", "a&#13;&#10;b&#13;c"), "a\r<br>b\rc"); }

TEST(NodeParse, LineFeedsAreBreaksBeforeFormulasAreExpanded) {
    EXPECT_EQ(answer(R"(<formula name="a&lt;br>b" value="1"/><formula name="a&#10;b" value="2"/>)",
                     "`a&#10;b`"),
              "1");
}

TEST(NodeParse, LineFeedsOfValuesStay) {
    EXPECT_EQ(answer(R"(<formula name="a" value="x&#10;y"/>)", "`a`"), "x\ny");
}

TEST(NodeParse, FormulasPicturesAndOverlaysAreExpanded) {
    const auto images = parsed("<x>" + std::string(logo) + "</x>");
    EXPECT_EQ(answer(rate + std::string(logo), "`Rate` `Lost` `~logo` `!logo`"),
              "5 Unknown <img src='/t//logo.gif'> " + overlayparse("`!logo`", *images, "/t/", 1));
}

TEST(NodeParse, PicturesSeeTheValuesOfFormulas) {
    EXPECT_EQ(answer(R"(<formula name="f" value="`~logo``@p`"/>)" + std::string(logo), "`f`"),
              "<img src='/t//logo.gif'><img src='p'>");
}

TEST(NodeParse, FormulasDoNotSeeThePathsOfPictures) {
    EXPECT_EQ(answer(rate + std::string(R"(<image name="a" extension="`Rate`"/>)"), "`~a`"),
              "<img src='/t//a.`Rate`'>");
}

TEST(NodeParse, OverlaysSeeTheValuesOfFormulasAndPictures) {
    EXPECT_EQ(
        answer(R"(<formula name="f" value="`!logo`"/>)" + std::string(logo), "`f`").substr(0, 5),
        "<div>");
    EXPECT_EQ(answer(R"(<image name="a" extension="`!a`"/>)", "`~a`").substr(0, 25),
              "<img src='/t//a.<div>\r\n<!");
}

TEST(NodeParse, WithoutFormulasUnknownTokensStay) { EXPECT_EQ(answer("", "`Lost`"), "`Lost`"); }

TEST(NodeParse, EveryAttributeIsExpandedWhateverItsName) {
    EXPECT_EQ(
        Rendering("<cabinetinfo>" + std::string(rate) +
                  R"(<cabinet titlecolor="`Rate`" style="&#10;" xml:lang="`Rate`" odd="`~x`"/>)"
                  "</cabinetinfo>")
            .xml(),
        R"(<cabinet titlecolor="5" style="&lt;br&gt;" xml:lang="5" odd="Bad Image"/>)");
}

TEST(NodeParse, EmptyAttributesStayEmpty) {
    EXPECT_EQ(Rendering(R"(<cabinet value="" style="0"/>)").xml(),
              R"(<cabinet value="" style="0"/>)");
}

TEST(NodeParse, EveryKindOfNodeBelowIsCopiedInOrder) {
    const std::string content =
        "<a><b/></a>text `Rate`<!--c `Rate`--><![CDATA[d `Rate`]]><?pi `Rate`?><e/>";
    EXPECT_EQ(Rendering("<cabinetinfo>" + std::string(rate) + "<cabinet>" + content +
                        "</cabinet></cabinetinfo>")
                  .xml(),
              "<cabinet>" + content + "</cabinet>");
}

TEST(NodeParse, NodesOnEveryLevelAreExpanded) {
    EXPECT_EQ(Rendering("<cabinetinfo>" + std::string(rate) +
                        R"(<cabinet value="`Rate`"><a value="`Rate`"><b value="`Rate`"/></a>)"
                        R"(<c value="`Rate`"/></cabinet></cabinetinfo>)")
                  .xml(),
              R"(<cabinet value="5"><a value="5"><b value="5"/></a><c value="5"/></cabinet>)");
}

TEST(NodeParse, GivenNodeAndItsDocumentAreUnchanged) {
    const std::string xml =
        "<cabinetinfo>" + std::string(rate) +
        R"(<cabinet value="`Rate`"><a value="`Rate`"/></cabinet></cabinetinfo>)";
    EXPECT_EQ(Rendering(xml).document(), xml);
}

TEST(NodeParse, CopyStandsOutsideTheTree) {
    EXPECT_EQ(Rendering("<cabinetinfo><cabinet/></cabinetinfo>").copy().parent(), nullptr);
}

TEST(NodeParse, AnyNodeCanBeTheStart) {
    const auto document = parsed(R"(<cabinet><a value="&#10;"/>text</cabinet>)");
    NodeParser parser(*document, FormulaCatalogue(), "/t/");
    const dom::Node& cabinet = element(*document, "cabinet");
    EXPECT_EQ(writeXml(*parser.nodeparse(cabinet.firstChild())), R"(<a value="&lt;br&gt;"/>)");
    EXPECT_EQ(writeXml(*parser.nodeparse(cabinet.lastChild())), "text");
}

TEST(NodeParse, AttributesAloneLeaveOutWhatIsBelow) {
    const auto document = parsed(R"(<cabinet value="&#10;"><a value="&#10;"/>text</cabinet>)");
    NodeParser parser(*document, FormulaCatalogue(), "/t/");
    const auto attributes = parser.expandAttributes(element(*document, "cabinet"));
    ASSERT_EQ(attributes.size(), 1U);
    EXPECT_EQ(attributes[0].baseName(), "value");
    EXPECT_EQ(attributes[0].text(), "<br>");
}

TEST(NodeParse, DeepDocumentsAreCopied) {
    std::string xml;
    for (int i = 0; i < 998; ++i)
        xml += "<a>";
    for (int i = 0; i < 998; ++i)
        xml += "</a>";
    // The innermost element is written without an end tag.
    xml.replace(xml.find("<a></a>"), 7, "<a/>");
    EXPECT_EQ(Rendering("<x><cabinet>" + xml + "</cabinet></x>").xml(),
              "<cabinet>" + xml + "</cabinet>");
}

TEST(NodeParseLimit, TextOf32767UnitsPasses) {
    const std::string text(32767, 'x');
    EXPECT_EQ(answer("", text), text);
    EXPECT_EQ(answer(rate, text), text);
}

TEST(NodeParseLimit, TextOf32768UnitsOverflows) {
    EXPECT_EQ(errorOfAnswer("", std::string(32768, 'x')), 6);
    EXPECT_EQ(errorOfAnswer(rate, std::string(32768, 'x')), 6);
}

TEST(NodeParseLimit, BreaksCountInFull) {
    EXPECT_EQ(answer("", std::string(32763, 'x') + "&#10;"), std::string(32763, 'x') + "<br>");
    EXPECT_EQ(errorOfAnswer("", std::string(32764, 'x') + "&#10;"), 6);
}

TEST(NodeParseLimit, UnknownFormulasCountInFullForThePictures) {
    // The formula scan passes 32,767 and leaves 32,771, which the picture scan refuses.
    EXPECT_EQ(errorOfAnswer(rate, std::string(32764, 'x') + "`a`"), 6);
    EXPECT_EQ(answer(rate, std::string(32760, 'x') + "`a`"), std::string(32760, 'x') + "Unknown");
}

TEST(NodeParseLimit, HoldsForEveryAttribute) {
    EXPECT_EQ(errorOf([] {
                  Rendering("<cabinet><a odd=\"" + std::string(32768, 'x') + "\"/></cabinet>");
              }),
              6);
}

TEST(NodeParseErrors, SizeOfTheGeneratedPictureCountsWithAnyAttribute) {
    const std::string bad = R"(<image name="generated_cabinet_picture" height="tall"/>)";
    EXPECT_EQ(errorOfAnswer(bad, "no token"), 13);
    EXPECT_EQ(errorOfAnswer(bad, ""), 13);
    EXPECT_EQ(errorOf([&] {
                  Rendering("<cabinetinfo>" + bad + "<cabinet><a/>text</cabinet></cabinetinfo>");
              }),
              0);
}

TEST(NodeParseErrors, TextLengthIsCheckedBeforeThatSize) {
    const std::string bad = R"(<image name="generated_cabinet_picture" height="tall"/>)";
    EXPECT_EQ(errorOfAnswer(bad, std::string(32768, 'x')), 6);
}

}  // namespace
}  // namespace tavisk
