// The toolbar's pictures.
#include "ui/editor/icons.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/settings.h>

#include "editor/nodeCommands.h"
#include "ui/toolkit/iconSvg.h"

namespace tavisk {
namespace {

std::set<std::string> iconNames() {
    std::set<std::string> names;
    for (const NodeCommand& command : nodeCommands()) {
        if (*command.icon) names.insert(command.icon);
    }
    return names;
}

wxImage drawn(const wxBitmapBundle& bundle, int size) {
    return bundle.GetBitmap(wxSize(size, size)).ConvertToImage();
}

/// How many pixels are covered, in parts of pixels.
double ink(const wxImage& image) {
    double sum = 0;
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = 0; x < image.GetWidth(); ++x)
            sum += image.GetAlpha(x, y) / 255.0;
    }
    return sum;
}

/// Whether there is something, and all of it in this colour.
bool isDrawnIn(const wxColour& colour, const wxImage& image) {
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = 0; x < image.GetWidth(); ++x) {
            // Of what is hardly covered, a bitmap may keep the colour only roughly.
            const int alpha = image.GetAlpha(x, y);
            const auto off = [alpha](int one, int other) {
                return alpha > 0 && std::abs(one - other) * alpha > (alpha < 255 ? 255 : 0);
            };
            if (off(image.GetRed(x, y), colour.Red()) ||
                off(image.GetGreen(x, y), colour.Green()) ||
                off(image.GetBlue(x, y), colour.Blue()))
                return false;
        }
    }
    return ink(image) > 0;
}

TEST(Icons, EachToolbarButtonHasItsOwn) {
    EXPECT_EQ(iconNames(),
              (std::set<std::string>{"new-child", "delete", "cut", "copy", "paste", "move-top",
                                     "move-bottom", "move-up", "move-down"}));
    std::set<std::string_view> drawings;
    for (const std::string& name : iconNames()) {
        EXPECT_NE(iconSvg(name), "") << name;
        drawings.insert(iconSvg(name));
    }
    EXPECT_EQ(drawings.size(), iconNames().size());
}

TEST(Icons, UnknownNameHasNone) {
    EXPECT_EQ(iconSvg("print"), "");
    EXPECT_EQ(iconSvg(""), "");
    EXPECT_FALSE(icon("print", 24).IsOk());
}

TEST(Icons, DrawnInTheGivenColourAtEverySize) {
    const wxColour colour(200, 30, 90);
    for (const std::string& name : iconNames()) {
        for (const int size : {16, 24, 32, 36, 48}) {
            const wxImage image = drawn(icon(name, size, colour), size);
            EXPECT_EQ(image.GetSize(), wxSize(size, size)) << name;
            EXPECT_TRUE(isDrawnIn(colour, image)) << name << ' ' << size;
            // Lines, no blot.
            EXPECT_GT(ink(image), 0.08 * size * size) << name << ' ' << size;
            EXPECT_LT(ink(image), 0.5 * size * size) << name << ' ' << size;
        }
    }
}

TEST(Icons, SharpAtEveryScale) {
    const wxBitmapBundle bundle = icon("copy", 24, *wxBLACK);
    EXPECT_EQ(bundle.GetDefaultSize(), wxSize(24, 24));
    for (const double scale : {1.0, 1.5, 2.0}) {
        const wxSize size = bundle.GetPreferredBitmapSizeAtScale(scale);
        EXPECT_EQ(size, wxSize(24, 24) * scale);
        EXPECT_EQ(bundle.GetBitmap(size).GetSize(), size);
    }
    // Straight lines lie on whole pixels: almost nothing is covered in part.
    const wxImage image = drawn(icon("move-top", 24, *wxBLACK), 24);
    int line = 0;
    for (int x = 0; x < 24; ++x)
        line += image.GetAlpha(x, 2) == 255 && image.GetAlpha(x, 3) == 255 ? 1 : 0;
    EXPECT_GE(line, 16);
    for (int x = 0; x < 24; ++x)
        EXPECT_EQ(image.GetAlpha(x, 1) + image.GetAlpha(x, 4), 0) << x;
}

TEST(Icons, InTheColoursOfTheTheme) {
    EXPECT_TRUE(
        isDrawnIn(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT), drawn(icon("cut", 24), 24)));
    EXPECT_TRUE(isDrawnIn(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT),
                          drawn(disabledIcon("cut", 24), 24)));
}

}  // namespace
}  // namespace tavisk
