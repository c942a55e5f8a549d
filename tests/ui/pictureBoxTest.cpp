// The picture of the editor window.
#include "ui/editor/pictureBox.h"

#include <gtest/gtest.h>
#include <string>
#include <wx/frame.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/panel.h>

#include "base/assets.h"
#include "ui/support/drawing.h"
#include "ui/support/pump.h"

namespace tavisk {
namespace {

/// Counts the messages that a user would see.
class Messages final : public wxLog {
public:
    Messages() : before_(wxLog::SetActiveTarget(this)) {}
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;
    ~Messages() override { wxLog::SetActiveTarget(before_); }

    int count = 0;

protected:
    void DoLogRecord(wxLogLevel, const wxString&, const wxLogRecordInfo&) override { ++count; }

private:
    wxLog* before_;
};

/// Its inside is 200 by 100 pixels.
struct PictureBoxTest : testing::Test {
    PictureBoxTest() {
        frame->SetClientSize(panel->GetSize());
        box->SetClientSize(200, 100);
        box->show("x");  // from now on the formats are known
        frame->Show();
        test::pumpUntil([this] { return frame->IsShownOnScreen(); });
        test::pumpPending();
    }
    ~PictureBoxTest() override {
        delete frame;
        test::pumpPending();
    }

    std::string file(int width, int height, wxBitmapType type) const {
        wxImage image(width, height);
        image.SetRGB(wxRect(image.GetSize()), green.Red(), green.Green(), green.Blue());
        image.SetOption(wxIMAGE_OPTION_QUALITY, 100);
        wxMemoryOutputStream stream;
        EXPECT_TRUE(image.SaveFile(stream, type));
        std::string bytes(stream.GetSize(), '\0');
        stream.CopyTo(bytes.data(), bytes.size());
        return bytes;
    }
    std::string png(int width, int height) const { return file(width, height, wxBITMAP_TYPE_PNG); }

    /// Where the green picture is, in the box without its border.
    wxRect shown() const { return test::placeOf(test::imageOf(*box), green); }

    const wxColour green{0, 200, 0};
    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "Picture", wxDefaultPosition, {400, 300});
    wxPanel* panel = new wxPanel(frame, wxID_ANY, wxDefaultPosition, {400, 300});
    PictureBox* box = new PictureBox(panel);
};

TEST(Fitted, KeepsTheProportions) {
    EXPECT_EQ(fitted({400, 200}, {100, 100}), wxSize(100, 50));
    EXPECT_EQ(fitted({200, 400}, {100, 100}), wxSize(50, 100));
    EXPECT_EQ(fitted({100, 100}, {300, 120}), wxSize(120, 120));
}

TEST(Fitted, EnlargesSmallPictures) { EXPECT_EQ(fitted({10, 5}, {100, 100}), wxSize(100, 50)); }

TEST(Fitted, NarrowPictureKeepsOnePixel) {
    EXPECT_EQ(fitted({10000, 2}, {100, 100}), wxSize(100, 1));
    EXPECT_EQ(fitted({2, 10000}, {100, 100}), wxSize(1, 100));
}

TEST_F(PictureBoxTest, EmptyAtFirst) {
    EXPECT_TRUE(box->isEmpty());
    EXPECT_TRUE(shown().IsEmpty());
}

TEST_F(PictureBoxTest, WidePictureIsAsWideAsItsPlaceAndInTheMiddle) {
    box->show(png(400, 100));
    EXPECT_FALSE(box->isEmpty());
    EXPECT_EQ(shown(), wxRect(0, 25, 200, 50));
}

TEST_F(PictureBoxTest, HighPictureIsAsHighAsItsPlaceAndInTheMiddle) {
    box->show(png(100, 200));
    EXPECT_EQ(shown(), wxRect(75, 0, 50, 100));
}

TEST_F(PictureBoxTest, SmallPictureIsEnlarged) {
    box->show(png(2, 1));
    EXPECT_EQ(shown(), wxRect(0, 0, 200, 100));
}

TEST_F(PictureBoxTest, PictureLargerThanAnyScreen) {
    box->show(png(6000, 3));
    EXPECT_EQ(shown(), wxRect(0, 49, 200, 1));
}

TEST_F(PictureBoxTest, FollowsItsSize) {
    box->show(png(100, 100));
    EXPECT_EQ(shown(), wxRect(50, 0, 100, 100));
    box->SetClientSize(60, 90);
    EXPECT_EQ(shown(), wxRect(0, 15, 60, 60));
}

TEST_F(PictureBoxTest, NoPlaceAtAll) {
    box->show(png(10, 10));
    box->SetClientSize(0, 0);
    test::pumpPending();
    EXPECT_FALSE(box->isEmpty());
}

TEST_F(PictureBoxTest, LaterPictureReplacesTheFirst) {
    box->show(png(400, 100));
    EXPECT_EQ(shown(), wxRect(0, 25, 200, 50));
    box->show(png(100, 100));
    EXPECT_EQ(shown(), wxRect(50, 0, 100, 100));
}

TEST_F(PictureBoxTest, Jpeg) {
    box->show(file(100, 100, wxBITMAP_TYPE_JPEG));
    EXPECT_FALSE(box->isEmpty());
}

TEST_F(PictureBoxTest, Bmp) {
    box->show(file(100, 100, wxBITMAP_TYPE_BMP));
    EXPECT_EQ(shown(), wxRect(50, 0, 100, 100));
}

TEST_F(PictureBoxTest, Gif) {
    // One green pixel.
    constexpr unsigned char gif[] = {'G', 'I', 'F', '8', '9', 'a', 1, 0,    1, 0, 0x80, 0,
                                     0,   0,   200, 0,   0,   0,   0, ',',  0, 0, 0,    0,
                                     1,   0,   1,   0,   0,   2,   2, 0x44, 1, 0, ';'};
    box->show(std::string(std::begin(gif), std::end(gif)));
    EXPECT_EQ(shown(), wxRect(50, 0, 100, 100));
}

TEST_F(PictureBoxTest, CabinetPicture) {
    box->show(cabinetPicture());
    EXPECT_FALSE(box->isEmpty());
}

TEST_F(PictureBoxTest, NothingForNoBytes) {
    box->show(png(10, 10));
    box->show("");
    EXPECT_TRUE(box->isEmpty());
    EXPECT_TRUE(shown().IsEmpty());
}

TEST_F(PictureBoxTest, Clear) {
    box->show(png(10, 10));
    box->clear();
    EXPECT_TRUE(box->isEmpty());
    EXPECT_TRUE(shown().IsEmpty());
}

TEST_F(PictureBoxTest, NothingAndNoMessageForBytesThatAreNoPicture) {
    Messages messages;
    const std::string whole = png(100, 100);
    const std::string jpeg = file(100, 100, wxBITMAP_TYPE_JPEG);
    for (const std::string& bytes :
         {std::string("no picture"), std::string("\0\0\0\0", 4), whole.substr(0, 8),
          whole.substr(0, 40), std::string("GIF89a"), std::string("BM"), jpeg.substr(0, 3),
          std::string("BM") + std::string(60, '\xff')}) {
        box->show(whole);
        box->show(bytes);
        EXPECT_TRUE(box->isEmpty()) << bytes;
    }
    EXPECT_EQ(messages.count, 0);
}

TEST_F(PictureBoxTest, TakesNoFocus) {
    EXPECT_FALSE(box->AcceptsFocus());
    EXPECT_FALSE(box->AcceptsFocusFromKeyboard());
}

}  // namespace
}  // namespace tavisk
