// A host in C++: edits the help of a door and shows its page. CMakeLists.txt builds it.
//
//     edit DOCUMENT
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <tavisk/clsTavisk.h>

#include <libxml/parser.h>

using Tree = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;

/// What a real host computes from the item's construction.
const std::map<std::string, const char*> values{
    {"code", "D45"}, {"type", "Door"}, {"width", "450"}, {"height", "720"}};

std::string taken(xmlChar* text) {
    const std::string copy = text ? reinterpret_cast<const char*>(text) : "";
    xmlFree(text);
    return copy;
}

Tree parsed(const std::string& document) {
    Tree tree(xmlReadMemory(document.data(), static_cast<int>(document.size()), nullptr, "UTF-8",
                            XML_PARSE_NONET | XML_PARSE_HUGE),
              xmlFreeDoc);
    if (!tree) throw std::runtime_error("no XML");
    return tree;
}

/// The document with the present value of every formula.
std::string withValues(const std::string& document) {
    const Tree tree = parsed(document);
    for (xmlNode* node = xmlDocGetRootElement(tree.get())->children; node; node = node->next) {
        if (!xmlStrEqual(node->name, BAD_CAST "formula")) continue;
        const auto found = values.find(taken(xmlGetNoNsProp(node, BAD_CAST "name")));
        if (found != values.end()) xmlSetProp(node, BAD_CAST "value", BAD_CAST found->second);
    }
    xmlChar* text = nullptr;
    int length = 0;
    xmlDocDumpMemoryEnc(tree.get(), &text, &length, "UTF-8");
    return taken(text);
}

/// Whether the editor was left by "Refresh Formula Values".
bool wantsRefresh(const std::string& document) {
    const Tree tree = parsed(document);
    for (xmlNode* node = xmlDocGetRootElement(tree.get())->children; node; node = node->next)
        if (xmlStrEqual(node->name, BAD_CAST "location")) return true;
    return false;
}

int main(int count, char** words) {
    if (count != 2) return 2;
    try {
        std::ifstream in(words[1], std::ios::binary);
        std::string document{std::istreambuf_iterator<char>(in), {}};
        const tavisk::clsTavisk help;
        // As long as the user refreshes, compute the values and open the editor at the same place.
        do {
            int error = 0;
            document = help.editXML(withValues(document), &error);
            if (error != 0) throw std::runtime_error("error " + std::to_string(error));
        } while (wantsRefresh(document));
        std::ofstream(words[1], std::ios::binary) << document;
        help.previewXML(withValues(document), true);
    } catch (const std::exception& error) {
        std::cerr << words[1] << ": " << error.what() << '\n';
        return 1;
    }
}
