// Does with a document what the editor would do, on no disk, to see whether it gets through.
#pragma once

#include <optional>
#include <string_view>
#include <unordered_set>

#include "host/finding.h"
#include "platform/dom.h"
#include "platform/error.h"

namespace tavisk {

struct Failure {
    std::string_view code;  ///< of the finding that it makes
    std::string_view step;  ///< "loaded", "shown" or "saved"
    RunTimeError error;
};

/// Loads, shows with values, saves. None when all of it goes well. The document is one that is not
/// rejected.
std::optional<Failure> rehearse(dom::Source source);

/// Shows each node on its own and adds a finding for every one that fails, except `known`.
void findFailingNodes(dom::Document& document, const dom::Node& cabinet,
                      const std::unordered_set<const dom::Node*>& known, Findings& findings);

}  // namespace tavisk
