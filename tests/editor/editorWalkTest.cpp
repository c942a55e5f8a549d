// Random walks: after every command the document, the selection, the panel and the serialised text
// must tell the same.
#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "document/helpNames.h"
#include "editor/answerText.h"
#include "editor/editorSession.h"
#include "editor/formattingCommands.h"
#include "editor/imageCommands.h"
#include "editor/nodeOperations.h"
#include "reference/random.h"
#include "support/xml.h"

namespace tavisk {
namespace {

using reference::Random;

/// A user who answers at random, from a few names that clash often.
class RandomUser final : public Dialogs {
public:
    RandomUser(Random& random, std::vector<std::string> names)
        : random_(random), names_(std::move(names)) {}

    Answer messageBox(const Message& message) override {
        const bool asks = message.style == BoxStyle::okCancelQuestion;
        return asks && random_.chance(40) ? Answer::cancel : Answer::ok;
    }
    std::string inputBox(std::string_view, std::string_view title, std::string_view) override {
        return random_.chance(title == "Bad Name" ? 40 : 10) ? "" : random_.pick(names_);
    }
    std::string openFile(std::string_view) override {
        static const std::vector<std::string> paths{"", "/p/a.png", "/p/none.gif", "/p/plain"};
        return random_.pick(paths);
    }
    Colour chooseColour() override { return static_cast<Colour>(random_.below(0x1000000)); }

private:
    Random& random_;
    std::vector<std::string> names_;
};

/// Whether two trees are equal in everything, and linked the same in both directions.
void expectSameTree(const dom::Node& a, const dom::Node& b) {
    ASSERT_EQ(a.type(), b.type());
    ASSERT_EQ(a.nodeName(), b.nodeName());
    ASSERT_EQ(a.data(), b.data());
    ASSERT_EQ(a.attributes().size(), b.attributes().size());
    for (std::size_t i = 0; i < a.attributes().size(); ++i) {
        ASSERT_EQ(a.attributes()[i].name(), b.attributes()[i].name());
        ASSERT_EQ(a.attributes()[i].text(), b.attributes()[i].text());
    }
    ASSERT_EQ(a.childCount(), b.childCount());
    const dom::Node* previous = nullptr;
    const dom::Node* of = b.firstChild();
    for (const dom::Node* child = a.firstChild(); child; child = child->next(), of = of->next()) {
        ASSERT_EQ(child->parent(), &a);
        ASSERT_EQ(child->previous(), previous);
        ASSERT_NO_FATAL_FAILURE(expectSameTree(*child, *of));
        previous = child;
    }
    ASSERT_EQ(a.lastChild(), previous);
}

std::vector<dom::Node*> rowsOf(dom::Node& base) {
    std::vector<dom::Node*> rows{&base};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (dom::Node* child = rows[i]->firstChild(); child; child = child->next())
            rows.push_back(child);
    }
    return rows;
}

class Walk : public test::EditorSession {
public:
    Walk(std::uint64_t seed, std::vector<std::string> names, bool unique)
        : random_(seed), user_(random_, std::move(names)), unique_(unique) {
        files.put("/p/a.png", "abc").put("/p/plain", "x");
        begin();
        addCommands();
    }

    /// How often each command did something.
    std::vector<std::pair<std::string, int>> run(int count) {
        std::vector<std::pair<std::string, int>> done;
        for (const auto& [name, weight, action] : commands_)
            done.emplace_back(name, 0);
        for (int i = 0; i < count && !testing::Test::HasFatalFailure(); ++i) {
            if (rowsOf(*session.file.baseXMLNode).size() > 60) begin();
            const std::size_t at = choose();
            SCOPED_TRACE(std::to_string(i) + " " + commands_[at].name);
            const std::string before = state();
            try {
                commands_[at].action();
            } catch (const RunTimeError& error) {
                recover(error.number());
            }
            if (state() != before) ++done[at].second;
            check();
        }
        return done;
    }

private:
    void begin() {
        load(R"(<?xml version="1.0"?><cabinetinfo><cabinet><one value="a `Rate`" style="3">)"
             R"(<two titlehidden="yes"/><three/></one><four value="b"><five/></four>)"
             R"(</cabinet><formula name="Rate" standard="1" value="5"/></cabinetinfo>)");
    }

    struct Command {
        std::string name;
        std::size_t weight;
        std::function<void()> action;
    };

    void addCommands();

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

