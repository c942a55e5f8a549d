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

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: makeDocuments FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    for (const Named& document : documents) {
        const std::string xml = tavisk::bench::makeDocument(document.plan);
        std::ofstream out(folder / document.file, std::ios::binary | std::ios::trunc);
        out.write(xml.data(), static_cast<std::streamsize>(xml.size()));
        out.close();
        if (!out) {
            std::cerr << "makeDocuments: cannot write " << (folder / document.file).string()
                      << '\n';
            return 1;
        }
        std::cout << document.file << ' ' << xml.size() << " bytes\n";
    }
    return 0;
}
