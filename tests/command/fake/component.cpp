// Stands in for the component where a test wants every outcome without a window: the file named by
// FAKE_LOG receives what the call was handed, the one named by FAKE_RESULT has the text that comes
// back (what was handed over without it), FAKE_ERROR the number that is returned.
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <tavisk/tavisk.h>

namespace {

int called(const std::string& call, const char* xml) {
    if (const char* log = std::getenv("FAKE_LOG"))
        std::ofstream(log, std::ios::binary) << call << '\n' << xml;
    const char* const error = std::getenv("FAKE_ERROR");
    return error ? std::atoi(error) : 0;
}

std::string textOf(const char* file) {
    std::ifstream text(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(text), {}};
}

}  // namespace

int tavisk_edit_xml(const char* xml, char** result, char** error_text) {
    if (error_text) *error_text = nullptr;
    const int error = called("edit", xml);
    const char* const file = std::getenv("FAKE_RESULT");
    *result = strdup(file && error == 0 ? textOf(file).c_str() : xml);
    return error;
}

int tavisk_preview_xml(const char* xml, int evaluate_formula, char** error_text) {
    if (error_text) *error_text = nullptr;
    return called("preview " + std::to_string(evaluate_formula), xml);
}

void tavisk_free(void* string) { std::free(string); }
