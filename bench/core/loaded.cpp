#include "loaded.h"

#include <cstdint>
#include <stdexcept>

namespace tavisk::bench {

const std::string& documentOfSize(std::int64_t size) {
    static const std::string small = makeDocument(planS);
    static const std::string medium = makeDocument(planM);
    static const std::string large = makeDocument(planL);
    return size == 0 ? small : size == 1 ? medium : large;
}

void LoadedSession::load(std::string_view xml) {
    if (const auto message = session_.load(dom::Source::copy(xml))) {
        throw std::runtime_error(message->reason);
    }
}

test::MemoryFiles LoadedSession::filesWithPicture() {
    test::MemoryFiles files;
    files.put(std::string(folder_) + "/cabinet.png", std::string(cabinetPicture()));
    return files;
}

}  // namespace tavisk::bench
