// Documents for tests, from literal text.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "xml/dom.h"
#include "xml/xmlReader.h"

namespace tavisk::test {

inline std::unique_ptr<dom::Document> parsed(std::string_view xml) {
    ParseResult result = readXml(xml);
    if (!result.document)
        throw std::runtime_error("the test's own document: " + result.refusal.reason);
    return std::move(result.document);
}

/// The first element of this name.
inline dom::Node& element(const dom::Document& document, std::string_view name) {
    return *document.elementsByTagName(name).at(0);
}

}  // namespace tavisk::test
