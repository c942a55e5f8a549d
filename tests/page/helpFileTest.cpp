#include "page/helpFile.h"

#include <gtest/gtest.h>

#include "page/openFile.h"
#include "support/errors.h"

namespace tavisk {
namespace {

using test::documentOf;
using test::errorOf;
using test::fixedFormulas;
using test::generatedPicture;
using test::OpenFile;

void expectClosed(const HelpFile& file) {
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(file.articledoc, nullptr);
    EXPECT_EQ(file.baseXMLNode, nullptr);
    EXPECT_TRUE(file.formulaCatalogue.firstformula());
}

TEST(HelpFile, PictureFolderIsThatOfTheComponent) {
    OpenFile opened;
    EXPECT_EQ(opened.file.imageTemp(), "/app/temp_images/");
    EXPECT_FALSE(opened.files.folderExists("/app/temp_images/"));
}

TEST(HelpFile, LoadingNormalisesRemovesMarkersAndAddsThePicture) {
    OpenFile opened;
    opened.load(documentOf("<a/><b titlehidden='yes' pagebreak='2'/>",
                           "<location value='cabinet=>b'/><x/>"));
    EXPECT_EQ(opened.document(), documentOf(R"(<a/><b titlehidden="1" pagebreak="1"/>)",
                                            "<x/>" + std::string(generatedPicture)));
}

TEST(HelpFile, LoadingADocumentThatIsCheckedAlreadyIsTheSame) {
    const std::string xml = documentOf("<a answerhidden='x'/>", "<location/>");
    OpenFile opened;
    opened.file.load(std::get<HelpDocument>(openHelpDocument(dom::Source::copy(xml))));
    EXPECT_EQ(opened.document(),
              documentOf(R"(<a answerhidden="1"/>)", std::string(generatedPicture)));
}

TEST(HelpFile, OpeningLeavesTheMarkersAndFindsTheirRow) {
    const std::string xml = documentOf("<a/><b/>", R"(<location value="cabinet=&gt;b"/>)");
    OpenFile opened;
    EXPECT_EQ(opened.file.open(dom::Source::copy(xml)), std::nullopt);
    EXPECT_EQ(&opened.file.startRow(), &opened.row("cabinet=>b"));
    EXPECT_EQ(opened.document(), xml);
}

TEST(HelpFile, RejectedDocumentGivesItsReasonAndLeavesNothingOpen) {
    OpenFile opened("<old/>");
    EXPECT_EQ(opened.load("<cabinetinfo/>"), (Refusal{.reason = "No cabinet data found...",
                                                      .title = "Error",
                                                      .style = BoxStyle::okCritical}));
    expectClosed(opened.file);
}

TEST(HelpFile, ErrorsOfLoadingLeaveNothingOpen) {
    OpenFile opened("<old/>");
    const std::string style = documentOf("<a style='bold'/>");
    EXPECT_EQ(errorOf([&] { opened.load(style); }), 13);
    expectClosed(opened.file);

    opened.files.fail(test::MemoryFiles::Operation::read, ErrorNumber::permissionDenied);
    EXPECT_EQ(errorOf([&] { opened.load(documentOf("<a/>")); }), 70);
    expectClosed(opened.file);
}

TEST(HelpFile, EveryLoadStartsFromFreshControls) {
    OpenFile opened(R"(<a value="text" titlehidden="1" columnbreak="1"/>)");
    opened.loadNodes("<a/>");
    EXPECT_EQ(opened.tree(), "<cabinet><a/></cabinet>");
}

TEST(HelpFile, SavedDocumentHasTheFormulasAndNoGeneratedPicture) {
    OpenFile opened("<a/>");
    opened.file.save();
    EXPECT_EQ(opened.document(), documentOf("<a/>", fixedFormulas));
}

TEST(HelpFile, AMarkerIsSavedWithItsKey) {
    OpenFile opened("<a/>");
    opened.file.saveWithMarker("cabinet=>a");
    EXPECT_EQ(opened.document(), documentOf("<a/>", R"(<location value="cabinet=&gt;a"/>)" +
                                                        std::string(fixedFormulas)));
}

TEST(HelpFile, SavingThatFailsLeavesTheDocumentAndNoMarker) {
    OpenFile opened("<a/><b value='" + std::string(32768, 'x') + "'/>");
    const std::string before = opened.document();
    EXPECT_EQ(errorOf([&] { opened.file.saveWithMarker("cabinet=>a"); }), 6);
    EXPECT_EQ(opened.document(), before);
}

TEST(HelpFile, RemovedRowsLiveOnUntilTheFileIsClosed) {
    OpenFile opened("<a><x/></a><b/>");
    dom::Node& row = opened.row("cabinet=>a");
    opened.file.removeElement(row);
    EXPECT_EQ(opened.tree(), "<cabinet><b/></cabinet>");
    EXPECT_EQ(writeXml(row), "<a><x/></a>");
    EXPECT_FALSE(opened.file.isRow(row));
    EXPECT_TRUE(opened.file.isRow(opened.row("cabinet=>b")));
    EXPECT_FALSE(opened.file.isRow(*opened.file.baseXMLNode));
}

TEST(HelpFile, CallsThatNeedADocumentAreError91WithoutOne) {
    OpenFile opened;
    EXPECT_EQ(errorOf([&] { opened.file.generatepreview(false); }), 91);
    EXPECT_EQ(errorOf([&] { opened.file.save(); }), 91);
    EXPECT_EQ(errorOf([&] { opened.file.saveWithMarker("cabinet"); }), 91);
}

}  // namespace
}  // namespace tavisk
