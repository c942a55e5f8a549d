// From a document to its page.
#pragma once

#include <optional>
#include <string>

#include "host/progress.h"
#include "platform/dom.h"
#include "platform/files.h"
#include "platform/message.h"

namespace tavisk {

/// Writes temp.html, pictures and what the page needs besides into the folder, which is created if
/// missing. The message tells why the document is rejected.
std::optional<Message> renderPage(Files& files, const std::string& folder, dom::Source source,
                                  bool evaluate, Progress& progress);

}  // namespace tavisk
