#include "editor/imageCommands.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "base/error.h"
#include "document/xmlParse.h"
#include "editor/helpSession.h"
#include "page/imageStore.h"
#include "xml/domTyped.h"

namespace tavisk {

namespace {

constexpr const char* addTitle = "Add Image";
constexpr const char* deleteTitle = "Delete Image";

/// Behind the last "." of the file name as given, its folders included; all of it without one.
std::string_view extensionOf(std::string_view path) { return path.substr(path.rfind('.') + 1); }

void import(HelpSession& session, Dialogs& dialogs, const std::string& path,
            const std::string& name) {
    dom::Document& document = *session.file.articledoc;
    dom::OwnedNode image = importimage(document, session.file.files(), path);
    SetAttributeValue(document, *image, "extension", extensionOf(path));
    SetAttributeValue(document, *image, "name", name);
    document.append(*document.lastChild(), std::move(image));
    session.lstImages.entries.push_back("~" + name);
    session.lstImages.index = session.lstImages.entries.size() - 1;
    dialogs.messageBox({"Image added successfully"});
}

/// `quiet` is cleared when the import starts: only from there on are failures reported.
void askAndImport(HelpSession& session, Dialogs& dialogs, bool& quiet) {
    const std::string path =
        dialogs.openFile("Graphics files (*.bmp; *.jpg; *.jpeg; *.gif; *.png)");
    if (path.empty()) return;
    const std::string name =
        dialogs.inputBox("Please enter a name for the new image", addTitle, "");
    if (name.empty()) return;

    const auto& entries = session.lstImages.entries;
    if (std::find(entries.begin(), entries.end(), "~" + name) != entries.end()) {
        dialogs.messageBox({"This name is already in use", addTitle, BoxStyle::okInformation});
        return;
    }
    // A warning only: authors have documents with such names.
    if (name.find_first_of("/\\:*?") != std::string::npos) {
        dialogs.messageBox(
            {"Invalid characters found in the name. The following characters are "
             "invalid:\r\n \\ / : * ? ",
             "Error", BoxStyle::okCritical});
    }
    quiet = false;
    import(session, dialogs, path, name);
}

/// The first picture that carries the name of the list's current entry.
dom::Node* chosenImage(const HelpSession& session) {
    const std::string_view entry = session.lstImages.text();
    for (dom::Node* image : session.file.articledoc->elementsByTagName("image")) {
        if ("~" + std::string(GetAttributeValue(image, "name", "")) == entry) return image;
    }
    return nullptr;
}

}  // namespace

void addImage(HelpSession& session, Dialogs& dialogs) {
    bool quiet = true;
    try {
        askAndImport(session, dialogs, quiet);
        return;
    } catch (...) {
        if (quiet) return;
    }
    try {
        dialogs.messageBox({"An error occured loading the image, please check that the file exists",
                            "Error", BoxStyle::okCritical});
    } catch (...) {
        // There is nobody left to tell.
    }
}

void removeImage(HelpSession& session, Dialogs& dialogs) {
    DropDownList& list = session.lstImages;
    const std::string entry(list.text());
    // The refusal refuses nothing; the title is spelt as users know it.
    if (entry == "~" + std::string(generatedPictureName)) {
        dialogs.messageBox(
            {"This image cannot be removed", "Delte Image", BoxStyle::okInformation});
    }
    dom::Node* const image = chosenImage(session);
    if (!image) {
        dialogs.messageBox({"Image not found!", deleteTitle, BoxStyle::okCritical});
        return;
    }
    session.removeElement(*image);
    list.entries.erase(list.entries.begin() + static_cast<std::ptrdiff_t>(*list.index));
    list.index.reset();
    dialogs.messageBox({"Image removed", deleteTitle});
}

std::string chosenPicture(const HelpSession& session) {
    std::string bytes;
    const dom::Node* const image = chosenImage(session);
    if (!image) return bytes;
    try {
        dom::base64Value(*image, bytes);
    } catch (const RunTimeError&) {
        bytes.clear();
    }
    return bytes;
}

}  // namespace tavisk
