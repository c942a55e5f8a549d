// A random session: after every step the window shows what the document holds.
#include <functional>
#include <gtest/gtest.h>
#include <iostream>
#include <memory>
#include <set>
#include <string>
#include <vector>
#include <wx/eventfilter.h>

#include "document/nodeKeys.h"
#include "reference/differential.h"
#include "reference/random.h"
#include "ui/editor/boxText.h"
#include "ui/support/answerWindow.h"
#include "ui/support/editorStep.h"
#include "ui/support/treeWindow.h"

namespace tavisk {
namespace {

using reference::Random;
using test::EditorWindow;
using test::expectInStep;
using test::HelpXml;
using Operation = test::MemoryFiles::Operation;

constexpr const char* startDocument =
    R"(<?xml version="1.0"?><cabinetinfo><cabinet><one value="a `Rate`" style="3">)"
    R"(<two titlehidden="yes" value="`~logo` &#x1F600;"/><three pagebreak="2"/>words</one>)"
    R"(<four titlecolor="#FF8000" spacebefore="2"><five/><!--note--><bad style="bold"/></four>)"
    R"(<cabinetdata><locked value="data"/></cabinetdata>)"
    R"(<my_node><image name="in the tree">QUI=</image><formula name="Tax" standard="1"/></my_node>)"
    R"(<my_node answerhidden="1"><six/></my_node></cabinet>)"
    R"(<formula name="Rate" description="The rate" value="5" standard="1"/>)"
    R"(<image name="logo">QUI=</image></cabinetinfo>)";

/// Answers every dialog at random, unless a test wants a certain answer.
class RandomAnswers final : public wxModalDialogHook {
public:
    explicit RandomAnswers(Random& random) : random_(random) { Register(); }
    ~RandomAnswers() override { Unregister(); }

    std::string nextName;             ///< of the next prompt; empty: any
    int saveAnswer = wxID_CANCEL;     ///< to the question on closing
    std::vector<std::string> errors;  ///< numbers of the reports since this was cleared

protected:
    int Enter(wxDialog* dialog) override {
        if (const auto* box = dynamic_cast<wxMessageDialogBase*>(dialog)) return answer(*box);
        if (auto* prompt = dynamic_cast<wxTextEntryDialog*>(dialog)) return answer(*prompt);
        if (auto* file = dynamic_cast<wxFileDialog*>(dialog)) {
            if (random_.chance(30)) return wxID_CANCEL;
            test::chooseInDialog(*file, random_.pick(paths));
            return wxID_OK;
        }
        const auto part = [this] { return static_cast<unsigned char>(random_.below(256)); };
        test::chooseInDialog(dynamic_cast<wxColourDialog&>(*dialog),
                             wxColour(part(), part(), part()));
        return random_.chance(80) ? wxID_OK : wxID_CANCEL;
    }

private:
    static inline const std::vector<std::string> paths{"/tmp/a.png", "/tmp/none.gif"};
    static inline const std::vector<std::string> names{
        "alpha", "beta", "gamma", "my node", "my other node", "1st",
        "x_y",   "-",    "C",     "Rate",    "logo",          "a*b"};

    int answer(const wxMessageDialogBase& box) {
        const std::string text = utf8Of(box.GetMessage());
        constexpr std::string_view report = "Run-time error '";
        if (text.starts_with(report))
            errors.push_back(
                text.substr(report.size(), text.find('\'', report.size()) - report.size()));
        if (box.GetMessageDialogStyle() & wxYES_NO) return saveAnswer;
        const bool asks = box.GetMessageDialogStyle() & wxCANCEL;
        return asks && random_.chance(40) ? wxID_CANCEL : wxID_OK;
    }
    int answer(wxTextEntryDialog& prompt) {
        const bool again = prompt.GetTitle() == "Bad Name";
        if (nextName.empty() && random_.chance(again ? 40 : 10)) return wxID_CANCEL;
        prompt.SetValue(toWx(nextName.empty() ? random_.pick(names) : nextName));
        nextName.clear();
        return wxID_OK;
    }

    Random& random_;
};

/// Closes every preview that opens.
class ClosePreviews final : public wxEventFilter {
public:
    ClosePreviews() { wxEvtHandler::AddFilter(this); }
    ~ClosePreviews() override { wxEvtHandler::RemoveFilter(this); }

    int FilterEvent(wxEvent& event) override {
        auto* const window = dynamic_cast<wxTopLevelWindow*>(event.GetEventObject());
        if (event.GetEventType() == wxEVT_SHOW && window && window->GetName() == "frmPreview" &&
            static_cast<wxShowEvent&>(event).IsShown()) {
            ++shown;
            window->CallAfter([window] { window->Close(); });
        }
        return Event_Skip;
    }

