// What pages and their readers cannot make the preview window do, as this browser tells it.
#include "ui/support/previewNative_gtk.h"

namespace tavisk {
namespace {

using test::linkAt;
using test::PreviewWindow;

TEST(FrmPreviewLinks, FilesCannotBeDropped) {
    PreviewWindow preview;
    preview.openBody("page");
    EXPECT_FALSE(test::takesDrops(preview.browser()));
}

TEST(FrmPreviewLinks, MenuOffersNothingThatLeavesThePage) {
    PreviewWindow preview;
    preview.pages.writePicture("red.png", 0xCC1122);
    preview.openBody(linkAt(0, "href='http://example.invalid/'") +
                     "<img src='red.png' style='position:fixed;left:0;top:200px'>");
    const std::string onText = test::menuAt(preview.browser(), wxPoint(500, 300));
    const std::string onLink = test::menuAt(preview.browser(), wxPoint(200, 50));
    const std::string onImage = test::menuAt(preview.browser(), wxPoint(30, 230));
    EXPECT_EQ(onText, "all ");
    EXPECT_EQ(onLink, "copyLink all ");
    EXPECT_EQ(onImage, "copyImage all ");
}

}  // namespace
}  // namespace tavisk
