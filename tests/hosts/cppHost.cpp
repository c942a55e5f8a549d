// A host in C++ that uses the component's class.
#include <iostream>
#include <sstream>
#include <tavisk/clsTavisk.h>

#include "hostFiles.h"

namespace {

std::string textOf(const std::string& file) {
    char* const bytes = readFile(file.c_str());
    std::string text(bytes);
    std::free(bytes);
    return text;
}

std::string perform(const std::string& command, const std::string& file,
                    const std::string& argument) {
    const tavisk::clsTavisk component;
    if (command == "edit") {
        int number = -1;
        const std::string result = component.editXML(textOf(file), &number);
        writeFile(argument.c_str(), result.data(), result.size());
        return std::to_string(number);
    }
    try {
        component.previewXML(textOf(file), argument == "1");
        return "0";
    } catch (const tavisk::Error& error) {
        return std::to_string(error.number()) + " " + error.what();
    }
}

}  // namespace

int main() {
    for (std::string line; std::getline(std::cin, line);) {
        std::istringstream words(line);
        std::string tag, command, file, argument;
        words >> tag >> command >> file >> argument;
        std::cout << tag << ' ' << perform(command, file, argument) << std::endl;
    }
}
