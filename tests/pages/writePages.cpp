// Writes what becomes of documents, so that two systems' results can be compared byte for byte:
//
//     tavisk_pages OUT SEED COUNT FILE...
//
// OUT receives, for each FILE and each of COUNT random documents, the saved document and every file
// that a preview writes, with values and without.
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "base/assets.h"
#include "base/error.h"
#include "base/files.h"
#include "page/helpFile.h"
#include "reference/plainXml.h"
#include "reference/randomDocument.h"
#include "support/memoryFiles.h"
#include "xml/xmlWriter.h"

namespace tavisk::test {
namespace {

constexpr const char* folder = "/help";

template <class Action>
void describe(const Files::Write& out, const std::string& what, const std::string& xml,
              Action action) {
    MemoryFiles files;
    files.addFolder("/");
    provideAssets(files, folder);
    HelpFile file(files, folder);
    out("== " + what + "\n");
    try {
        if (const auto refusal = file.load(dom::Source::copy(xml))) {
            out("rejected: " + refusal->message().text + "\n");
            return;
        }
        action(file);
    } catch (const RunTimeError& error) {
        out("error " + std::to_string(error.number()) + "\n");
    }
    for (const auto& [name, bytes] : files.files()) {
        if (name.ends_with("/cabinet.png") || name.ends_with("/style.css")) continue;
        out("-- " + name + ": " + std::to_string(bytes.size()) + " bytes\n");
        out(bytes);
        out("\n");
    }
}

void describeAll(const Files::Write& out, const std::string& name, const std::string& xml) {
    describe(out, name + " saved", xml, [&](HelpFile& file) {
        file.save();
        writeXml(*file.articledoc, out);
        out("\n");
    });
    describe(out, name + " shown with values", xml,
             [](HelpFile& file) { file.generatepreview(true); });
    describe(out, name + " shown as typed", xml,
             [](HelpFile& file) { file.generatepreview(false); });
}

int run(const std::vector<std::string>& words) {
    DiskFiles disk;
    const std::uint64_t seed = std::stoull(words.at(1));
    const std::uint64_t count = std::stoull(words.at(2));
    disk.replaceBy(words.at(0), [&](const Files::Write& out) {
        for (std::size_t i = 3; i < words.size(); ++i)
            describeAll(out, "document " + std::to_string(i - 2), disk.read(words[i]));
        for (std::uint64_t i = 0; i < count; ++i) {
            const reference::RandomDocument made = reference::randomDocument(seed + i);
            describeAll(out, "seed " + std::to_string(seed + i),
                        reference::xmlOf(made.document, made.style));
        }
    });
    return 0;
}

}  // namespace
}  // namespace tavisk::test

int main(int count, char** words) {
    try {
        return tavisk::test::run({words + 1, words + count});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
