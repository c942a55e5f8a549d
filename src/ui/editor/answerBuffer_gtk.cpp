#include <algorithm>
#include <array>
#include <gtk/gtk.h>
#include <limits>
#include <string_view>
#include <utility>
#include <wx/textctrl.h>

#include "base/text.h"
#include "editor/textPositions.h"
#include "ui/editor/answerBuffer.h"

namespace tavisk {
namespace {

// The text is black and the token colours are made for paper, so dark themes show paper, too. The
// size follows the user's own.
constexpr const char* look =
    "textview { font-size: 110%; }"
    "textview, textview text { color: black; background-color: white;"
    " caret-color: black; -gtk-secondary-caret-color: gray; }"
    "textview:disabled, textview:disabled text { background-color: #ebebeb; }";

constexpr int sideMargin = 8;
constexpr int topMargin = 6;

struct ColourTag {
    Colour colour;
    GtkTextTag* tag;  ///< the buffer's
};

GdkRGBA rgba(Colour colour) {
    constexpr double full = 255.0;
    return {(colour & 0xFFU) / full, ((colour >> 8U) & 0xFFU) / full,
            ((colour >> 16U) & 0xFFU) / full, 1.0};
}

GtkTextTag* createTag(GtkTextBuffer* buffer, Colour colour) {
    const GdkRGBA foreground = rgba(colour);
    return gtk_text_buffer_create_tag(buffer, nullptr, "foreground-rgba", &foreground, nullptr);
}

/// Whether the range has the same tags everywhere.
bool isUniform(const GtkTextIter& from, const GtkTextIter& to) {
    GtkTextIter toggle = from;
    return !gtk_text_iter_forward_to_tag_toggle(&toggle, nullptr) ||
           gtk_text_iter_compare(&toggle, &to) >= 0;
}

std::size_t offset(const GtkTextIter* at) {
    return static_cast<std::size_t>(gtk_text_iter_get_offset(at));
}

}  // namespace

struct AnswerBuffer::Native {
    Native(GtkTextView* textView, std::function<void()> whenDrawing)
        : view(textView),
          buffer(gtk_text_view_get_buffer(textView)),
          drawing(std::move(whenDrawing)) {
        g_object_ref(buffer);
        for (ColourTag& tag : tags)
            tag.tag = createTag(buffer, tag.colour);
        g_signal_connect(buffer, "insert-text", G_CALLBACK(onInsert), this);
        g_signal_connect(buffer, "delete-range", G_CALLBACK(onDelete), this);
        g_signal_connect(buffer, "apply-tag", G_CALLBACK(onApplyTag), this);
        // Before drawing it is still time for colours; only afterwards it is sure what is seen.
        g_signal_connect(view, "draw", G_CALLBACK(onDraw), this);
        g_signal_connect_after(view, "draw", G_CALLBACK(onDraw), this);
        dress();
    }
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;
    ~Native() {
        g_signal_handlers_disconnect_by_data(view, this);
        g_signal_handlers_disconnect_by_data(buffer, this);
        g_object_unref(buffer);
    }

