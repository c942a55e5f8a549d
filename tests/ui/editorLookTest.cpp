// How the editor window looks: nothing cut off at its smallest, long texts, colours.
#include "ui/support/editorLook.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/display.h>
#include <wx/splitter.h>
#include <wx/stattext.h>

#include "ui/support/drawing.h"

namespace tavisk {
namespace {

using test::EditorLookTest;

TEST_F(EditorLookTest, NothingIsCutOffAt1024By700) {
    editor.show();
    editor.resize(1024, 700);
    EXPECT_EQ(outside(), "");
    EXPECT_EQ(cutOff(), "");
    EXPECT_EQ(overlapping(), "");
    EXPECT_FALSE(scrolls());
    EXPECT_GE(controls.txtValue->GetSize().x, 400);
    EXPECT_GE(controls.txtValue->GetSize().y, 72);
}

TEST_F(EditorLookTest, CanBeMadeAsSmallAs1024By700) {
    EXPECT_LE(editor.frame->GetMinSize().x, 1024);
    EXPECT_LE(editor.frame->GetMinSize().y, 700);
}

TEST_F(EditorLookTest, OpensOnTheScreen) {
    editor.show();
    const wxRect screen = wxDisplay(editor.frame).GetClientArea();
    EXPECT_TRUE(screen.Contains(editor.frame->GetScreenRect()));
    // In the middle, as far as the desktop's frame can be known before.
    const wxPoint middle = editor.frame->GetScreenRect().GetPosition() +
                           editor.frame->GetSize() / 2 - screen.GetSize() / 2;
    EXPECT_LE(std::abs(middle.x), 30);
    EXPECT_LE(std::abs(middle.y), 60);
}

TEST_F(EditorLookTest, TextGrowsWithTheWindowAndTheFormattingDoesNot) {
    editor.show();
    editor.resize(1024, 700);
    const wxSize text = controls.txtValue->GetSize();
    const int formatting = controls.fraFormatting->GetSize().y;
    editor.resize(1324, 900);
    EXPECT_EQ(controls.txtValue->GetSize().y, text.y + 200);
    EXPECT_GT(controls.txtValue->GetSize().x, text.x + 100);
    EXPECT_EQ(controls.fraFormatting->GetSize().y, formatting);
}

TEST_F(EditorLookTest, TreeGrowsWithTheWindow) {
    editor.show();
    editor.resize(1024, 700);
    const int width = controls.TreeXML->GetSize().x;
    editor.resize(1424, 700);
    EXPECT_GT(controls.TreeXML->GetSize().x, width + 50);
    EXPECT_LT(controls.TreeXML->GetSize().x, width + 200);
}

TEST_F(EditorLookTest, LongCaptionsScrollInsteadOfBeingCutOff) {
    editor.show();
    editor.resize(1024, 700);
    longCaptions();
    EXPECT_EQ(outside(), "");
    EXPECT_EQ(cutOff(), "");
    EXPECT_EQ(overlapping(), "");
    EXPECT_TRUE(scrolls());
}

TEST_F(EditorLookTest, DraggedSplitterScrollsInsteadOfCuttingOff) {
    editor.show();
    auto* const split = dynamic_cast<wxSplitterWindow*>(controls.TreeXML->GetParent());
    split->SetSashPosition(700);
    test::pumpPending();
    EXPECT_EQ(controls.TreeXML->GetSize().x, 700);
    EXPECT_EQ(cutOff(), "");
    EXPECT_TRUE(scrolls());
}

const std::string longKey = "cabinet=>Doors=>" + std::string(300, 'x') + "=>Hinges & screws=>Last";

TEST_F(EditorLookTest, LongKeyIsElidedInTheMiddleWithAllOfItAsToolTip) {
    editor.show();
    const wxRect place = controls.lblCurrentField->GetRect();
    setFieldText(*controls.lblCurrentField, longKey);
    test::pumpPending();
    EXPECT_EQ(controls.lblCurrentField->GetLabelText(), longKey);
    EXPECT_EQ(controls.lblCurrentField->GetToolTipText(), longKey);
    EXPECT_EQ(controls.lblCurrentField->GetRect(), place);
    EXPECT_TRUE(test::isElidedInTheMiddle(*controls.lblCurrentField));
    editor.frame->SendSizeEvent();
    EXPECT_EQ(controls.lblCurrentField->GetRect(), place);
}

TEST_F(EditorLookTest, KeyThatFitsHasNoToolTip) {
    editor.show();
    setFieldText(*controls.lblCurrentField, longKey);
    setFieldText(*controls.lblCurrentField, "cabinet=>Doors");
    EXPECT_EQ(controls.lblCurrentField->GetLabelText(), "cabinet=>Doors");
    EXPECT_EQ(controls.lblCurrentField->GetToolTipText(), "");
}

TEST_F(EditorLookTest, KeyIsGivenAToolTipWhenTheWindowGetsTooSmallForIt) {
    editor.show();
    editor.resize(1200, 700);
    const int room = controls.lblCurrentField->GetSize().x;
    const int letter = controls.lblCurrentField->GetTextExtent("wwwwwwwwww").x / 10 + 1;
    const std::string key(static_cast<std::size_t>(room / letter), 'w');
    setFieldText(*controls.lblCurrentField, key);
    EXPECT_EQ(controls.lblCurrentField->GetToolTipText(), "");
    editor.resize(1024, 700);
    EXPECT_TRUE(test::pumpUntil([&] { return controls.lblCurrentField->GetToolTipText() == key; }));
}

TEST_F(EditorLookTest, AmpersandsOfAKeyAreShown) {
    setFieldText(*controls.lblCurrentField, "cabinet=>A & B && C");
    EXPECT_EQ(controls.lblCurrentField->GetLabelText(), "cabinet=>A & B && C");
    EXPECT_EQ(test::drawnText(*controls.lblCurrentField), "cabinet=>A & B && C");
}

TEST_F(EditorLookTest, LongValuesOfAttributesKeepTheLabelsInTheirPlaces) {
    editor.show();
    for (const ControlArray<wxStaticText>& labels :
         {controls.lblColor, controls.lblFontSize, controls.lblGap}) {
        for (const auto& [index, label] : labels) {
            const wxRect place = label->GetRect();
            const std::string text(500, '9');
            setFieldText(*label, text);
            editor.frame->SendSizeEvent();
            EXPECT_EQ(label->GetRect(), place) << editor.name(*label);
            EXPECT_EQ(label->GetToolTipText(), text);
        }
    }
}

TEST_F(EditorLookTest, LongDescriptionIsWrappedAndPushesNothingApart) {
    editor.show();
    const wxRect place = controls.lblFormulaHelp->GetRect();
    const wxRect frame = controls.fraEditor->GetRect();
    std::string text = "Description:";
    for (int i = 0; i < 200; ++i)
        text += " several words";
    setFieldText(*controls.lblFormulaHelp, text);
    editor.frame->SendSizeEvent();
    test::pumpPending();
    EXPECT_EQ(controls.lblFormulaHelp->GetLabelText(), text);
    EXPECT_EQ(controls.lblFormulaHelp->GetToolTipText(), text);
    EXPECT_EQ(controls.lblFormulaHelp->GetRect(), place);
    EXPECT_EQ(controls.fraEditor->GetRect(), frame);
    const test::Wrapped seen = test::wrapped(*controls.lblFormulaHelp);
    EXPECT_EQ(seen.lines, 2);
    EXPECT_LE(seen.size.x, place.width);
    EXPECT_LE(seen.size.y, place.height);
}

TEST_F(EditorLookTest, WholeInitialDescriptionIsSeen) {
    editor.show();
    editor.resize(1024, 700);
    EXPECT_FALSE(test::wrapped(*controls.lblFormulaHelp).cut);
}

TEST_F(EditorLookTest, LongNamesKeepTheListsInTheirPlaces) {
    editor.show();
    for (wxChoice* list : {controls.lstFormulas, controls.lstImages}) {
        const wxRect place = list->GetRect();
        list->Append(wxString('n', 400));
        list->SetSelection(0);
        editor.frame->SendSizeEvent();
        test::pumpPending();
        EXPECT_EQ(list->GetRect(), place) << editor.name(*list);
        EXPECT_TRUE(test::elidesLongNames(*list)) << editor.name(*list);
    }
}

TEST_F(EditorLookTest, StyleBoxesAreDrawnInTheStyleThatTheySet) {
    for (const int bold : {1, 8}) {
        const wxFont b = controls.chkStyle[bold]->GetFont();
        const wxFont i = controls.chkStyle[bold * 2]->GetFont();
        EXPECT_EQ(b.GetWeight(), wxFONTWEIGHT_BOLD);
        EXPECT_EQ(b.GetStyle(), wxFONTSTYLE_NORMAL);
        EXPECT_EQ(i.GetWeight(), wxFONTWEIGHT_NORMAL);
        EXPECT_EQ(i.GetStyle(), wxFONTSTYLE_ITALIC);
        wxCheckBox& u = *controls.chkStyle[bold * 4];
        EXPECT_TRUE(u.GetFont().GetUnderlined());
        EXPECT_TRUE(test::isDrawnUnderlined(u));
    }
}

/// Contrast of two colours as the eye sees it, from 1 to 21.
double contrast(const wxColour& one, const wxColour& other) {
    const auto brightness = [](const wxColour& colour) {
        const auto part = [](double value) {
            value /= 255;
            return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(colour.Red()) + 0.7152 * part(colour.Green()) +
               0.0722 * part(colour.Blue()) + 0.05;
    };
    const double a = brightness(one);
    const double b = brightness(other);
    return std::max(a, b) / std::min(a, b);
}

TEST_F(EditorLookTest, ColourLabelsCanBeReadInEveryColour) {
    wxStaticText& label = *controls.lblColor[0];
    for (const char* text : {"#000000", "#FFFFFF", "#FF0000", "#00FF00", "#0000FF", "#FFFF00",
                             "#808080", "#FF8000", "#353535"}) {
        const wxColour colour(text);
        setSampleColour(label, colour);
        EXPECT_EQ(label.GetForegroundColour(), colour);
        EXPECT_GE(contrast(colour, label.GetBackgroundColour()), 3) << text;
    }
}

TEST_F(EditorLookTest, ColourLabelsAreOnWhiteAsThePageIs) {
    EXPECT_EQ(controls.lblColor[1]->GetForegroundColour(), *wxBLACK);
    EXPECT_EQ(controls.lblColor[1]->GetBackgroundColour(), *wxWHITE);
    setSampleColour(*controls.lblColor[1], wxColour("#FF0000"));
    EXPECT_EQ(controls.lblColor[1]->GetBackgroundColour(), *wxWHITE);
}

TEST_F(EditorLookTest, ColourLabelsAreDrawnSo) {
    editor.show();
    setSampleColour(*controls.lblColor[0], wxColour(255, 255, 0));
    editor.resize(1100, 720);
    const wxImage image = test::imageOf(*controls.lblColor[0]);
    EXPECT_FALSE(test::placeOf(image, *wxBLACK).IsEmpty());
    EXPECT_FALSE(test::placeOf(image, wxColour(255, 255, 0)).IsEmpty());
}

}  // namespace
}  // namespace tavisk
