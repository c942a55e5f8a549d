#include "ui/support/editorStep.h"

#include <wx/image.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include "base/text.h"
#include "editor/imageCommands.h"
#include "ui/support/answerWindow.h"
#include "ui/support/treeWindow.h"

namespace tavisk::test {
namespace {

using Nodes = std::vector<const dom::Node*>;

std::string line(std::size_t level, const std::string& name, bool selected) {
    return std::string(level, ' ') + name + (selected ? " <" : "") + '\n';
}

std::string documentLines(const dom::Node& node, const dom::Node* selected, std::size_t level) {
    std::string lines = line(level, shownName(node.baseName()), &node == selected);
    for (const dom::Node* child = node.firstChild(); child; child = child->next())
        lines += documentLines(*child, selected, level + 1);
    return lines;
}

void expectTree(EditorWindow& editor) {
    HelpTree& tree = *editor.controls().TreeXML;
    const HelpSession& session = editor.session();
    // What is selected outside the document has no row.
    const dom::Node* const selected =
        tree.isRow(session.selectedRow) ? session.selectedRow : nullptr;
    EXPECT_EQ(tree.selected(), selected);
    EXPECT_EQ(treeRows(tree), documentLines(*session.file.baseXMLNode, selected, 0));
    Nodes shown;
    for (const ModelRow& row : modelRows(tree))
        shown.push_back(row.node);
    Nodes held;
    for (const dom::Node* node = session.file.baseXMLNode; node;
         node = dom::nextInDocument(*node, *session.file.baseXMLNode))
        held.push_back(node);
    EXPECT_EQ(shown, held);
    EXPECT_EQ(shownRows(tree), documentRows(tree, *session.file.baseXMLNode));
}

void expectPanel(EditorWindow& editor) {
    EditorControls& controls = editor.controls();
    const NodePanel& panel = editor.session().panel;
    EXPECT_EQ(editor.label(controls.lblCurrentField), panel.currentField);
    for (int i = 0; i < 2; ++i) {
        const auto side = static_cast<std::size_t>(i);
        EXPECT_EQ(editor.label(controls.lblColor.at(i)), panel.colourCaptions[side]);
        EXPECT_EQ(controls.lblColor.at(i)->GetForegroundColour().GetRGB(), panel.colours[side]);
        EXPECT_EQ(editor.label(controls.lblGap.at(i)), panel.gapCaptions[side]);
        EXPECT_EQ(editor.label(controls.lblFontSize.at(i)), panel.fontSizeCaptions[side]);
        EXPECT_EQ(controls.chkHidden.at(i)->GetValue(), panel.hidden[side]);
    }
    for (std::size_t i = 0; i < styleBits.size(); ++i)
        EXPECT_EQ(controls.chkStyle.at(styleBits[i])->GetValue(), panel.style[i]) << styleBits[i];
    EXPECT_EQ(controls.chkColumnBreak->GetValue(), panel.columnBreak);
    EXPECT_EQ(controls.chkPageBreak->GetValue(), panel.pageBreak);
}

void expectText(EditorWindow& editor) {
    const AnswerBox& box = *editor.controls().txtValue;
    EXPECT_EQ(box.text(), editor.session().panel.text);
    EXPECT_EQ(shownColours(box), ruledColours(box.text())) << toUtf8(box.text());
}

void expectList(const wxChoice& control, const DropDownList& list) {
    EXPECT_EQ(EditorWindow::entries(&control), list.entries);
    const int chosen = list.index ? static_cast<int>(*list.index) : wxNOT_FOUND;
    EXPECT_EQ(control.GetSelection(), chosen);
}

bool isPicture(const std::string& bytes) {
    const wxLogNull quiet;
    wxMemoryInputStream stream(bytes.data(), bytes.size());
    return !bytes.empty() && wxImage(stream).IsOk();
}

void expectLists(EditorWindow& editor) {
    EditorControls& controls = editor.controls();
    const HelpSession& session = editor.session();
    expectList(*controls.lstFormulas, session.lstFormulas);
    expectList(*controls.lstImages, session.lstImages);
    if (session.lstFormulas.index) {
        EXPECT_EQ(editor.label(controls.lblFormulaHelp),
                  session.file.formulaCatalogue.descriptionOf(session.lstFormulas.text()));
    }
    EXPECT_EQ(controls.Picture1->isEmpty(), !isPicture(chosenPicture(session)));
}

void expectEnabled(EditorWindow& editor) {
    EditorControls& controls = editor.controls();
    const NodePanel& panel = editor.session().panel;
    for (const wxStaticBox* frame : {controls.fraFormatting, controls.fraTitle, controls.fraValue,
                                     controls.fraEditor, controls.fraGaps}) {
        EXPECT_EQ(frame->IsThisEnabled(), panel.framesEnabled) << frame->GetName();
        for (const wxWindow* child : frame->GetChildren()) {
            const bool usable = child != controls.txtValue || panel.textUsable;
            EXPECT_EQ(child->IsThisEnabled(), panel.framesEnabled && usable) << child->GetName();
        }
    }
    for (std::size_t i = 0; i < nodeCommands().size(); ++i) {
        const NodeCommand& command = nodeCommands()[i];
        if (command.name) {
            EXPECT_EQ(editor.window->GetMenuBar()->IsEnabled(menuId(i)),
                      panel.nodeCommandsEnabled || std::string_view(command.name) == "cmdNewChild")
                << command.name;
        }
        if (command.toolIndex > 0) {
            EXPECT_EQ(controls.toolNodes->GetToolEnabled(toolId(i)),
                      panel.framesEnabled || command.tag == 0)
                << command.toolTip;
        }
    }
}

}  // namespace

std::string treeRows(const HelpTree& tree) {
    std::string lines;
    for (const ModelRow& row : modelRows(tree))
        lines += line(row.level, row.name, row.node == tree.selected());
    return lines;
}

void expectInStep(EditorWindow& editor) {
    expectTree(editor);
    expectPanel(editor);
    expectText(editor);
    expectLists(editor);
    expectEnabled(editor);
}

}  // namespace tavisk::test
