// Does with a document what the editor would do, on no disk, to see whether it gets through.
#pragma once

#include <optional>
#include <string_view>

#include "base/error.h"
#include "check/finding.h"
#include "check/nodeChecks.h"
#include "document/helpDocument.h"

namespace tavisk {

struct Failure {
    std::string_view code;  ///< of the finding that it makes
    std::string_view step;  ///< "loaded", "shown" or "saved"
    RunTimeError error;
};

enum class Page { made, leftOut };

/// Loads, shows with values unless the page is left out, saves. None when all of it goes well.
std::optional<Failure> rehearse(HelpDocument document, Page page = Page::made);

/// Shows each node on its own and adds a finding for every one that fails, except `known`.
void findFailingNodes(HelpDocument& document, const NodeNumbers& known, FindingList& findings);

}  // namespace tavisk
