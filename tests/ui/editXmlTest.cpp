// The component's call editXML, with its real window.
#include <gtest/gtest.h>
#include <thread>
#include <wx/iconbndl.h>
#include <wx/image.h>

#include "component/component.h"
#include "support/errors.h"
#include "ui/support/editorWindow.h"
#include "ui/support/whenShown.h"
#include "xml/xmlReader.h"

namespace tavisk {
namespace {

using test::DialogAnswers;
using test::EditorWindow;
using test::errorOf;
using test::fixedFormulas;
using test::WhenShown;

constexpr const char* callFailed = "DLL call returned due to error.";
constexpr const char* question = "Would you like to save your changes?";
constexpr const char* fatal = "Fatal error";
constexpr long plain = wxOK | wxICON_NONE;
constexpr long error = wxOK | wxICON_ERROR;
constexpr long questionStyle = wxYES_NO | wxCANCEL | wxICON_QUESTION;

const std::string simple = "<cabinetinfo><cabinet><a/></cabinet></cabinetinfo>";
const std::string saved =
    "<cabinetinfo><cabinet><a/></cabinet>" + std::string(fixedFormulas) + "</cabinetinfo>";

struct EditXml : testing::Test {
    /// The call, with a visit to its window, which must close it.
    static EditResult edit(const std::string& xml, const std::function<void(frmMain&)>& visit) {
        WhenShown shown("frmMain",
                        [&](wxTopLevelWindow& window) { visit(static_cast<frmMain&>(window)); });
        return editXML(xml);
    }
    static void clickOk(frmMain& window) { EditorWindow::click(window.controls.cmdOK); }
    static void clickCancel(frmMain& window) { EditorWindow::click(window.controls.cmdCancel); }
    static void type(frmMain& window, const char* text) {
        window.controls.txtValue->SetValue(text);
    }

    void expectCallFailed() { dialogs.expectBox(callFailed, "Tavisk", plain); }
    void expectQuestion(int answer) {
        dialogs.expectBox(question, "Exiting...", questionStyle, answer);
    }
    /// The call ends without a window, in this error and with the host's own text.
    void expectFailure(const std::string& xml, int number) {
        expectCallFailed();
        const EditResult result = editXML(xml);
        EXPECT_EQ(result.text, xml);
        ASSERT_TRUE(result.error.has_value());
        EXPECT_EQ(result.error->number(), number);
        EXPECT_TRUE(dialogs.finished());
        EXPECT_EQ(wxWindow::FindWindowByName("frmMain"), nullptr);
    }

