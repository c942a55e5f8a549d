// The tree alone, in processor time until it is painted: showing a document, selecting, moving.
#include <benchmark/benchmark.h>
#include <gtk/gtk.h>
#include <stdexcept>
#include <string>
#include <wx/frame.h>

#include "document/nodeKeys.h"
#include "editor/nodeOperations.h"
#include "loaded.h"
#include "typing.h"
#include "ui/editor/helpTree.h"
#include "ui/support/pump.h"

namespace tavisk::bench {
namespace {

enum Shape : std::int64_t { small, medium, large, flat, wideInside };

std::string siblings(std::size_t count) {
    std::string nodes;
    for (std::size_t i = 0; i < count; ++i)
        nodes += "<Node_" + std::to_string(i) + " value=\"an answer\"/>";
    return nodes;
}

std::string inCabinet(const std::string& nodes, const std::string& startKey) {
    return "<cabinetinfo><cabinet>" + nodes + "</cabinet><location value=\"" + startKey +
           "\"/></cabinetinfo>";
}

const std::string& documentOf(std::int64_t shape) {
    static const std::string few = makeDocument(planFew);
    static const std::string row = inCabinet(siblings(30'000), "cabinet=>Node 15000");
    static const std::string inside =
        inCabinet("<a><b><c>" + siblings(30'000) + "</c></b></a>", "cabinet=>a=>b=>c=>Node 15000");
    switch (shape) {
        case flat: return row;
        case wideInside: return inside;
        case large: return few;
        default: return documentOfSize(shape);
    }
}

const char* nameOf(std::int64_t shape) {
    constexpr const char* names[] = {"1,000 nodes", "10,000 nodes", "30,000 nodes",
                                     "30,000 siblings", "30,000 siblings on level 4"};
    return names[shape];
}

class TreeFrame {
public:
    explicit TreeFrame(std::int64_t shape) {
        loaded_.load(documentOf(shape));
        frame_ = new wxFrame(nullptr, wxID_ANY, "tree", wxDefaultPosition, wxSize(400, 800));
        tree_ = new HelpTree(frame_);
        tree_->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED,
                    [this](wxDataViewEvent&) { selectNode(session(), *tree_->selected()); });
        frame_->Show();
        test::pumpUntil([this] { return gtk_widget_get_mapped(tree_->GtkGetTreeView()) != 0; });
        untilSettled();
    }
    TreeFrame(const TreeFrame&) = delete;
    TreeFrame& operator=(const TreeFrame&) = delete;
    ~TreeFrame() {
        tree_->detach();
        delete frame_;
        test::pumpPending();
    }

    HelpSession& session() { return loaded_.session(); }
    HelpTree& tree() { return *tree_; }

    /// One frame: only what has changed is painted.
    void untilPainted() {
        GdkFrameClock* const clock = gtk_widget_get_frame_clock(tree_->GtkGetTreeView());
        bool painted = false;
        const gulong handler = g_signal_connect(
            clock, "after-paint", G_CALLBACK(+[](GdkFrameClock*, bool* done) { *done = true; }),
            &painted);
        gdk_frame_clock_request_phase(clock, GDK_FRAME_CLOCK_PHASE_AFTER_PAINT);
        test::pumpUntil([&] { return painted; });
        test::pumpPending();
        g_signal_handler_disconnect(clock, handler);
    }
    /// The frames that settle widths and places are through.
    void untilSettled() {
        constexpr int frames = 4;
        for (int i = 0; i < frames; ++i)
            untilPainted();
    }

private:
    LoadedSession loaded_{"<cabinetinfo><cabinet><a/></cabinet></cabinetinfo>"};
    wxFrame* frame_ = nullptr;
    HelpTree* tree_ = nullptr;
};

/// The time is that of the first frame; the counter has the whole, with the frames after it, in
/// which the scroll bar fades, too.
template <class Action>
void measure(benchmark::State& state, TreeFrame& frame, Action action) {
    state.SetLabel(nameOf(state.range(0)));
    frame.untilSettled();
    double settled = 0;
    for (auto _ : state) {
        const double start = processorTime();
        action();
        frame.untilPainted();
        state.SetIterationTime(processorTime() - start);
        frame.untilSettled();
        settled += processorTime() - start;
    }
    constexpr double milliseconds = 1000;
    state.counters["settled_ms"] =
        benchmark::Counter(settled * milliseconds, benchmark::Counter::kAvgIterations);
}

/// The painting alone, once, which is part of each of the others.
void treePaint(benchmark::State& state) {
    TreeFrame frame(state.range(0));
    frame.tree().attach(frame.session());
    measure(state, frame, [&] { frame.tree().Refresh(); });
}

void treeAttach(benchmark::State& state) {
    TreeFrame frame(state.range(0));
    measure(state, frame, [&] { frame.tree().attach(frame.session()); });
}

/// A row next to the selected one, as with the arrow keys, and one far away.
void treeSelect(benchmark::State& state) {
    TreeFrame frame(state.range(0));
    frame.tree().attach(frame.session());
    dom::Node* const start = frame.session().selectedRow;
    dom::Node* const last = start->parent()->lastChild();
    bool first = false;
    measure(state, frame, [&] {
        frame.tree().choose(first ? *start : *last);
        first = !first;
    });
}

class NobodyAsks final : public Dialogs {
public:
    Answer messageBox(const Message& message) override { throw std::logic_error(message.text); }
    std::string inputBox(std::string_view, std::string_view, std::string_view) override {
        return {};
    }
    std::string openFile(std::string_view) override { return {}; }
    Colour chooseColour() override { return 0; }
};

void moveUpAndDown(benchmark::State& state, TreeFrame& frame) {
    NobodyAsks dialogs;
    bool up = false;
    measure(state, frame, [&] {
        frame.tree().run([&] { moveNode(frame.session(), up ? 1 : -1, dialogs); });
        up = !up;
    });
}

void treeMove(benchmark::State& state) {
    TreeFrame frame(state.range(0));
    frame.tree().attach(frame.session());
    moveUpAndDown(state, frame);
}

void treeMoveAllExpanded(benchmark::State& state) {
    TreeFrame frame(state.range(0));
    frame.tree().attach(frame.session());
    frame.tree().ExpandChildren(wxDataViewItem(frame.session().file.baseXMLNode));
    moveUpAndDown(state, frame);
}

void everyShape(benchmark::internal::Benchmark* tree) {
    constexpr int often = 20;  // every frame waits for its turn
    tree->ArgName("shape")->DenseRange(small, wideInside)->UseManualTime()->Iterations(often);
    tree->Unit(benchmark::kMillisecond);
}

BENCHMARK(treePaint)->Apply(everyShape);
BENCHMARK(treeAttach)->Apply(everyShape);
BENCHMARK(treeSelect)->Apply(everyShape);
BENCHMARK(treeMove)->Apply(everyShape);
BENCHMARK(treeMoveAllExpanded)->Apply(everyShape);

}  // namespace
}  // namespace tavisk::bench
