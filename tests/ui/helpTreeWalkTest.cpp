// A random walk: after every command the rows shown are those of the document, the selection is the
// session's, and no other row has opened or closed.
#include <array>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "editor/nodeOperations.h"
#include "reference/random.h"
#include "ui/support/treeWindow.h"

namespace tavisk {
namespace {

using reference::Random;

/// Answers at random, with a few names that clash often.
class RandomUser final : public Dialogs {
public:
    explicit RandomUser(Random& random) : random_(random) {}

    Answer messageBox(const Message& message) override {
        const bool asks = message.style == BoxStyle::okCancelQuestion;
        return asks && random_.chance(30) ? Answer::cancel : Answer::ok;
    }
    std::string inputBox(std::string_view, std::string_view title, std::string_view) override {
        static const std::vector<std::string> names{"alpha", "beta",    "gamma", "delta",
                                                    "x_y",   "my node", "D",     "1st"};
        return random_.chance(title == "Bad Name" ? 40 : 10) ? "" : random_.pick(names);
    }
    std::string openFile(std::string_view) override { return {}; }
    Colour chooseColour() override { return 0; }

private:
    Random& random_;
};

/// A node's place below the top row, as the indices on the way down.
std::vector<std::size_t> placeOf(const dom::Node& top, const dom::Node& row) {
    std::vector<std::size_t> place;
    for (const dom::Node* node = &row; node != &top; node = node->parent())
        place.insert(place.begin(), indexAmongSiblings(*node));
    return place;
}

class Walk {
public:
    Walk(std::uint64_t seed, std::string nodes)
        : nodes_(std::move(nodes)), random_(seed), user_(random_), window_(nodes_) {}

    void run(int count) {
        for (int i = 0; i < count && !testing::Test::HasFailure(); ++i) {
            const std::size_t at = random_.below(commands_.size());
            SCOPED_TRACE(std::to_string(i) + ": command " + std::to_string(at));
            window_.error = 0;
            try {
                commands_[at]();
            } catch (const RunTimeError& error) {
                window_.error = error.number();
            }
            if (window_.error != 0) recover();
            tree().Refresh();
            tree().Update();
            test::pumpPending();
            EXPECT_EQ(window_.rows(), test::documentRows(tree(), base()));
            EXPECT_EQ(tree().selected(), session().selectedRow);
        }
    }

private:
    HelpSession& session() { return window_.core.session; }
    HelpTree& tree() { return *window_.tree; }
    dom::Node& base() { return *session().file.baseXMLNode; }

    std::vector<dom::Node*> allRows() {
        std::vector<dom::Node*> rows{&base()};
        for (std::size_t i = 0; i < rows.size(); ++i) {
            for (dom::Node* child = rows[i]->firstChild(); child; child = child->next())
                rows.push_back(child);
        }
        return rows;
    }
    std::set<dom::Node*> expandedRows() {
        std::set<dom::Node*> expanded;
        for (dom::Node* row : allRows()) {
            if (tree().IsExpanded(wxDataViewItem(row))) expanded.insert(row);
        }
        return expanded;
    }
    std::set<std::vector<std::size_t>> expandedPlaces() {
        std::set<std::vector<std::size_t>> places;
        for (dom::Node* row : expandedRows())
            places.insert(placeOf(base(), *row));
        return places;
    }

    /// Among names that are not unique, a click can lead nowhere; a text takes no children.
    void recover() {
        EXPECT_TRUE(window_.error == 91 || window_.error == 5) << window_.error;
        selectNode(session(), base());
        tree().select(base());
    }

    void toggle() {
        dom::Node* const row = random_.pick(allRows());
        const wxDataViewItem item(row);
        // Opening a row opens those above it.
        if (tree().IsExpanded(item)) {
            tree().Collapse(item);
        } else {
            tree().Expand(item);
        }
    }
    void choose() { tree().choose(*random_.pick(allRows())); }

    void rename() {
        const auto before = expandedPlaces();
        tree().run([this] { renameNode(session(), user_); });
        EXPECT_EQ(expandedPlaces(), openedFor(before));
    }
    template <class Command>
    void runCommand(Command command) {
        const std::set<dom::Node*> before = expandedRows();
        tree().run([&] { command(session(), user_); });
        std::set<dom::Node*> kept;
        for (dom::Node* row : allRows()) {
            if (before.contains(row) && row->hasChildren()) kept.insert(row);
        }
        for (dom::Node* row = session().selectedRow->parent(); row && row != base().parent();
             row = row->parent())
            kept.insert(row);
        std::set<dom::Node*> now = expandedRows();
        if (moved_) {
            kept.erase(session().selectedRow);
            now.erase(session().selectedRow);
        }
        EXPECT_EQ(now, kept);
        if (allRows().size() > atFirst_ + 50) shrink();
    }
    /// What is expanded so that the selected row can be seen is expanded, too.
    std::set<std::vector<std::size_t>> openedFor(std::set<std::vector<std::size_t>> places) {
        std::vector<std::size_t> place = placeOf(base(), *session().selectedRow);
        while (!place.empty()) {
            place.pop_back();
            places.insert(place);
        }
        return places;
    }
    void move(int steps) {
        moved_ = true;
        runCommand(
            [steps](HelpSession& session, Dialogs& dialogs) { moveNode(session, steps, dialogs); });
        moved_ = false;
    }
    void shrink() {
        session().currentnode = session().selectedRow = nullptr;
        tree().detach();
        window_.core.loadNodes(nodes_);
        tree().attach(session());
    }

    std::string nodes_;
    Random random_;
    RandomUser user_;
    test::TreeWindow window_;
    std::size_t atFirst_ = allRows().size();
    bool moved_ = false;
    const std::vector<std::function<void()>> commands_{
        [this] { choose(); },
        [this] { choose(); },
        [this] { toggle(); },
        [this] { toggle(); },
        [this] { runCommand(addSibling); },
        [this] { runCommand(addChild); },
        [this] { rename(); },
        [this] { runCommand(deleteNode); },
        [this] { move(1); },
        [this] { move(-1); },
        [this] { move(moveToTop); },
        [this] { move(moveToBottom); },
        [this] { runCommand(cutNode); },
        [this] { copyNode(session()); },
        [this] { runCommand(pasteNode); },
        [this] { runCommand(pasteNode); },
    };
};

TEST(HelpTreeWalk, RowsAndSelectionAgreeWithTheDocumentAfterEveryCommand) {
    Walk(20260201, "<alpha><beta>text</beta><gamma/></alpha><delta><alpha><D/></alpha></delta>")
        .run(300);
}

TEST(HelpTreeWalk, TheyDoOnALevelOfManyRows) {
    std::string nodes;
    for (int i = 0; i < 200; ++i)
        nodes += "<n" + std::to_string(i) + "><below/></n" + std::to_string(i) + ">";
    Walk(20260202, nodes).run(300);
}

}  // namespace
}  // namespace tavisk
