// What is wrong with the formulas and pictures of a document.
#pragma once

#include "check/finding.h"
#include "check/tokenNames.h"

namespace tavisk {

void checkFormulas(const TokenNames& names, FindingList& findings);

/// After the nodes: by then it is known which pictures the texts use.
void checkPictures(const TokenNames& names, FindingList& findings);

}  // namespace tavisk