    /// Everything that a command can act on.
    std::string state() const {
        const auto& copy = session.clipboardnode;
        return document() + selectedKey() + (copy ? writeXml(*copy) : "") +
               std::to_string(session.file.formulaCatalogue.entries().size());
    }

    /// A name or text that XML cannot hold is refused. Among names that are not unique, a click can
    /// lead nowhere.
    void recover(int error) {
        if (error == 91 && !unique_) {
            if (!session.loaded()) begin();
            selectNode(session, *session.file.baseXMLNode);
        } else {
            EXPECT_EQ(error, 5);
        }
    }

    void selectAny() {
        const std::vector<dom::Node*> rows = rowsOf(*session.file.baseXMLNode);
        selectNode(session, *random_.pick(rows));
    }

    std::u16string anyText() {
        static const std::vector<std::u16string> pieces{
            u"`", u"~", u"!", u"@", u"word ", u"Rate", u"\u00e9", u"\U0001F600", u"\n", u"\"<&>"};
        std::u16string text;
        for (std::size_t i = random_.below(8); i > 0; --i)
            text += random_.pick(pieces);
        return text;
    }

    TextSelection anySelection() {
        // Not between the halves of a surrogate pair: there the caret cannot stand.
        std::vector<std::size_t> places;
        const std::u16string& text = session.panel.text;
        for (std::size_t i = 0; i <= text.size(); ++i) {
            if (i == text.size() || (text[i] & 0xFC00) != 0xDC00) places.push_back(i);
        }
        std::size_t start = random_.pick(places);
        std::size_t end = random_.pick(places);
        if (start > end) std::swap(start, end);
        return {start, end - start};
    }

    void chooseImage() {
        if (!session.lstImages.entries.empty())
            session.lstImages.index = random_.below(session.lstImages.entries.size());
    }

    /// Refresh and the next opening.
    void reload() {
        const std::string key = selectedKey();
        const bool atBase = session.selectedRow == session.file.baseXMLNode;
        session.refresh();
        EXPECT_FALSE(session.changed());
        session.unload();
        ASSERT_EQ(load(std::string(session.xmlText)), std::nullopt);
        if (!atBase) {
            EXPECT_EQ(selectedKey(), key);
        }
    }

    void check();
    void checkPanel();

