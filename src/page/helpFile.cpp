#include "page/helpFile.h"

#include <utility>
#include <variant>

#include "base/error.h"
#include "document/nodeKeys.h"
#include "document/xmlParse.h"
#include "formulas/formulaExport.h"
#include "page/imageStore.h"
#include "page/nodeParse.h"
#include "page/pageLayout.h"

namespace tavisk {

namespace {

bool isWithin(const dom::Node* node, const dom::Node& top) noexcept {
    while (node && node != &top)
        node = node->parent();
    return node != nullptr;
}

bool isGeneratedPicture(const dom::Node& node) {
    return node.isElement() && node.nodeName() == "image" &&
           GetAttributeValue(&node, "name", "") == generatedPictureName;
}

bool isInFormula(const dom::Node* node) noexcept {
    while (node && !(node->isElement() && node->nodeName() == "formula"))
        node = node->parent();
    return node != nullptr;
}

/// Error 91 for an empty help tree, which cannot be opened.
std::string firstChildKey(const dom::Node& base) {
    if (!base.firstChild()) raise(ErrorNumber::objectNotSet);
    return KeyOfElement(*base.firstChild(), keySeparator, true);
}

/// The generated pictures, out of the document while their places are held; they go back there
/// unless they are dropped.
class GeneratedPictures {
public:
    explicit GeneratedPictures(dom::Document& document) : document_(document) {}
    GeneratedPictures(const GeneratedPictures&) = delete;
    GeneratedPictures& operator=(const GeneratedPictures&) = delete;
    ~GeneratedPictures() {
        // A picture inside another one goes back before it.
        while (!taken_.empty()) {
            Taken taken = std::move(taken_.back());
            taken_.pop_back();
            document_.replace(*taken.place, std::move(taken.picture));
        }
    }

    void take() {
        const std::vector<dom::Node*> images = document_.elementsByTagName("image");
        taken_.reserve(images.size());
        for (dom::Node* image : images) {
            // One in a formula goes with the formula.
            if (!isGeneratedPicture(*image) || isInFormula(image)) continue;
            dom::OwnedNode place = document_.createData(dom::NodeType::comment, "");
            dom::Node* const held = place.get();
            taken_.push_back({document_.replace(*image, std::move(place)), held});
        }
    }

    void drop() noexcept {
        for (const Taken& taken : taken_)
            document_.remove(*taken.place);
        taken_.clear();
    }

private:
    struct Taken {
        dom::OwnedNode picture;
        dom::Node* place;
    };

    dom::Document& document_;
    std::vector<Taken> taken_;
};

}  // namespace

HelpFile::HelpFile(Files& files, std::string folder)
    : files_(files), folder_(std::move(folder)), IMG_TEMP(folder_ + "/temp_images/") {}

std::optional<Refusal> HelpFile::load(dom::Source source) {
    if (auto refusal = open(std::move(source))) return refusal;
    complete();
    return std::nullopt;
}

void HelpFile::load(HelpDocument document) {
    close();
    begin(std::move(document));
    complete();
}

std::optional<Refusal> HelpFile::open(dom::Source source) {
    close();  // memory of the document before is free for this one
    auto opened = openHelpDocument(std::move(source));
    if (auto* refusal = std::get_if<Refusal>(&opened)) return std::move(*refusal);
    begin(std::get<HelpDocument>(std::move(opened)));
    return std::nullopt;
}

void HelpFile::begin(HelpDocument document) {
    articledoc = std::move(document.articledoc);
    baseXMLNode = document.cabinet;
    try {
        startRow_ = &findStartRow();
        formulaCatalogue.load(*articledoc);
        normalise(*startRow_);
    } catch (...) {
        close();
        throw;
    }
}

void HelpFile::complete() {
    try {
        removeMarkers();
        addGeneratedPicture();
    } catch (...) {
        close();
        throw;
    }
}

void HelpFile::close() noexcept {
    removedRows_.clear();
    baseXMLNode = startRow_ = nullptr;
    articledoc.reset();
    formulaCatalogue = FormulaCatalogue();
    shown_ = ShownNode();
}

dom::Node& HelpFile::findStartRow() const {
    const std::vector<dom::Node*> locations = articledoc->elementsByTagName("location");
    const std::string startKey = locations.size() == 1
                                     ? std::string(GetAttributeValue(locations[0], "value", ""))
                                     : firstChildKey(*baseXMLNode);
    dom::Node* start = findStartNode(*baseXMLNode, startKey);
    if (!start) start = findStartNode(*baseXMLNode, firstChildKey(*baseXMLNode));
    if (!start) raise(ErrorNumber::objectNotSet);
    return *start;
}

void HelpFile::normalise(dom::Node& row) {
    ::tavisk::normalise(*articledoc, ElementOfTreeNode(*baseXMLNode, row), shown_);
}

void HelpFile::removeMarkers() {
    // From the last to the first: one inside another one goes before it.
    for (std::vector<dom::Node*> locations = articledoc->elementsByTagName("location");
         !locations.empty(); locations.pop_back())
        removeElement(*locations.back());
}

void HelpFile::addGeneratedPicture() {
    bool generated = false;
    for (const dom::Node* image : articledoc->elementsByTagName("image")) {
        if (GetAttributeValue(image, "name", "") == generatedPictureName) generated = true;
    }
    if (generated) return;
    dom::OwnedNode picture = importimage(*articledoc, files_, folder_ + "/cabinet.png");
    SetAttributeValue(*articledoc, *picture, "extension", "png");
    SetAttributeValue(*articledoc, *picture, "name", generatedPictureName);
    SetAttributeValue(*articledoc, *picture, "width", "256");
    SetAttributeValue(*articledoc, *picture, "height", "256");
    articledoc->append(*articledoc->lastChild(), std::move(picture));
}

std::string HelpFile::generatepreview(bool evaluateFormula) {
    if (!isOpen()) raise(ErrorNumber::objectNotSet);
    std::string path = folder_ + "/temp.html";
    if (evaluateFormula) {
        dumpImages(*articledoc, files_, IMG_TEMP);
        NodeParser parser(*articledoc, formulaCatalogue, IMG_TEMP);
        writePage(files_, path, *baseXMLNode, &parser);
    } else {
        writePage(files_, path, *baseXMLNode, nullptr);
    }
    return path;
}

void HelpFile::save() {
    if (!isOpen()) raise(ErrorNumber::objectNotSet);
    GeneratedPictures pictures(*articledoc);
    pictures.take();
    prepareFormulaNodesForExport(*articledoc, formulaCatalogue);
    pictures.drop();
}

void HelpFile::saveWithMarker(std::string_view key) {
    if (!isOpen()) raise(ErrorNumber::objectNotSet);
    dom::OwnedNode location = articledoc->createElement("location");
    SetAttributeValue(*articledoc, *location, "value", key);
    dom::Node& added = articledoc->append(*articledoc->lastChild(), std::move(location));
    try {
        save();
    } catch (...) {
        articledoc->remove(added);
        throw;
    }
}

bool HelpFile::isRow(const dom::Node& node) const noexcept {
    return &node != baseXMLNode && isWithin(&node, *baseXMLNode);
}

void HelpFile::removeElement(dom::Node& element) {
    if (!isRow(element) && !isWithin(baseXMLNode, element)) {
        articledoc->remove(element);
        return;
    }
    removedRows_.emplace_back();
    removedRows_.back() = articledoc->remove(element);
}

bool goesWithSaving(const dom::Node* node) {
    if (isInFormula(node)) return true;
    while (node && !isGeneratedPicture(*node))
        node = node->parent();
    return node != nullptr;
}

}  // namespace tavisk
