// Whole documents: what the component makes of them against the literal procedures.
#include "reference/differential.h"

#include "formulas/formulaCatalogue.h"
#include "formulas/formulaExport.h"
#include "page/imageStore.h"
#include "page/nodeParse.h"
#include "page/nodeRow.h"
#include "page/pageLayout.h"
#include "reference/domBridge.h"
#include "reference/exportReference.h"
#include "reference/pageReference.h"
#include "reference/plainPlaces.h"
#include "support/memoryFiles.h"
#include "support/xml.h"
#include "xml/xmlReader.h"
#include "xml/xmlWriter.h"

namespace tavisk::reference {
namespace {

const std::string imageTemp = "/doc/temp_images/";

std::vector<PlainFormula> plainOf(const FormulaCatalogue& catalogue) {
    std::vector<PlainFormula> entries;
    for (const FormulaEntry& entry : catalogue.entries()) {
        entries.push_back({utf16Of(entry.name), utf16Of(entry.value), utf16Of(entry.description),
                           entry.standard});
    }
    return entries;
}

PlainFiles previewOf(dom::Document& document, bool evaluateFormula) {
    test::MemoryFiles files;
    files.addFolder("/doc");
    const dom::Node& cabinet = test::element(document, "cabinet");
    if (evaluateFormula) {
        tavisk::dumpImages(document, files, imageTemp);
        FormulaCatalogue catalogue;
        catalogue.load(document);
        NodeParser parser(document, catalogue, imageTemp);
        writePage(files, "/doc/temp.html", cabinet, &parser);
    } else {
        writePage(files, "/doc/temp.html", cabinet, nullptr);
    }
    return files.files();
}

std::string difference(const Outcome<PlainFiles>& is, const Outcome<PlainFiles>& expected) {
    if (is == expected) return {};
    std::string text =
        "error " + std::to_string(is.error) + ", expected " + std::to_string(expected.error);
    for (const auto& [path, bytes] : expected.result) {
        const auto found = is.result.find(path);
        if (found == is.result.end()) {
            text += "\n" + path + " is missing";
        } else if (found->second != bytes) {
            text += "\n" + path + " " + firstDifference(found->second, bytes);
        }
    }
    if (is.result.size() > expected.result.size()) text += "\nmore files than expected";
    return text;
}

std::string comparePreviews(const TestDocument& document, bool evaluateFormula) {
    const auto parsed = test::parsed(document.xml);
    return difference(
        outcomeOf([&] { return previewOf(*parsed, evaluateFormula); }), outcomeOf([&] {
            return preview(document.plain, loadFormulas(document.plain), u"/doc", evaluateFormula);
        }));
}

std::string nodesOf(const PlainNode& node) { return xmlOf(node, XmlStyle{}); }

// Any difference between trees shows in their text, except where texts beside each other meet.
std::string difference(const PlainNode& is, const PlainNode& expected) {
    if (is == expected) return {};
    return "trees differ " + firstDifference(nodesOf(is), nodesOf(expected));
}

template <class Visit>
void visitBelow(const dom::Node& node, const PlainNode& plain, Visit visit) {
    const PlainNode* plainChild = plain.children.data();
    for (const dom::Node* child = node.firstChild(); child != nullptr; child = child->next()) {
        visit(*child, *plainChild);
        visitBelow(*child, *plainChild, visit);
        ++plainChild;
    }
}

}  // namespace

TEST(Differential, PageWithFormulasEvaluated) {
    forEachRandomDocument(
        [](const TestDocument& document) { return comparePreviews(document, true); });
}

TEST(Differential, PageWithRawTexts) {
    forEachRandomDocument(
        [](const TestDocument& document) { return comparePreviews(document, false); });
}

TEST(Differential, RenderedCopy) {
    forEachRandomDocument([](const TestDocument& document) -> std::string {
        const auto parsed = test::parsed(document.xml);
        const auto is = outcomeOf([&] {
            FormulaCatalogue catalogue;
            catalogue.load(*parsed);
            NodeParser parser(*parsed, catalogue, imageTemp);
            return plainOf(*parser.nodeparse(&test::element(*parsed, "cabinet")));
        });
        const auto expected = outcomeOf([&] {
            return nodeparse(*elementsNamed(document.plain, u"cabinet").front(), document.plain,
                             loadFormulas(document.plain), utf16Of(imageTemp));
        });
        if (is.error != expected.error) {
            return "error " + std::to_string(is.error) + ", expected " +
                   std::to_string(expected.error);
        }
        if (is.error != 0) return {};
        // The document itself stays as it was.
        const std::string changed = difference(plainOf(parsed->root()), document.plain);
        return changed.empty() ? difference(is.result, expected.result) : changed;
    });
}

TEST(Differential, RowOfEveryNode) {
    forEachRandomDocument([](const TestDocument& document) {
        const auto parsed = test::parsed(document.xml);
        std::string found;
        visitBelow(
            parsed->root(), document.plain, [&](const dom::Node& node, const PlainNode& plain) {
                const auto is = outcomeOf([&] { return tavisk::renderNodeRow(node); });
                const auto expected = outcomeOf([&] { return utf8Of(renderNodeRow(plain)); });
                if (is == expected) return;
                found = "error " + std::to_string(is.error) + ", expected " +
                        std::to_string(expected.error) + "\n" +
                        firstDifference(is.result, expected.result);
            });
        return found;
    });
}

TEST(Differential, LayoutOfEveryHelpNode) {
    using Fields = std::vector<std::string>;
    forEachRandomDocument([](const TestDocument& document) {
        const auto parsed = test::parsed(document.xml);
        const bool nested = document.seed % 2 == 0;
        std::string found;
        const auto compare = [&](const dom::Node& node, const PlainNode& plain) {
            const auto is = outcomeOf([&] {
                const LayoutResult layout = tavisk::layoutNode(node, nested);
                return Fields{layout.code, layout.type, layout.html};
            });
            const auto expected = outcomeOf([&] {
                const PlainLayout layout = layoutNode(plain, nested);
                return Fields{utf8Of(layout.code), utf8Of(layout.type), utf8Of(layout.html)};
            });
            if (is == expected) return;
            found = "error " + std::to_string(is.error) + ", expected " +
                    std::to_string(expected.error);
            for (std::size_t i = 0; i < is.result.size() && i < expected.result.size(); ++i) {
                found += "\nfield " + std::to_string(i) + " " +
                         firstDifference(is.result[i], expected.result[i]);
            }
        };
        const dom::Node& cabinet = test::element(*parsed, "cabinet");
        const PlainNode& plain = *elementsNamed(document.plain, u"cabinet").front();
        compare(cabinet, plain);
        visitBelow(cabinet, plain, compare);
        return found;
    });
}

TEST(Differential, FormulaExport) {
    forEachRandomDocument([](const TestDocument& document) -> std::string {
        const auto parsed = test::parsed(document.xml);
        FormulaCatalogue catalogue;
        catalogue.load(*parsed);
        const std::vector<PlainFormula> loaded = plainOf(catalogue);
        const auto is = outcomeOf([&] {
            tavisk::prepareFormulaNodesForExport(*parsed, catalogue);
            return plainOf(catalogue);
        });
        PlainNode plain = document.plain;
        const auto expected = outcomeOf([&] {
            std::vector<PlainFormula> entries = loadFormulas(plain);
            prepareFormulaNodesForExport(plain, entries);
            return entries;
        });
        if (is.error != expected.error) {
            return "error " + std::to_string(is.error) + ", expected " +
                   std::to_string(expected.error);
        }
        if (is.error != 0) {
            if (plainOf(catalogue) != loaded) return "the catalogue changed in spite of the error";
            return difference(plainOf(parsed->root()), document.plain);
        }
        if (is.result != expected.result) return "catalogues differ";
        const std::string trees = difference(plainOf(parsed->root()), plain);
        if (!trees.empty()) return trees;
        return difference(plainOf(test::parsed(writeXml(*parsed))->root()), asLoaded(plain));
    });
}

TEST(Differential, LoadedTree) {
    forEachRandomDocument([](const TestDocument& document) {
        return difference(plainOf(test::parsed(document.xml)->root()), document.plain);
    });
}

TEST(Differential, PlaceOfEveryNode) {
    forEachRandomDocument([](const TestDocument& document) {
        const auto parsed = test::parsed(document.xml);
        return markupStarts(*parsed) == markupStarts(document.xml) ? "" : "places differ";
    });
}

TEST(Differential, WrittenDocumentReadsBackAsTheSameTree) {
    forEachRandomDocument([](const TestDocument& document) -> std::string {
        const std::string once = writeXml(*test::parsed(document.xml));
        const auto again = test::parsed(once);
        const std::string trees = difference(plainOf(again->root()), document.plain);
        if (!trees.empty()) return trees;
        const std::string twice = writeXml(*again);
        return twice == once ? "" : "second writing differs " + firstDifference(twice, once);
    });
}

}  // namespace tavisk::reference
