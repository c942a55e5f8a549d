// What a check looks for.
#pragma once

#include <array>
#include <string_view>

namespace tavisk {

struct Rule {
    std::string_view code;
    std::string_view description;
};

/// Every code that a finding can have.
inline constexpr std::array rules{
    Rule{"not-well-formed", "The file is no XML that can be read."},
    Rule{"document-rejected", "The XML is no help document."},
    Rule{"no-help-nodes", "The cabinet has no help nodes."},
    Rule{"cannot-be-loaded", "The document cannot be loaded."},
    Rule{"cannot-be-rendered", "The page cannot be made with values and pictures filled in."},
    Rule{"cannot-be-saved", "The document cannot be saved."},
    Rule{"too-many-nodes", "There are more nodes below one than can be counted."},
    Rule{"too-many-attributes", "An element has more attributes than can be counted."},
    Rule{"name-clash", "Two nodes beside each other have the same name."},
    Rule{"misplaced-element", "An element that belongs beside the cabinet stands inside it."},
    Rule{"not-an-element", "Something other than an element stands among the help nodes."},
    Rule{"bad-number", "A text that stands for a number is none."},
    Rule{"number-out-of-range", "A number lies outside the range that it can have."},
    Rule{"bad-colour", "A text that stands for a colour is none."},
    Rule{"bad-flag", R"(A text that stands for set or not set is neither "1" nor "0".)"},
    Rule{"unknown-formula", "A text refers to a formula that does not exist."},
    Rule{"unknown-picture", "A text refers to a picture that does not exist."},
    Rule{"unknown-overlay", "A text refers to an overlay picture that does not exist."},
    Rule{"formula-hides-picture", "A formula has the name of a picture's token."},
    Rule{"odd-backquote", "A backquote has no partner."},
    Rule{"text-too-long", "A text is longer than can be shown."},
    Rule{"outside-code-page", "A text has characters that the page cannot hold."},
    Rule{"duplicate-formula", "Two formulas have the same name."},
    Rule{"formula-without-name", "A formula has no name."},
    Rule{"name-with-backquote", "A name has a backquote, so that no token can refer to it."},
    Rule{"picture-unused", "No text refers to a picture."},
    Rule{"picture-without-data", "A picture is empty."},
    Rule{"picture-bad-data", "The content of a picture is no base64."},
    Rule{"picture-without-name", "A picture has no name."},
    Rule{"picture-without-extension", "A picture has no file extension."},
    Rule{"duplicate-picture", "Two pictures have the same name."},
    Rule{"picture-file-clash", "Two pictures have the same file."},
    Rule{"picture-name-unsafe", "The file of a picture cannot be written."},
    Rule{"picture-name-special", "The file name of a picture does not work everywhere."},
};

}  // namespace tavisk
