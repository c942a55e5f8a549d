// JSON, written piece by piece.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tavisk {

/// Puts separators where they belong. Members are written in the order of the calls.
class JsonWriter {
public:
    enum class Layout {
        inLine,
        lines,      ///< a line for each, and none where there is nothing
        openLines,  ///< the same, with a line of its own for the end in any case
    };

    JsonWriter& beginObject(Layout layout = Layout::inLine) { return begin('{', layout); }
    JsonWriter& beginArray(Layout layout = Layout::inLine) { return begin('[', layout); }
    /// Of the last object or array that has begun.
    JsonWriter& end();

    /// What comes next is the member of this name.
    JsonWriter& name(std::string_view name);

    /// Bytes that are no UTF-8, as in file names, become U+FFFD.
    JsonWriter& text(std::string_view text);
    JsonWriter& textOrNull(std::string_view text);  ///< null for an empty one
    JsonWriter& number(std::size_t number) { return plain(std::to_string(number)); }
    JsonWriter& truth(bool value) { return plain(value ? "true" : "false"); }
    JsonWriter& null() { return plain("null"); }

    /// What has been written since the last call.
    std::string take();

private:
    struct Level {
        char end;
        Layout layout;
        bool isEmpty = true;
    };

    JsonWriter& begin(char bracket, Layout layout);
    JsonWriter& plain(std::string_view value);
    void separate();
    void appendText(std::string_view text);

    std::string json_;
    std::vector<Level> levels_;
    bool isNamed_ = false;
};

}  // namespace tavisk
