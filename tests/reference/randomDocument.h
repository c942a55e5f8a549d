// Random help documents that look for trouble: tokens beside, inside and across each other, odd
// numbers, odd names, texts at the length limit.
#pragma once

#include <cstdint>

#include "reference/plainTree.h"
#include "reference/plainXml.h"

namespace tavisk::reference {

struct RandomDocument {
    PlainNode document;  ///< before loading: with texts that loading drops
    XmlStyle style;
};

/// The same document for the same seed, everywhere.
RandomDocument randomDocument(std::uint64_t seed);

}  // namespace tavisk::reference
