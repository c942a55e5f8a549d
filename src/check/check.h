// Everything that an author wants to know about a document before it goes out.
#pragma once

#include "base/refusal.h"
#include "check/finding.h"
#include "xml/dom.h"

namespace tavisk {

enum class Places { left, wanted };

/// In document order: the nodes, then the formulas, then the pictures. When there is no error among
/// them, the document can be loaded, shown with its values and saved. Finding their places in the
/// text takes a little longer.
Findings checkDocument(const dom::Source& source, Places places = Places::left);

/// The finding for a document that loading refuses.
Finding rejection(const Refusal& refusal);

}  // namespace tavisk
