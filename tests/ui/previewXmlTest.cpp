// The component's call previewXML, with its real window.
#include <gtest/gtest.h>

#include "base/files.h"
#include "base/folder.h"
#include "component/component.h"
#include "support/errors.h"
#include "ui/support/dialogAnswers.h"
#include "ui/support/editorWindow.h"
#include "ui/support/previewWindow.h"
#include "ui/support/whenShown.h"

namespace tavisk {
namespace {

using test::EditorWindow;
using test::errorOf;
using test::WhenShown;

const std::string document = R"(<cabinetinfo><cabinet><a value="costs `Rate`"/></cabinet>)"
                             R"(<formula name="Rate" value="5 euros" standard="1"/></cabinetinfo>)";

struct PreviewXml : testing::Test {
    /// The call, with what its window shows.
    static std::string preview(const std::string& xml, bool evaluateFormula) {
        std::string text;
        WhenShown shown("frmPreview", [&](wxTopLevelWindow& window) {
            auto& form = static_cast<frmPreview&>(window);
            EXPECT_TRUE(test::pumpUntil([&] { return form.pageLoaded(); }));
            text = test::shownText(*form.browserPreview);
            EXPECT_EQ(wxWindow::FindWindowByName("frmMain"), nullptr);
            form.Close();
        });
        previewXML(xml, evaluateFormula);
        return text;
    }
    static std::string edited(const std::string& xml) {
        WhenShown shown("frmMain", [](wxTopLevelWindow& window) {
            EditorWindow::click(static_cast<frmMain&>(window).controls.cmdOK);
        });
        return editXML(xml).text;
    }

    test::DialogAnswers dialogs;
};

TEST_F(PreviewXml, ShowsThePageWithFormulasEvaluated) {
    const std::string text = preview(document, true);
    EXPECT_NE(text.find("costs 5 euros"), std::string::npos) << text;
}

TEST_F(PreviewXml, ShowsThePageAsTyped) {
    const std::string text = preview(document, false);
    EXPECT_NE(text.find("costs `Rate`"), std::string::npos) << text;
}

TEST_F(PreviewXml, WritesThePageAndThePicturesIntoTheComponentsFolder) {
    DiskFiles files;
    const std::string folder = componentFolder(files);
    preview(document, true);
    EXPECT_NE(files.read(folder + "/temp.html").find("costs 5 euros"), std::string::npos);
    EXPECT_EQ(files.read(folder + "/temp_images/generated_cabinet_picture.png"),
              files.read(folder + "/cabinet.png") + '\0');
}

TEST_F(PreviewXml, ARejectedDocumentIsToldAndFails) {
    dialogs.expectBox("No cabinet data found...", "Error", wxOK | wxICON_ERROR);
    EXPECT_EQ(errorOf([] { previewXML("<cabinetinfo/>", true); }), 364);
    EXPECT_EQ(wxWindow::FindWindowByName("frmPreview"), nullptr);
}

TEST_F(PreviewXml, ErrorsReachTheHostWithoutAWindow) {
    EXPECT_EQ(errorOf([] { previewXML("<cabinetinfo><cabinet/></cabinetinfo>", true); }), 91);
    EXPECT_EQ(errorOf([] {
                  previewXML("<cabinetinfo><cabinet><a value='\xD0\x96'/></cabinet></cabinetinfo>",
                             true);
              }),
              5);
    EXPECT_EQ(errorOf([] {
                  previewXML("<cabinetinfo><cabinet><a/></cabinet><image>*</image></cabinetinfo>",
                             true);
              }),
              13);
    EXPECT_EQ(wxWindow::FindWindowByName("frmPreview"), nullptr);
}

TEST_F(PreviewXml, AfterAFailedCallTheNextOneWorks) {
    EXPECT_EQ(errorOf([] { previewXML("<cabinetinfo><cabinet/></cabinetinfo>", true); }), 91);
    EXPECT_NE(preview(document, true).find("costs 5 euros"), std::string::npos);
}

TEST_F(PreviewXml, TheSameFormIsLoadedAgainByTheNextCalls) {
    preview(document, true);
    EXPECT_EQ(edited("<cabinetinfo><cabinet><b/></cabinet></cabinetinfo>"),
              "<cabinetinfo><cabinet><b/></cabinet>" + std::string(test::fixedFormulas) +
                  "</cabinetinfo>");
    const std::string text =
        preview("<cabinetinfo><cabinet><c value='other page'/></cabinet></cabinetinfo>", false);
    EXPECT_NE(text.find("other page"), std::string::npos) << text;
    EXPECT_EQ(text.find("costs"), std::string::npos) << text;
}

TEST_F(PreviewXml, CallsInsideThePreviewAreRefused) {
    WhenShown shown("frmPreview", [&](wxTopLevelWindow& window) {
        dialogs.expectBox("DLL call returned due to error.", "Tavisk", wxOK | wxICON_NONE);
        EXPECT_EQ(editXML(document).text, document);
        EXPECT_EQ(errorOf([] { previewXML(document, true); }), 5);
        EXPECT_TRUE(window.IsShown());
        window.Close();
    });
    previewXML(document, true);
}

TEST_F(PreviewXml, TheEditorsPreviewEvaluatesAndReturnsToTheEditor) {
    std::string text;
    WhenShown editor("frmMain", [&](wxTopLevelWindow& window) {
        auto& form = static_cast<frmMain&>(window);
        WhenShown shown("frmPreview", [&](wxTopLevelWindow& preview) {
            auto& page = static_cast<frmPreview&>(preview);
            EXPECT_TRUE(test::pumpUntil([&] { return page.pageLoaded(); }));
            text = test::shownText(*page.browserPreview);
            EXPECT_EQ(errorOf([] { previewXML(document, true); }), 5);
            page.Close();
        });
        EditorWindow::click(form.controls.cmdPreview);
        EXPECT_TRUE(form.IsShown());
        EditorWindow::click(form.controls.cmdOK);
    });
    EXPECT_EQ(editXML(document).error, std::nullopt);
    EXPECT_NE(text.find("costs 5 euros"), std::string::npos) << text;
}

}  // namespace
}  // namespace tavisk
