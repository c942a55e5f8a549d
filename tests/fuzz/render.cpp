// Any bytes as a document: loaded, previewed and saved without a window. The page is that of the
// literal procedures, files lie in the component's folder, and everything else is an error.
#include "editor/helpSession.h"
#include "fuzz/fuzz.h"
#include "reference/domBridge.h"
#include "reference/exportReference.h"
#include "reference/pageReference.h"
#include "reference/plainXml.h"
#include "support/memoryFiles.h"
#include "xml/xmlReader.h"

namespace tavisk::fuzz {
namespace {

const std::string folder = "/doc";
const std::string pictures = folder + "/temp_images/";
const std::string page = folder + "/temp.html";
const std::string cabinetPictureFile = folder + "/cabinet.png";
const std::string cabinetPictureBytes = "picture";

bool isAllowed(const std::string& path) {
    if (path == page || path == cabinetPictureFile) return true;
    if (path.compare(0, pictures.size(), pictures) != 0) return false;
    const std::string name = path.substr(pictures.size());
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos;
}

std::vector<reference::PlainFormula> plainOf(const FormulaCatalogue& catalogue) {
    std::vector<reference::PlainFormula> formulas;
    for (const FormulaEntry& entry : catalogue.entries()) {
        formulas.push_back({reference::utf16Of(entry.name), reference::utf16Of(entry.value),
                            reference::utf16Of(entry.description), entry.standard});
    }
    return formulas;
}

template <class Action>
int errorOf(Action action) {
    try {
        action();
        return 0;
    } catch (const RunTimeError& error) {
        return error.number();
    } catch (const reference::Failure& failure) {
        return static_cast<int>(failure.number);
    }
}

void requireError(int error, int expected, const std::string& what) {
    require(error == expected,
            what + ": error " + std::to_string(error) + ", expected " + std::to_string(expected));
}

void requirePreview(HelpSession& session, const test::MemoryFiles& files, bool evaluateFormula) {
    const reference::PlainNode plain = reference::plainOf(session.file.articledoc->root());
    reference::PlainFiles expected;
    int expectedError = 0;
    try {
        expectedError = errorOf([&] {
            expected = reference::preview(plain, plainOf(session.file.formulaCatalogue),
                                          reference::utf16Of(folder), evaluateFormula);
        });
    } catch (const reference::TooLong&) {
        return;  // tokens within tokens, or a page that takes minutes under the sanitizers
    }
    requireError(errorOf([&] { session.file.generatepreview(evaluateFormula); }), expectedError,
                 "preview");
    for (const auto& [path, bytes] : files.files()) {
        require(isAllowed(path), "files lie in the folder, but: " + path);
    }
    if (expectedError != 0) return;
    expected[cabinetPictureFile] = cabinetPictureBytes;
    require(files.files() == expected, "page and pictures are the literal ones");
}

void removeGeneratedPictures(reference::PlainNode& node) {
    std::vector<reference::PlainNode> kept;
    for (reference::PlainNode& child : node.children) {
        if (child.kind == reference::Kind::element && child.name == u"image" &&
            reference::attributeOf(&child, u"name", u"") == u"generated_cabinet_picture") {
            continue;
        }
        removeGeneratedPictures(child);
        kept.push_back(child);
    }
    node.children = kept;
}

void requireSave(HelpSession& session) {
    const reference::PlainNode before = reference::plainOf(session.file.articledoc->root());
    reference::PlainNode plain = before;
    std::vector<reference::PlainFormula> formulas = plainOf(session.file.formulaCatalogue);
    const int expectedError = errorOf([&] {
        removeGeneratedPictures(plain);
        reference::prepareFormulaNodesForExport(plain, formulas);
    });
    requireError(errorOf([&] { session.saveDocument(); }), expectedError, "save");
    const reference::PlainNode after = reference::plainOf(session.file.articledoc->root());
    if (expectedError != 0) {
        require(after == before, "a save that fails leaves the document alone");
        return;
    }
    require(after == plain, "the saved document is the literal one");
    const ParseResult again = readXml(session.xmlText);
    require(again.document != nullptr, "what was saved reads again, but: " + again.refusal.reason);
    require(reference::plainOf(again.document->root()) == reference::asLoaded(plain),
            "what was saved reads again as the same tree");
}

}  // namespace
}  // namespace tavisk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tavisk;
    test::MemoryFiles files;
    files.put(fuzz::cabinetPictureFile, fuzz::cabinetPictureBytes);
    HelpSession session(files, fuzz::folder);
    bool usable = false;
    fuzz::errorOf([&] {
        const auto refusal = session.load(dom::Source::copy(fuzz::bytesOf(data, size)));
        usable = !refusal;
        if (refusal) fuzz::require(!refusal->reason.empty(), "a refusal says why");
    });
    fuzz::require(session.loaded() == usable, "a session is loaded or it is not");
    if (!usable) return 0;
    fuzz::requirePreview(session, files, false);
    fuzz::requirePreview(session, files, true);
    fuzz::requireSave(session);
    return 0;
}
