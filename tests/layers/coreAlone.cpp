// Linked with the whole core and nothing else of the project: shows that every file of the core
// finds what it needs in libxml2 and the standard library.
#include <string_view>

#include "xml/xmlReader.h"
#include "xml/xmlWriter.h"

int main() {
    constexpr std::string_view text = "<cabinetinfo><cabinet/></cabinetinfo>";
    const tavisk::ParseResult result = tavisk::readXml(text);
    return result.document && tavisk::writeXml(*result.document) == text ? 0 : 1;
}
