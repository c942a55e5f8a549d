// The help document: parsing a host's text, the checks of its shape, and its `cabinet` element.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "base/refusal.h"
#include "xml/dom.h"

namespace tavisk {

struct HelpDocument {
    std::unique_ptr<dom::Document> articledoc;
    dom::Node* cabinet = nullptr;  ///< the one element of that name
};

std::variant<HelpDocument, Refusal> openHelpDocument(dom::Source source);

}  // namespace tavisk