    DialogAnswers dialogs;
};

TEST_F(EditXml, ItsWindowHasTheProductsIcon) {
    wxIconBundle icons;
    edit(simple, [&](frmMain& window) {
        icons = window.GetIcons();
        clickOk(window);
    });
    for (const int size : {16, 32}) {
        const wxIcon icon = icons.GetIcon({size, size}, wxIconBundle::FALLBACK_NONE);
        ASSERT_TRUE(icon.IsOk());
        wxBitmap bitmap;
        bitmap.CopyFromIcon(icon);
        const wxImage image = bitmap.ConvertToImage();
        // A sheet with something written on it, and nothing beside it.
        EXPECT_FALSE(image.IsTransparent(size / 2, size / 2));
        EXPECT_GT(image.CountColours(), 4UL);
        EXPECT_TRUE(image.IsTransparent(0, 0));
    }
}

TEST_F(EditXml, OkGivesTheDocumentAsItStands) {
    const EditResult result = edit(simple, [](frmMain& window) {
        type(window, "text");
        clickOk(window);
    });
    EXPECT_EQ(result.error, std::nullopt);
    EXPECT_EQ(result.text, R"(<cabinetinfo><cabinet><a value="text"/></cabinet>)" +
                               std::string(fixedFormulas) + "</cabinetinfo>");
}

TEST_F(EditXml, OkOnAnUntouchedDocumentAsksNothing) {
    EXPECT_EQ(edit(simple, clickOk).text, saved);
}

TEST_F(EditXml, CancelAndNoGiveTheDocumentAsItWasLoaded) {
    expectQuestion(wxID_NO);
    const EditResult result = edit(
        "<?xml version='1.0'?>\n<cabinetinfo>\n <cabinet>\n  <a x='1'></a>\n </cabinet>\n"
        " <location value='cabinet=>a'/>\n</cabinetinfo>\n",
        clickCancel);
    EXPECT_EQ(result.error, std::nullopt);
    EXPECT_EQ(result.text,
              "<?xml version=\"1.0\"?>\r\n<cabinetinfo><cabinet><a x=\"1\"/></cabinet>"
              "</cabinetinfo>");
}

TEST_F(EditXml, CancelWithoutAChangeGivesTheSameAndAsksNothing) {
    const EditResult result = edit(
        "<cabinetinfo><cabinet><a x='1'/></cabinet>"
        "<image name='generated_cabinet_picture'/><location/></cabinetinfo>",
        clickCancel);
    EXPECT_EQ(result.text, R"(<cabinetinfo><cabinet><a x="1"/></cabinet>)"
                           R"(<image name="generated_cabinet_picture"/></cabinetinfo>)");
}

TEST_F(EditXml, CancelAndYesGiveTheEditedDocument) {
    expectQuestion(wxID_YES);
    const EditResult result = edit(simple, [](frmMain& window) {
        type(window, "text");
        clickCancel(window);
    });
    EXPECT_NE(result.text.find(R"(<a value="text"/>)"), std::string::npos);
}

TEST_F(EditXml, CancelInTheQuestionGoesOnEditing) {
    expectQuestion(wxID_CANCEL);
    const EditResult result = edit(simple, [](frmMain& window) {
        type(window, "text");
        clickCancel(window);
        EXPECT_TRUE(window.IsShown());
        clickOk(window);
    });
    EXPECT_NE(result.text.find(R"(<a value="text"/>)"), std::string::npos);
}

TEST_F(EditXml, ClosingTheWindowIsCancel) {
    expectQuestion(wxID_NO);
    EXPECT_EQ(edit(simple, [](frmMain& window) { window.Close(); }).text, simple);
}

TEST_F(EditXml, RefreshGivesTheMarkerAndTheNextCallSelectsItsNode) {
    const std::string xml = "<cabinetinfo><cabinet><a/><b/></cabinet></cabinetinfo>";
    const EditResult first = edit(xml, [](frmMain& window) {
        HelpTree& tree = *window.controls.TreeXML;
        tree.choose(*tree.selected()->next());
        EditorWindow::click(window.controls.cmdRefreshButton);
    });
    EXPECT_EQ(first.text, R"(<cabinetinfo><cabinet><a/><b/></cabinet>)"
                          R"(<location value="cabinet=&gt;b"/>)" +
                              std::string(fixedFormulas) + "</cabinetinfo>");
    const EditResult second = edit(first.text, [](frmMain& window) {
        EXPECT_EQ(EditorWindow::label(window.controls.lblCurrentField), "cabinet=>b");
        clickOk(window);
    });
    EXPECT_EQ(second.text, "<cabinetinfo><cabinet><a/><b/></cabinet>" + std::string(fixedFormulas) +
                               "</cabinetinfo>");
}

TEST_F(EditXml, AHostsOwnWindowTakesNoInputMeanwhile) {
    auto* const host = new wxFrame(nullptr, wxID_ANY, "host");
    host->Show();
    edit(simple, [host](frmMain& window) {
        EXPECT_FALSE(host->IsEnabled());
        clickOk(window);
    });
    EXPECT_TRUE(host->IsEnabled());
    EXPECT_TRUE(host->IsShown());
    delete host;
}

TEST_F(EditXml, ADocumentThatCannotBeParsedIsToldWithItsLine) {
    const std::string xml = "<cabinetinfo>\n<cabinet>\n</cabinetinfo>";
    dialogs.expectBox(readXml(xml).refusal.reason + "\nline 3", "Tavisk", plain);
    expectFailure(xml, 364);
    const std::string entity = "<!DOCTYPE cabinetinfo [\n<!ENTITY e 'x'>]><cabinetinfo/>";
    dialogs.expectBox("Entity declarations are not allowed\nline 2", "Tavisk", plain);
    expectFailure(entity, 364);
}

TEST_F(EditXml, ADocumentWithoutACabinetIsRefused) {
    dialogs.expectBox("No cabinet data found...", "Error", error);
    expectFailure("<cabinetinfo/>", 364);
}

TEST_F(EditXml, ADocumentWithTwoCabinetsIsRefused) {
    dialogs.expectBox("Multiple sets of cabinet data found...", "Error", error);
    expectFailure("<cabinetinfo><cabinet><a/></cabinet><cabinet/></cabinetinfo>", 364);
}

TEST_F(EditXml, TwoCabinetsUnderAnotherDocumentElementAreCountedFirst) {
    dialogs.expectBox("Multiple sets of cabinet data found...", "Error", error);
    expectFailure("<other><cabinet><a/></cabinet><cabinet/></other>", 364);
}

TEST_F(EditXml, ADocumentWithThreeCabinetsIsRefusedInOtherWords) {
    dialogs.expectBox(
        "Error in XML data:\n\nThere must be one, and only one, cabinet node per cabinet.", fatal,
        error);
    expectFailure("<cabinetinfo><cabinet/><cabinet/><cabinet/></cabinetinfo>", 364);
}

TEST_F(EditXml, AnotherDocumentElementIsRefused) {
    dialogs.expectBox("Error in XML data:\n\ncabinetinfo basenode does not exist", fatal, error);
    expectFailure("<other><cabinet><a/></cabinet></other>", 364);
}

TEST_F(EditXml, AnEmptyCabinetCannotBeOpened) {
    expectFailure("<cabinetinfo><cabinet/></cabinetinfo>", 91);
}

TEST_F(EditXml, AStyleThatIsNoNumberCannotBeOpened) {
    expectFailure("<cabinetinfo><cabinet><a style='bold'/></cabinet></cabinetinfo>", 13);
}

TEST_F(EditXml, TheHostsTextComesBackByteByByte) {
    const std::string xml = "<cabinetinfo>\n\t<cabinet \xFF\n";
    dialogs.expectBox(readXml(xml).refusal.reason + "\nline 2", "Tavisk", plain);
    expectFailure(xml, 364);
}

TEST_F(EditXml, ACallAfterAFailedOneWorks) {
    expectFailure("<cabinetinfo><cabinet/></cabinetinfo>", 91);
    EXPECT_EQ(edit(simple, clickOk).text, saved);
}

TEST_F(EditXml, TheSecondCallStartsAnew) {
    edit(R"(<cabinetinfo><cabinet><old value="old" titlehidden="1"/></cabinet>)"
         R"(<formula name="Old" standard="1"/><image name="old"/></cabinetinfo>)",
         [](frmMain& window) {
             EditorWindow::choose(window.controls.lstImages, 0);
             clickOk(window);
         });
    const EditResult result = edit(simple, [](frmMain& window) {
        const EditorControls& controls = window.controls;
        EXPECT_EQ(controls.txtValue->text(), u"");
        EXPECT_FALSE(controls.chkHidden.at(0)->GetValue());
        EXPECT_EQ(controls.lstFormulas->GetCount(), 0U);
        EXPECT_EQ(EditorWindow::entries(controls.lstImages),
                  std::vector<std::string>{"~generated_cabinet_picture"});
        EXPECT_EQ(controls.lstImages->GetSelection(), wxNOT_FOUND);
        EXPECT_TRUE(controls.Picture1->isEmpty());
        clickOk(window);
    });
    EXPECT_EQ(result.text, saved);
}

TEST_F(EditXml, FiftyCallsGiveTheSame) {
    std::string text = simple;
    for (int i = 0; i < 50; ++i) {
        text = edit(text, [](frmMain& window) {
                   EditorWindow::choose(window.controls.lstImages, 0);
                   type(window, "text");
                   clickOk(window);
               }).text;
    }
    EXPECT_EQ(text, R"(<cabinetinfo><cabinet><a value="text"/></cabinet>)" +
                        std::string(fixedFormulas) + "</cabinetinfo>");
}

TEST_F(EditXml, ACallInsideTheOpenEditorIsRefusedAndLeavesItAlone) {
    const EditResult result = edit(simple, [this](frmMain& window) {
        type(window, "typed");
        expectCallFailed();
        const EditResult inner = editXML("<inner/>");
        EXPECT_EQ(inner.text, "<inner/>");
        ASSERT_TRUE(inner.error.has_value());
        EXPECT_EQ(inner.error->number(), 5);
        EXPECT_TRUE(window.IsShown());
        EXPECT_TRUE(window.IsThisEnabled());
        EXPECT_EQ(window.controls.txtValue->text(), u"typed");
        type(window, "typed on");
        clickOk(window);
    });
    EXPECT_EQ(result.error, std::nullopt);
    EXPECT_NE(result.text.find(R"(<a value="typed on"/>)"), std::string::npos);
}

TEST_F(EditXml, ACallInsideAPromptOfTheEditorIsRefused) {
    const EditResult result = edit(simple, [this](frmMain& window) {
        dialogs.expectPrompt("Please enter the formula", "Add Formula", "", "Rate").during([this] {
            expectCallFailed();
            dialogs.expectPrompt("Please enter a description for this formula", "Add Formula",
                                 "Rate", "");
            EXPECT_EQ(editXML("<inner/>").text, "<inner/>");
        });
        EditorWindow::click(window.controls.cmdFormulaAdd);
        clickOk(window);
    });
    EXPECT_EQ(result.text, saved);
}

TEST_F(EditXml, APreviewInsideTheOpenEditorIsError5) {
    const EditResult result = edit(simple, [](frmMain& window) {
        type(window, "typed");
        EXPECT_EQ(errorOf([] { previewXML(simple, true); }), 5);
        EXPECT_EQ(wxWindow::FindWindowByName("frmPreview"), nullptr);
        EXPECT_TRUE(window.IsShown());
        clickOk(window);
    });
    EXPECT_NE(result.text.find(R"(<a value="typed"/>)"), std::string::npos);
}

TEST_F(EditXml, CallsOfAnotherThreadAreRefusedWithoutAWindow) {
    const EditResult result = edit(simple, [](frmMain& window) {
        EditResult other;
        int error = 0;
        std::thread([&] {
            other = editXML("<inner/>");
            error = errorOf([] { previewXML(simple, true); });
        }).join();
        EXPECT_EQ(other.text, "<inner/>");
        ASSERT_TRUE(other.error.has_value());
        EXPECT_EQ(other.error->number(), 5);
        EXPECT_EQ(error, 5);
        EXPECT_TRUE(window.IsShown());
        clickOk(window);
    });
    EXPECT_EQ(result.text, saved);
}

TEST_F(EditXml, AfterTheEditorAnotherThreadStillCannotCall) {
    edit(simple, clickOk);
    EditResult other;
    std::thread([&] { other = editXML(simple); }).join();
    EXPECT_EQ(other.text, simple);
    ASSERT_TRUE(other.error.has_value());
    EXPECT_EQ(other.error->number(), 361);
    EXPECT_EQ(edit(simple, clickOk).text, saved);
}

}  // namespace
}  // namespace tavisk
