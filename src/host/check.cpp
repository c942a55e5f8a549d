#include "host/check.h"

#include <algorithm>
#include <string>
#include <utility>
#include <variant>

#include "document/helpDocument.h"
#include "host/nodeChecks.h"
#include "host/rehearsal.h"
#include "host/storeChecks.h"
#include "host/tokenNames.h"
#include "platform/text.h"

namespace tavisk {
namespace {

bool hasErrors(const Findings& findings) {
    return std::ranges::find(findings, Severity::error, &Finding::severity) != findings.end();
}

void checkByDoing(HelpDocument& document, dom::Source source,
                  const std::unordered_set<const dom::Node*>& failing, Findings& findings) {
    const std::optional<Failure> failure = rehearse(std::move(source));
    if (!failure) return;
    findFailingNodes(*document.articledoc, *document.cabinet, failing, findings);
    // What is known already explains the failure.
    if (hasErrors(findings)) return;
    findings.push_back({Severity::error, failure->code, "", "", std::nullopt,
                        "The document cannot be " + std::string(failure->step) +
                            ": run-time error " + std::to_string(failure->error.number()) + ", " +
                            failure->error.what()});
}

}  // namespace

Finding rejection(const Message& message) {
    std::string text = message.text;
    if (message.title != defaultTitle) {
        text = replaceAll(replaceAll(text, "\r\n\r\n", " "), "\r\n", " ");
        return {Severity::error, "document-rejected", "", "", std::nullopt, std::move(text)};
    }
    if (const std::size_t line = text.rfind("\r\n"); line != std::string::npos) {
        text = text.substr(0, line) + " (" + text.substr(line + 2) + ')';
    }
    return {Severity::error, "not-well-formed", "", "", std::nullopt, std::move(text)};
}

Findings checkDocument(dom::Source source) {
    dom::Source again = source;
    std::variant<HelpDocument, Message> opened = openHelpDocument(std::move(source));
    if (const Message* message = std::get_if<Message>(&opened)) return {rejection(*message)};

    auto& document = std::get<HelpDocument>(opened);
    Findings findings;
    TokenNames names(*document.articledoc);
    const auto failing = checkNodes(*document.cabinet, names, findings);
    checkFormulas(names, findings);
    checkPictures(names, findings);
    checkByDoing(document, std::move(again), failing, findings);
    return findings;
}

}  // namespace tavisk