    void dress() const {
        GtkCssProvider* const style = gtk_css_provider_new();
        gtk_css_provider_load_from_data(style, look, -1, nullptr);
        gtk_style_context_add_provider(gtk_widget_get_style_context(GTK_WIDGET(view)),
                                       GTK_STYLE_PROVIDER(style),
                                       GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
        g_object_unref(style);
        gtk_text_view_set_left_margin(view, sideMargin);
        gtk_text_view_set_right_margin(view, sideMargin);
        gtk_text_view_set_top_margin(view, topMargin);
        gtk_text_view_set_bottom_margin(view, topMargin);
    }

    void colour(const ColourRun& run) const {
        GtkTextIter start;
        GtkTextIter end;
        bounds(run.start, run.start + run.length, start, end);
        const bool uniform = isUniform(start, end);
        for (const ColourTag& tag : tags) {
            const bool wanted = tag.colour == run.colour;
            // Looking is much cheaper than setting what is there already: that draws lines anew.
            const bool tagged = gtk_text_iter_has_tag(&start, tag.tag) != FALSE;
            if (uniform && tagged == wanted) continue;
            if (wanted) {
                gtk_text_buffer_apply_tag(buffer, tag.tag, &start, &end);
            } else {
                gtk_text_buffer_remove_tag(buffer, tag.tag, &start, &end);
            }
        }
    }

    std::size_t length() const {
        return static_cast<std::size_t>(gtk_text_buffer_get_char_count(buffer));
    }
    /// Before the text between the two positions is taken out or something is put in there.
    void touch(std::size_t from, std::size_t to) {
        const std::size_t behind = length() - to;
        for (UntouchedEnds* ends : {&sinceRead, &sinceColoured}) {
            ends->start = std::min(ends->start, from);
            ends->end = std::min(ends->end, behind);
        }
    }

    /// The whole text, of which only what was touched is read anew: gathering thousands of
    /// characters from among hundreds of tags takes longer than a change.
    const std::u16string& read() {
        const std::size_t now = length();
        const std::size_t shorter = std::min(readLength, now);
        const std::size_t start = std::min(sinceRead.start, shorter);
        const std::size_t end = std::min(sinceRead.end, shorter - start);
        if (start == shorter && readLength == now) return text;
        const std::u16string touched = slice(start, now - end);
        CharacterPositions positions(text, readLength);
        const std::size_t from = positions.unitOf(start);
        text.replace(from, positions.unitOf(readLength - end) - from, touched);
        readLength = now;
        sinceRead = everything;
        return text;
    }
    std::u16string slice(std::size_t from, std::size_t to) const {
        GtkTextIter start;
        GtkTextIter end;
        bounds(from, to, start, end);
        const std::unique_ptr<char, decltype(&g_free)> utf8(
            gtk_text_buffer_get_slice(buffer, &start, &end, TRUE), g_free);
        return toUtf16(std::string_view(utf8.get()));
    }
    void bounds(std::size_t from, std::size_t to, GtkTextIter& start, GtkTextIter& end) const {
        gtk_text_buffer_get_iter_at_offset(buffer, &start, static_cast<int>(from));
        gtk_text_buffer_get_iter_at_offset(buffer, &end, static_cast<int>(to));
    }

    /// What stands there. The toolkit remembers the layout of one line only, which is the line
    /// where somebody types; so a line of ordinary length is taken whole, which needs none.
    TextRange edge(int x, int y) const {
        constexpr int ordinary = 1000;
        GtkTextIter start;
        gtk_text_view_get_line_at_y(view, &start, y, nullptr);
        const int length = gtk_text_iter_get_chars_in_line(&start);
        if (length <= ordinary) return {offset(&start), offset(&start) + std::size_t(length)};
        gtk_text_view_get_iter_at_location(view, &start, x, y);
        return {offset(&start), offset(&start)};
    }

    static void onInsert(GtkTextBuffer*, GtkTextIter* at, char*, int, Native* self) {
        self->touch(offset(at), offset(at));
    }
    static void onDelete(GtkTextBuffer*, GtkTextIter* from, GtkTextIter* to, Native* self) {
        self->touch(offset(from), offset(to));
    }
    /// Text that was copied from this box brings the tags of its old place along.
    static void onApplyTag(GtkTextBuffer* buffer, GtkTextTag*, GtkTextIter*, GtkTextIter*,
                           Native* self) {
        if (!self->colouring) g_signal_stop_emission_by_name(buffer, "apply-tag");
    }

    static gboolean onDraw(GtkWidget*, cairo_t*, Native* self) {
        try {
            self->drawing();
        } catch (...) {
            // Without memory for the colours the text is still there.
        }
        return FALSE;
    }

    static constexpr UntouchedEnds everything{std::numeric_limits<std::size_t>::max(),
                                              std::numeric_limits<std::size_t>::max()};

    GtkTextView* view;
    GtkTextBuffer* buffer;
    std::function<void()> drawing;
    // Plain text has no tag: it shows the control's own colour.
    std::array<ColourTag, 3> tags{{{tokenColour(TokenKind::image), nullptr},
                                   {tokenColour(TokenKind::overlay), nullptr},
                                   {tokenColour(TokenKind::formula), nullptr}}};
    UntouchedEnds sinceColoured = everything;
    UntouchedEnds sinceRead = everything;
    std::u16string text;         ///< as it was read last
    std::size_t readLength = 0;  ///< its length in characters
    bool colouring = false;
};

AnswerBuffer::AnswerBuffer(wxTextCtrl& box, std::function<void()> drawing)
    : native_(std::make_unique<Native>(GTK_TEXT_VIEW(gtk_bin_get_child(GTK_BIN(box.GetHandle()))),
                                       std::move(drawing))) {}

AnswerBuffer::~AnswerBuffer() = default;

std::u16string AnswerBuffer::text() const { return native_->read(); }

std::size_t AnswerBuffer::length() const { return native_->length(); }

UntouchedEnds AnswerBuffer::takeUntouchedEnds() {
    return std::exchange(native_->sinceColoured, Native::everything);
}

bool AnswerBuffer::isUntouched() const {
    return native_->sinceColoured.start == Native::everything.start;
}

void AnswerBuffer::colour(const std::vector<ColourRun>& runs) {
    native_->colouring = true;
    // A tag is found by walking over all tags before it in its line, so the last run comes first.
    std::for_each(runs.rbegin(), runs.rend(),
                  [this](const ColourRun& run) { native_->colour(run); });
    native_->colouring = false;
}

void AnswerBuffer::clearColours() {
    GtkTextIter start;
    GtkTextIter end;
    gtk_text_buffer_get_bounds(native_->buffer, &start, &end);
    for (const ColourTag& tag : native_->tags)
        gtk_text_buffer_remove_tag(native_->buffer, tag.tag, &start, &end);
}

void AnswerBuffer::scrollToTop() {
    GtkAdjustment* const vertical = gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(native_->view));
    gtk_adjustment_set_value(vertical, gtk_adjustment_get_lower(vertical));
}

TextRange AnswerBuffer::visible() const {
    GdkRectangle seen;
    gtk_text_view_get_visible_rect(native_->view, &seen);
    return {native_->edge(seen.x, seen.y).from,
            native_->edge(seen.x + seen.width, seen.y + seen.height).to};
}

}  // namespace tavisk
