// What must hold after every action: the window shows what its session has.
#pragma once

#include <string>

#include "ui/support/editorWindow.h"

namespace tavisk::test {

/// All rows of the tree, expanded or not, one line each, indented by level; "<" marks the selected
/// one.
std::string treeRows(const HelpTree& tree);

/// Tree, selection, panel, answer text with its colours, lists, picture, frames, menu entries and
/// tools.
void expectInStep(EditorWindow& editor);

}  // namespace tavisk::test
