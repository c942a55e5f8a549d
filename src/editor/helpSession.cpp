#include "editor/helpSession.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "base/error.h"
#include "document/nodeKeys.h"
#include "document/xmlParse.h"
#include "formulas/formulaExport.h"
#include "page/imageStore.h"
#include "page/nodeParse.h"
#include "page/pageLayout.h"
#include "xml/xmlWriter.h"

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

/// Whether saving frees the node, as part of a formula or of a generated picture.
bool goesWithSaving(const dom::Node* node) {
    if (isInFormula(node)) return true;
    while (node && !isGeneratedPicture(*node))
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

std::string_view DropDownList::text() const {
    return index ? std::string_view(entries[*index]) : std::string_view();
}

void DropDownList::clear() {
    entries.clear();
    index.reset();
}

void DropDownList::choose(std::string_view text) {
    const auto found = std::find(entries.begin(), entries.end(), text);
    if (found != entries.end()) index = static_cast<std::size_t>(found - entries.begin());
}

HelpSession::HelpSession(Files& files, std::string folder)
    : files_(files), folder_(std::move(folder)), IMG_TEMP(folder_ + "/temp_images/") {}

std::optional<Refusal> HelpSession::load(dom::Source source, Keep keep) {
    begin(keep);  // memory of the document before is free for this one
    auto opened = openHelpDocument(std::move(source));
    if (auto* refusal = std::get_if<Refusal>(&opened)) return std::move(*refusal);
    load(std::get<HelpDocument>(std::move(opened)), keep);
    return std::nullopt;
}

void HelpSession::load(HelpDocument document, Keep keep) {
    begin(keep);
    articledoc = std::move(document.articledoc);
    baseXMLNode = document.cabinet;
    try {
        loadChecked();
    } catch (...) {
        unload();
        xmlText.clear();
        throw;
    }
}

void HelpSession::begin(Keep keep) {
    unload();
    xmlText.clear();
    panel = NodePanel();
    keep_ = keep;
}

void HelpSession::unload() noexcept {
    clipboardnode.reset();
    clipboardNamespaces.clear();
    removedRows_.clear();
    baseXMLNode = currentnode = selectedRow = nullptr;
    articledoc.reset();
    formulaCatalogue = FormulaCatalogue();
    lstFormulas.clear();
    lstImages.clear();
    lastsave.clear();
}

void HelpSession::loadChecked() {
    const std::vector<dom::Node*> locations = articledoc->elementsByTagName("location");
    const std::string startKey = locations.size() == 1
                                     ? std::string(GetAttributeValue(locations[0], "value", ""))
                                     : firstChildKey(*baseXMLNode);
    fillFormulaList();

    dom::Node* start = findStartNode(*baseXMLNode, startKey);
    if (!start) start = findStartNode(*baseXMLNode, firstChildKey(*baseXMLNode));
    if (!start) raise(ErrorNumber::objectNotSet);
    selectNode(*this, *start);

    // From the last to the first: one inside another one goes before it.
    for (auto location = locations.rbegin(); location != locations.rend(); ++location)
        removeElement(**location);
    if (keep_ == Keep::savedText) {
        lastsave = writeXml(*articledoc);
        xmlText = lastsave;
    }
    fillImageList();
}

void HelpSession::fillFormulaList() {
    formulaCatalogue.load(*articledoc);
    for (const FormulaEntry& entry : formulaCatalogue.entries()) {
        if (entry.standard) lstFormulas.entries.push_back(entry.name);
    }
    if (!lstFormulas.entries.empty()) lstFormulas.index = 0;
}

void HelpSession::fillImageList() {
    bool generated = false;
    for (const dom::Node* image : articledoc->elementsByTagName("image")) {
        const std::string_view name = GetAttributeValue(image, "name", "");
        lstImages.entries.push_back("~" + std::string(name));
        generated = generated || name == generatedPictureName;
    }
    if (!generated) addGeneratedPicture();
}

void HelpSession::addGeneratedPicture() {
    dom::OwnedNode picture = importimage(*articledoc, files_, folder_ + "/cabinet.png");
    SetAttributeValue(*articledoc, *picture, "extension", "png");
    SetAttributeValue(*articledoc, *picture, "name", generatedPictureName);
    SetAttributeValue(*articledoc, *picture, "width", "256");
    SetAttributeValue(*articledoc, *picture, "height", "256");
    articledoc->append(*articledoc->lastChild(), std::move(picture));
    lstImages.entries.push_back("~" + std::string(generatedPictureName));
}

void HelpSession::removeElement(dom::Node& element) {
    const bool isRow = &element != baseXMLNode && isWithin(&element, *baseXMLNode);
    if (!isRow && !isWithin(baseXMLNode, element)) {
        articledoc->remove(element);
        return;
    }
    dom::Node& parent = *element.parent();
    dom::Node* const next = element.next();
    removedRows_.emplace_back();
    removedRows_.back() = articledoc->remove(element);
    if (isRow && rowRemoved) rowRemoved(parent, next);
}

void HelpSession::saveDocument() {
    if (!loaded()) raise(ErrorNumber::objectNotSet);
    const bool selectionGoes = goesWithSaving(currentnode) || goesWithSaving(selectedRow);
    GeneratedPictures pictures(*articledoc);
    pictures.take();
    prepareFormulaNodesForExport(*articledoc, formulaCatalogue);
    pictures.drop();
    if (selectionGoes) currentnode = selectedRow = nullptr;

    if (keep_ == Keep::savedText) lastsave = xmlText = writeXml(*articledoc);
}

void HelpSession::refresh() {
    const std::string key = selectedKey();
    dom::OwnedNode location = articledoc->createElement("location");
    SetAttributeValue(*articledoc, *location, "value", key);
    dom::Node& added = articledoc->append(*articledoc->lastChild(), std::move(location));
    try {
        saveDocument();
    } catch (...) {
        articledoc->remove(added);
        throw;
    }
}

/// A row whose element was taken out of the document keeps the key that it was shown with.
std::string HelpSession::selectedKey() const {
    if (!selectedRow) raise(ErrorNumber::objectNotSet);
    if (!isWithin(selectedRow, *baseXMLNode)) return panel.currentField;
    return KeyOfTreeNode(*baseXMLNode, *selectedRow, keySeparator);
}

bool HelpSession::changed() const { return loaded() && writeXml(*articledoc) != lastsave; }

bool HelpSession::mayUnload(Dialogs& dialogs, const std::function<void()>& save) const {
    if (!changed()) return true;
    const Answer answer = dialogs.messageBox(
        {"Would you like to save your changes?", "Exiting...", BoxStyle::yesNoCancelQuestion});
    if (answer == Answer::yes) save();
    return answer != Answer::cancel;
}

std::string HelpSession::generatepreview(bool evaluateFormula) {
    if (!loaded()) raise(ErrorNumber::objectNotSet);
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

}  // namespace tavisk
