// The picture list and its preview, Add Image and Remove Image.
#include <gtest/gtest.h>
#include <wx/image.h>
#include <wx/mstream.h>

#include "base/base64.h"
#include "ui/support/drawing.h"
#include "ui/support/editorStep.h"
#include "ui/support/treeWindow.h"
#include "ui/support/whenShown.h"

namespace tavisk {
namespace {

using test::EditorWindow;
using test::expectInStep;
using test::HelpXml;
using test::treeRows;
using Entries = std::vector<std::string>;

constexpr const char* wildcard =
    "Graphics files (*.bmp; *.jpg; *.jpeg; *.gif; *.png)|*.bmp;*.jpg;*.jpeg;*.gif;*.png";
constexpr const char* namePrompt = "Please enter a name for the new image";
constexpr const char* addTitle = "Add Image";
constexpr const char* deleteTitle = "Delete Image";
constexpr const char* generated = "~generated_cabinet_picture";
constexpr long plain = wxOK | wxICON_NONE;
constexpr long information = wxOK | wxICON_INFORMATION;
constexpr long error = wxOK | wxICON_ERROR;
constexpr std::uint32_t red = 0xFF0000;
constexpr std::uint32_t blue = 0x0000FF;

/// A picture file of one colour.
std::string pictureOf(std::uint32_t colour, wxBitmapType type = wxBITMAP_TYPE_PNG) {
    wxImage image(8, 8);
    image.SetRGB(wxRect(0, 0, 8, 8), static_cast<unsigned char>(colour >> 16U),
                 static_cast<unsigned char>(colour >> 8U), static_cast<unsigned char>(colour));
    wxMemoryOutputStream stream;
    image.SaveFile(stream, type);
    std::string bytes(stream.GetSize(), '\0');
    stream.CopyTo(bytes.data(), bytes.size());
    return bytes;
}

std::string imageElement(const std::string& name, const std::string& bytes) {
    return R"(<image xmlns:dt="urn:schemas-microsoft-com:datatypes" dt:dt="bin.base64" name=")" +
           name + "\">" + encodeBase64(bytes) + "</image>";
}

struct Pictures : EditorWindow {
    /// Elements behind the `cabinet` element.
    explicit Pictures(const std::string& elements = {}, const std::string& nodes = "<a/>")
        : EditorWindow(nodes, elements) {
        core.files.put("/tmp/red.png", pictureOf(red)).put("/tmp/blue.bmp", pictureOf(blue));
    }

