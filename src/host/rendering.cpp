#include "host/rendering.h"

#include <utility>

#include "editor/helpSession.h"
#include "host/output.h"
#include "platform/assets.h"

namespace tavisk {

std::optional<Message> renderPage(Files& files, const std::string& folder, dom::Source source,
                                  bool evaluate, Progress& progress) {
    createFolders(files, folder);
    provideAssets(files, folder);

    HelpSession session(files, folder);
    progress.phase("loading the document");
    if (auto message = session.load(std::move(source), HelpSession::Keep::nothing)) return message;
    progress.phase("writing the page");
    session.generatepreview(evaluate);
    return std::nullopt;
}

}  // namespace tavisk
