// How the editor window looks with the user's own letters and theme, which GTK lets a test choose.
#include <cstdlib>
#include <gtk/gtk.h>
#include <wx/display.h>
#include <wx/toolbar.h>

#include "ui/support/editorLook.h"

namespace tavisk {
namespace {

using test::EditorLookTest;

/// Letters of one and a half times the usual size, for windows opened from now on.
struct LargeLetters {
    LargeLetters() {
        g_object_get(settings, "gtk-xft-dpi", &before, nullptr);
        g_object_set(settings, "gtk-xft-dpi", 144 * 1024, nullptr);
    }
    LargeLetters(const LargeLetters&) = delete;
    LargeLetters& operator=(const LargeLetters&) = delete;
    ~LargeLetters() { g_object_set(settings, "gtk-xft-dpi", before, nullptr); }

    GtkSettings* settings = gtk_settings_get_default();
    int before = 0;
};

struct EditorLargeLettersTest : LargeLetters, EditorLookTest {};

TEST_F(EditorLargeLettersTest, WindowOpensAsLargeAsTheyNeed) {
    editor.show();
    if (wxDisplay(editor.frame).GetClientArea().width < 1600) GTEST_SKIP() << "a small screen";
    EXPECT_GE(controls.Label3->GetCharHeight(), 24);
    EXPECT_GT(editor.frame->GetSize().x, 1200);
    EXPECT_EQ(cutOff(), "");
    EXPECT_EQ(outside(), "");
    EXPECT_FALSE(scrolls());
}

TEST_F(EditorLargeLettersTest, SmallWindowScrolls) {
    editor.show();
    editor.resize(1024, 700);
    EXPECT_EQ(cutOff(), "");
    EXPECT_EQ(outside(), "");
    EXPECT_TRUE(scrolls());
}

struct ThemeName {
    explicit ThemeName(const char* name) {
        g_object_get(settings, "gtk-theme-name", &before, nullptr);
        g_object_set(settings, "gtk-theme-name", name, nullptr);
    }
    ThemeName(const ThemeName&) = delete;
    ThemeName& operator=(const ThemeName&) = delete;
    ~ThemeName() {
        g_object_set(settings, "gtk-theme-name", before, nullptr);
        g_free(before);
        test::pumpPending();
    }
    GtkSettings* settings = gtk_settings_get_default();
    char* before = nullptr;
};

/// Colour of a toolbar button's picture.
wxColour inkOf(const wxToolBar& toolbar) {
    const wxImage image =
        toolbar.GetToolByPos(0)->GetNormalBitmapBundle().GetBitmap(wxSize(24, 24)).ConvertToImage();
    for (int y = 0; y < 24; ++y) {
        for (int x = 0; x < 24; ++x) {
            if (image.GetAlpha(x, y) == 255)
                return {image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y)};
        }
    }
    return {};
}

TEST_F(EditorLookTest, IconsFollowTheThemeWhileTheWindowIsOpen) {
    if (std::getenv("GTK_THEME")) GTEST_SKIP() << "the theme is fixed for this process";
    editor.show();
    EXPECT_LT(inkOf(*controls.toolNodes).GetLuminance(), 0.4);
    const ThemeName dark("Adwaita-dark");
    EXPECT_TRUE(
        test::pumpUntil([this] { return inkOf(*controls.toolNodes).GetLuminance() > 0.7; }));
}

/// Whether there is more than one colour where the window is on the screen.
bool hasInk(const wxWindow& window) {
    wxRect place = window.GetScreenRect();
    // What a scrolled panel leaves of it.
    place.Intersect(window.GetParent()->GetScreenRect());
    // The bitmap takes the pixels over.
    const wxBitmap screen(gdk_pixbuf_get_from_window(gdk_get_default_root_window(), place.x,
                                                     place.y, place.width, place.height));
    return screen.IsOk() && screen.ConvertToImage().CountColours(1) > 1;
}

// All controls are drawn on one surface, where each can paint over the others.
TEST_F(EditorLookTest, EveryControlIsSeenOnTheScreen) {
    editor.show();
    editor.frame->Raise();
    ASSERT_TRUE(test::pumpUntil([this] { return editor.frame->IsActive(); }));
    int seen = 0;
    for (const wxWindow* window : placed()) {
        const bool hasCaption = dynamic_cast<const wxStaticText*>(window)
                                    ? !window->GetLabel().empty()
                                    : window->GetChildren().empty();
        if (!hasCaption) continue;
        ++seen;
        EXPECT_TRUE(test::pumpUntil([&] { return hasInk(*window); }, std::chrono::seconds(5)))
            << editor.name(*window);
    }
    EXPECT_GT(seen, 50);
}

}  // namespace
}  // namespace tavisk
