#include "editor/helpSession.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "document/nodeKeys.h"
#include "document/xmlParse.h"
#include "xml/xmlWriter.h"

namespace tavisk {

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

HelpSession::HelpSession(Files& files, std::string folder) : file(files, std::move(folder)) {}

std::optional<Refusal> HelpSession::load(dom::Source source) {
    unload();
    xmlText.clear();
    panel = NodePanel();
    if (auto refusal = file.open(std::move(source))) return refusal;
    try {
        begin();
    } catch (...) {
        unload();
        xmlText.clear();
        throw;
    }
    return std::nullopt;
}

void HelpSession::unload() noexcept {
    clipboardnode.reset();
    clipboardNamespaces.clear();
    currentnode = selectedRow = nullptr;
    file.close();
    lstFormulas.clear();
    lstImages.clear();
    lastsave.clear();
}

void HelpSession::begin() {
    fillFormulaList();
    selectNode(*this, file.startRow());
    file.removeMarkers();
    lastsave = xmlText = writeXml(*file.articledoc);
    file.addGeneratedPicture();
    fillImageList();
}

void HelpSession::fillFormulaList() {
    for (const FormulaEntry& entry : file.formulaCatalogue.entries()) {
        if (entry.standard) lstFormulas.entries.push_back(entry.name);
    }
    if (!lstFormulas.entries.empty()) lstFormulas.index = 0;
}

void HelpSession::fillImageList() {
    for (const dom::Node* image : file.articledoc->elementsByTagName("image"))
        lstImages.entries.push_back("~" + std::string(GetAttributeValue(image, "name", "")));
}

void HelpSession::removeElement(dom::Node& element) {
    const bool isRow = file.isRow(element);
    dom::Node& parent = *element.parent();
    dom::Node* const next = element.next();
    file.removeElement(element);
    if (isRow && rowRemoved) rowRemoved(parent, next);
}

template <class Save>
void HelpSession::saveBy(Save save) {
    const bool selectionGoes = goesWithSaving(currentnode) || goesWithSaving(selectedRow);
    save();
    if (selectionGoes) currentnode = selectedRow = nullptr;
    lastsave = xmlText = writeXml(*file.articledoc);
}

void HelpSession::saveDocument() {
    saveBy([this] { file.save(); });
}

void HelpSession::refresh() {
    saveBy([this] { file.saveWithMarker(selectedKey()); });
}

/// A row whose element was taken out of the document keeps the key that it was shown with.
std::string HelpSession::selectedKey() const {
    if (!selectedRow) raise(ErrorNumber::objectNotSet);
    if (selectedRow != file.baseXMLNode && !file.isRow(*selectedRow)) return panel.currentField;
    return KeyOfTreeNode(*file.baseXMLNode, *selectedRow, keySeparator);
}

bool HelpSession::changed() const { return loaded() && writeXml(*file.articledoc) != lastsave; }

bool HelpSession::mayUnload(Dialogs& dialogs, const std::function<void()>& save) const {
    if (!changed()) return true;
    const Answer answer = dialogs.messageBox(
        {"Would you like to save your changes?", "Exiting...", BoxStyle::yesNoCancelQuestion});
    if (answer == Answer::yes) save();
    return answer != Answer::cancel;
}

void selectNode(HelpSession& session, dom::Node& row) {
    HelpFile& file = session.file;
    session.selectedRow = &row;
    session.panel.loading = true;
    session.panel.currentField = KeyOfTreeNode(*file.baseXMLNode, row, keySeparator);
    session.currentnode = ElementOfTreeNode(*file.baseXMLNode, row);
    session.panel.fill(*file.articledoc, session.currentnode, &row == file.baseXMLNode);
    session.panel.loading = false;
}

}  // namespace tavisk
