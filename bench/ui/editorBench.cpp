// The editor window as its user feels it: opening, selecting, moving.
#include <benchmark/benchmark.h>
#include <chrono>
#include <string>

#include "document/nodeKeys.h"
#include "editor/nodeCommands.h"
#include "loaded.h"
#include "typing.h"
#include "ui/editor/answerBox.h"
#include "ui/editor/frmMain.h"
#include "ui/editor/helpTree.h"
#include "ui/support/pump.h"

namespace tavisk::bench {
namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Nodes as in the benchmarks' argument; 0 is a document with a single node, whose window is what
/// opening costs in any case.
const std::string& documentOf(std::int64_t nodes) {
    static const std::string empty =
        "<cabinetinfo><cabinet><a value=\"a\"/></cabinet></cabinetinfo>";
    if (nodes == 0) return empty;
    return documentOfSize(nodes <= 1'000 ? 0 : nodes <= 10'000 ? 1 : 2);
}

/// Loading the document, building the window, showing it, until nothing is left to do.
void openToIdle(benchmark::State& state) {
    const std::string& xml = documentOf(state.range(0));
    for (auto _ : state) {
        const auto start = Clock::now();
        LoadedSession loaded("<cabinetinfo><cabinet><a/></cabinet></cabinetinfo>");
        loaded.load(xml);
        auto* const window = new frmMain(loaded.session());
        window->Show();
        test::pumpUntil([window] { return window->IsShownOnScreen(); });
        test::pumpPending();
        state.SetIterationTime(secondsSince(start));
        delete window;
        test::pumpPending();
    }
}
BENCHMARK(openToIdle)
    ->Arg(0)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(30'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

struct OpenEditor {
    explicit OpenEditor(std::int64_t nodes)
        : loaded("<cabinetinfo><cabinet><a/></cabinet></cabinetinfo>") {
        loaded.load(documentOf(nodes));
        window = new frmMain(loaded.session());
        window->Show();
        test::pumpUntil([this] { return window->IsShownOnScreen(); });
        test::pumpPending();
    }
    OpenEditor(const OpenEditor&) = delete;
    OpenEditor& operator=(const OpenEditor&) = delete;
    ~OpenEditor() {
        delete window;
        test::pumpPending();
    }

    LoadedSession loaded;
    frmMain* window = nullptr;
};

/// From the click on another row to the panel that shows it, painted.
void selectNode(benchmark::State& state) {
    OpenEditor editor(state.range(0));
    dom::Node* const base = editor.loaded.session().file.baseXMLNode;
    dom::Node* row = base->firstChild();
    for (auto _ : state) {
        editor.window->controls.TreeXML->choose(*row);
        test::pumpPending();
        row = row->next() ? row->next() : base->firstChild();
    }
}
BENCHMARK(selectNode)->Arg(1'000)->Arg(10'000)->Arg(30'000)->Unit(benchmark::kMillisecond);

void moveNode(benchmark::State& state) {
    OpenEditor editor(state.range(0));
    HelpSession& session = editor.loaded.session();
    editor.window->controls.TreeXML->choose(*session.file.baseXMLNode->firstChild());
    test::pumpPending();
    bool down = true;
    for (auto _ : state) {
        for (std::size_t i = 0; i < nodeCommands().size(); ++i) {
            if (std::string_view(nodeCommands()[i].toolTip) != (down ? "Move Down" : "Move Up"))
                continue;
            wxCommandEvent event(wxEVT_MENU, toolId(i));
            editor.window->GetEventHandler()->ProcessEvent(event);
        }
        test::pumpPending();
        down = !down;
    }
}
BENCHMARK(moveNode)->Arg(1'000)->Arg(10'000)->Arg(30'000)->Unit(benchmark::kMillisecond);

/// A key in the text of one node, painted: processor time, whatever the number of nodes.
void typeInEditor(benchmark::State& state) {
    OpenEditor editor(state.range(0));
    editor.window->controls.TreeXML->choose(
        *editor.loaded.session().file.baseXMLNode->firstChild());
    wxTextCtrl& box = *editor.window->controls.txtValue;
    box.SetFocus();
    test::pumpUntil([&box] { return box.HasFocus(); });
    const long length = box.GetLastPosition();
    for (auto _ : state) {
        box.SetInsertionPoint(0);
        const double start = processorTime();
        pressKey(box, 'e');
        untilPainted(box);
        state.SetIterationTime(processorTime() - start);
        if (box.GetLastPosition() != length + 1) state.SkipWithError("the key did not arrive");
        box.Remove(0, 1);
        untilPainted(box);
    }
}
BENCHMARK(typeInEditor)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(30'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavisk::bench
