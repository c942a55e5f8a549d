// Any bytes: a document that is written and read again as the same tree, or a reason and a line.
#include "fuzz/fuzz.h"
#include "reference/domBridge.h"
#include "reference/plainPlaces.h"
#include "xml/xmlReader.h"
#include "xml/xmlWriter.h"

namespace tavisk::fuzz {
namespace {

void requireReason(const ParseResult& result) {
    require(!result.refusal.reason.empty(), "a refused document has a reason");
    require(result.refusal.reason.find_first_of("\r\n") == std::string::npos,
            "the reason is one line");
    require(result.refusal.place && result.refusal.place->line >= 1, "the line counts from 1");
}

void requireSameTree(dom::Document& document) {
    const std::string once = writeXml(document);
    const ParseResult again = readXml(once);
    require(again.document != nullptr,
            "what was written reads again, but: " + again.refusal.reason);
    require(reference::plainOf(again.document->root()) == reference::plainOf(document.root()),
            "what was written reads again as the same tree");
    require(writeXml(*again.document) == once, "both writings are equal");
    require(again.document->hasDeclaration() == document.hasDeclaration(),
            "the declaration comes back");
    const dom::Node& last = *document.lastChild();
    require(writeXml(*document.clone(last, true)) == writeXml(last), "a copy is written alike");
}

}  // namespace
}  // namespace tavisk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tavisk;
    const ParseResult result = readXml(fuzz::bytesOf(data, size));
    if (result.document) {
        fuzz::require(reference::markupStarts(*result.document) ==
                          reference::markupStarts(fuzz::bytesOf(data, size)),
                      "every node knows where it stood");
        fuzz::requireSameTree(*result.document);
    } else {
        fuzz::requireReason(result);
    }
    return 0;
}
