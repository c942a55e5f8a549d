#include "check/rehearsal.h"

#include <optional>
#include <string>
#include <utility>

#include "base/noFiles.h"
#include "check/textChecks.h"
#include "document/nodeKeys.h"
#include "document/xmlParse.h"
#include "formulas/formulaCatalogue.h"
#include "page/helpFile.h"
#include "page/nodeParse.h"
#include "page/pageLayout.h"

namespace tavisk {
namespace {

/// The folder's path is part of every picture's markup and so of a text's length; this is the
/// longest that every system can have.
std::string longestFolder() { return '/' + std::string(259, 'x'); }

constexpr std::string_view renderCode = "cannot-be-rendered";

std::string describe(const RunTimeError& error) {
    return "run-time error " + std::to_string(error.number()) + ", " + error.what();
}

/// What one node puts into the page.
class NodePage {
public:
    NodePage(dom::Document& document, const dom::Node& cabinet)
        : document_(document), cabinet_(cabinet) {
        catalogue_.load(document);
        parser_.emplace(document, catalogue_, longestFolder() + "/temp_images/");
    }

    std::optional<Problem> check(const dom::Node& node) {
        try {
            const dom::OwnedNode alone = document_.clone(node, false);
            const dom::OwnedNode copy = parser_->nodeparse(alone.get());
            std::string html = layoutNode(*copy, &node != &cabinet_).html;
            if (givesHeading(node)) html += GetAttributeValue(copy.get(), "value", "");
            return checkCharacters(html, false);
        } catch (...) {
            return Problem{Severity::error, renderCode, describe(currentRunTimeError())};
        }
    }

private:
    dom::Document& document_;
    const dom::Node& cabinet_;
    FormulaCatalogue catalogue_;
    std::optional<NodeParser> parser_;
};

}  // namespace

std::optional<Failure> rehearse(HelpDocument document, Page page) {
    Failure failure{"cannot-be-loaded", "loaded", RunTimeError(ErrorNumber::invalidArgument)};
    try {
        NoFiles files;
        HelpFile file(files, longestFolder());
        file.load(std::move(document));
        failure.code = renderCode;
        failure.step = "shown";
        if (page == Page::made) file.generatepreview(true);
        failure.code = "cannot-be-saved";
        failure.step = "saved";
        file.save();
        return std::nullopt;
    } catch (...) {
        failure.error = currentRunTimeError();
        return failure;
    }
}

void findFailingNodes(HelpDocument& document, const NodeNumbers& known, FindingList& findings) {
    const dom::Node& cabinet = *document.cabinet;
    NodePage page(*document.articledoc, cabinet);
    std::size_t number = 0;
    for (const dom::Node* node = &cabinet; node != nullptr;
         node = nextInDocument(*node, cabinet), ++number) {
        if (known.contains(number)) continue;
        if (const std::optional<Problem> problem = page.check(*node)) {
            findings.add(
                node, {Severity::error, renderCode, KeyOfElement(*node, keySeparator, true), "",
                       std::nullopt, "With formulas and pictures filled in: " + problem->message});
        }
    }
}

}  // namespace tavisk
