#include "page/pageLayout.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

#include "page/nodeParse.h"
#include "support/errors.h"
#include "support/memoryFiles.h"
#include "support/xml.h"
#include "xml/xmlWriter.h"

namespace tavisk {
namespace {

using test::element;
using test::errorOf;
using test::MemoryFiles;
using test::parsed;

constexpr const char* path = "/t/temp.html";

const std::string head =
    "<html xmlns:v=\"urn:schemas-microsoft-com:vml\"><head><link rel=\"stylesheet\" "
    "href=\"style.css\" type=\"text/css\"></head><body><table width=100%><tr><td>\r\n";
const std::string tail = "\r\n</td></tr></table></body></html>";
const std::string opening = "<table border=0><tr><td valign='top' align='left'>\r\n";
const std::string closing = "</table>&nbsp;\r\n";
const std::string gap = "<tr><td colspan=2>&nbsp;</td></tr>";
const std::string columnBreak = "</table></td><td valign='top' align='left'><table>";
const std::string pageBreak =
    "</table></td></tr></table><br clear=all style='page-break-before:always'>"
    "<table><tr><td valign='top' align='left'><table>";
const std::string hidden = R"( titlehidden="1" answerhidden="1" )";

std::string titleRow(const std::string& name) {
    return "<tr>\r\n\t<td colspan=2>\r\n\t\t<font color=\"#000000\" size=\"+0\">" + name +
           "</font>\r\n\t</td>\r\n</tr>\r\n";
}

std::string page(const std::string& rows, const std::string& heading = "") {
    return "<h3>" + heading + "</h3>" + opening + rows + closing;
}

LayoutResult laidOut(const std::string& xml) {
    const auto document = parsed(xml);
    return layoutNode(*document->lastChild(), false);
}

std::string layout(const std::string& xml) { return laidOut(xml).html; }

/// The rows of a node with this attribute that shows no text.
std::string rows(const std::string& attribute) {
    const auto document = parsed("<n" + hidden + attribute + "/>");
    return layoutNode(element(*document, "n"), true).html;
}

/// Writes the preview of a document's `cabinet`.
int preview(MemoryFiles& files, const std::string& xml, bool evaluate = false) {
    files.addFolder("/t");
    return errorOf([&] {
        const auto document = parsed(xml);
        FormulaCatalogue catalogue;
        catalogue.load(*document);
        NodeParser parser(*document, catalogue, "/t/temp_images/");
        writePage(files, path, element(*document, "cabinet"), evaluate ? &parser : nullptr);
    });
}

std::string previewed(const std::string& xml, bool evaluate = false) {
    MemoryFiles files;
    EXPECT_EQ(preview(files, xml, evaluate), 0);
    return files.bytesOf(path).value_or("no file");
}

TEST(LayoutNode, StartNodeHasNoRow) {
    EXPECT_EQ(layout("<cabinet value=\"v\"/>"),
              "<h3></h3><table border=0><tr><td valign='top' align='left'>\r\n</table>&nbsp;\r\n");
}

TEST(LayoutNode, NodesAreRowsInDocumentOrder) {
    EXPECT_EQ(layout("<cabinet><a><b/><c/></a><d/></cabinet>"),
              page(titleRow("a") + titleRow("b") + titleRow("c") + titleRow("d")));
}

TEST(LayoutNode, NestedNodeIsRowsOnly) {
    const auto document = parsed("<cabinet><a spaceafter=\"1\"><b/></a></cabinet>");
    const LayoutResult result = layoutNode(element(*document, "a"), true);
    EXPECT_EQ(result.html, titleRow("a") + titleRow("b") + gap);
    EXPECT_EQ(result.xml, "");
}

TEST(LayoutNode, OutermostCallSerialisesTheStartNode) {
    EXPECT_EQ(laidOut("<cabinet><a value=\"1\"/></cabinet>").xml,
              "<cabinet><a value=\"1\"/></cabinet>");
}

TEST(LayoutNode, EveryKindOfNodeIsARow) {
    EXPECT_EQ(layout("<cabinet>text<!--c--><?pi d?><![CDATA[e]]></cabinet>"),
              page(titleRow("") + titleRow("") + titleRow("pi") + titleRow("")));
}

TEST(LayoutNode, NothingIsSkippedByName) {
    EXPECT_EQ(layout("<cabinet><formula/><image/><code/></cabinet>"),
              page(titleRow("formula") + titleRow("image") + titleRow("code")));
}

TEST(LayoutNode, HiddenNodeKeepsItsGapsBreaksAndChildren) {
    EXPECT_EQ(layout("<cabinet><a" + hidden +
                     R"(spacebefore="1" spaceafter="2" pagebreak="1"><b/></a></cabinet>)"),
              page(gap + titleRow("b") + gap + gap + pageBreak));
}

TEST(LayoutGaps, StandDirectlyBeforeTheRow) {
    EXPECT_EQ(layout(R"(<cabinet><a/><b spacebefore="2"/></cabinet>)"),
              page(titleRow("a") + gap + gap + titleRow("b")));
}

TEST(LayoutGaps, StandBehindTheSubtree) {
    EXPECT_EQ(layout(R"(<cabinet><a spaceafter="2"><b/></a><c/></cabinet>)"),
              page(titleRow("a") + titleRow("b") + gap + gap + titleRow("c")));
}

TEST(LayoutGaps, AreTheLeadingNumberRoundedDown) {
    for (const char* name : {"spacebefore", "spaceafter"}) {
        const auto count = [name](const std::string& text) {
            const std::string html = rows(std::string(name) + "=\"" + text + "\"");
            EXPECT_EQ(html.size() % gap.size(), 0u);
            return html.size() / gap.size();
        };
        EXPECT_EQ(count("2"), 2u);
        EXPECT_EQ(count("2.9"), 2u);
        EXPECT_EQ(count("-1"), 0u);
        EXPECT_EQ(count("abc"), 0u);
        EXPECT_EQ(count(""), 0u);
        EXPECT_EQ(count("0"), 0u);
        EXPECT_EQ(count("0.9"), 0u);
        EXPECT_EQ(count("-0.5"), 0u);
        EXPECT_EQ(count(" 3"), 3u);
        EXPECT_EQ(count("3 4"), 3u);
        EXPECT_EQ(count("+4"), 4u);
        EXPECT_EQ(count("1e1"), 10u);
        EXPECT_EQ(count("-1e400"), 0u);
    }
}

TEST(LayoutGaps, HaveNo16BitRange) {
    EXPECT_EQ(rows("spacebefore=\"40000\"").size(), 40000 * gap.size());
}

TEST(LayoutGaps, BeyondAnyPageAreOutOfMemoryAtOnce) {
    for (const char* count : {"1e12", "40000000", "1e400"}) {
        EXPECT_EQ(errorOf([&] { rows("spacebefore=\"" + std::string(count) + "\""); }), 7) << count;
        EXPECT_EQ(errorOf([&] { rows("spaceafter=\"" + std::string(count) + "\""); }), 7) << count;
    }
}

TEST(LayoutBreaks, OnlyTheExactTextOneCounts) {
    for (const char* text : {"0", "", "true", " 1", "01", "1.0"}) {
        EXPECT_EQ(rows("columnbreak=\"" + std::string(text) + "\""), "") << text;
        EXPECT_EQ(rows("pagebreak=\"" + std::string(text) + "\""), "") << text;
    }
}

TEST(LayoutBreaks, ColumnBreakStandsBehindSubtreeAndGaps) {
    EXPECT_EQ(layout(R"(<cabinet><a columnbreak="1" spaceafter="1"><b><c spaceafter="1"/></b></a>)"
                     "<d/></cabinet>"),
              page(titleRow("a") + titleRow("b") + titleRow("c") + gap + gap + columnBreak +
                   titleRow("d")));
}

TEST(LayoutBreaks, PageBreakStandsBehindSubtreeAndGaps) {
    EXPECT_EQ(layout(R"(<cabinet><a pagebreak="1" spaceafter="1"><b/></a><d/></cabinet>)"),
              page(titleRow("a") + titleRow("b") + gap + pageBreak + titleRow("d")));
}

TEST(LayoutBreaks, ColumnBreakComesBeforePageBreak) {
    EXPECT_EQ(rows(R"(pagebreak="1" columnbreak="1")"), columnBreak + pageBreak);
}

TEST(LayoutBreaks, StartNodeHasItsOwnGapsAndBreaks) {
    EXPECT_EQ(layout(R"(<cabinet spacebefore="1" spaceafter="2" columnbreak="1" pagebreak="1">)"
                     "<a/></cabinet>"),
              page(gap + titleRow("a") + gap + gap + columnBreak + pageBreak));
}

TEST(LayoutCode, BecomesTheHeadingAndKeepsItsRow) {
    EXPECT_EQ(
        layout(R"(<cabinet><code value="B36"/></cabinet>)"),
        page("<tr>\r\n\t<td>\r\n\t\t<font color=\"#000000\" size=\"+0\">code</font>\r\n\t</td>\r\n"
             "\t<td>\r\n\t\t<font color=\"#000000\" size=\"+0\">B36</font>\r\n\t</td>\r\n</tr>\r\n",
             "B36"));
}

TEST(LayoutCode, WithoutItTheHeadingIsEmpty) {
    EXPECT_EQ(layout("<cabinet><a/></cabinet>").substr(0, 9), "<h3></h3>");
}

TEST(LayoutCode, HeadingIsInsertedAsItStands) {
    EXPECT_EQ(layout("<cabinet><code" + hidden + "value=\"&lt;i&gt;&amp;\"/></cabinet>"),
              page("", "<i>&"));
}

TEST(LayoutCode, NameCountsWithoutRegardToCase) {
    for (const char* name : {"code", "Code", "CODE", "cOdE"}) {
        EXPECT_EQ(laidOut("<cabinet><" + std::string(name) + " value=\"x\"/></cabinet>").code, "x")
            << name;
    }
    for (const char* name : {"type", "Type", "TYPE"}) {
        EXPECT_EQ(laidOut("<cabinet><" + std::string(name) + " value=\"x\"/></cabinet>").type, "x")
            << name;
    }
}

TEST(LayoutCode, OtherNamesDoNotCount) {
    for (const char* name : {"my_code", "code_", "_code", "co_de", "codes", "code1", "type_"}) {
        const LayoutResult result =
            laidOut("<cabinet><" + std::string(name) + " value=\"x\"/></cabinet>");
        EXPECT_EQ(result.code, "") << name;
        EXPECT_EQ(result.type, "") << name;
    }
}

TEST(LayoutCode, NameCountsWithItsPrefix) {
    EXPECT_EQ(laidOut(R"(<cabinet xmlns:p="urn:p"><p:code value="x"/></cabinet>)").code, "");
}

TEST(LayoutCode, NodesThatAreNoElementsHaveNoValue) {
    const LayoutResult result = laidOut("<cabinet><?code value=\"x\"?><?type y?></cabinet>");
    EXPECT_EQ(result.code, "");
    EXPECT_EQ(result.type, "");
}

TEST(LayoutCode, FirstNonEmptyValueInDocumentOrderWins) {
    EXPECT_EQ(
        laidOut(R"(<cabinet><code/><code value=""/><code value="1"/><code value="2"/></cabinet>)")
            .code,
        "1");
    EXPECT_EQ(
        laidOut(R"(<cabinet><a><b><code value="deep"/></b></a><code value="2"/></cabinet>)").code,
        "deep");
}

TEST(LayoutCode, OwnValueComesBeforeThoseBelow) {
    EXPECT_EQ(laidOut(R"(<cabinet><code value="1"><code value="2"/></code></cabinet>)").code, "1");
    EXPECT_EQ(laidOut(R"(<cabinet><code><code value="2"/></code><code value="3"/></cabinet>)").code,
              "2");
}

TEST(LayoutCode, BlankValueIsNotEmpty) {
    EXPECT_EQ(laidOut(R"(<cabinet><code value=" "/><code value="2"/></cabinet>)").code, " ");
}

TEST(LayoutCode, CodeAndTypeAreFoundIndependently) {
    const LayoutResult result =
        laidOut(R"(<cabinet><type value="t"><code value="c"/></type><type value="u"/></cabinet>)");
    EXPECT_EQ(result.code, "c");
    EXPECT_EQ(result.type, "t");
}

TEST(LayoutCode, StartNodeCountsAsWell) {
    const auto document = parsed("<code value=\"x\"><code value=\"y\"/></code>");
    EXPECT_EQ(layoutNode(element(*document, "code"), false).code, "x");
}

TEST(LayoutNode, SizeBeyond16BitsOverflows) {
    EXPECT_EQ(errorOf([] { layout(R"(<cabinet><a titlefontsize="32768"/></cabinet>)"); }), 6);
    EXPECT_EQ(errorOf([] { layout(R"(<cabinet titlefontsize="32768"/>)"); }), 0);
}

TEST(WritePage, WholePageByteForByte) {
    EXPECT_EQ(
        previewed(
            "<cabinetinfo><formula name=\"Rate\" value=\"5\"/><cabinet>"
            "<Code value=\"B36\" titlehidden=\"1\" answerhidden=\"1\"/>"
            "<How_to_order value=\"a&#10;`Rate`\" style=\"1\" spacebefore=\"1\" columnbreak=\"1\">"
            "<Step titlefontsize=\"-1\"/></How_to_order><End/></cabinet></cabinetinfo>"),
        "<html xmlns:v=\"urn:schemas-microsoft-com:vml\"><head><link rel=\"stylesheet\" "
        "href=\"style.css\" type=\"text/css\"></head><body><table width=100%><tr><td>\r\n"
        "<h3>B36</h3><table border=0><tr><td valign='top' align='left'>\r\n"
        "<tr><td colspan=2>&nbsp;</td></tr>"
        "<tr>\r\n\t<td>\r\n\t\t<b><font color=\"#000000\" size=\"+0\">How to "
        "order</font></b>\r\n\t</td>\r\n"
        "\t<td>\r\n\t\t<font color=\"#000000\" size=\"+0\">a\n`Rate`</font>\r\n\t</td>\r\n</tr>\r\n"
        "<tr>\r\n\t<td colspan=2>\r\n\t\t<font color=\"#000000\" "
        "size=\"-1\">Step</font>\r\n\t</td>\r\n</tr>\r\n"
        "</table></td><td valign='top' align='left'><table>"
        "<tr>\r\n\t<td colspan=2>\r\n\t\t<font color=\"#000000\" "
        "size=\"+0\">End</font>\r\n\t</td>\r\n</tr>\r\n"
        "</table>&nbsp;\r\n"
        "\r\n</td></tr></table></body></html>");
}

TEST(WritePage, EmptyCabinet) {
    EXPECT_EQ(previewed("<cabinetinfo><cabinet/></cabinetinfo>"), head + page("") + tail);
}

TEST(WritePage, NothingOutsideTheStartNodeIsWritten) {
    EXPECT_EQ(previewed("<cabinetinfo><code value=\"x\"/><formula/><image/><location/>text"
                        "<cabinet/><a/></cabinetinfo>"),
              head + page("") + tail);
}

TEST(WritePage, WithoutEvaluationTextsStayAsTheyAre) {
    const std::string html = previewed(
        "<cabinetinfo><formula name=\"Rate\" value=\"5\"/><image name=\"logo\"/><cabinet>"
        "<a titlehidden=\"1\" value=\"1&#10;2 `Rate` `~logo`\"/></cabinet></cabinetinfo>");
    EXPECT_EQ(html, head + page(titleRow("1\n2 `Rate` `~logo`")) + tail);
}

TEST(WritePage, WithEvaluationTextsAreExpanded) {
    const std::string html = previewed(
        "<cabinetinfo><formula name=\"Rate\" value=\"5\"/><image name=\"logo\"/><cabinet>"
        "<a titlehidden=\"1\" value=\"1&#10;2 `Rate` `~logo`\"/></cabinet></cabinetinfo>",
        true);
    EXPECT_EQ(html, head + page(titleRow("1<br>2 5 <img src='/t/temp_images//logo.png'>")) + tail);
}

TEST(WritePage, WithEvaluationEveryLayoutAttributeIsExpanded) {
    const std::string html = previewed(
        "<cabinetinfo><formula name=\"one\" value=\"1\"/><formula name=\"c\" value=\"B36\"/>"
        "<cabinet spacebefore=\"`one`\"><code" +
            hidden +
            "value=\"`c`\"/><a spaceafter=\"`one`\" columnbreak=\"`one`\" answerhidden=\"`one`\" "
            "value=\"not seen\"/></cabinet></cabinetinfo>",
        true);
    EXPECT_EQ(html, head + page(gap + titleRow("a") + gap + columnBreak, "B36") + tail);
}

TEST(WritePage, EvaluationCanEmptyTheCode) {
    EXPECT_EQ(
        previewed("<cabinetinfo><formula name=\"none\" value=\"\"/><cabinet><code" + hidden +
                      "value=\"`none`\"/><code" + hidden + "value=\"2\"/></cabinet></cabinetinfo>",
                  true),
        head + page("", "2") + tail);
}

TEST(WritePage, LongPagesAreWrittenWhole) {
    std::string nodes;
    std::string html;
    for (int i = 0; i < 3000; ++i) {
        nodes += "<a><b spaceafter=\"1\"/></a>";
        html += titleRow("a") + titleRow("b") + gap;
    }
    EXPECT_EQ(previewed("<x><cabinet>" + nodes + "</cabinet></x>", true), head + page(html) + tail);
}

TEST(WritePage, SecondPreviewReplacesTheFirst) {
    MemoryFiles files;
    EXPECT_EQ(preview(files, "<x><cabinet><a/><b/><c/></cabinet></x>"), 0);
    EXPECT_EQ(preview(files, "<x><cabinet><d/></cabinet></x>", true), 0);
    EXPECT_EQ(files.bytesOf(path), head + page(titleRow("d")) + tail);
}

TEST(WritePage, TouchesNoOtherFile) {
    MemoryFiles files;
    EXPECT_EQ(preview(files, "<x><image name=\"a\">YQ==</image><cabinet/></x>"), 0);
    EXPECT_EQ(files.files().size(), 1u);
}

std::string withAnswer(const std::string& text) {
    return "<x><cabinet><a titlehidden=\"1\" value=\"" + text + "\"/></cabinet></x>";
}

TEST(WritePageEncoding, IsCodePage1252) {
    EXPECT_EQ(previewed(withAnswer("é\u00a0ÿ€“”–Œž™")),
              head + page(titleRow("\xe9\xa0\xff\x80\x93\x94\x96\x8c\x9e\x99")) + tail);
}

TEST(WritePageEncoding, TitlesAndHeadingAreEncodedAsWell) {
    EXPECT_EQ(previewed("<x><cabinet><code" + hidden + "value=\"é\"/><größe/></cabinet></x>"),
              head +
                  page(titleRow("gr\xf6\xdf"
                                "e"),
                       "\xe9") +
                  tail);
}

TEST(WritePageEncoding, CharacterOutsideItIsAnErrorBeforeTheFileIsTouched) {
    MemoryFiles files;
    files.put(path, "old page");
    for (const char* text : {"Ā", "Ω", "→", "名", "\U0001F600", "e\u0301", "\ufffd"}) {
        EXPECT_EQ(preview(files, withAnswer(text)), 5) << text;
        EXPECT_EQ(preview(files, withAnswer(text), true), 5) << text;
    }
    EXPECT_EQ(files.bytesOf(path), "old page");
}

TEST(WritePageEncoding, UnassignedBytesAreErrors) {
    MemoryFiles files;
    files.put(path, "old page");
    for (const char* text : {"\u0081", "\u008d", "\u008f", "\u0090", "\u009d"}) {
        EXPECT_EQ(preview(files, withAnswer(text)), 5) << text;
    }
    EXPECT_EQ(files.bytesOf(path), "old page");
}

TEST(WritePageEncoding, ControlsWhoseBytesMeanOtherCharactersAreErrors) {
    MemoryFiles files;
    EXPECT_EQ(preview(files, withAnswer("\u0080")), 5);
    EXPECT_EQ(preview(files, withAnswer("\u0099")), 5);
}

TEST(WritePageEncoding, HiddenTextsDoNotMatter) {
    EXPECT_EQ(previewed("<x><cabinet><a" + hidden + "value=\"Ω\" odd=\"名\"/></cabinet></x>"),
              head + page("") + tail);
}

TEST(WritePageErrors, LeaveTheFileAsItWas) {
    MemoryFiles files;
    files.put(path, "old page");
    EXPECT_EQ(preview(files, R"(<x><cabinet><a/><b style="32768"/></cabinet></x>)"), 6);
    EXPECT_EQ(preview(files, R"(<x><cabinet><a/><b spaceafter="1e12"/></cabinet></x>)"), 7);
    EXPECT_EQ(preview(files, withAnswer(std::string(32768, 'x')), true), 6);
    EXPECT_EQ(preview(files,
                      "<x><image name=\"generated_cabinet_picture\" width=\"\"/>"
                      "<cabinet value=\"\"/></x>",
                      true),
              13);
    EXPECT_EQ(files.bytesOf(path), "old page");
}

TEST(WritePageErrors, LongTextsPassWithoutEvaluation) {
    const std::string text(32768, 'x');
    EXPECT_EQ(previewed(withAnswer(text)), head + page(titleRow(text)) + tail);
}

TEST(WritePageErrors, ExpansionFailsBeforeLayoutAndLayoutBeforeEncoding) {
    MemoryFiles files;
    const std::string tooLong(32768, 'x');
    EXPECT_EQ(preview(files,
                      "<x><image name=\"generated_cabinet_picture\" width=\"\"/><cabinet>"
                      "<a spaceafter=\"1e12\"/><b value=\"Ω\"/></cabinet></x>",
                      true),
              13);
    EXPECT_EQ(preview(files, "<x><cabinet><a value=\"Ω\"/><b style=\"32768\"/></cabinet></x>"), 6);
    EXPECT_EQ(
        preview(files,
                "<x><cabinet><a spaceafter=\"1e12\"/><b value=\"" + tooLong + "\"/></cabinet></x>",
                true),
        6);
}

TEST(WritePageErrors, ExpansionFailsInDocumentOrder) {
    MemoryFiles files;
    const std::string badSize =
        "<x><image name=\"generated_cabinet_picture\" width=\"\"/><cabinet>";
    const std::string tooLong = "<a value=\"" + std::string(32768, 'x') + "\"/>";
    EXPECT_EQ(preview(files, badSize + tooLong + "<code value=\"\"/></cabinet></x>", true), 6);
    EXPECT_EQ(preview(files, badSize + "<code value=\"\"/>" + tooLong + "</cabinet></x>", true),
              13);
}

TEST(WritePageErrors, LayoutFailsInPageOrder) {
    MemoryFiles files;
    const auto error = [&files](const std::string& nodes) {
        return preview(files, "<x><cabinet>" + nodes + "</cabinet></x>");
    };
    EXPECT_EQ(error(R"(<a style="32768"/><b spacebefore="1e12"/>)"), 6);
    EXPECT_EQ(error(R"(<a spacebefore="1e12"/><b style="32768"/>)"), 7);
    EXPECT_EQ(error(R"(<a spacebefore="1e12" style="32768"/>)"), 7);
    EXPECT_EQ(error(R"(<a spaceafter="1e12" style="32768"/>)"), 6);
    EXPECT_EQ(error(R"(<a spaceafter="1e12"><b style="32768"/></a>)"), 6);
}

TEST(WritePageErrors, EncodingFailsLastEvenOnALongPage) {
    MemoryFiles files;
    files.put(path, "old page");
    const std::string first = "<x><cabinet><a value=\"Ω\" spaceafter=\"10000\"/><b ";
    const std::string tooLong = "value=\"" + std::string(32768, 'x') + "\"";
    EXPECT_EQ(preview(files, first + "/></cabinet></x>"), 5);
    EXPECT_EQ(preview(files, first + "style=\"32768\"/></cabinet></x>"), 6);
    EXPECT_EQ(preview(files, first + tooLong + "/></cabinet></x>", true), 6);
    EXPECT_EQ(files.bytesOf(path), "old page");
}

TEST(WritePageErrors, ErrorOfTheFileTravels) {
    MemoryFiles files;
    files.put(path, "old page");
    files.fail(MemoryFiles::Operation::replace, ErrorNumber::permissionDenied);
    EXPECT_EQ(preview(files, "<x><cabinet/></x>"), 70);
    EXPECT_EQ(files.bytesOf(path), "old page");
}

}  // namespace
}  // namespace tavisk
