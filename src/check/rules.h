// What a check looks for.
#pragma once

#include <array>
#include <string_view>

namespace tavisk {

struct Rule {
    std::string_view code;
    std::string_view description;
    /// What an author does about it.
    std::string_view remedy;
};

/// Every code that a finding can have.
inline constexpr std::array rules{
    Rule{"not-well-formed", "The file is no XML that can be read.",
         "Mend the XML at the place that the message names."},
    Rule{"document-rejected", "The XML is no help document.",
         R"(Name the document element "cabinetinfo", and put all help nodes into one "cabinet".)"},
    Rule{"no-help-nodes", "The cabinet has no help nodes.",
         "Give the cabinet at least one help node."},
    Rule{"cannot-be-loaded", "The document cannot be loaded.",
         "Mend what the message names; as long as it is there, the editor refuses the document."},
    Rule{"cannot-be-rendered", "The page cannot be made with values and pictures filled in.",
         "Look for very long values and for values that hold tokens of other formulas."},
    Rule{
        "cannot-be-saved", "The document cannot be saved.",
        "Mend what the message names; as long as it is there, nothing that is edited can be kept."},
    Rule{"too-many-nodes", "There are more nodes below one than can be counted.",
         "Put some of them below a node of their own."},
    Rule{"too-many-attributes", "An element has more attributes than can be counted.",
         "Take away those that the document does not need."},
    Rule{"name-clash", "Two nodes beside each other have the same name.",
         "Rename one of them, or nothing can refer to the second."},
    Rule{"misplaced-element", "An element that belongs beside the cabinet stands inside it.",
         "Move it out of the cabinet, directly below the document element."},
    Rule{"not-an-element", "Something other than an element stands among the help nodes.",
         R"(Take it away, or put the text into the attribute "value" of a node.)"},
    Rule{"bad-number", "A text that stands for a number is none.", "Write digits only."},
    Rule{"number-out-of-range", "A number lies outside the range that it can have.",
         "Write a number from -32768 to 32767."},
    Rule{"bad-colour", "A text that stands for a colour is none.",
         R"(Write "#" and six hexadecimal digits: red, green, blue.)"},
    Rule{"bad-flag", R"(A text that stands for set or not set is neither "1" nor "0".)",
         R"(Write "1" for set and "0" for not set.)"},
    Rule{"unknown-formula", "A text refers to a formula that does not exist.",
         "Compare the name, letter case included, with those of the formulas, or add the formula."},
    Rule{"unknown-picture", "A text refers to a picture that does not exist.",
         "Compare the name, letter case included, with those of the pictures, or add the picture."},
    Rule{"unknown-overlay", "A text refers to an overlay picture that does not exist.",
         "Compare the name, letter case included, with those of the pictures, or add the picture."},
    Rule{"formula-hides-picture", "A formula has the name of a picture's token.",
         "Rename the formula."},
    Rule{"odd-backquote", "A backquote has no partner.",
         "Take it away, or write the second backquote of the token."},
    Rule{"text-too-long", "A text is longer than can be shown.",
         "Divide the text among several nodes."},
    Rule{"outside-code-page", "A text has characters that the page cannot hold.",
         "Use characters of Windows code page 1252 only."},
    Rule{"duplicate-formula", "Two formulas have the same name.",
         "Remove the second one, or rename it."},
    Rule{"formula-without-name", "A formula has no name.", "Give it a name, or remove it."},
    Rule{"name-with-backquote", "A name has a backquote, so that no token can refer to it.",
         "Rename it."},
    Rule{"picture-unused", "No text refers to a picture.", "Remove it, or insert it into a text."},
    Rule{"picture-without-data", "A picture is empty.", "Import the picture again, or remove it."},
    Rule{"picture-bad-data", "The content of a picture is no base64.", "Import the picture again."},
    Rule{"picture-without-name", "A picture has no name.", "Give it a name, or remove it."},
    Rule{"picture-without-extension", "A picture has no file extension.",
         R"(Give it the extension of its format, such as "png".)"},
    Rule{"duplicate-picture", "Two pictures have the same name.",
         "Remove the second one, or rename it."},
    Rule{"picture-file-clash", "Two pictures have the same file.", "Rename one of them."},
    Rule{"picture-name-unsafe", "The file of a picture cannot be written.",
         R"(Give it a shorter name without "/".)"},
    Rule{"picture-name-special", "The file name of a picture does not work everywhere.",
         R"(Give it a name of letters, digits, blanks and "-".)"},
};

}  // namespace tavisk
