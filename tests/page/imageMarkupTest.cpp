#include "page/imageMarkup.h"

#include <gtest/gtest.h>
#include <string>

#include "support/errors.h"
#include "support/xml.h"

namespace tavisk {
namespace {

using test::errorOf;
using test::parsed;

/// `imageparse` with the folder "F/", in a document with these `image` elements.
std::string pictures(const std::string& images, const std::string& text) {
    return imageparse(text, *parsed("<cabinetinfo>" + images + "</cabinetinfo>"), "F/");
}

std::string overlays(const std::string& images, const std::string& text, double scale = 1) {
    return overlayparse(text, *parsed("<cabinetinfo>" + images + "</cabinetinfo>"), "F/", scale);
}

std::string repeated(std::size_t count, const std::string& what) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += what;
    return text;
}

TEST(Imageparse, KnownPictureWithHeightAndWithoutWidth) {
    EXPECT_EQ(pictures(R"(<image name="logo" extension="gif" height="40"/>)", "a`~logo`b"),
              "a<img src='F//logo.gif' height='40'>b");
}

TEST(Imageparse, HeightStandsBeforeWidth) {
    EXPECT_EQ(pictures(R"(<image width="30" height="40" name="logo" extension="gif"/>)", "`~logo`"),
              "<img src='F//logo.gif' height='40' width='30'>");
}

TEST(Imageparse, WidthAlone) {
    EXPECT_EQ(pictures(R"(<image name="logo" width="30" height=""/>)", "`~logo`"),
              "<img src='F//logo.png' width='30'>");
}

TEST(Imageparse, SizesAreCopiedAsTheyStand) {
    EXPECT_EQ(pictures(R"(<image name="logo" width=" 1e9 " height="a'b"/>)", "`~logo`"),
              "<img src='F//logo.png' height='a'b' width=' 1e9 '>");
}

TEST(Imageparse, MissingExtensionIsPng) {
    EXPECT_EQ(pictures(R"(<image name="logo"/>)", "`~logo`"), "<img src='F//logo.png'>");
    EXPECT_EQ(pictures(R"(<image name="logo" extension=""/>)", "`~logo`"), "<img src='F//logo.'>");
}

TEST(Imageparse, PictureWithoutNameIsUnknownUnderAnEmptyName) {
    EXPECT_EQ(pictures("<image/>", "`~`"), "<img src='F//Unknown.png'>");
    EXPECT_EQ(pictures(R"(<image name=""/>)", "`~`"), "<img src='F//.png'>");
}

TEST(Imageparse, FolderIsUsedAsItStandsWithASlashBehindIt) {
    const auto document = parsed(R"(<x><image name="a"/></x>)");
    EXPECT_EQ(imageparse("`~a`", *document, ""), "<img src='/a.png'>");
    EXPECT_EQ(imageparse("`~a`", *document, "/t/temp_images/"),
              "<img src='/t/temp_images//a.png'>");
}

TEST(Imageparse, EveryOccurrenceIsReplaced) {
    EXPECT_EQ(pictures(R"(<image name="a"/><x><image name="b"/></x>)", "`~a``~b``~a`"),
              "<img src='F//a.png'><img src='F//b.png'><img src='F//a.png'>");
}

TEST(Imageparse, FirstOfTwoPicturesOfOneNameIsShown) {
    EXPECT_EQ(pictures(R"(<image name="a" extension="1"/><image name="a" extension="2"/>)", "`~a`"),
              "<img src='F//a.1'>");
}

TEST(Imageparse, LaterPictureSeesWhatAnEarlierOnePutIn) {
    EXPECT_EQ(pictures(R"(<image name="a" extension="`~b`"/><image name="b"/>)", "`~a`"),
              "<img src='F//a.<img src='F//b.png'>'>");
}

TEST(Imageparse, KnownPictureIsReplacedWhereverItStands) {
    EXPECT_EQ(pictures(R"(<image name="a"/>)", "`x`~a`"), "`x<img src='F//a.png'>");
}

TEST(Imageparse, NamesAreCaseSensitive) {
    EXPECT_EQ(pictures(R"(<image name="Logo"/>)", "`~logo`"), "Bad Image");
}

TEST(Imageparse, PictureTokenThatNamesNoPictureIsABadImage) {
    EXPECT_EQ(pictures("", "a`~none`b"), "aBad Imageb");
    EXPECT_EQ(pictures("", "`~`"), "Bad Image");
}

TEST(Imageparse, ExternalPictureKeepsItsPath) {
    EXPECT_EQ(pictures("", "a`@C:\\pic.jpg`b"), "a<img src='C:\\pic.jpg'>b");
    EXPECT_EQ(pictures("", "`@http://x/y z.png?a&b`"), "<img src='http://x/y z.png?a&b'>");
}

TEST(Imageparse, ExternalPictureWithoutAPath) { EXPECT_EQ(pictures("", "`@`"), "<img src=''>"); }

TEST(Imageparse, ExternalPictureIsNotAStoredPicture) {
    EXPECT_EQ(pictures(R"(<image name="logo"/>)", "`@logo`"), "<img src='logo'>");
}

TEST(Imageparse, OverlayAndFormulaTokensStay) {
    EXPECT_EQ(pictures(R"(<image name="logo"/>)", "`!logo` `logo` ``"), "`!logo` `logo` ``");
}

TEST(Imageparse, OddBackquoteStays) {
    EXPECT_EQ(pictures("", "`~abcdef` and ` more"), "Bad Image and ` more");
    EXPECT_EQ(pictures("", "`~a"), "`~a");
}

TEST(Imageparse, ElementInAnotherLetterCaseIsNoPicture) {
    EXPECT_EQ(pictures(R"(<Image name="a"/>)", "`~a`"), "Bad Image");
}

// The second scan goes on at the same index of the changed text and stops at the length that the
// text had before it. Positions below count from 1.

TEST(ImageparsePositions, TokenAsLongAsBadImageShiftsNothing) {
    EXPECT_EQ(pictures("", "`~abcdef``~ghijkl`"), "Bad ImageBad Image");
}

TEST(ImageparsePositions, ShortTokenPushesTheEndOutOfTheScan) {
    // Length 9; the second token is now at 11 to 14.
    EXPECT_EQ(pictures("", "`~a` `~b`"), "Bad Image `~b`");
}

TEST(ImageparsePositions, LongTokenMakesTheScanSkipBackquotes) {
    // "`~abcdefgh`" ends at 11, where the next token now begins; its closing backquote opens.
    EXPECT_EQ(pictures("", "`~abcdefgh` `~b`"), "Bad Image `~b`");
}

TEST(ImageparsePositions, LongTokenMakesLaterBackquotesPairDifferently) {
    // Changed text: "Bad Image `~b`@c`d", backquotes at 11, 14, 17. From 12 on the pair is "`@c`".
    EXPECT_EQ(pictures("", "`~abcdefgh` `~b`@c`d"), "Bad Image `~b<img src='c'>d");
}

TEST(ImageparsePositions, ExternalPictureLeavesATokenNearTheEndUnconverted) {
    // Length 25; the second token now begins at 28.
    EXPECT_EQ(pictures("", "`@C:\\pic.jpg` and `~none`"), "<img src='C:\\pic.jpg'> and `~none`");
}

TEST(ImageparsePositions, TokenJustInsideTheOldLengthIsConverted) {
    // An external picture grows the text by 9: the second token now ends at 17.
    EXPECT_EQ(pictures("", "`@p``@q`123456789"), "<img src='p'><img src='q'>123456789");
    EXPECT_EQ(pictures("", "`@p``@q`12345678"), "<img src='p'>`@q`12345678");
}

TEST(ImageparsePositions, LengthIsTakenAfterTheKnownPictures) {
    // The known picture's tag is long enough for the token before it.
    EXPECT_EQ(pictures(R"(<image name="k"/>)", "`@p``@q``~k`"),
              "<img src='p'><img src='q'><img src='F//k.png'>");
}

TEST(ImageparsePositions, SurrogatePairsCountAsTwo) {
    const std::string four = repeated(4, "\U0001F600");
    EXPECT_EQ(pictures("", "`@p``@q`x" + four), "<img src='p'><img src='q'>x" + four);
    EXPECT_EQ(pictures("", "`@p``@q`" + four), "<img src='p'>`@q`" + four);
}

TEST(ImageparsePositions, OtherForeignCharactersCountAsOne) {
    EXPECT_EQ(pictures("", "`@p``@q`" + repeated(8, "€")), "<img src='p'>`@q`" + repeated(8, "€"));
    EXPECT_EQ(pictures("", "`@é``@q`" + repeated(9, "é")),
              "<img src='é'><img src='q'>" + repeated(9, "é"));
}

TEST(ImageparseLimit, TextOf32767UnitsPasses) {
    const std::string filler(32763, 'x');
    EXPECT_EQ(pictures("", filler + "`@p`"), filler + "<img src='p'>");
}

TEST(ImageparseLimit, TextOf32768UnitsOverflows) {
    EXPECT_EQ(errorOf([] { pictures("", std::string(32768, 'x')); }), 6);
}

TEST(ImageparseLimit, CountsTheTextWithItsKnownPictures) {
    // The tag "<img src='F//k.png'>" has 20 characters.
    const std::string filler(32747, 'x');
    EXPECT_EQ(pictures(R"(<image name="k"/>)", filler + "`~k`"), filler + "<img src='F//k.png'>");
    EXPECT_EQ(errorOf([&] { pictures(R"(<image name="k"/>)", filler + "x`~k`"); }), 6);
}

TEST(ImageparseLimit, SurrogatePairsCountAsTwo) {
    const std::string text = repeated(16383, "\U0001F600");
    EXPECT_EQ(pictures("", text + "x"), text + "x");
    EXPECT_EQ(errorOf([&] { pictures("", text + "xy"); }), 6);
}

TEST(ImageParser, OneParserServesManyTexts) {
    const auto document = parsed(R"(<x><image name="a"/></x>)");
    ImageParser parser(*document, "F");
    std::string first = "`~a`";
    std::string second = "`~b`";
    parser.parse(first);
    parser.parse(second);
    EXPECT_EQ(first, "<img src='F/a.png'>");
    EXPECT_EQ(second, "Bad Image");
}

/// The block for two picture files, width and height.
std::string block(const std::string& bottom, const std::string& top, const std::string& width,
                  const std::string& height) {
    const std::string size = "width:" + width + "px;height:" + height + "px'";
    return "<div>\r\n"
           "<!--[if gte vml 1]>\r\n"
           "<v:shape id='_OVERLAY_BOTTOM' style='position:absolute;z-index:0;" +
           size +
           ">\r\n"
           "<v:imagedata src='" +
           bottom +
           "'/>\r\n"
           "<v:fill opacity='.5'/>\r\n"
           "</v:shape>\r\n"
           "<v:shape id='_OVERLAY_TOP' style='position:absolute;z-index:1;" +
           size +
           ">\r\n"
           "<v:imagedata src='" +
           top +
           "'/>\r\n"
           "<v:fill opacity='.5'/>\r\n"
           "</v:shape>\r\n"
           "<![endif]-->\r\n"
           "<img src='" +
           bottom + "' style='position:absolute;z-index:0;" + size +
           " v:shapes='_OVERLAY_BOTTOM'>\r\n"
           "<img src='" +
           top + "' style='position:absolute;z-index:1;" + size +
           " v:shapes='_OVERLAY_TOP'>\r\n"
           "</div><table border=0><tr style='height:" +
           height + "px'><td>&nbsp;</td></tr></table>";
}

TEST(Overlayparse, BlockByteForByte) {
    EXPECT_EQ(overlays(R"(<image name="logo" extension="gif" width="9" height="9"/>)"
                       R"(<image name="generated_cabinet_picture" extension="jpg" height="300"/>)",
                       "a`!logo`b"),
              "a<div>\r\n"
              "<!--[if gte vml 1]>\r\n"
              "<v:shape id='_OVERLAY_BOTTOM' "
              "style='position:absolute;z-index:0;width:256px;height:300px'>\r\n"
              "<v:imagedata src='F/generated_cabinet_picture.jpg'/>\r\n"
              "<v:fill opacity='.5'/>\r\n"
              "</v:shape>\r\n"
              "<v:shape id='_OVERLAY_TOP' "
              "style='position:absolute;z-index:1;width:256px;height:300px'>\r\n"
              "<v:imagedata src='F/logo.gif'/>\r\n"
              "<v:fill opacity='.5'/>\r\n"
              "</v:shape>\r\n"
              "<![endif]-->\r\n"
              "<img src='F/generated_cabinet_picture.jpg' "
              "style='position:absolute;z-index:0;width:256px;height:300px' "
              "v:shapes='_OVERLAY_BOTTOM'>\r\n"
              "<img src='F/logo.gif' style='position:absolute;z-index:1;width:256px;height:300px' "
              "v:shapes='_OVERLAY_TOP'>\r\n"
              "</div><table border=0><tr style='height:300px'><td>&nbsp;</td></tr></table>b");
}

constexpr const char* logo = R"(<image name="logo" extension="gif"/>)";

std::string generated(const std::string& attributes) {
    return R"(<image name="generated_cabinet_picture" )" + attributes + "/>";
}

TEST(Overlayparse, WithoutGeneratedPictureTheBottomIsUnknown) {
    EXPECT_EQ(overlays(logo, "`!logo`"), block("F/Unknown.png", "F/logo.gif", "256", "256"));
}

TEST(Overlayparse, GeneratedPictureWithoutAttributesHasDefaults) {
    EXPECT_EQ(overlays(logo + generated(""), "`!logo`"),
              block("F/generated_cabinet_picture.png", "F/logo.gif", "256", "256"));
}

TEST(Overlayparse, LastGeneratedPictureIsTheBottom) {
    EXPECT_EQ(overlays(generated(R"(extension="1" height="bad")") + logo +
                           generated(R"(extension="2" width="10" height="20")"),
                       "`!logo`"),
              block("F/generated_cabinet_picture.2", "F/logo.gif", "10", "20"));
}

TEST(Overlayparse, GeneratedPictureCanBeLaidOverItself) {
    EXPECT_EQ(
        overlays(generated(""), "`!generated_cabinet_picture`"),
        block("F/generated_cabinet_picture.png", "F/generated_cabinet_picture.png", "256", "256"));
}

TEST(Overlayparse, SizesOfTheUpperPictureAreIgnored) {
    EXPECT_EQ(overlays(R"(<image name="a" width="bad" height="99999"/>)", "`!a`"),
              block("F/Unknown.png", "F/a.png", "256", "256"));
}

TEST(Overlayparse, PictureWithoutNameIsUnknownUnderAnEmptyName) {
    EXPECT_EQ(overlays("<image/>", "`!`"), block("F/Unknown.png", "F/Unknown.png", "256", "256"));
    EXPECT_EQ(overlays(R"(<image name=""/>)", "`!`"),
              block("F/Unknown.png", "F/.png", "256", "256"));
}

TEST(Overlayparse, EveryOccurrenceIsReplaced) {
    const std::string one = block("F/Unknown.png", "F/logo.gif", "256", "256");
    EXPECT_EQ(overlays(logo, "`!logo` `!logo``!logo`"), one + " " + one + one);
}

TEST(Overlayparse, UnknownOverlaysAndOtherTokensStay) {
    EXPECT_EQ(overlays(logo, "`!none` `!Logo` `~logo` `@logo` `logo` `"),
              "`!none` `!Logo` `~logo` `@logo` `logo` `");
}

TEST(Overlayparse, TextIsNotLimited) {
    const std::string text(40000, 'x');
    EXPECT_EQ(overlays(logo, text), text);
}

TEST(OverlayparseSize, IsReadAsAWholeNumberText) {
    const auto sized = [](const std::string& width, const std::string& height) {
        return overlays(logo + generated("width=\"" + width + "\" height=\"" + height + "\""),
                        "`!logo`");
    };
    const auto expected = [](const std::string& width, const std::string& height) {
        return block("F/generated_cabinet_picture.png", "F/logo.gif", width, height);
    };
    EXPECT_EQ(sized(" 30 ", "+40"), expected("30", "40"));
    EXPECT_EQ(sized("1e2", "-5"), expected("100", "-5"));
    EXPECT_EQ(sized("2.5", "3.5"), expected("2", "4"));
    EXPECT_EQ(sized("-2.5", "2.51"), expected("-2", "3"));
    EXPECT_EQ(sized("32767.4", "-32768"), expected("32767", "-32768"));
}

TEST(OverlayparseSize, IsScaledBeforeItIsRounded) {
    EXPECT_EQ(overlays(logo + generated(R"(width="5" height="7")"), "`!logo`", 0.5),
              block("F/generated_cabinet_picture.png", "F/logo.gif", "2", "4"));
    EXPECT_EQ(overlays(logo + generated(R"(width="2.4" height="0")"), "`!logo`", 2),
              block("F/generated_cabinet_picture.png", "F/logo.gif", "5", "0"));
    EXPECT_EQ(overlays(logo, "`!logo`", 2), block("F/Unknown.png", "F/logo.gif", "512", "512"));
}

TEST(OverlayparseSize, TextThatIsNoNumberIsATypeMismatch) {
    for (const char* text : {"", " ", "abc", "3px", "3 4", "0x10", "1,5", "--1"}) {
        const std::string quoted = "=\"" + std::string(text) + "\"";
        EXPECT_EQ(errorOf([&] { overlays(generated("height" + quoted), "`!logo`"); }), 13) << text;
        EXPECT_EQ(errorOf([&] { overlays(generated("width" + quoted), "`!logo`"); }), 13) << text;
    }
}

TEST(OverlayparseSize, Beyond16BitsOverflows) {
    for (const char* text : {"32768", "32767.5", "-32769", "1e400"}) {
        const std::string quoted = "=\"" + std::string(text) + "\"";
        EXPECT_EQ(errorOf([&] { overlays(generated("height" + quoted), ""); }), 6) << text;
        EXPECT_EQ(errorOf([&] { overlays(generated("width" + quoted), ""); }), 6) << text;
    }
    EXPECT_EQ(errorOf([] { overlays(generated(R"(width="20000")"), "", 2); }), 6);
}

TEST(OverlayparseSize, IsReadEvenIfNoOverlayIsNamed) {
    EXPECT_EQ(errorOf([] { overlays(generated(R"(height="abc")"), "no token"); }), 13);
}

TEST(OverlayparseSize, HeightIsReadFirst) {
    EXPECT_EQ(errorOf([] { overlays(generated(R"(width="abc" height="99999")"), ""); }), 6);
    EXPECT_EQ(errorOf([] { overlays(generated(R"(width="99999" height="abc")"), ""); }), 13);
}

}  // namespace
}  // namespace tavisk
