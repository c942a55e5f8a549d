// The rows of the tree as GTK asks for them: straight from the document.
#pragma once

#include <gtk/gtk.h>

#include "xml/dom.h"

namespace tavisk {

/// A model with one column, the shown name. Its top row is the node that `top` points at when
/// asked, null for no rows at all; below a row are its child nodes of every type. Iterators stay
/// valid for as long as their node lives. The caller owns the model, and sends its signals after
/// changes.
GtkTreeModel* newHelpTreeModel(dom::Node* const& top);

/// No rows from now on: what `top` refers to may go.
void clearHelpTreeModel(GtkTreeModel* model) noexcept;

/// The model remembers the place of the row that it was asked about last, for its neighbours.
void forgetPlaces(GtkTreeModel* model) noexcept;

GtkTreeIter iteratorAt(dom::Node& node) noexcept;
dom::Node* nodeAt(const GtkTreeIter& iterator) noexcept;

}  // namespace tavisk
