// Saving, closing, refreshing and previewing.
#include <gtest/gtest.h>

#include "ui/support/editorStep.h"
#include "ui/support/previewWindow.h"
#include "ui/support/treeWindow.h"
#include "ui/support/whenShown.h"

namespace tavisk {
namespace {

using test::EditorWindow;
using test::expectInStep;
using test::fixedFormulas;
using test::generatedPicture;
using test::HelpXml;
using test::treeRows;
using test::WhenShown;
using Operation = test::MemoryFiles::Operation;

constexpr const char* question = "Would you like to save your changes?";
constexpr const char* exiting = "Exiting...";
constexpr long questionStyle = wxYES_NO | wxCANCEL | wxICON_QUESTION;
constexpr const char* notSet = "Object variable or With block variable not set";

const std::string loaded = "<cabinetinfo><cabinet><a/></cabinet></cabinetinfo>";
const std::string saved =
    "<cabinetinfo><cabinet><a/></cabinet>" + std::string(fixedFormulas) + "</cabinetinfo>";

void expectQuestion(EditorWindow& editor, int answer) {
    editor.dialogs.expectBox(question, exiting, questionStyle, answer);
}

void rename(EditorWindow& editor, const std::string& from, const std::string& to) {
    editor.dialogs.expectPrompt("Enter the new name for the node:", "Rename Node", from, to);
    editor.menu("cmdRename");
}

using Command = void (*)(EditorWindow&);

constexpr Command unloads[] = {
    [](EditorWindow& editor) { editor.click(editor.controls().cmdCancel); },
    [](EditorWindow& editor) { editor.fileMenu(editor.controls().cmdExit); },
    [](EditorWindow& editor) { editor.window->Close(); },
};
constexpr Command refreshes[] = {
    [](EditorWindow& editor) { editor.click(editor.controls().cmdRefreshButton); },
    [](EditorWindow& editor) { editor.fileMenu(editor.controls().cmdRefresh); },
};

TEST(FrmMainLifeCycle, HasItsCaption) {
    EditorWindow editor("<a/>");
    EXPECT_EQ(editor.window->GetTitle(), "Library Help XML Editor");
}

TEST(FrmMainLifeCycle, OkSavesAndAsksNothing) {
    EditorWindow editor("<a/>");
    editor.click(editor.controls().cmdOK);
    EXPECT_FALSE(editor.window->IsShown());
    EXPECT_EQ(editor.session().xmlText, saved);
}

TEST(FrmMainLifeCycle, UnloadingAnUntouchedDocumentAsks) {
    for (const Command unload : unloads) {
        EditorWindow editor("<a/>");
        expectQuestion(editor, wxID_NO);
        unload(editor);
        EXPECT_FALSE(editor.window->IsShown());
        EXPECT_EQ(editor.session().xmlText, loaded);
    }
}

TEST(FrmMainLifeCycle, YesToTheQuestionSaves) {
    for (const Command unload : unloads) {
        EditorWindow editor("<a/>");
        editor.type(u"`Rate`");
        expectQuestion(editor, wxID_YES);
        unload(editor);
        EXPECT_FALSE(editor.window->IsShown());
        EXPECT_EQ(editor.session().xmlText,
                  R"(<cabinetinfo><cabinet><a value="`Rate`"/></cabinet>)" +
                      std::string(fixedFormulas) +
                      R"(<formula name="Rate" standard="0"/></cabinetinfo>)");
    }
}

TEST(FrmMainLifeCycle, NoToTheQuestionForgetsTheEdits) {
    EditorWindow editor("<a/>");
    editor.type(u"edited");
    expectQuestion(editor, wxID_NO);
    editor.click(editor.controls().cmdCancel);
    EXPECT_FALSE(editor.window->IsShown());
    EXPECT_EQ(editor.session().xmlText, loaded);
}

TEST(FrmMainLifeCycle, CancelInTheQuestionKeepsTheWindowAndEveryEdit) {
    for (const Command unload : unloads) {
        EditorWindow editor("<a/>");
        editor.click(editor.controls().cmdChangeFont.at(2));
        editor.type(u"edited");
        const std::string before = editor.core.document();
        expectQuestion(editor, wxID_CANCEL);
        unload(editor);
        EXPECT_TRUE(editor.window->IsShown());
        EXPECT_EQ(editor.core.document(), before);
        expectInStep(editor);
    }
}

TEST(FrmMainLifeCycle, WithTheGeneratedPictureInTheDocumentCancelAsksNothing) {
    EditorWindow editor("<a/>", generatedPicture);
    editor.click(editor.controls().cmdCancel);
    EXPECT_FALSE(editor.window->IsShown());
}

TEST(FrmMainLifeCycle, AnEditThatIsTakenBackIsNoChange) {
    EditorWindow editor("<a value=''/>", generatedPicture);
    editor.type(u"x");
    editor.type(u"");
    editor.click(editor.controls().cmdCancel);
    EXPECT_FALSE(editor.window->IsShown());
}

TEST(FrmMainLifeCycle, AWindowManagersCloseAsks) {
    EditorWindow editor("<a/>");
    expectQuestion(editor, wxID_CANCEL);
    test::closeFromOutside(*editor.window);
    EXPECT_TRUE(test::pumpUntil([&] { return editor.dialogs.finished(); }));
    EXPECT_TRUE(editor.window->IsShown());
    expectQuestion(editor, wxID_NO);
    test::closeFromOutside(*editor.window);
    EXPECT_TRUE(test::pumpUntil([&] { return !editor.window->IsShown(); }));
    EXPECT_EQ(editor.session().xmlText, loaded);
}

TEST(FrmMainLifeCycle, ACloseThatCannotBeStoppedAsksAndCloses) {
    for (const int answer : {wxID_CANCEL, wxID_NO}) {
        EditorWindow editor("<a/>");
        expectQuestion(editor, answer);
        editor.window->Close(true);
        EXPECT_FALSE(editor.window->IsShown());
        EXPECT_EQ(editor.session().xmlText, loaded);
    }
    EditorWindow editor("<a/>");
    expectQuestion(editor, wxID_YES);
    editor.window->Close(true);
    EXPECT_FALSE(editor.window->IsShown());
    EXPECT_EQ(editor.session().xmlText, saved);
}

TEST(FrmMainLifeCycle, ACloseThatCannotBeStoppedReportsAFailedSave) {
    EditorWindow editor("<a/>");
    editor.select("cabinet");
    rename(editor, "cabinet", "other");
    expectQuestion(editor, wxID_YES);
    editor.expectReport(91, notSet);
    editor.window->Close(true);
    EXPECT_FALSE(editor.window->IsShown());
    EXPECT_EQ(editor.session().xmlText, loaded);
}

TEST(FrmMainLifeCycle, RefreshSavesTheDocumentWithItsMarkerAndAsksNothing) {
    for (const Command refresh : refreshes) {
        EditorWindow editor("<a/><b><my_c/></b>");
        editor.select("cabinet=>b=>my c");
        refresh(editor);
        EXPECT_FALSE(editor.window->IsShown());
        EXPECT_EQ(editor.session().xmlText, R"(<cabinetinfo><cabinet><a/><b><my_c/></b></cabinet>)"
                                            R"(<location value="cabinet=&gt;b=&gt;my c"/>)" +
                                                std::string(fixedFormulas) + "</cabinetinfo>");
    }
}

TEST(FrmMainLifeCycle, TheNextLoadSelectsTheNodeOfTheRefresh) {
    std::string text;
    {
        EditorWindow editor("<a/><b><my_c value='text'/></b>");
        editor.select("cabinet=>b=>my c");
        editor.click(editor.controls().cmdRefreshButton);
        text = editor.session().xmlText;
    }
    EditorWindow editor(HelpXml{text});
    EXPECT_EQ(treeRows(*editor.controls().TreeXML), "cabinet\n a\n b\n  my c <\n");
    EXPECT_EQ(editor.controls().txtValue->text(), u"text");
    EXPECT_EQ(editor.session().xmlText.find("location"), std::string::npos);
    expectInStep(editor);
}

TEST(FrmMainLifeCycle, ARefreshOnTheCabinetLeadsToTheFirstNode) {
    std::string text;
    {
        EditorWindow editor("<a/><b/>");
        editor.select("cabinet");
        editor.click(editor.controls().cmdRefreshButton);
        text = editor.session().xmlText;
    }
    EXPECT_NE(text.find(R"(<location value="cabinet"/>)"), std::string::npos);
    EditorWindow editor(HelpXml{text});
    EXPECT_EQ(treeRows(*editor.controls().TreeXML), "cabinet\n a <\n b\n");
}

TEST(FrmMainLifeCycle, RefreshesDoNotStackTheirMarkers) {
    std::string text = loaded;
    for (int i = 0; i < 3; ++i) {
        EditorWindow editor(HelpXml{text});
        editor.click(editor.controls().cmdRefreshButton);
        text = editor.session().xmlText;
    }
    EXPECT_EQ(text, R"(<cabinetinfo><cabinet><a/></cabinet><location value="cabinet=&gt;a"/>)" +
                        std::string(fixedFormulas) + "</cabinetinfo>");
}

TEST(FrmMainLifeCycle, WithoutACabinetOkIsReportedAndTheWindowStays) {
    EditorWindow editor("<a/>");
    editor.select("cabinet");
    rename(editor, "cabinet", "other");
    const std::string before = editor.core.document();
    editor.expectReport(91, notSet);
    editor.click(editor.controls().cmdOK);
    EXPECT_TRUE(editor.window->IsShown());
    EXPECT_EQ(editor.core.document(), before);
    EXPECT_EQ(editor.session().xmlText, loaded);
    expectInStep(editor);

    rename(editor, "other", "cabinet");
    editor.click(editor.controls().cmdOK);
    EXPECT_FALSE(editor.window->IsShown());
    EXPECT_EQ(editor.session().xmlText, saved);
}

TEST(FrmMainLifeCycle, WithoutACabinetRefreshAndYesAreReportedAndTheWindowStays) {
    EditorWindow editor("<a/>");
    editor.select("cabinet");
    rename(editor, "cabinet", "other");
    const std::string before = editor.core.document();
    for (const Command refresh : refreshes) {
        editor.expectReport(91, notSet);
        refresh(editor);
        EXPECT_TRUE(editor.window->IsShown());
        EXPECT_EQ(editor.core.document(), before);
    }
    for (const Command unload : unloads) {
        expectQuestion(editor, wxID_YES);
        editor.expectReport(91, notSet);
        unload(editor);
        EXPECT_TRUE(editor.window->IsShown());
        EXPECT_EQ(editor.core.document(), before);
    }
    expectInStep(editor);
}

TEST(FrmMainLifeCycle, AnOverlongTextMakesSavingFailAndTheWindowStays) {
    EditorWindow editor("<a/><formula/><b value='" + std::string(32768, 'x') + "'/>",
                        generatedPicture);
    const std::string before = editor.core.document();
    editor.expectReport(6, "Overflow");
    editor.click(editor.controls().cmdOK);
    EXPECT_TRUE(editor.window->IsShown());
    EXPECT_EQ(editor.core.document(), before);
    expectInStep(editor);
    editor.select("cabinet=>formula");
    editor.tool("Move To Bottom");
    expectInStep(editor);
}

TEST(FrmMainLifeCycle, RowsThatSavingTakesOutDoNoHarm) {
    const test::ToolkitComplaints complaints;
    for (const char* start : {"cabinet=>a", "cabinet=>formula", "cabinet=>formula=>x"}) {
        EditorWindow editor("<formula name='f'><x/></formula><a>" + std::string(generatedPicture) +
                            "<formula/></a><b/>");
        editor.controls().TreeXML->Expand(wxDataViewItem(&editor.core.row("cabinet=>formula")));
        editor.select(start);
        editor.click(editor.controls().cmdOK);
        EXPECT_FALSE(editor.window->IsShown());
        EXPECT_EQ(editor.session().xmlText, R"(<cabinetinfo><cabinet><a/><b/></cabinet>)"
                                            R"(<formula name="f" description="" standard="0"/>)"
                                            R"(<formula name="" description="" standard="0"/>)" +
                                                std::string(fixedFormulas) + "</cabinetinfo>");
    }
}

TEST(FrmMainLifeCycle, PreviewWritesThePageAndShowsItModally) {
    EditorWindow editor("<a value='text'/>", "<image>QUI=</image>");
    WhenShown preview("frmPreview", [&](wxTopLevelWindow& shown) {
        EXPECT_EQ(shown.GetParent(), editor.window);
        EXPECT_FALSE(editor.window->IsThisEnabled());
        shown.Close();
    });
    editor.click(editor.controls().cmdPreview);
    EXPECT_TRUE(editor.window->IsThisEnabled());
    EXPECT_TRUE(editor.window->IsShown());
    const auto page = editor.core.files.bytesOf("/app/temp.html");
    ASSERT_TRUE(page.has_value());
    EXPECT_NE(page->find("text"), std::string::npos);
    EXPECT_EQ(editor.core.files.bytesOf("/app/temp_images/default.bmp"), "AB");
    expectInStep(editor);
}

TEST(FrmMainLifeCycle, AfterThePreviewTheEditorHasTheFocusAgain) {
    EditorWindow editor("<a/>");
    editor.window->Raise();
    editor.controls().txtValue->SetFocus();
    ASSERT_TRUE(test::pumpUntil([&] { return editor.controls().txtValue->HasFocus(); }));
    WhenShown preview("frmPreview", [&](wxTopLevelWindow& shown) {
        EXPECT_TRUE(test::pumpUntil([&] { return shown.IsActive(); }));
        shown.Close();
    });
    editor.click(editor.controls().cmdPreview);
    EXPECT_TRUE(test::pumpUntil(
        [&] { return editor.window->IsActive() && editor.controls().txtValue->HasFocus(); }));
}

TEST(FrmMainLifeCycle, ThePreviewHasWhatWasTypedAMomentAgo) {
    EditorWindow editor("<a/>", R"(<formula name="Rate" value="5 %" standard="1"/>)");
    editor.type(u"costs `Rate`");
    WhenShown preview("frmPreview", [](wxTopLevelWindow& shown) { shown.Close(); });
    editor.click(editor.controls().cmdPreview);
    const auto page = editor.core.files.bytesOf("/app/temp.html");
    ASSERT_TRUE(page.has_value());
    EXPECT_NE(page->find("costs 5 %"), std::string::npos);
    expectInStep(editor);
}

TEST(FrmMainLifeCycle, APageThatCannotBeWrittenIsReported) {
    EditorWindow editor("<a value='text'/>");
    const std::string before = editor.core.document();
    editor.core.files.fail(Operation::replace, ErrorNumber::permissionDenied);
    editor.expectReport(70, "Permission denied");
    editor.click(editor.controls().cmdPreview);
    EXPECT_TRUE(editor.window->IsShown());
    EXPECT_EQ(editor.core.document(), before);
    expectInStep(editor);
}

TEST(FrmMainLifeCycle, PicturesThatCannotBeWrittenAreReported) {
    for (const Operation operation : {Operation::createFolder, Operation::overwrite}) {
        EditorWindow editor("<a/>");
        editor.core.files.fail(operation, ErrorNumber::diskFull);
        editor.expectReport(61, "Disk full");
        editor.click(editor.controls().cmdPreview);
        EXPECT_TRUE(editor.window->IsShown());
        EXPECT_FALSE(editor.core.files.fileExists("/app/temp.html"));
        expectInStep(editor);
    }
}

TEST(FrmMainLifeCycle, ACharacterThatThePageCannotHoldIsReported) {
    EditorWindow editor("<a/>");
    editor.type(u"\u0416");
    editor.expectReport(5, "Invalid procedure call or argument");
    editor.click(editor.controls().cmdPreview);
    expectInStep(editor);
}

TEST(FrmMainLifeCycle, OfEqualNamesTheLastIsSelectedOnOpening) {
    EditorWindow editor("<a value='1'/><b/><a value='2'/>");
    EXPECT_EQ(treeRows(*editor.controls().TreeXML), "cabinet\n a\n b\n a <\n");
    EXPECT_EQ(editor.controls().txtValue->text(), u"1");
    expectInStep(editor);
}

TEST(FrmMainLifeCycle, AMarkerThatNamesNoNodeOpensTheFirst) {
    for (const char* marker :
         {R"(<location value="cabinet=>x"/>)", R"(<location value=""/>)",
          R"(<location value="cabinet"/>)", R"(<location value="cabinet=>b"/><location/>)"}) {
        EditorWindow editor("<a/><b/>", marker);
        EXPECT_EQ(treeRows(*editor.controls().TreeXML), "cabinet\n a <\n b\n") << marker;
        EXPECT_EQ(editor.core.document().find("location"), std::string::npos);
        expectInStep(editor);
    }
}

TEST(FrmMainLifeCycle, ATextBelowANodeIsARowWithoutText) {
    EditorWindow editor("<a>words</a>");
    EXPECT_EQ(treeRows(*editor.controls().TreeXML), "cabinet\n a <\n  \n");
    editor.controls().TreeXML->choose(*editor.core.row("cabinet=>a").firstChild());
    EXPECT_EQ(editor.label(editor.controls().lblCurrentField), "cabinet=>a=>");
    expectInStep(editor);
}

TEST(FrmMainLifeCycle, ADocumentElementInCapitalsNeedsItsNameInTheMarker) {
    const std::string nodes = "<CABINETINFO><cabinet><a/><b/></cabinet>";
    EditorWindow found(
        HelpXml{nodes + R"(<location value="CABINETINFO=>cabinet=>b"/></CABINETINFO>)"});
    EXPECT_EQ(treeRows(*found.controls().TreeXML), "cabinet\n a\n b <\n");
    EXPECT_EQ(found.label(found.controls().lblCurrentField), "cabinet=>b");
    expectInStep(found);
    EditorWindow lost(HelpXml{nodes + R"(<location value="cabinet=>b"/></CABINETINFO>)"});
    EXPECT_EQ(treeRows(*lost.controls().TreeXML), "cabinet\n a <\n b\n");
    expectInStep(lost);
}

TEST(FrmMainLifeCycle, AMarkerAmongTheNodesIsNoRow) {
    EditorWindow editor("<a/><location value='cabinet=>location'/><b/>");
    EXPECT_EQ(treeRows(*editor.controls().TreeXML), "cabinet\n a\n b\n");
    expectInStep(editor);
    editor.select("cabinet=>b");
    EXPECT_EQ(treeRows(*editor.controls().TreeXML), "cabinet\n a\n b <\n");
    expectInStep(editor);
}

}  // namespace
}  // namespace tavisk
