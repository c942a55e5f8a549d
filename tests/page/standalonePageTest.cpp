#include "page/standalonePage.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "base/base64.h"
#include "support/errors.h"
#include "support/xml.h"

namespace tavisk {
namespace {

const std::string head =
    "<html><head><meta charset=\"utf-8\"><meta http-equiv=\"Content-Security-Policy\" "
    "content=\"script-src 'none'; object-src 'none'\"><style>css</style></head>"
    "<body><table width=100%><tr><td>\r\n<h3></h3>"
    "<table border=0><tr><td valign='top' align='left'>\r\n";
const std::string tail = "</table>&nbsp;\r\n\r\n</td></tr></table></body></html>";

struct Page {
    std::string html;
    std::vector<std::string> missing;
};

Page pageOf(const std::string& xml, bool evaluate = true, std::string_view css = "css") {
    const auto document = test::parsed(xml);
    FormulaCatalogue catalogue;
    catalogue.load(*document);
    Page page;
    StandaloneParts parts;
    parts.stylesheet = css;
    parts.readPicture = [](const std::string& file) -> std::optional<std::string> {
        if (file == "near.gif") return "GIF89a";
        if (file == "/etc/secret") return "secret";
        return std::nullopt;
    };
    parts.missing = [&](const std::string& address) { page.missing.push_back(address); };
    writeStandalonePage([&](std::string_view piece) { page.html += piece; }, *document, catalogue,
                        test::element(*document, "cabinet"), evaluate, parts);
    return page;
}

std::string xmlOf(const std::string& answer, const std::string& pictures = "") {
    return "<cabinetinfo><cabinet><A titlehidden='1' value=\"" + answer + "\"/></cabinet>" +
           pictures + "</cabinetinfo>";
}

/// What the answer of the only node has become.
std::string answerOf(const Page& page) {
    const std::string before =
        head + "<tr>\r\n\t<td colspan=2>\r\n\t\t<font color=\"#000000\" size=\"+0\">";
    const std::string after = "</font>\r\n\t</td>\r\n</tr>\r\n" + tail;
    EXPECT_TRUE(page.html.starts_with(before)) << page.html;
    EXPECT_TRUE(page.html.ends_with(after)) << page.html;
    return page.html.substr(before.size(), page.html.size() - before.size() - after.size());
}

std::string answer(const std::string& text, const std::string& pictures = "") {
    return answerOf(pageOf(xmlOf(text, pictures)));
}

std::string picture(const std::string& name, const std::string& bytes,
                    const std::string& more = "") {
    return "<image name=\"" + name + "\" extension='gif' " + more + ">" + encodeBase64(bytes) +
           "</image>";
}

TEST(StandalonePage, IsThePageInUtf8WithItsStyle) {
    // answerOf holds head and tail.
    EXPECT_EQ(answer("\xC5\x82 &lt;b>"), "\xC5\x82 <b>");
}

TEST(StandalonePage, PicturesAreAddressesWithTheirData) {
    const std::string pictures = "<image name='p' extension='gif' width='7' height='8'>" +
                                 encodeBase64("GIF87a") + "</image>";
    EXPECT_EQ(answer("a `~p` b", pictures),
              "a <img src='data:image/gif;base64,R0lGODdh' height='8' width='7'> b");
}

TEST(StandalonePage, OverlaysAreTwoPicturesWithoutVml) {
    const std::string pictures =
        picture("generated_cabinet_picture", "GIF87a") + picture("p", "GIF89a");
    EXPECT_EQ(answer("`!p`", pictures),
              "<div>\r\n"
              "<img src='data:image/gif;base64,R0lGODdh' "
              "style='position:absolute;z-index:0;width:256px;height:256px' "
              "v:shapes='_OVERLAY_BOTTOM'>\r\n"
              "<img src='data:image/gif;base64,R0lGODlh' "
              "style='position:absolute;z-index:1;width:256px;height:256px' "
              "v:shapes='_OVERLAY_TOP'>\r\n"
              "</div><table border=0><tr style='height:256px'><td>&nbsp;</td></tr></table>");
}

TEST(StandalonePage, OfTwoPicturesWithOneFileNameTheLaterIsShown) {
    EXPECT_EQ(answer("`~p`", picture("p", "GIF87a") + picture("p", "GIF89a")),
              "<img src='data:image/gif;base64,R0lGODlh'>");
}

TEST(StandalonePage, APictureNameMayHoldAQuote) {
    EXPECT_EQ(answer("`~it's`", picture("it's", "GIF89a")),
              "<img src='data:image/gif;base64,R0lGODlh'>");
}

TEST(StandalonePage, APictureWithoutAFileIsMissing) {
    // Without an extension the file ends in ".bmp", but the page refers to one in ".png".
    const Page page = pageOf(xmlOf("`~p`", "<image name='p'>R0lGODlh</image>"));
    EXPECT_EQ(answerOf(page), "<img src='data:,'>");
    EXPECT_EQ(page.missing, std::vector<std::string>{"p.png"});
}

TEST(StandalonePage, AnEmptyPictureIsMissing) {
    const Page page = pageOf(xmlOf("`~p`", picture("p", "")));
    EXPECT_EQ(answerOf(page), "<img src='data:,'>");
    EXPECT_EQ(page.missing, std::vector<std::string>{"p.gif"});
}

TEST(StandalonePage, ContentThatIsNoBase64IsAnError) {
    const std::string pictures = "<image name='p' extension='gif'>!</image>";
    EXPECT_EQ(test::errorOf([&] { pageOf(xmlOf("`~p`", pictures)); }), 13);
    EXPECT_EQ(answer("x", pictures), "x");
}

TEST(StandalonePage, PicturesByPathAreReadFromThere) {
    EXPECT_EQ(answer("`@near.gif`"), "<img src='data:image/gif;base64,R0lGODlh'>");
    EXPECT_EQ(answer("&lt;IMG alt=x src=near.gif>"),
              "<IMG alt=x src=\"data:image/gif;base64,R0lGODlh\">");
}

TEST(StandalonePage, ThePagesOwnFolderOfPicturesMayBeNamed) {
    EXPECT_EQ(answer("&lt;img src='temp_images/p.gif'>", picture("p", "GIF89a")),
              "<img src='data:image/gif;base64,R0lGODlh'>");
}

TEST(StandalonePage, AFileThatIsNoPictureStaysOutside) {
    // As many characters as the tokens grow by are not looked at.
    const std::string padding(60, ' ');
    const Page page = pageOf(xmlOf("`@/etc/secret` `@none.png` `@`" + padding));
    EXPECT_EQ(answerOf(page), "<img src='data:,'> <img src='data:,'> <img src='data:,'>" + padding);
    EXPECT_EQ(page.missing, (std::vector<std::string>{"/etc/secret", "none.png", ""}));
}

TEST(StandalonePage, AddressesElsewhereStay) {
    EXPECT_EQ(answer("`@https://h/a.png?b` &lt;img src='//h/a.png'> &lt;img src='data:,x'>"),
              "<img src='https://h/a.png?b'> <img src='//h/a.png'> <img src='data:,x'>");
}

TEST(StandalonePage, WithoutEvaluationTokensStay) {
    EXPECT_EQ(answerOf(pageOf(xmlOf("`~p` `@near.gif`", picture("p", "GIF89a")), false)),
              "`~p` `@near.gif`");
}

TEST(StandalonePage, TheStyleCannotEndItsElement) {
    const Page page = pageOf(xmlOf("x"), true, "a::after { content: '</style><b>' }");
    EXPECT_NE(page.html.find("<style>a::after { content: '<\\/style><b>' }</style></head>"),
              std::string::npos);
}

TEST(StandalonePage, TheHeadingIsThere) {
    EXPECT_NE(pageOf("<cabinetinfo><cabinet><code value='`f`'/></cabinet>"
                     "<formula name='f' value='B60'/></cabinetinfo>")
                  .html.find("<h3>B60</h3>"),
              std::string::npos);
}

TEST(StandalonePage, ErrorsOfTheLayoutTravel) {
    EXPECT_EQ(test::errorOf([&] {
                  pageOf("<cabinetinfo><cabinet><A style='40000'/></cabinet></cabinetinfo>");
              }),
              6);
}

}  // namespace
}  // namespace tavisk
