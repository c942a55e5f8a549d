#include "editor/imageCommands.h"

#include <gtest/gtest.h>

#include "editor/editorSession.h"
#include "editor/formattingCommands.h"
#include "support/errors.h"

namespace tavisk {
namespace {

using test::EditorSession;
using test::ScriptedDialogs;

constexpr const char* filter = "Graphics files (*.bmp; *.jpg; *.jpeg; *.gif; *.png)";
constexpr const char* namePrompt = "Please enter a name for the new image";
const Message added{"Image added successfully", "Tavisk", BoxStyle::ok};
const Message inUse{"This name is already in use", "Add Image", BoxStyle::okInformation};
const Message invalidCharacters{
    "Invalid characters found in the name. The following characters are invalid:\r\n \\ / : * ? ",
    "Error", BoxStyle::okCritical};
const Message failed{"An error occured loading the image, please check that the file exists",
                     "Error", BoxStyle::okCritical};
const Message kept{"This image cannot be removed", "Delte Image", BoxStyle::okInformation};
const Message removed{"Image removed", "Delete Image", BoxStyle::ok};
const Message notFound{"Image not found!", "Delete Image", BoxStyle::okCritical};

using Entries = std::vector<std::string>;

/// A document with these elements behind its `cabinet`; the generated picture is one of them.
struct Pictures : EditorSession {
    explicit Pictures(const std::string& elements = {}) {
        files.put("/p/logo.png", "abc");
        load("<cabinetinfo><cabinet><a/></cabinet>" + elements +
             R"(<image name="generated_cabinet_picture"/></cabinetinfo>)");
        before = document();
    }
    ScriptedDialogs& expectChoice(const std::string& path, const std::string& name) {
        return dialogs.expectOpenFile(filter, path).expectPrompt(namePrompt, "Add Image", "", name);
    }
    void add() { addImage(session, dialogs); }
    void remove() { removeImage(session, dialogs); }
    const Entries& entries() const { return session.lstImages.entries; }

