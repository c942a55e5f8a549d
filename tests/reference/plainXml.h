// Plain trees as XML text, and as a loaded document holds them.
#pragma once

#include <string>

#include "reference/plainTree.h"

namespace tavisk::reference {

/// How one document is written; every style stands for the same tree once loaded.
struct XmlStyle {
    bool declaration = false;
    bool indented = false;      ///< line breaks where loading drops them again
    bool singleQuotes = false;  ///< around attribute values
    bool emptyPairs = false;    ///< a start and an end tag for an element without children
};

std::string xmlOf(const PlainNode& document, const XmlStyle& style);

/// The tree after loading: texts beside each other are one text, and a text of white space only is
/// gone unless an element around it preserves space.
PlainNode asLoaded(const PlainNode& document);

}  // namespace tavisk::reference
