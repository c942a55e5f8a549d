#include "command/rendering.h"

#include <algorithm>
#include <utility>

#include "base/assets.h"
#include "base/error.h"
#include "base/noFiles.h"
#include "base/paths.h"
#include "command/editResult.h"
#include "command/fileError.h"
#include "command/input.h"
#include "page/helpFile.h"
#include "page/standalonePage.h"

namespace tavisk {
namespace {

/// What loading takes from the component's folder, and nothing else.
class CabinetPictureOnly final : public NoFiles {
public:
    explicit CabinetPictureOnly(std::string bytes) : bytes_(std::move(bytes)) {}

    bool fileExists(const std::string& path) override { return path == "/cabinet.png"; }
    std::string read(const std::string&) override { return bytes_; }

private:
    std::string bytes_;
};

std::string ownOrDefault(Files& files, const std::optional<std::string>& folder, const char* name,
                         std::string_view otherwise) {
    if (folder && files.fileExists(*folder + name)) return files.read(*folder + name);
    return std::string(otherwise);
}

/// The file's bytes where it can be read; the page does without it otherwise.
std::optional<std::string> readPicture(Files& files, const std::string& folder,
                                       const std::string& file) {
    try {
        const std::string path = textOf(pathOf(folder) / pathOf(file));
        if (!files.fileExists(path)) return std::nullopt;
        return files.read(path);
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

void load(HelpFile& file, dom::Source source) {
    if (auto refusal = file.load(std::move(source))) throw Rejected(*refusal);
}

}  // namespace

void renderPage(Files& files, const std::string& folder, dom::Source source, bool evaluate,
                Progress& progress) {
    createFolders(files, folder);
    provideAssets(files, folder);

    HelpFile file(files, folder);
    progress.phase("loading the document");
    load(file, std::move(source));
    progress.phase("writing the page");
    file.generatepreview(evaluate);
}

void keepDocument(const std::string& file, const std::string& page) {
    if (isSameFile(file, page)) throw FileError(ErrorNumber::permissionDenied, page);
}

std::vector<std::string> renderStandalone(Files& files, const StandalonePlan& plan,
                                          dom::Source source,
                                          const std::function<void(const Produce&)>& output,
                                          Progress& progress) {
    const std::string cabinet =
        ownOrDefault(files, plan.assetFolder, "/cabinet.png", cabinetPicture());
    const std::string style = ownOrDefault(files, plan.assetFolder, "/style.css", stylesheet());

    std::vector<std::string> missing;
    CabinetPictureOnly own(cabinet);
    HelpFile file(own, "");
    progress.phase("loading the document");
    load(file, std::move(source));

    progress.phase("writing the page");
    StandaloneParts parts;
    parts.stylesheet = style;
    parts.readPicture = [&](const std::string& file) -> std::optional<std::string> {
        // It lies beside every page that has a folder.
        if (file == "cabinet.png") return cabinet;
        return readPicture(files, plan.pageFolder, file);
    };
    parts.missing = [&](const std::string& address) {
        if (std::ranges::find(missing, address) == missing.end()) {
            missing.push_back(address);
        }
    };
    output([&](const Files::Write& write) {
        writeStandalonePage(write, *file.articledoc, file.formulaCatalogue, *file.baseXMLNode,
                            plan.evaluate, parts);
    });
    return missing;
}

}  // namespace tavisk
