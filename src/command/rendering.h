// From a document to its page. A document that is none is Rejected.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/files.h"
#include "command/output.h"
#include "command/progress.h"
#include "xml/dom.h"

namespace tavisk {

/// Writes temp.html, pictures and what the page needs besides into the folder, which is created if
/// missing.
void renderPage(Files& files, const std::string& folder, dom::Source source, bool evaluate,
                Progress& progress);

struct StandalonePlan {
    std::string pageFolder;                  ///< where the page is going to lie
    std::optional<std::string> assetFolder;  ///< whose own cabinet.png and style.css are used
    bool evaluate = false;
};

/// Error 70 where the page would be written over its own document.
void keepDocument(const std::string& file, const std::string& page);

/// Hands the page with everything in it to `output`. Returns the addresses of pictures that could
/// not be put in, each once.
std::vector<std::string> renderStandalone(Files& files, const StandalonePlan& plan,
                                          dom::Source source,
                                          const std::function<void(const Produce&)>& output,
                                          Progress& progress);

}  // namespace tavisk
