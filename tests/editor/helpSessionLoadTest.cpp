#include <gtest/gtest.h>

#include "editor/editorSession.h"
#include "support/errors.h"

namespace tavisk {
namespace {

using test::EditorSession;
using test::errorOf;
using test::generatedPicture;

using Entries = std::vector<std::string>;

void expectUnloaded(const HelpSession& session) {
    EXPECT_FALSE(session.loaded());
    EXPECT_EQ(session.file.articledoc, nullptr);
    EXPECT_EQ(session.file.baseXMLNode, nullptr);
    EXPECT_EQ(session.currentnode, nullptr);
    EXPECT_EQ(session.selectedRow, nullptr);
    EXPECT_FALSE(session.clipboardnode);
    EXPECT_TRUE(session.file.formulaCatalogue.firstformula());
    EXPECT_EQ(session.lstFormulas.entries, Entries{});
    EXPECT_EQ(session.lstImages.entries, Entries{});
    EXPECT_EQ(session.lstImages.text(), "");
    EXPECT_EQ(session.lastsave, "");
    EXPECT_EQ(session.xmlText, "");
    EXPECT_FALSE(session.changed());
}

/// The error that loading ends in; the session must be unloaded then.
int errorOfLoading(std::string_view xml) {
    EditorSession editor(R"(<old value="x"/>)");
    const int number = errorOf([&] { editor.load(xml); });
    expectUnloaded(editor.session);
    return number;
}

TEST(HelpSession, RejectedDocumentGivesItsMessageAndLeavesNothingLoaded) {
    EditorSession editor("<old/>");
    EXPECT_EQ(editor.load("<cabinetinfo/>"),
              (Refusal{"No cabinet data found...", std::nullopt, "Error", BoxStyle::okCritical}));
    expectUnloaded(editor.session);
}

TEST(HelpSession, UnreadableDocumentGivesReasonAndLineAndLeavesNothingLoaded) {
    EditorSession editor("<old/>");
    const auto refusal = editor.load("<cabinetinfo>\n<cabinet>\n</cabinetinfo>");
    ASSERT_TRUE(refusal.has_value());
    const Message message = refusal->message();
    EXPECT_EQ(message.title, "Tavisk");
    EXPECT_EQ(message.style, BoxStyle::ok);
    EXPECT_TRUE(message.text.ends_with("\r\nline 3")) << message.text;
    expectUnloaded(editor.session);
}

TEST(HelpSession, EmptyCabinetIsError91) {
    EXPECT_EQ(errorOfLoading("<cabinetinfo><cabinet/></cabinetinfo>"), 91);
}

TEST(HelpSession, EmptyCabinetWithALocationIsError91) {
    EXPECT_EQ(errorOfLoading(R"(<cabinetinfo><cabinet/><location value="cabinet"/></cabinetinfo>)"),
              91);
}

TEST(HelpSession, WithoutALocationTheFirstNodeIsSelected) {
    EditorSession editor("<first_node/><b/>");
    EXPECT_EQ(editor.selectedKey(), "cabinet=>first node");
    EXPECT_EQ(editor.session.currentnode, editor.session.selectedRow);
    EXPECT_EQ(editor.session.panel.currentField, "cabinet=>first node");
}

TEST(HelpSession, LocationSelectsItsNodeAndIsRemoved) {
    EditorSession editor;
    editor.load(R"(<cabinetinfo><cabinet><a/><b><my_c/></b></cabinet>)"
                R"(<location value="cabinet=>b=>my c"/></cabinetinfo>)");
    EXPECT_EQ(editor.selectedKey(), "cabinet=>b=>my c");
    EXPECT_EQ(editor.session.xmlText,
              "<cabinetinfo><cabinet><a/><b><my_c/></b></cabinet></cabinetinfo>");
}

TEST(HelpSession, LocationThatNamesNoNodeLeadsToTheFirstNode) {
    for (const char* key : {"cabinet=>x", "cabinet", "", "CABINET=>b", "cabinet=>b "}) {
        EditorSession editor;
        editor.load(R"(<cabinetinfo><cabinet><a/><b/></cabinet><location value=")" +
                    std::string(key) + R"("/></cabinetinfo>)");
        EXPECT_EQ(editor.selectedKey(), "cabinet=>a") << key;
    }
}

TEST(HelpSession, LocationWithoutAValueLeadsToTheFirstNode) {
    EditorSession editor;
    editor.load("<cabinetinfo><cabinet><a/><b/></cabinet><location/></cabinetinfo>");
    EXPECT_EQ(editor.selectedKey(), "cabinet=>a");
}

TEST(HelpSession, OfTwoLocationsNeitherIsUsedAndBothAreRemoved) {
    EditorSession editor;
    editor.load(R"(<cabinetinfo><location value="cabinet=>b"/><cabinet><a/><b/></cabinet>)"
                R"(<x><location value="cabinet=>b"/></x></cabinetinfo>)");
    EXPECT_EQ(editor.selectedKey(), "cabinet=>a");
    EXPECT_EQ(editor.session.xmlText, "<cabinetinfo><cabinet><a/><b/></cabinet><x/></cabinetinfo>");
}

TEST(HelpSession, LocationInsideALocationIsRemovedWithIt) {
    EditorSession editor;
    editor.load(
        "<cabinetinfo><cabinet><a/></cabinet><location><location/></location>"
        "</cabinetinfo>");
    EXPECT_EQ(editor.session.xmlText, "<cabinetinfo><cabinet><a/></cabinet></cabinetinfo>");
    // Nothing was freed twice: what is added now is all there.
    dom::Document& document = *editor.session.file.articledoc;
    document.append(*editor.session.file.baseXMLNode, document.createElement("n"));
    EXPECT_EQ(editor.document(), "<cabinetinfo><cabinet><a/><n/></cabinet>" +
                                     std::string(generatedPicture) + "</cabinetinfo>");
}

TEST(HelpSession, DocumentElementInAnotherLetterCaseHasLongerKeys) {
    EditorSession editor;
    editor.load(R"(<CabinetInfo><cabinet><a/><b/></cabinet>)"
                R"(<location value="CabinetInfo=>cabinet=>b"/></CabinetInfo>)");
    EXPECT_EQ(editor.selectedKey(), "cabinet=>b");
    editor.load(R"(<CabinetInfo><cabinet><a/><b/></cabinet>)"
                R"(<location value="cabinet=>b"/></CabinetInfo>)");
    EXPECT_EQ(editor.selectedKey(), "cabinet=>a");
}

TEST(HelpSession, OfEqualNamesTheLastIsSelectedAndTheFirstCurrent) {
    EditorSession editor(R"(<a n="1"/><a n="2"/>)");
    EXPECT_EQ(editor.session.selectedRow, editor.session.file.baseXMLNode->lastChild());
    EXPECT_EQ(editor.current(), R"(<a n="1"/>)");
}

TEST(HelpSession, StartNodeThatAClickDoesNotFindIsError91) {
    EXPECT_EQ(errorOfLoading(R"(<cabinetinfo><cabinet><a><x/></a><a><y/></a></cabinet>)"
                             R"(<location value="cabinet=>a=>y"/></cabinetinfo>)"),
              91);
}

TEST(HelpSession, SelectedLocationInsideTheTreeOutlivesItsRemoval) {
    EditorSession editor(R"(<location value="x"/><a/>)");
    EXPECT_EQ(editor.session.xmlText, "<cabinetinfo><cabinet><a/></cabinet></cabinetinfo>");
    EXPECT_EQ(editor.current(), R"(<location value="x"/>)");
    EXPECT_EQ(editor.session.panel.currentField, "cabinet=>location");
    editor.select("cabinet=>a");
    EXPECT_EQ(editor.current(), R"(<a value=""/>)");
}

TEST(HelpSession, LocationAroundTheCabinetTakesItOutOfTheDocument) {
    EditorSession editor;
    editor.load("<cabinetinfo><location><cabinet><a/></cabinet></location></cabinetinfo>");
    EXPECT_EQ(editor.session.xmlText, "<cabinetinfo/>");
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
    EXPECT_EQ(errorOf([&] { editor.session.saveDocument(); }), 91);
}

TEST(HelpSession, ReferenceTextsAreTheDocumentBeforeThePicture) {
    EditorSession editor;
    editor.load(
        "<?xml version='1.0'?><cabinetinfo>\n <cabinet>\n  <a x='1'></a>\n </cabinet>\n"
        "</cabinetinfo>\n");
    const std::string expected =
        "<?xml version=\"1.0\"?>\r\n<cabinetinfo><cabinet><a x=\"1\"/></cabinet></cabinetinfo>";
    EXPECT_EQ(editor.session.lastsave, expected);
    EXPECT_EQ(editor.session.xmlText, expected);
}

TEST(HelpSession, GeneratedPictureIsAddedLast) {
    EditorSession editor;
    editor.load("<cabinetinfo><cabinet><a/></cabinet><x/></cabinetinfo>");
    EXPECT_EQ(editor.document(), "<cabinetinfo><cabinet><a/></cabinet><x/>" +
                                     std::string(generatedPicture) + "</cabinetinfo>");
    EXPECT_EQ(editor.session.lstImages.entries, Entries{"~generated_cabinet_picture"});
}

TEST(HelpSession, AnUntouchedDocumentCountsAsChangedBecauseOfThePicture) {
    EditorSession editor("<a/>");
    EXPECT_TRUE(editor.session.changed());
}

TEST(HelpSession, GeneratedPictureOfTheDocumentIsKept) {
    const std::string xml = R"(<cabinetinfo><cabinet><a/></cabinet><x>)"
                            R"(<image name="generated_cabinet_picture"/></x></cabinetinfo>)";
    EditorSession editor;
    editor.load(xml);
    EXPECT_EQ(editor.document(), xml);
    EXPECT_FALSE(editor.session.changed());
}

TEST(HelpSession, NameOfTheGeneratedPictureIsComparedCaseSensitively) {
    EditorSession editor;
    editor.load(R"(<cabinetinfo><cabinet><a/></cabinet>)"
                R"(<image name="Generated_cabinet_picture"/></cabinetinfo>)");
    EXPECT_EQ(editor.session.lstImages.entries,
              (Entries{"~Generated_cabinet_picture", "~generated_cabinet_picture"}));
}

TEST(HelpSession, MissingPictureFileGivesAnEmptyPicture) {
    test::MemoryFiles files;
    HelpSession session(files, "/app");
    session.load(dom::Source::copy("<cabinetinfo><cabinet><a/></cabinet></cabinetinfo>"));
    EXPECT_EQ(writeXml(*session.file.articledoc),
              R"(<cabinetinfo><cabinet><a/></cabinet><image extension="png")"
              R"( name="generated_cabinet_picture" width="256" height="256"/></cabinetinfo>)");
}

TEST(HelpSession, UnreadablePictureFileEndsTheLoad) {
    EditorSession editor("<old/>");
    editor.files.fail(test::MemoryFiles::Operation::read, ErrorNumber::permissionDenied);
    EXPECT_EQ(errorOf([&] { editor.load("<cabinetinfo><cabinet><a/></cabinet></cabinetinfo>"); }),
              70);
    expectUnloaded(editor.session);
}

TEST(HelpSession, ImageListHasEveryImageInDocumentOrderAndNoneChosen) {
    EditorSession editor;
    editor.load(R"(<cabinetinfo><image name="z"/><cabinet><a/><image name="in"/></cabinet>)"
                R"(<image/><image name="z"/></cabinetinfo>)");
    EXPECT_EQ(editor.session.lstImages.entries,
              (Entries{"~z", "~in", "~", "~z", "~generated_cabinet_picture"}));
    EXPECT_EQ(editor.session.lstImages.text(), "");
}

TEST(HelpSession, FormulaListHasTheStandardFormulasAndTheFirstIsChosen) {
    EditorSession editor;
    editor.load(R"(<cabinetinfo><cabinet><a/></cabinet><formula name="x"/>)"
                R"(<formula name="Rate" standard="1"/><formula name="y" standard="true"/>)"
                R"(<formula name="Tax" standard="1"/></cabinetinfo>)");
    EXPECT_EQ(editor.session.lstFormulas.entries, (Entries{"Rate", "Tax"}));
    EXPECT_EQ(editor.session.lstFormulas.text(), "Rate");
    EXPECT_EQ(editor.session.file.formulaCatalogue.entries().size(), 4u);
}

TEST(HelpSession, WithoutStandardFormulasNoneIsChosen) {
    EditorSession editor("<a/>");
    EXPECT_EQ(editor.session.lstFormulas.text(), "");
    EXPECT_TRUE(editor.session.file.formulaCatalogue.firstformula());
}

TEST(HelpSession, LoadingWritesTheShownStateOfABoxBack) {
    EditorSession editor;
    editor.load(R"(<cabinetinfo><cabinet><a titlehidden="yes" answerhidden="0" pagebreak="2"/>)"
                "</cabinet></cabinetinfo>");
    EXPECT_EQ(editor.session.xmlText,
              R"(<cabinetinfo><cabinet><a titlehidden="1" answerhidden="0" pagebreak="1"/>)"
              "</cabinet></cabinetinfo>");
}

TEST(HelpSession, LoadingWritesOnlyToTheStartNode) {
    EditorSession editor(R"(<a/><b titlehidden="yes" style="x"/>)");
    EXPECT_EQ(editor.tree(), R"(<cabinet><a/><b titlehidden="yes" style="x"/></cabinet>)");
}

TEST(HelpSession, StyleOfTheStartNodeThatIsNoNumberIsError13) {
    EXPECT_EQ(errorOfLoading(R"(<cabinetinfo><cabinet><a style="bold"/></cabinet></cabinetinfo>)"),
              13);
}

TEST(HelpSession, OverlongTextOfTheStartNodeIsError6) {
    EXPECT_EQ(errorOfLoading("<cabinetinfo><cabinet><a value=\"" + std::string(32768, 'x') +
                             "\"/></cabinet></cabinetinfo>"),
              6);
}

TEST(HelpSession, TextAtTheLimitLoads) {
    EditorSession editor("<a value=\"" + std::string(32767, 'x') + "\"/>");
    EXPECT_EQ(editor.session.panel.text.size(), 32767u);
}

TEST(HelpSession, TooManyNodesBesideEachOtherAreError6) {
    std::string nodes;
    for (int i = 0; i < 32768; ++i)
        nodes += "<a/>";
    EXPECT_EQ(errorOfLoading("<cabinetinfo><cabinet>" + nodes + "</cabinet></cabinetinfo>"), 6);
}

TEST(HelpSession, EveryLoadStartsFromAFreshPanel) {
    EditorSession editor(R"(<a value="text" titlehidden="1" columnbreak="1"/>)");
    editor.loadNodes("<a/>");
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
}

TEST(HelpSession, LoadAfterAFailedOneIsNotAffectedByIt) {
    EditorSession editor("<old/>");
    EXPECT_EQ(errorOf([&] {
                  editor.load(R"(<cabinetinfo><cabinet><a value="t" style="x"/></cabinet>)"
                              "</cabinetinfo>");
              }),
              13);
    editor.loadNodes("<a/>");
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
    EXPECT_FALSE(editor.session.panel.loading);
}

TEST(HelpSession, UnloadingKeepsTheTextForTheCaller) {
    EditorSession editor("<a/>");
    editor.session.unload();
    EXPECT_EQ(editor.session.xmlText, "<cabinetinfo><cabinet><a/></cabinet></cabinetinfo>");
    EXPECT_FALSE(editor.session.loaded());
}

TEST(DropDownList, ChoosesTheFirstEntryOfAText) {
    DropDownList list{{"a", "b", "b"}, std::nullopt};
    list.choose("b");
    EXPECT_EQ(list.index, 1u);
    EXPECT_EQ(list.text(), "b");
}

TEST(DropDownList, KeepsItsChoiceWhenThereIsNoSuchEntry) {
    DropDownList list{{"a", "b"}, 1};
    list.choose("c");
    EXPECT_EQ(list.text(), "b");
}

}  // namespace
}  // namespace tavisk