    std::string before;
};

std::string pictureElement(const std::string& attributes) {
    return R"(<image xmlns:dt="urn:schemas-microsoft-com:datatypes" dt:dt="bin.base64" )" +
           attributes + ">YWJjAA==</image></cabinetinfo>";
}

TEST(ImageCommands, AddedImageHoldsTheFileAndOneMoreByteAndGoesLast) {
    Pictures editor;
    editor.expectChoice("/p/logo.png", "logo").expectBox(added);
    editor.add();
    const std::string expected = editor.before.substr(0, editor.before.rfind("</cabinetinfo>")) +
                                 pictureElement(R"(extension="png" name="logo")");
    EXPECT_EQ(editor.document(), expected);
}

TEST(ImageCommands, AddedImageIsListedLastAndChosenBeforeTheUserIsTold) {
    Pictures editor;
    editor.expectChoice("/p/logo.png", "logo").expectBox(added).during([&] {
        EXPECT_EQ(editor.entries(), (Entries{"~generated_cabinet_picture", "~logo"}));
        EXPECT_EQ(editor.session.lstImages.text(), "~logo");
    });
    editor.add();
    EXPECT_EQ(editor.session.lstImages.text(), "~logo");
}

TEST(ImageCommands, CancelledFileDialogEndsSilently) {
    Pictures editor;
    editor.dialogs.expectOpenFile(filter, "");
    editor.add();
    EXPECT_EQ(editor.document(), editor.before);
}

TEST(ImageCommands, ErrorInTheFileDialogEndsSilently) {
    Pictures editor;
    editor.dialogs.expectOpenFile(filter, "/p/logo.png").failing(ErrorNumber::deviceError);
    editor.add();
    EXPECT_EQ(editor.document(), editor.before);
}

TEST(ImageCommands, EmptyNameEndsSilently) {
    Pictures editor;
    editor.expectChoice("/p/logo.png", "");
    editor.add();
    EXPECT_EQ(editor.document(), editor.before);
    EXPECT_EQ(editor.entries(), Entries{"~generated_cabinet_picture"});
}

TEST(ImageCommands, NameInUseIsRefused) {
    Pictures editor(R"(<image name="logo"/>)");
    editor.expectChoice("/p/logo.png", "logo").expectBox(inUse);
    editor.add();
    EXPECT_EQ(editor.document(), editor.before);
    EXPECT_EQ(editor.entries().size(), 2u);
}

TEST(ImageCommands, NamesAreComparedCaseSensitively) {
    Pictures editor(R"(<image name="logo"/>)");
    editor.expectChoice("/p/logo.png", "Logo").expectBox(added);
    editor.add();
    EXPECT_EQ(editor.entries().back(), "~Logo");
}

TEST(ImageCommands, NameInUseIsFoundInTheListNotInTheDocument) {
    Pictures editor(R"(<image name="logo"/>)");
    editor.session.lstImages.entries.erase(editor.session.lstImages.entries.begin());
    editor.expectChoice("/p/logo.png", "logo").expectBox(added);
    editor.add();
    EXPECT_EQ(editor.entries().back(), "~logo");
}

TEST(ImageCommands, InvalidCharactersAreWarnedOfAndTheImageIsAdded) {
    for (const char* name : {"a*b", "a/b", "a\\b", "a:b", "a?b"}) {
        Pictures editor;
        editor.expectChoice("/p/logo.png", name).expectBox(invalidCharacters).expectBox(added);
        editor.add();
        EXPECT_EQ(editor.entries().back(), "~" + std::string(name));
    }
}

TEST(ImageCommands, NameInUseWithInvalidCharactersIsRefusedOnly) {
    Pictures editor(R"(<image name="a*b"/>)");
    editor.expectChoice("/p/logo.png", "a*b").expectBox(inUse);
    editor.add();
    EXPECT_EQ(editor.document(), editor.before);
}

TEST(ImageCommands, FileNameWithoutADotIsTheExtension) {
    Pictures editor;
    editor.files.put("logo", "abc");
    editor.expectChoice("logo", "l").expectBox(added);
    editor.add();
    EXPECT_NE(editor.document().find(pictureElement(R"(extension="logo" name="l")")),
              std::string::npos);
}

TEST(ImageCommands, ExtensionIsBehindTheLastDotOfTheNameAsGiven) {
    Pictures editor;
    editor.files.put("/p/a.tar.gz", "abc").put("/p.d/logo", "abc");
    editor.expectChoice("/p/a.tar.gz", "x").expectBox(added);
    editor.add();
    EXPECT_NE(editor.document().find(pictureElement(R"(extension="gz" name="x")")),
              std::string::npos);
    editor.expectChoice("/p.d/logo", "y").expectBox(added);
    editor.add();
    EXPECT_NE(editor.document().find(pictureElement(R"(extension="d/logo" name="y")")),
              std::string::npos);
}

TEST(ImageCommands, FileNameThatEndsInADotHasAnEmptyExtension) {
    Pictures editor;
    editor.files.put("/p/logo.", "abc");
    editor.expectChoice("/p/logo.", "l").expectBox(added);
    editor.add();
    EXPECT_NE(editor.document().find(pictureElement(R"(extension="" name="l")")),
              std::string::npos);
}

TEST(ImageCommands, MissingFileGivesAnEmptyImageAndSuccess) {
    Pictures editor;
    editor.expectChoice("/p/none.png", "none").expectBox(added);
    editor.add();
    EXPECT_NE(editor.document().find(R"(<image extension="png" name="none"/></cabinetinfo>)"),
              std::string::npos);
}

TEST(ImageCommands, UnreadableFileIsReportedAndNothingAdded) {
    Pictures editor;
    editor.files.fail(test::MemoryFiles::Operation::read, ErrorNumber::permissionDenied);
    editor.expectChoice("/p/logo.png", "logo").expectBox(failed);
    editor.add();
    EXPECT_EQ(editor.document(), editor.before);
    EXPECT_EQ(editor.entries(), Entries{"~generated_cabinet_picture"});
}

TEST(ImageCommands, NameThatXmlCannotHoldIsReportedAndNothingAdded) {
    Pictures editor;
    editor.expectChoice("/p/logo.png", "a\x01").expectBox(failed);
    editor.add();
    EXPECT_EQ(editor.document(), editor.before);
    EXPECT_EQ(editor.entries(), Entries{"~generated_cabinet_picture"});
}

TEST(ImageCommands, ErrorInTheSuccessBoxIsReportedAsOneOfTheImport) {
    Pictures editor;
    editor.expectChoice("/p/logo.png", "logo").expectBox(added).failing(ErrorNumber::deviceError);
    editor.dialogs.expectBox(failed);
    editor.add();
    EXPECT_EQ(editor.entries().back(), "~logo");
}

TEST(ImageCommands, ErrorInTheFailureBoxDoesNotLeaveTheCommand) {
    Pictures editor;
    editor.files.fail(test::MemoryFiles::Operation::read, ErrorNumber::permissionDenied);
    editor.expectChoice("/p/logo.png", "logo");
    editor.dialogs.expectBox(failed).failing(ErrorNumber::deviceError);
    EXPECT_EQ(test::errorOf([&] { editor.add(); }), 0);
}

TEST(ImageCommands, RemovedImageLeavesDocumentAndList) {
    Pictures editor(R"(<image name="x"/><image name="y"/>)");
    editor.session.lstImages.choose("~x");
    editor.dialogs.expectBox(removed).during([&] {
        EXPECT_EQ(editor.entries(), (Entries{"~y", "~generated_cabinet_picture"}));
    });
    editor.remove();
    EXPECT_EQ(editor.document(),
              "<cabinetinfo><cabinet><a/></cabinet><image name=\"y\"/>"
              "<image name=\"generated_cabinet_picture\"/></cabinetinfo>");
    EXPECT_EQ(editor.session.lstImages.text(), "");
}

TEST(ImageCommands, GeneratedPictureIsRefusedAndRemovedAllTheSame) {
    Pictures editor;
    editor.session.lstImages.choose("~generated_cabinet_picture");
    editor.dialogs.expectBox(kept)
        .during([&] { EXPECT_EQ(editor.document(), editor.before); })
        .expectBox(removed);
    editor.remove();
    EXPECT_EQ(editor.document(), "<cabinetinfo><cabinet><a/></cabinet></cabinetinfo>");
    EXPECT_EQ(editor.entries(), Entries{});
}

TEST(ImageCommands, NameThatNoImageCarriesIsNotFound) {
    Pictures editor(R"(<image name="x"/>)");
    editor.session.lstImages.entries.push_back("~gone");
    editor.session.lstImages.choose("~gone");
    editor.dialogs.expectBox(notFound);
    editor.remove();
    EXPECT_EQ(editor.document(), editor.before);
    EXPECT_EQ(editor.session.lstImages.text(), "~gone");
}

TEST(ImageCommands, WithoutAChosenImageNothingIsFound) {
    Pictures editor(R"(<image name=""/>)");
    editor.dialogs.expectBox(notFound);
    editor.remove();
    EXPECT_EQ(editor.document(), editor.before);
}

TEST(ImageCommands, NamelessImageIsRemovedByItsEntry) {
    Pictures editor("<image/>");
    editor.session.lstImages.choose("~");
    editor.dialogs.expectBox(removed);
    editor.remove();
    EXPECT_EQ(editor.entries(), Entries{"~generated_cabinet_picture"});
}

TEST(ImageCommands, OfTwoEqualNamesTheFirstElementAndTheChosenEntryGo) {
    Pictures editor(R"(<image name="x" n="1"/><image name="y"/><image name="x" n="2"/>)");
    editor.session.lstImages.index = 2;
    editor.dialogs.expectBox(removed);
    editor.remove();
    EXPECT_EQ(editor.document().find("n=\"1\""), std::string::npos);
    EXPECT_NE(editor.document().find("n=\"2\""), std::string::npos);
    EXPECT_EQ(editor.entries(), (Entries{"~x", "~y", "~generated_cabinet_picture"}));
}

TEST(ImageCommands, ChosenPictureIsDecoded) {
    Pictures editor(
        R"(<image name="x" xmlns:dt="urn:schemas-microsoft-com:datatypes" dt:dt="bin.base64">)"
        "YWJj</image>");
    EXPECT_EQ(chosenPicture(editor.session), "");
    editor.session.lstImages.choose("~x");
    EXPECT_EQ(chosenPicture(editor.session), "abc");
}

TEST(ImageCommands, ChosenPictureThatIsNoBase64IsEmpty) {
    Pictures editor(R"(<image name="x">?</image>)");
    editor.session.lstImages.choose("~x");
    EXPECT_EQ(chosenPicture(editor.session), "");
}

TEST(ImageCommands, SelectedRowOutlivesTheRemovalOfItsImage) {
    EditorSession editor(R"(<image name="x"/><a/>)");
    editor.session.lstImages.choose("~x");
    editor.dialogs.expectBox(removed);
    removeImage(editor.session, editor.dialogs);
    EXPECT_EQ(editor.tree(), "<cabinet><a/></cabinet>");
    EXPECT_EQ(editor.current(), R"(<image name="x"/>)");
    changeFontSize(editor.session, 2);
    EXPECT_EQ(editor.current(), R"(<image name="x" titlefontsize="1"/>)");
}

}  // namespace
}  // namespace tavisk
