#include "command/helpText.h"

#include <algorithm>

namespace tavisk {
namespace {

constexpr std::string_view toolText =
    R"(tavisk - help documents of cabinets

A help document is one XML file: a tree of help nodes below its "cabinet" element, with the formulas
and pictures that the texts refer to. "edit" and "preview" open the windows that a host program
opens; the other commands do without a window what the editor does, for build servers and scripts.

Usage:
  tavisk edit FILE [-o OUT]                           edit the document in a window
  tavisk preview FILE [--evaluate]                    show the page in a window
  tavisk render FILE... --folder DIR [--evaluate]     write the HTML pages
  tavisk render FILE --standalone -o OUT [--evaluate] write the page as one file
  tavisk save FILE [--refresh KEY] [-o OUT]           load, then save as the editor's OK does
  tavisk check FILE... [--json | --sarif]             report what an author should mend
  tavisk COMMAND --help                               more on one command
  tavisk --version

FILE is UTF-8, or UTF-16 with a byte order mark; "-" is standard input. Options may stand before or
after FILE; behind "--" everything is FILE. "render" and "check" take several, as many at a time as
--jobs says; one that goes wrong does not stop the others.

A first page:
  tavisk edit kitchen.xml
  tavisk check kitchen.xml
  tavisk render kitchen.xml --folder out --evaluate
  xdg-open out/temp.html

Exit codes, the highest one of several documents:
  0  done; for check: nothing found
  1  check found something
  2  the command line is wrong
  3  the document was rejected; standard error, or a window, said why
  4  run-time error, for example an unreadable file, a full disk or no display
)";

/// What stands before and behind the options of a command.
struct Texts {
    std::string_view before;
    std::string_view behind;
};

constexpr Texts editTexts{
    R"(Usage: tavisk edit FILE [-o OUT]

Opens the editor and waits until its window is closed. Closed with OK, or with a Yes to the question
whether to save, the document is written back to FILE, as UTF-8; after a No, FILE stays as it is to
the byte. It is replaced whole or, after an error, left as it was; a document that could not be
written is kept in the folder for temporary files, and standard error says where.

With "-" for FILE the document comes from standard input, and whatever the editor returns goes to
standard output, after a No too: then as loading wrote it anew.

)",
    R"(The window is that of the component (libtavisk.so, on Windows Tavisk.dll), which is looked for
beside this command, then in ../lib from there, then on the system's library path. It needs a
display.

Examples:
  tavisk edit kitchen.xml
  compute-values < kitchen.xml | tavisk edit - -o kitchen.xml

Exit codes: 0 the editor was closed, 2 usage, 3 document rejected (a window said why), 4 run-time
error.
)"};

constexpr Texts previewTexts{
    R"(Usage: tavisk preview FILE [--evaluate]

Shows the page of the document in a window and waits until it is closed. The page is the file
temp.html in the folder of the component (libtavisk.so, on Windows Tavisk.dll) or, where that may
not be written, in $XDG_DATA_HOME/tavisk, on Windows in the folder Tavisk of the local application
data.

)",
    R"(The component is looked for beside this command, then in ../lib from there, then on the system's
library path. The window needs a display; "tavisk render" needs none.

Examples:
  tavisk preview kitchen.xml --evaluate

Exit codes: 0 the window was closed, 2 usage, 3 document rejected (a window said why), 4 run-time
error.
)"};

constexpr Texts renderTexts{
    R"(Usage: tavisk render FILE... --folder DIR [--evaluate] [--each] [--jobs N]
       tavisk render FILE... --folder DIR --standalone [--evaluate] [--jobs N]
       tavisk render FILE -o OUT --standalone [--evaluate] [--folder DIR]

Writes the page that the preview shows to DIR/temp.html, in code page 1252. The file is replaced
whole or, after an error, left as it was. For several FILEs, a folder for each: DIR/NAME/temp.html,
where NAME is that of FILE without its extension, or "document" for standard input.

)",
    R"(The page names its pictures by their full path, so DIR must not be moved afterwards; a standalone
page may be.

For several FILEs, or with --each, standard error says in one line each what went wrong, and one
line on standard output how many documents came out how: "3 documents: 2 rendered, 1 rejected".
Two FILEs of one NAME, in whatever letter case, are an error in usage.

