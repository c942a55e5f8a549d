// Writes the documents that run.py measures: makeDocuments FOLDER
#include <array>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "makeDocument.h"

namespace {

struct Named {
    const char* file;
    tavisk::bench::DocumentPlan plan;
};

constexpr std::array<Named, 6> documents = {{
    {"S.xml", tavisk::bench::planS},
    {"M.xml", tavisk::bench::planM},
    {"L.xml", tavisk::bench::planL},
    {"LP.xml", tavisk::bench::planLP},
    {"few.xml", tavisk::bench::planFew},
    {"many.xml", tavisk::bench::planL},
}};

constexpr std::uint64_t manyDocuments = 1'000;

/// Its size, or 0 after a message.
std::size_t write(const std::filesystem::path& path, const tavisk::bench::DocumentPlan& plan) {
    const std::string xml = tavisk::bench::makeDocument(plan);
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(xml.data(), static_cast<std::streamsize>(xml.size()));
    out.close();
    if (out) return xml.size();
    std::cerr << "makeDocuments: cannot write " << path.string() << '\n';
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: makeDocuments FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    std::error_code failure;
    std::filesystem::create_directories(folder / "many", failure);
    for (const Named& document : documents) {
        const std::size_t size = write(folder / document.file, document.plan);
        if (size == 0) return 1;
        std::cout << document.file << ' ' << size << " bytes\n";
    }
    std::size_t all = 0;
    for (std::uint64_t number = 1; number <= manyDocuments; ++number) {
        const std::size_t size = write(folder / "many" / (std::to_string(number) + ".xml"),
                                       tavisk::bench::planMegabyte(number));
        if (size == 0) return 1;
        all += size;
    }
    std::cout << "many/ " << all << " bytes\n";
    return 0;
}
