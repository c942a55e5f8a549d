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
    {"S.xml", {1'000, 20, 5, 10'000, 1}},
    {"M.xml", {10'000, 200, 50, 10'000, 1}},
    {"L.xml", {30'000, 2'000, 500, 10'000, 1}},
    {"LP.xml", {30'000, 2'000, 500, 200'000, 1}},
    {"few.xml", {30'000, 20, 5, 10'000, 1}},
    {"many.xml", {30'000, 2'000, 500, 10'000, 1}},
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