Examples:
  tavisk render kitchen.xml --folder out --evaluate
  tavisk render help/*.xml --folder out --evaluate --each
  tavisk render kitchen.xml --standalone -o kitchen.html --evaluate
  generate-help | tavisk render - --folder=/srv/help/kitchen --evaluate

Exit codes, the highest one of several documents: 0 done, 2 usage, 3 document rejected, 4 run-time
error.
)"};

constexpr Texts saveTexts{
    R"(Usage: tavisk save FILE [--folder DIR] [--refresh KEY] [-o OUT]

Loads the document, which selects a node and fills the editor's panel from it, and saves it as the
editor's OK does: the formula elements are written anew, without their values, and "location"
markers and the generated cabinet picture are gone. The result is UTF-8, on standard output unless
-o is given.

)",
    R"(Examples:
  tavisk save kitchen.xml -o kitchen.xml
  tavisk save kitchen.xml --refresh "cabinet=>Dimensions" > opened.xml

Exit codes: 0 done, 2 usage or a key that no node has, 3 document rejected, 4 run-time error.
)"};

constexpr Texts checkTexts{
    R"(Usage: tavisk check FILE... [--json | --sarif] [--jobs N]

Reports what an author wants to know before the document goes out, one finding per line:

  FILE: error: cabinet=>Dimensions: value, position 12: No formula is named "Rate". [unknown-formula]

that is: severity, the node's key, the attribute, the position in its text (counted from 0 in UTF-16
code units), the message and its code. Formulas and pictures are given by their name. An error stops
the editor or the page, or puts something wrong before the reader's eyes; a warning is most likely
not what was meant.

)",
    R"(For several FILEs the last line says how many documents came out how, on standard error with --json
or --sarif: "3 documents: 1 clean, 1 with findings, 1 failed; 5 findings".

What is looked at:
  the document   why it would be rejected (not-well-formed, document-rejected), or could not be
                 loaded, shown or saved (no-help-nodes, cannot-be-loaded, cannot-be-rendered,
                 cannot-be-saved, too-many-nodes, too-many-attributes)
  nodes          name-clash, misplaced-element, not-an-element, bad-number, number-out-of-range,
                 bad-colour, bad-flag
  texts          unknown-formula, unknown-picture, unknown-overlay, formula-hides-picture,
                 odd-backquote, text-too-long, outside-code-page
  formulas       duplicate-formula, formula-without-name, name-with-backquote, bad-flag
  pictures       picture-unused, picture-without-data, picture-bad-data, picture-without-name,
                 picture-without-extension, duplicate-picture, picture-file-clash,
                 picture-name-unsafe, picture-name-special, name-with-backquote, bad-number

Examples:
  tavisk check kitchen.xml
  tavisk check kitchen.xml --json | jq -r '.findings[].code' | sort | uniq -c
  tavisk check help/*.xml --sarif > findings.sarif

Exit codes, the highest one of several documents: 0 nothing found, 1 something found (a rejected
document too), 2 usage, 4 run-time error.
)"};

const Texts& textsOf(Action action) {
    switch (action) {
        case Action::edit: return editTexts;
        case Action::preview: return previewTexts;
        case Action::render: return renderTexts;
        case Action::save: return saveTexts;
        default: return checkTexts;
    }
}

/// The option in a column of its own, or above its text where it is too long for that.
void appendOption(std::string& text, const Option& option) {
    constexpr std::size_t column = 17;
    std::string line = "  " + std::string(option.name);
    if (!option.value.empty()) line.append(" ").append(option.value);
    if (line.size() + 1 > column) {
        text += line + '\n';
        line.clear();
    }
    std::string_view help = option.help;
    while (!help.empty()) {
        line.resize(column, ' ');
        const std::size_t end = std::min(help.find('\n'), help.size());
        text.append(line).append(help.substr(0, end)).append("\n");
        help.remove_prefix(std::min(end + 1, help.size()));
        line.clear();
    }
}

}  // namespace

std::string helpText(std::optional<Action> topic) {
    const auto command =
        std::ranges::find(commandTable(), topic.value_or(Action::help), &CommandOptions::action);
    if (command == commandTable().end()) return std::string(toolText);
    const Texts& texts = textsOf(command->action);
    std::string text(texts.before);
    for (const Option& option : command->options)
        appendOption(text, option);
    return text.append("\n").append(texts.behind);
}

}  // namespace tavisk