    Random random_;
    RandomUser user_;
    bool unique_;
    std::vector<Command> commands_;
};

void Walk::addCommands() {
    const auto flag = [this] { return random_.chance(50); };
    const auto side = [this] { return random_.chance(50) ? Side::title : Side::answer; };
    const auto button = [this] { return std::array{0, 2, 3, 5}[random_.below(4)]; };
    commands_ = {
        {"select", 20, [=, this] { selectAny(); }},
        {"add sibling", 8, [=, this] { addSibling(session, user_); }},
        {"add child", 8, [=, this] { addChild(session, user_); }},
        {"rename", 6,
         [=, this] {
             // A cabinet of another name could not be opened again.
             if (session.currentnode != session.file.baseXMLNode) renameNode(session, user_);
         }},
        {"delete", 4, [=, this] { deleteNode(session, user_); }},
        {"move up", 6, [=, this] { moveNode(session, 1, user_); }},
        {"move down", 6, [=, this] { moveNode(session, -1, user_); }},
        {"move to top", 3, [=, this] { moveNode(session, moveToTop, user_); }},
        {"move to bottom", 3, [=, this] { moveNode(session, moveToBottom, user_); }},
        {"cut", 3,
         [=, this] {
             if (session.currentnode != session.file.baseXMLNode) cutNode(session, user_);
         }},
        {"copy", 4,
         [=, this] {
             if (session.currentnode != session.file.baseXMLNode) copyNode(session);
         }},
        {"paste", 6, [=, this] { pasteNode(session, user_); }},
        {"font size", 3, [=, this] { changeFontSize(session, button()); }},
        {"gap", 3, [=, this] { moveGap(session, button()); }},
        {"colour", 3, [=, this] { changeColour(session, side(), user_); }},
        {"style", 4,
         [=, this] {
             const std::size_t bit = random_.below(6);
             clickStyle(session, static_cast<int>(bit), !session.panel.style[bit]);
         }},
        {"hidden", 3, [=, this] { clickHidden(session, side(), flag()); }},
        {"column break", 2, [=, this] { clickColumnBreak(session, flag()); }},
        {"page break", 2, [=, this] { clickPageBreak(session, flag()); }},
        {"type", 8, [=, this] { changeAnswerText(session, anyText()); }},
        {"formula at cursor", 2,
         [=, this] { insertFormulaAtCursor(session, session.lstFormulas.text(), anySelection()); }},
        {"formula at end", 2,
         [=, this] { insertFormulaAtEnd(session, session.lstFormulas.text()); }},
        {"image at cursor", 2,
         [=, this] { insertImageAtCursor(session, session.lstImages.text(), anySelection()); }},
        {"image at end", 2, [=, this] { insertImageAtEnd(session, session.lstImages.text()); }},
        {"overlay", 2, [=, this] { insertOverlay(session, session.lstImages.text()); }},
        {"external image", 2, [=, this] { insertExternalImage(session, user_, anySelection()); }},
        {"add image", 3, [=, this] { addImage(session, user_); }},
        {"remove image", 2,
         [=, this] {
             chooseImage();
             removeImage(session, user_);
         }},
        {"add formula", 2,
         [=, this] {
             session.file.formulaCatalogue.addByPrompt(user_, [=, this](const std::string& name) {
                 session.lstFormulas.entries.push_back(name);
             });
         }},
        {"reload", 3, [=, this] { reload(); }},
    };
}

void Walk::check() {
    const std::string text = document();
    const auto again = test::parsed(text);
    ASSERT_EQ(writeXml(*again), text);
    ASSERT_NO_FATAL_FAILURE(expectSameTree(session.file.articledoc->root(), again->root()));

    dom::Node& base = *session.file.baseXMLNode;
    ASSERT_EQ(&base, &test::element(*session.file.articledoc, "cabinet"));
    const std::vector<dom::Node*> rows = rowsOf(base);
    const std::set<const dom::Node*> known(rows.begin(), rows.end());
    ASSERT_TRUE(known.contains(session.selectedRow));
    ASSERT_TRUE(known.contains(session.currentnode));
    const std::string key = selectedKey();
    ASSERT_EQ(KeyOfTreeNode(base, *session.currentnode, keySeparator), key);
    if (unique_) {
        ASSERT_EQ(session.selectedRow, session.currentnode);
        dom::Node* const found = findTreeNode(test::element(*again, "cabinet"), key);
        ASSERT_NE(found, nullptr);
        ASSERT_EQ(writeXml(*found), current());
        std::set<std::string> keys;
        for (std::string& one : allKeys(base))
            ASSERT_TRUE(keys.insert(std::move(one)).second);
    }
    ASSERT_NO_FATAL_FAILURE(checkPanel());
}

void Walk::checkPanel() {
    const NodePanel& panel = session.panel;
    const auto read = [this](std::string_view name, std::string_view missing) {
        return std::string(GetAttributeValue(session.currentnode, name, missing));
    };
    EXPECT_FALSE(panel.loading);
    ASSERT_EQ(toUtf8(panel.text), read("value", ""));
    std::vector<Token> tokens;
    scanTokens(panel.text, tokens);
    EXPECT_EQ(panel.tokens, tokens);
    EXPECT_EQ(panel.gapCaptions[0], "Gap above: " + read("spacebefore", "0"));
    EXPECT_EQ(panel.gapCaptions[1], "Gap below: " + read("spaceafter", "0"));
    EXPECT_EQ(panel.colourCaptions[0], "Text Color: " + read("titlecolor", "#000000"));
    EXPECT_EQ(panel.colourCaptions[1], "Text Color: " + read("answercolor", "#000000"));
    EXPECT_EQ(panel.hidden[0], read("titlehidden", "0") == "1");
    EXPECT_EQ(panel.hidden[1], read("answerhidden", "0") == "1");
    EXPECT_EQ(panel.columnBreak, read("columnbreak", "0") == "1");
    EXPECT_EQ(panel.pageBreak, read("pagebreak", "0") == "1");
    int style = 0;
    for (std::size_t i = 0; i < styleBits.size(); ++i)
        style += panel.style[i] ? styleBits[i] : 0;
    EXPECT_EQ(std::to_string(style), read("style", "0"));
}

TEST(EditorWalk, DocumentSelectionPanelAndTextAgreeAfterEveryCommand) {
    Walk walk(20260101, {"alpha", "beta", "gamma", "delta", "1st", "x_y", "-", "C", "D"}, true);
    for (const auto& [command, count] : walk.run(2000))
        EXPECT_GT(count, 0) << command << " never did anything";
}

TEST(EditorWalk, NamesThatAreNotUniqueKeepTheKeyOfTheSelection) {
    Walk walk(20260102, {"my node", "my other node", "alpha", "D"}, false);
    walk.run(2000);
}

}  // namespace
}  // namespace tavisk