    Entries names() { return entries(controls().lstImages); }
    std::string chosen() { return utf8Of(controls().lstImages->GetStringSelection()); }
    void choosePicture(int index) { choose(controls().lstImages, index); }
    bool empty() { return controls().Picture1->isEmpty(); }
    /// In the middle of the picture's place, 0xRRGGBB.
    std::uint32_t shown() {
        const wxImage image = test::imageOf(*controls().Picture1);
        const int x = image.GetWidth() / 2;
        const int y = image.GetHeight() / 2;
        return static_cast<std::uint32_t>(image.GetRed(x, y) << 16 | image.GetGreen(x, y) << 8 |
                                          image.GetBlue(x, y));
    }
    /// Add Image with the user's path and name; what else is expected comes before `add`.
    test::DialogAnswers& expectChoice(const std::string& path, const std::string& name) {
        dialogs.expectOpenFile(wildcard, path);
        return dialogs.expectPrompt(namePrompt, addTitle, "", name);
    }
    void add() {
        click(controls().cmdImageAdd);
        EXPECT_TRUE(dialogs.finished());
        expectInStep(*this);
    }
    void remove() {
        click(controls().cmdImageDel);
        EXPECT_TRUE(dialogs.finished());
        expectInStep(*this);
    }
    void expectRemoved() { dialogs.expectBox("Image removed", deleteTitle, plain); }
};

TEST(FrmMainPictures, TheListHasEveryImageAndNoneIsChosen) {
    Pictures editor(imageElement("r", "x") + "<image/>");
    EXPECT_EQ(editor.names(), (Entries{"~r", "~", generated}));
    EXPECT_EQ(editor.controls().lstImages->GetSelection(), wxNOT_FOUND);
    EXPECT_TRUE(editor.empty());
    expectInStep(editor);
}

TEST(FrmMainPictures, TheChosenPictureIsShown) {
    Pictures editor(imageElement("r", pictureOf(red)) +
                    imageElement("b", pictureOf(blue, wxBITMAP_TYPE_BMP)));
    editor.choosePicture(0);
    EXPECT_EQ(editor.shown(), red);
    editor.choosePicture(1);
    EXPECT_EQ(editor.shown(), blue);
    expectInStep(editor);
}

TEST(FrmMainPictures, EveryOfferedKindOfPictureIsShown) {
    const std::string gif = "R0lGODlhAQABAIAAAP8AAAAAACH5BAAAAAAALAAAAAABAAEAAAICRAEAOw==";
    for (const std::string& content : {encodeBase64(pictureOf(red, wxBITMAP_TYPE_BMP)),
                                       encodeBase64(pictureOf(red, wxBITMAP_TYPE_JPEG)), gif,
                                       encodeBase64(pictureOf(red, wxBITMAP_TYPE_PNG))}) {
        Pictures editor("<image name='r'>" + content + "</image>");
        editor.choosePicture(0);
        EXPECT_FALSE(editor.empty()) << content;
        EXPECT_EQ(editor.shown() & 0xF00000U, 0xF00000U) << content;
    }
}

TEST(FrmMainPictures, BytesThatAreNoPictureShowNothing) {
    Pictures editor(imageElement("r", pictureOf(red)) + imageElement("text", "no picture") +
                    "<image name='bad'>*</image><image name='none'/>" +
                    imageElement("cut", pictureOf(red).substr(0, 40)));
    for (int index = 1; index < 5; ++index) {
        editor.choosePicture(0);
        EXPECT_FALSE(editor.empty());
        editor.choosePicture(index);
        EXPECT_TRUE(editor.empty()) << index;
        expectInStep(editor);
    }
}

TEST(FrmMainPictures, OfTwoPicturesOfOneNameTheFirstIsShown) {
    Pictures editor(imageElement("x", pictureOf(red)) + imageElement("x", pictureOf(blue)));
    editor.choosePicture(1);
    EXPECT_EQ(editor.shown(), red);
    expectInStep(editor);
}

TEST(FrmMainPictures, ThePictureStaysWhenAnotherNodeIsSelected) {
    Pictures editor(imageElement("r", pictureOf(red)), "<a/><b/>");
    editor.choosePicture(0);
    editor.select("cabinet=>b");
    EXPECT_EQ(editor.shown(), red);
    expectInStep(editor);
}

TEST(FrmMainPictures, AnAddedPictureHasOneMoreByteThanItsFile) {
    Pictures editor;
    editor.core.files.put("/tmp/abc.gif", "abc");
    const std::string before = editor.core.document();
    editor.expectChoice("/tmp/abc.gif", "new")
        .expectBox("Image added successfully", "Tavisk", plain);
    editor.add();
    EXPECT_EQ(editor.core.document(),
              before.substr(0, before.size() - std::string("</cabinetinfo>").size()) +
                  R"(<image xmlns:dt="urn:schemas-microsoft-com:datatypes" dt:dt="bin.base64")"
                  R"( extension="gif" name="new">YWJjAA==</image></cabinetinfo>)");
}

TEST(FrmMainPictures, AnAddedPictureIsWrittenWithThatByteForThePreview) {
    Pictures editor;
    editor.core.files.put("/tmp/abc.gif", "abc");
    editor.expectChoice("/tmp/abc.gif", "new")
        .expectBox("Image added successfully", "Tavisk", plain);
    editor.add();
    test::WhenShown preview("frmPreview", [](wxTopLevelWindow& window) { window.Close(); });
    editor.click(editor.controls().cmdPreview);
    EXPECT_EQ(editor.core.files.bytesOf("/app/temp_images/new.gif"), std::string("abc\0", 4));
}

TEST(FrmMainPictures, AnAddedPictureIsChosenAndShown) {
    Pictures editor;
    editor.expectChoice("/tmp/red.png", "new")
        .expectBox("Image added successfully", "Tavisk", plain);
    editor.dialogs.during([&] {
        EXPECT_EQ(editor.names(), (Entries{generated, "~new"}));
        EXPECT_EQ(editor.chosen(), "~new");
    });
    editor.add();
    EXPECT_EQ(editor.chosen(), "~new");
    EXPECT_EQ(editor.shown(), red);
}

TEST(FrmMainPictures, ACancelledFileDialogEndsSilently) {
    Pictures editor;
    editor.dialogs.expectOpenFile(wildcard, "");
    editor.add();
    EXPECT_EQ(editor.names(), Entries{generated});
}

TEST(FrmMainPictures, AnEmptyNameEndsSilently) {
    Pictures editor;
    editor.expectChoice("/tmp/red.png", "");
    editor.add();
    EXPECT_EQ(editor.names(), Entries{generated});
}

TEST(FrmMainPictures, ANameInUseIsRefused) {
    Pictures editor(imageElement("x", "abc"));
    const std::string before = editor.core.document();
    editor.expectChoice("/tmp/red.png", "x")
        .expectBox("This name is already in use", addTitle, information);
    editor.add();
    EXPECT_EQ(editor.core.document(), before);
    EXPECT_EQ(editor.names(), (Entries{"~x", generated}));
}

TEST(FrmMainPictures, InvalidCharactersAreToldAndTheImageIsAddedNevertheless) {
    for (const char* name : {"a*b", "a/b", "a\\b", "a:b", "a?b"}) {
        Pictures editor;
        editor.expectChoice("/tmp/red.png", name)
            .expectBox(
                "Invalid characters found in the name. The following characters are invalid:\n"
                " \\ / : * ? ",
                "Error", error)
            .expectBox("Image added successfully", "Tavisk", plain);
        editor.add();
        EXPECT_EQ(editor.names(), (Entries{generated, "~" + std::string(name)}));
        EXPECT_EQ(editor.chosen(), "~" + std::string(name));
    }
}

TEST(FrmMainPictures, AFileNameWithoutADotIsTheExtension) {
    Pictures editor;
    editor.core.files.put("/plain", "abc");
    editor.expectChoice("/plain", "new").expectBox("Image added successfully", "Tavisk", plain);
    editor.add();
    EXPECT_NE(editor.core.document().find(R"(extension="/plain" name="new">YWJjAA==)"),
              std::string::npos);
}

TEST(FrmMainPictures, AFileThatIsNotThereGivesAnEmptyPicture) {
    Pictures editor;
    editor.expectChoice("/tmp/gone.png", "new")
        .expectBox("Image added successfully", "Tavisk", plain);
    editor.add();
    EXPECT_EQ(editor.chosen(), "~new");
    EXPECT_TRUE(editor.empty());
}

TEST(FrmMainPictures, AFileThatCannotBeReadIsToldAndAddsNothing) {
    Pictures editor;
    const std::string before = editor.core.document();
    editor.core.files.fail(test::MemoryFiles::Operation::read, ErrorNumber::permissionDenied);
    editor.expectChoice("/tmp/red.png", "new")
        .expectBox("An error occured loading the image, please check that the file exists", "Error",
                   error);
    editor.add();
    EXPECT_EQ(editor.core.document(), before);
    EXPECT_EQ(editor.names(), Entries{generated});
}

TEST(FrmMainPictures, NamesAreShownLetterByLetter) {
    Pictures editor;
    const std::string name = "A&B _x \xC3\xA4 \xF0\x9F\x98\x80";
    editor.expectChoice("/tmp/red.png", name)
        .expectBox("Image added successfully", "Tavisk", plain);
    editor.add();
    EXPECT_EQ(editor.chosen(), "~" + name);
}

TEST(FrmMainPictures, ARemovedPictureIsNeitherListedNorShown) {
    Pictures editor(imageElement("r", pictureOf(red)) + imageElement("b", pictureOf(blue)));
    editor.choosePicture(0);
    editor.expectRemoved();
    editor.dialogs.during([&] { EXPECT_EQ(editor.names(), (Entries{"~b", generated})); });
    editor.remove();
    EXPECT_EQ(editor.controls().lstImages->GetSelection(), wxNOT_FOUND);
    EXPECT_TRUE(editor.empty());
    EXPECT_EQ(editor.core.document().find("name=\"r\""), std::string::npos);
}

TEST(FrmMainPictures, OnlyTheFirstOfOneNameIsRemoved) {
    Pictures editor(imageElement("x", pictureOf(red)) + imageElement("x", pictureOf(blue)));
    editor.choosePicture(0);
    editor.expectRemoved();
    editor.remove();
    EXPECT_EQ(editor.names(), (Entries{"~x", generated}));
    editor.choosePicture(0);
    EXPECT_EQ(editor.shown(), blue);
}

TEST(FrmMainPictures, TheGeneratedPictureIsRefusedAndRemovedNevertheless) {
    Pictures editor;
    editor.choosePicture(0);
    editor.dialogs.expectBox("This image cannot be removed", "Delte Image", information);
    editor.expectRemoved();
    editor.remove();
    EXPECT_EQ(editor.names(), Entries{});
    EXPECT_EQ(editor.core.document(), "<cabinetinfo><cabinet><a/></cabinet></cabinetinfo>");
}

TEST(FrmMainPictures, WithNothingChosenNoImageIsFound) {
    Pictures editor;
    editor.dialogs.expectBox("Image not found!", deleteTitle, error);
    editor.remove();
    EXPECT_EQ(editor.names(), Entries{generated});
}

TEST(FrmMainPictures, APictureThatWentWithItsNodeIsNotFound) {
    Pictures editor("", "<a/><b>" + imageElement("in", pictureOf(red)) + "</b>");
    editor.choosePicture(0);
    editor.select("cabinet=>b");
    editor.dialogs.expectBox(
        "All child nodes will also be deleted. Are you sure you want to do this?", "Warning...",
        wxOK | wxCANCEL | wxICON_QUESTION, wxID_OK);
    editor.tool("Delete");
    editor.dialogs.expectBox("Image not found!", deleteTitle, error);
    editor.click(editor.controls().cmdImageDel);
    EXPECT_EQ(editor.names(), (Entries{"~in", generated}));
}

TEST(FrmMainPictures, ARemovedPictureInTheTreeLosesItsRow) {
    Pictures editor("", "<a/>" + imageElement("in", "abc") + "<b/>");
    EXPECT_EQ(treeRows(*editor.controls().TreeXML), "cabinet\n a <\n image\n  \n b\n");
    editor.choosePicture(0);
    editor.expectRemoved();
    editor.dialogs.during(
        [&] { EXPECT_EQ(treeRows(*editor.controls().TreeXML), "cabinet\n a <\n b\n"); });
    editor.remove();
    EXPECT_EQ(treeRows(*editor.controls().TreeXML), "cabinet\n a <\n b\n");
    EXPECT_EQ(test::shownRows(*editor.controls().TreeXML), "cabinet -\n a\n b\n");
}

TEST(FrmMainPictures, WithTheRowOfARemovedPictureSelectedNothingIsSelected) {
    for (const bool below : {false, true}) {
        Pictures editor("", "<a>" + imageElement("in", "abc") + "</a>");
        dom::Node& image = editor.core.row("cabinet=>a=>image");
        editor.controls().TreeXML->choose(below ? *image.firstChild() : image);
        editor.choosePicture(0);
        editor.expectRemoved();
        editor.remove();
        EXPECT_EQ(treeRows(*editor.controls().TreeXML), "cabinet\n a\n");
        editor.select("cabinet=>a");
        EXPECT_EQ(treeRows(*editor.controls().TreeXML), "cabinet\n a <\n");
        expectInStep(editor);
    }
}

TEST(FrmMainPictures, NoCommandOnARemovedPicturesRowTouchesTheDocument) {
    Pictures editor("", "<a/>" + imageElement("in", "abc"));
    editor.controls().TreeXML->choose(editor.core.row("cabinet=>image"));
    editor.choosePicture(0);
    editor.expectRemoved();
    editor.remove();
    const std::string before = editor.core.document();
    for (const char* entry : {"cmdNew", "cmdRename", "cmdDel"}) {
        editor.menu(entry);
        expectInStep(editor);
    }
    editor.dialogs.expectBox("This node is already at the top", "Cannot Move", information);
    editor.menu("cmdMoveUp");
    editor.tool("Copy");
    editor.tool("Cut");
    editor.tool("Paste");
    editor.dialogs.expectPrompt("Enter the name for the new node:", "Rename Node", "", "child");
    editor.expectReport(91, "Object variable or With block variable not set");
    editor.menu("cmdNewChild");
    editor.type(u"text");
    EXPECT_EQ(editor.core.document(), before);
    expectInStep(editor);
    editor.select("cabinet=>a");
    EXPECT_EQ(treeRows(*editor.controls().TreeXML), "cabinet\n a <\n");
    expectInStep(editor);
}

TEST(FrmMainPictures, ThePictureAtTheCursorOverlayAndEndAreThoseChosen) {
    Pictures editor(imageElement("r", "x"), "<a value='xy'/>");
    editor.choosePicture(0);
    editor.controls().txtValue->SetInsertionPoint(1);
    editor.click(editor.controls().cmdInsertImage);
    editor.click(editor.controls().cmdAppendImage);
    editor.click(editor.controls().cmdImageOverlay);
    EXPECT_EQ(editor.current(), R"(<a value="x`~r`y`~r``!r`"/>)");
    expectInStep(editor);
}

TEST(FrmMainPictures, WithoutTheGeneratedPicturesFileItIsEmpty) {
    test::MemoryFiles files;
    HelpSession session(files, "/app");
    ASSERT_EQ(session.load(dom::Source::copy("<cabinetinfo><cabinet><a/></cabinet></cabinetinfo>")),
              std::nullopt);
    frmMain window(session);
    window.Show();
    EditorWindow::choose(window.controls.lstImages, 0);
    EXPECT_EQ(window.controls.lstImages->GetStringSelection(), generated);
    EXPECT_TRUE(window.controls.Picture1->isEmpty());
}

}  // namespace
}  // namespace tavisk
