#include "command/options.h"

#include <algorithm>
#include <array>
#include <thread>

namespace tavisk {
namespace {

constexpr std::string_view jobsHelp =
    R"(how many documents are worked on at a time, from 1 to 256; by default as many as
there are processors. What is written is the same.)";

constexpr std::array editOptions{
    Option{"-o", "OUT", &CommandLine::output,
           R"(write what the editor returns to OUT, after a No too, and leave FILE alone. "-" is
standard output.)"},
};

constexpr std::array previewOptions{
    Option{"--evaluate", "", &CommandLine::evaluate,
           R"(fill in the values of the formulas, the pictures and the overlays. Without it the
texts show their tokens as typed.)"},
};

constexpr std::array renderOptions{
    Option{"--folder", "DIR", &CommandLine::folder,
           R"(where the page goes; created if missing. cabinet.png, the picture below overlays,
and style.css, the page's stylesheet, are copied there if they are absent; put your
own there to have them used, for all pages if there are several.)"},
    Option{"--evaluate", "", &CommandLine::evaluate,
           R"(fill in the values of the formulas, the pictures and the overlays; the pictures
are written to DIR/temp_images/. Without it the texts show their tokens as typed.)"},
    Option{"--each", "", &CommandLine::each,
           R"(a folder for each FILE, even if there is only one.)"},
    Option{"--standalone", "", &CommandLine::standalone,
           R"(one file that needs no others, for mail or a web site: DIR/NAME.html, or OUT. It
is UTF-8; its pictures and its style are inside, and scripts in it do not run.
Addresses on other machines stay; a picture that is missing is told on standard
error. The cabinet.png and style.css that are in DIR are used; nothing else is
written there.)"},
    Option{"-o", "OUT", &CommandLine::output,
           R"(the file of a standalone page; "-" is standard output.)"},
    Option{"--jobs", "N", &CommandLine::jobs, jobsHelp},
};

constexpr std::array saveOptions{
    Option{"--refresh", "KEY", &CommandLine::refreshKey,
           R"(save as "Refresh Formula Values" does with the node of that key selected: the
result carries a "location" marker, so that the editor opens at that node. A key is
the names from the cabinet down, joined by "=>": "cabinet=>How to order".)"},
    Option{"-o", "OUT", &CommandLine::output,
           R"(write the result to OUT, which is replaced whole or, after an error, left as it
was. OUT may be FILE.)"},
    Option{"--folder", "DIR", &CommandLine::folder,
           R"(the folder whose cabinet.png loading takes in. Saving removes the picture again,
so the result is the same without it.)"},
};

constexpr std::array checkOptions{
    Option{"--json", "", &CommandLine::json,
           R"(one JSON object instead: {"file", "findings": [{"severity", "code", "key",
"attribute", "position", "message"}]}; key, attribute and position are null where
there is none. For several FILEs {"documents": [...], "summary": {"documents",
"clean", "withFindings", "failed", "findings"}}; a document that could not be read
has an "error": {"number", "message"}.)"},
    Option{"--sarif", "", &CommandLine::sarif,
           R"(SARIF 2.1.0 instead, which code-review pages show: every finding with the line and
column in FILE where it stands.)"},
    Option{"--jobs", "N", &CommandLine::jobs, jobsHelp},
};

constexpr std::array table{
    CommandOptions{"edit", Action::edit, false, editOptions},
    CommandOptions{"preview", Action::preview, false, previewOptions},
    CommandOptions{"render", Action::render, true, renderOptions},
    CommandOptions{"save", Action::save, false, saveOptions},
    CommandOptions{"check", Action::check, true, checkOptions},
};

}  // namespace

std::size_t CommandLine::jobsOrAll() const {
    return jobs.value_or(std::max(1U, std::thread::hardware_concurrency()));
}

std::span<const CommandOptions> commandTable() { return table; }

const CommandOptions* commandNamed(std::string_view name) {
    const auto found = std::ranges::find(table, name, &CommandOptions::name);
    return found == table.end() ? nullptr : &*found;
}

const Option* CommandOptions::find(std::string_view option) const {
    const auto found = std::ranges::find(options, option, &Option::name);
    return found == options.end() ? nullptr : &*found;
}

}  // namespace tavisk