    int shown = 0;
};

class RandomSession {
public:
    explicit RandomSession(std::uint64_t seed) : random_(seed) {
        open(startDocument);
        addNodeCommands();
        addPanelCommands();
        addTextAndListCommands();
        addLifeCycleCommands();
    }

    void run(int steps) {
        constexpr int reopenEvery = 100;
        for (int step = 1; step <= steps; ++step) {
            const Command& command = commands_[choose()];
            SCOPED_TRACE("step " + std::to_string(step) + ": " + command.name);
            now_->answers.errors.clear();
            const std::string before = state();
            try {
                command.action();
            } catch (const std::exception& error) {
                ADD_FAILURE() << error.what();
                return;
            }
            if (state() != before) effective_.insert(command.name);
            if (random_.chance(20)) test::pumpPending();
            check();
            if (step % reopenEvery == 0) reopen();
            if (testing::Test::HasFailure()) return;
        }
    }

    /// Commands that never changed anything.
    std::vector<std::string> idle() const {
        std::vector<std::string> names;
        for (const Command& command : commands_) {
            if (command.changes && !effective_.contains(command.name))
                names.push_back(command.name);
        }
        return names;
    }
    int previews() const { return previews_.shown; }

private:
    struct Command {
        std::string name;
        std::size_t weight;
        std::function<void()> action;
        bool changes = true;
    };
    /// The answers come last, so that they are asked first.
    struct Open {
        Open(const HelpXml& document, Random& random) : editor(document), answers(random) {}
        EditorWindow editor;
        RandomAnswers answers;
    };

    EditorWindow& editor() { return now_->editor; }
    EditorControls& controls() { return now_->editor.controls(); }
    HelpSession& session() { return now_->editor.session(); }
    HelpTree& tree() { return *controls().TreeXML; }

    void open(const std::string& text) {
        now_.reset();
        now_ = std::make_unique<Open>(HelpXml{text}, random_);
        editor().core.files.put("/tmp/a.png", "abc");
        check();
    }

    void check() {
        expectInStep(editor());
        // 5: a name or text that XML cannot hold; 13: a style that is no number; 91: a row that
        // its key does not lead to.
        for (const std::string& error : now_->answers.errors)
            EXPECT_TRUE(error == "5" || error == "13" || error == "91") << error;
    }

    /// Everything that a command can act on.
    std::string state() {
        const HelpSession& all = session();
        std::string text = editor().core.document() + all.panel.currentField;
        if (all.clipboardnode) text += writeXml(*all.clipboardnode);
        for (const DropDownList* list : {&all.lstFormulas, &all.lstImages}) {
            text += std::to_string(list->entries.size()) + '.';
            text += list->text();
        }
        return text;
    }

    std::size_t choose() {
        std::size_t total = 0;
        for (const Command& command : commands_)
            total += command.weight;
        std::size_t left = random_.below(total);
        std::size_t at = 0;
        while (left >= commands_[at].weight)
            left -= commands_[at++].weight;
        return at;
    }

    std::vector<dom::Node*> rows() {
        std::vector<dom::Node*> all;
        for (dom::Node* row = session().file.baseXMLNode; row;
             row = dom::nextInDocument(*row, *session().file.baseXMLNode))
            all.push_back(row);
        return all;
    }
    dom::Node& anyRow() { return *random_.pick(rows()); }

    /// Two cabinets, or a first node with a style that is no number, could not be opened again.
    bool isCopied() {
        return session().currentnode != session().file.baseXMLNode && !session().panel.loading;
    }

    void addNodeCommands();
    void addPanelCommands();
    void addTextAndListCommands();
    void addLifeCycleCommands();
    void menu(const char* name, std::size_t weight);
    void tool(const char* tip, std::size_t weight);
    void button(wxButton* EditorControls::*which, const char* name, std::size_t weight);

    std::u16string anyText();
    void typeSomewhere();
    void chooseFrom(wxChoice& list);
    void makeShowable();
    void preview();
    void refusedSave();
    void save();
    void reopen();

