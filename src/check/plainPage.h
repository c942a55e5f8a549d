// Whether it can be seen without making a page that it can be made.
#pragma once

#include "check/tokenNames.h"
#include "xml/dom.h"

namespace tavisk {

/// True only when making the page with values cannot fail, in a document of which nothing else was
/// found. False says nothing: then it has to be made to know.
bool pageCannotFail(const dom::Node& cabinet, const TokenNames& names);

}  // namespace tavisk
