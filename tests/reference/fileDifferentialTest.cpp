// What is done to a file without editing, against a session in which a user does the same.
#include "editor/editorSession.h"
#include "page/openFile.h"
#include "reference/differential.h"
#include "reference/random.h"

namespace tavisk::reference {
namespace {

struct Made {
    std::string loaded;
    std::string saved;

    bool operator==(const Made&) const = default;
};

std::string keyOfAnyRow(const dom::Node& base, std::uint64_t seed) {
    Random random(seed);
    return random.pick(allKeys(base));
}

Made byHand(const TestDocument& document) {
    test::EditorSession editor;
    if (editor.load(document.xml)) return {"refused", ""};
    Made made{editor.document(), {}};
    const std::string key = keyOfAnyRow(*editor.session.file.baseXMLNode, document.seed);
    if (dom::Node* const row = findTreeNode(*editor.session.file.baseXMLNode, key)) {
        selectNode(editor.session, *row);
        editor.session.refresh();
    } else {
        editor.session.saveDocument();
    }
    made.saved = editor.session.xmlText;
    return made;
}

Made byFile(const TestDocument& document) {
    test::OpenFile opened;
    if (opened.load(document.xml)) return {"refused", ""};
    Made made{opened.document(), {}};
    const std::string key = keyOfAnyRow(*opened.file.baseXMLNode, document.seed);
    if (dom::Node* const row = findTreeNode(*opened.file.baseXMLNode, key)) {
        opened.file.normalise(*row);
        opened.file.saveWithMarker(KeyOfTreeNode(*opened.file.baseXMLNode, *row, keySeparator));
    } else {
        opened.file.save();
    }
    made.saved = opened.document();
    return made;
}

}  // namespace

TEST(Differential, AFileIsLoadedAndSavedAsInASession) {
    forEachRandomDocument([](const TestDocument& document) -> std::string {
        const auto is = outcomeOf([&] { return byFile(document); });
        const auto expected = outcomeOf([&] { return byHand(document); });
        if (is == expected) return {};
        return "error " + std::to_string(is.error) + ", expected " +
               std::to_string(expected.error) + "\nloaded " +
               firstDifference(is.result.loaded, expected.result.loaded) + "\nsaved " +
               firstDifference(is.result.saved, expected.result.saved);
    });
}

}  // namespace tavisk::reference