    Random random_;
    ClosePreviews previews_;
    std::unique_ptr<Open> now_;
    std::vector<Command> commands_;
    std::set<std::string> effective_;
};

void RandomSession::menu(const char* name, std::size_t weight) {
    commands_.push_back({name, weight, [this, name] {
                             constexpr std::size_t most = 60;
                             const bool adds = std::string_view(name).starts_with("cmdNew");
                             if (adds && rows().size() > most) return;
                             editor().menuIfEnabled(name);
                         }});
}

void RandomSession::tool(const char* tip, std::size_t weight) {
    commands_.push_back({tip, weight, [this, tip] {
                             const std::string_view name = tip;
                             if ((name == "Cut" || name == "Copy") && !isCopied()) return;
                             constexpr std::size_t most = 60;
                             if (name == "Paste" && rows().size() > most) return;
                             editor().toolIfEnabled(tip);
                         }});
}

void RandomSession::addNodeCommands() {
    commands_.push_back({"select", 30, [this] { tree().choose(anyRow()); }});
    commands_.push_back({"expand", 3, [this] { tree().Expand(wxDataViewItem(&anyRow())); }, false});
    commands_.push_back({"collapse", 3, [this] { tree().Collapse(wxDataViewItem(&anyRow())); }});
    menu("cmdNew", 8);
    menu("cmdNewChild", 5);
    menu("cmdDel", 2);
    menu("cmdMoveUp", 2);
    menu("cmdMoveDown", 2);
    commands_.push_back({"cmdRename", 6, [this] {
                             // A cabinet of another name could not be opened again.
                             if (session().currentnode != session().file.baseXMLNode)
                                 editor().menuIfEnabled("cmdRename");
                         }});
    for (const char* tip : {"New Child Node", "Delete", "Cut", "Copy", "Move To Top",
                            "Move To Bottom", "Move Up", "Move Down"})
        tool(tip, 3);
    tool("Paste", 8);
}

void RandomSession::addPanelCommands() {
    const auto clickAny = [this](const char* name, std::size_t weight,
                                 ControlArray<wxButton> EditorControls::*which) {
        commands_.push_back({name, weight, [this, which] {
                                 auto at = (controls().*which).begin();
                                 std::advance(at, random_.below((controls().*which).size()));
                                 if (at->second->IsEnabled()) editor().click(at->second);
                             }});
    };
    clickAny("font size", 4, &EditorControls::cmdChangeFont);
    clickAny("gap", 4, &EditorControls::cmdMoveGaps);
    clickAny("colour", 3, &EditorControls::ChangeColor);
    const auto toggle = [this](const char* name, std::size_t weight,
                               std::function<wxCheckBox*()> box) {
        commands_.push_back({name, weight, [this, box = std::move(box)] {
                                 wxCheckBox* const chosen = box();
                                 if (chosen->IsEnabled())
                                     editor().tick(chosen, !chosen->GetValue());
                             }});
    };
    toggle("style", 6, [this] { return controls().chkStyle.at(1 << random_.below(6)); });
    toggle("hidden", 3,
           [this] { return controls().chkHidden.at(static_cast<int>(random_.below(2))); });
    toggle("column break", 2, [this] { return controls().chkColumnBreak; });
    toggle("page break", 2, [this] { return controls().chkPageBreak; });
}

std::u16string RandomSession::anyText() {
    static const std::vector<std::u16string> pieces{
        u"`", u"`", u"~", u"!", u"@", u"word ", u"Rate", u"\u00e9", u"\U0001F600", u"\n", u"\"<&>"};
    std::u16string text;
    for (std::size_t i = random_.below(8); i > 0; --i)
        text += random_.pick(pieces);
    return text;
}

void RandomSession::typeSomewhere() {
    AnswerBox& box = *controls().txtValue;
    if (!box.IsEnabled()) return;
    const auto length = test::characterCount(box.text());
    const std::size_t from = random_.below(length + 1);
    const std::size_t to = random_.below(length + 1);
    if (random_.chance(30)) {
        box.Remove(test::placeBehind(box, std::min(from, to)),
                   test::placeBehind(box, std::max(from, to)));
    } else {
        box.SetInsertionPoint(test::placeBehind(box, from));
        box.WriteText(textForBox(anyText()));
    }
}

void RandomSession::button(wxButton* EditorControls::*which, const char* name, std::size_t weight) {
    commands_.push_back({name, weight, [this, which] {
                             AnswerBox& box = *controls().txtValue;
                             const auto length = test::characterCount(box.text());
                             const std::size_t from = random_.below(length + 1);
                             const std::size_t to = random_.below(length + 1);
                             test::selectCharacters(box, std::min(from, to), std::max(from, to));
                             wxButton* const chosen = controls().*which;
                             if (chosen->IsEnabled()) editor().click(chosen);
                         }});
}

void RandomSession::chooseFrom(wxChoice& list) {
    if (list.IsEnabled() && list.GetCount() > 0)
        editor().choose(&list, static_cast<int>(random_.below(list.GetCount())));
}

void RandomSession::addTextAndListCommands() {
    commands_.push_back({"type a text", 6, [this] {
                             if (controls().txtValue->IsEnabled()) editor().type(anyText());
                         }});
    commands_.push_back({"type", 12, [this] { typeSomewhere(); }});
    commands_.push_back({"choose formula", 3, [this] { chooseFrom(*controls().lstFormulas); }});
    commands_.push_back({"choose image", 5, [this] { chooseFrom(*controls().lstImages); }});
    button(&EditorControls::cmdInsertFormulaAtCursor, "formula at cursor", 2);
    button(&EditorControls::cmdInsertFormulaAtEnd, "formula at end", 2);
    button(&EditorControls::cmdInsertImage, "image at cursor", 2);
    button(&EditorControls::cmdAppendImage, "image at end", 2);
    button(&EditorControls::cmdImageOverlay, "overlay", 2);
    button(&EditorControls::cmdExternImage, "external image", 2);
    button(&EditorControls::cmdFormulaAdd, "add formula", 3);
    button(&EditorControls::cmdImageAdd, "add image", 3);
    button(&EditorControls::cmdImageDel, "remove image", 3);
    commands_.push_back(
        {"remove formula", 1, [this] { editor().click(controls().cmdFormulaDel); }, false});
}

/// Types over what a page cannot hold, where a click leads to it.
void RandomSession::makeShowable() {
    for (std::size_t at = 0; at < rows().size(); ++at) {
        dom::Node& row = *rows()[at];
        if (GetAttributeValue(&row, "value", "").find('\xF0') == std::string_view::npos) continue;
        tree().choose(row);
        if (controls().txtValue->IsEnabled()) editor().type(u"plain");
    }
}

void RandomSession::preview() {
    const bool fails = random_.chance(70);
    if (fails) {
        editor().core.files.fail(Operation::createFolder, ErrorNumber::typeMismatch);
    } else {
        makeShowable();
    }
    const std::string before = editor().core.document();
    const int shown = previews_.shown;
    now_->answers.errors.clear();
    editor().click(controls().cmdPreview);
    editor().core.files.heal();
    EXPECT_EQ(editor().core.document(), before);
    EXPECT_EQ(previews_.shown, now_->answers.errors.empty() ? shown + 1 : shown);
}

/// In every way to save, while no element is named `cabinet`.
void RandomSession::refusedSave() {
    tree().choose(*session().file.baseXMLNode);
    now_->answers.nextName = "other";
    editor().menu("cmdRename");
    check();
    now_->answers.errors.clear();
    const std::string before = editor().core.document();
    now_->answers.saveAnswer = wxID_YES;
    save();
    now_->answers.saveAnswer = wxID_CANCEL;
    EXPECT_EQ(now_->answers.errors, std::vector<std::string>{"91"});
    EXPECT_TRUE(editor().window->IsShown());
    EXPECT_EQ(editor().core.document(), before);
    check();
    now_->answers.nextName = "cabinet";
    editor().menu("cmdRename");
}

void RandomSession::save() {
    switch (random_.below(5)) {
        case 0: editor().click(controls().cmdOK); break;
        case 1: editor().click(controls().cmdCancel); break;
        case 2: editor().click(controls().cmdRefreshButton); break;
        case 3: editor().fileMenu(controls().cmdRefresh); break;
        default: editor().window->Close(); break;
    }
}

void RandomSession::addLifeCycleCommands() {
    commands_.push_back({"preview", 2, [this] { preview(); }, false});
    commands_.push_back({"refused save", 2, [this] { refusedSave(); }});
    commands_.push_back({"cancelled close", 2,
                         [this] {
                             editor().window->Close();
                             EXPECT_TRUE(editor().window->IsShown());
                         },
                         false});
    commands_.push_back({"reopen", 1, [this] { reopen(); }});
}

/// Saves, closes and opens what was saved.
void RandomSession::reopen() {
    // Opening ends in an error for a node that a click does not lead to.
    if (session().panel.loading || session().currentnode != session().selectedRow)
        tree().choose(*session().file.baseXMLNode->firstChild());
    now_->answers.saveAnswer = wxID_YES;
    save();
    ASSERT_FALSE(editor().window->IsShown());
    const std::vector<std::string> keys = allKeys(*session().file.baseXMLNode);
    open(std::string(session().xmlText));
    EXPECT_EQ(allKeys(*session().file.baseXMLNode), keys);
}

TEST(FrmMainRandom, WindowAndDocumentAgreeAfterEveryStepOfARandomSession) {
    const std::uint64_t seed = reference::numberFromEnvironment("TAVISK_SEED", 20261121);
    const auto steps =
        static_cast<int>(reference::numberFromEnvironment("TAVISK_RANDOM_STEPS", 2000));
    std::cout << "TAVISK_SEED=" << seed << " TAVISK_RANDOM_STEPS=" << steps << '\n';
    const test::ToolkitComplaints complaints;
    RandomSession session(seed);
    session.run(steps);
    if (steps < 2000) return;
    EXPECT_EQ(session.idle(), std::vector<std::string>{});
    EXPECT_GT(session.previews(), 0);
}

}  // namespace
}  // namespace tavisk
