#include <algorithm>
#include <array>
#include <gtk/gtk.h>
#include <limits>
#include <string_view>
#include <wx/textctrl.h>

#include "editor/wx/answerBuffer.h"
#include "platform/text.h"

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

std::size_t offset(const GtkTextIter* at) {
    return static_cast<std::size_t>(gtk_text_iter_get_offset(at));
}

}  // namespace

struct AnswerBuffer::Native {
    explicit Native(GtkTextView* textView)
        : view(textView), buffer(gtk_text_view_get_buffer(textView)) {
        g_object_ref(buffer);
        for (ColourTag& tag : tags)
            tag.tag = createTag(buffer, tag.colour);
        g_signal_connect(buffer, "insert-text", G_CALLBACK(onInsert), this);
        g_signal_connect(buffer, "delete-range", G_CALLBACK(onDelete), this);
        g_signal_connect(buffer, "apply-tag", G_CALLBACK(onApplyTag), this);
        dress();
    }
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;
    ~Native() {
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

    std::size_t length() const {
        return static_cast<std::size_t>(gtk_text_buffer_get_char_count(buffer));
    }
    /// Before the text between the two positions is taken out or something is put in there.
    void touch(std::size_t from, std::size_t to) {
        untouched.start = std::min(untouched.start, from);
        untouched.end = std::min(untouched.end, length() - to);
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

    static constexpr UntouchedEnds everything{std::numeric_limits<std::size_t>::max(),
                                              std::numeric_limits<std::size_t>::max()};

    GtkTextView* view;
    GtkTextBuffer* buffer;
    // Plain text has no tag: it shows the control's own colour.
    std::array<ColourTag, 3> tags{{{tokenColour(TokenKind::image), nullptr},
                                   {tokenColour(TokenKind::overlay), nullptr},
                                   {tokenColour(TokenKind::formula), nullptr}}};
    UntouchedEnds untouched = everything;
    bool colouring = false;
};

AnswerBuffer::AnswerBuffer(wxTextCtrl& box)
    : native_(
          std::make_unique<Native>(GTK_TEXT_VIEW(gtk_bin_get_child(GTK_BIN(box.GetHandle()))))) {}

AnswerBuffer::~AnswerBuffer() = default;

std::u16string AnswerBuffer::text() const {
    GtkTextIter from;
    GtkTextIter to;
    gtk_text_buffer_get_bounds(native_->buffer, &from, &to);
    const std::unique_ptr<char, decltype(&g_free)> utf8(
        gtk_text_buffer_get_text(native_->buffer, &from, &to, TRUE), g_free);
    return toUtf16(std::string_view(utf8.get()));
}

std::size_t AnswerBuffer::length() const { return native_->length(); }

UntouchedEnds AnswerBuffer::takeUntouchedEnds() {
    return std::exchange(native_->untouched, Native::everything);
}

void AnswerBuffer::colour(std::size_t from, std::size_t to, Colour colour) {
    GtkTextIter start;
    GtkTextIter end;
    gtk_text_buffer_get_iter_at_offset(native_->buffer, &start, static_cast<int>(from));
    gtk_text_buffer_get_iter_at_offset(native_->buffer, &end, static_cast<int>(to));
    native_->colouring = true;
    for (const ColourTag& tag : native_->tags) {
        if (tag.colour == colour) {
            gtk_text_buffer_apply_tag(native_->buffer, tag.tag, &start, &end);
        } else {
            gtk_text_buffer_remove_tag(native_->buffer, tag.tag, &start, &end);
        }
    }
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

}  // namespace tavisk
