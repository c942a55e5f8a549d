#include "check/check.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "check/nodeChecks.h"
#include "check/plainPage.h"
#include "check/rehearsal.h"
#include "check/sourcePlaces.h"
#include "check/storeChecks.h"
#include "check/tokenNames.h"
#include "document/helpDocument.h"

namespace tavisk {
namespace {

/// Tells where the findings stand.
void setPlaces(FindingList& findings, const dom::Source& source) {
    SourcePlaces places({source.bytes.get(), source.size});
    for (std::size_t i = 0; i < findings.nodes().size(); ++i) {
        const Finding& finding = findings.findings()[i];
        findings.setPlace(i, places.of(*findings.nodes()[i], finding.attribute, finding.position));
    }
}

/// What a failed rehearsal comes from; it has used up its own document.
Findings explain(const Failure& failure, const dom::Source& source, const NodeNumbers& known,
                 bool explained, Places places) {
    FindingList found;
    auto opened = openHelpDocument(source);
    auto& document = std::get<HelpDocument>(opened);
    findFailingNodes(document, known, found);
    if (places == Places::wanted) setPlaces(found, source);
    explained = explained || found.hasErrors();
    Findings findings = std::move(found).take();
    if (!explained) {
        findings.push_back({Severity::error, failure.code, "", "", std::nullopt,
                            "The document cannot be " + std::string(failure.step) +
                                ": run-time error " + std::to_string(failure.error.number()) +
                                ", " + failure.error.what()});
    }
    return findings;
}

}  // namespace

Finding rejection(const Refusal& refusal) {
    return {Severity::error,
            refusal.place ? "not-well-formed" : "document-rejected",
            "",
            "",
            std::nullopt,
            refusal.sentence(),
            refusal.place};
}

Findings checkDocument(const dom::Source& source, Places places) {
    std::variant<HelpDocument, Refusal> opened = openHelpDocument(source);
    if (const Refusal* refusal = std::get_if<Refusal>(&opened)) return {rejection(*refusal)};

    auto& document = std::get<HelpDocument>(opened);
    FindingList list;
    TokenNames names(*document.articledoc);
    const NodeNumbers failing = checkNodes(*document.cabinet, names, list);
    checkFormulas(names, list);
    checkPictures(names, list);
    if (places == Places::wanted) setPlaces(list, source);

    const bool plain = list.findings().empty() && pageCannotFail(*document.cabinet, names);
    const bool explained = list.hasErrors();
    Findings findings = std::move(list).take();
    // From here on the tree is not what it was, and `names` means nothing.
    if (const std::optional<Failure> failure =
            rehearse(std::move(document), plain ? Page::leftOut : Page::made)) {
        std::ranges::move(explain(*failure, source, failing, explained, places),
                          std::back_inserter(findings));
    }
    return findings;
}

}  // namespace tavisk
