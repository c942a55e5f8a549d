#include "xml/domNamespaces.h"

#include <gtest/gtest.h>
#include <string>

#include "support/xml.h"

namespace tavisk::dom {
namespace {

using test::element;
using test::parsed;

/// What the element `t` has from above, as "prefix=address;".
std::string fromAbove(std::string_view xml) {
    const auto document = parsed(xml);
    std::string list;
    for (const Namespace& taken : namespacesFromAbove(element(*document, "t")))
        list += taken.prefix + "=" + taken.address + ";";
    return list;
}

}  // namespace

TEST(DomNamespaces, TheNearestDeclarationCounts) {
    const auto document = parsed(R"(<a xmlns:p="1"><b xmlns:p="2" xmlns:q="3"><c/></b></a>)");
    EXPECT_EQ(namespaceOf(element(*document, "c"), "p"), "2");
    EXPECT_EQ(namespaceOf(element(*document, "a"), "p"), "1");
}

TEST(DomNamespaces, APrefixThatIsNotDeclaredStandsForNothing) {
    const auto document = parsed(R"(<a xmlns:p="1" p="2"/>)");
    EXPECT_EQ(namespaceOf(element(*document, "a"), "q"), "");
}

TEST(DomNamespaces, PrefixesOfElementsAndAttributesBelowComeFromAbove) {
    EXPECT_EQ(
        fromAbove(R"(<a xmlns:p="1" xmlns:q="2" xmlns:r="3"><t p:x=""><q:b p:y=""/></t></a>)"),
        "p=1;q=2;");
}

TEST(DomNamespaces, WhatIsDeclaredInsideDoesNotComeFromAbove) {
    EXPECT_EQ(fromAbove(R"(<a xmlns:p="1"><t xmlns:p="2" p:x=""><b xmlns:q="3" q:y=""/></t></a>)"),
              "");
}

TEST(DomNamespaces, WhatIsDeclaredInAnotherBranchInsideComesFromAbove) {
    EXPECT_EQ(fromAbove(R"(<a xmlns:p="1"><t><b xmlns:p="2" p:x=""/><p:c/></t></a>)"), "p=1;");
}

TEST(DomNamespaces, XmlNeedsNoDeclaration) {
    EXPECT_EQ(fromAbove(R"(<a><t xml:space="preserve"/></a>)"), "");
}

TEST(DomNamespaces, AnElementWithoutParentHasNothingFromAbove) {
    const auto document = parsed(R"(<t xmlns:p="1"><b p:x=""/></t>)");
    const OwnedNode top = document->remove(element(*document, "t"));
    EXPECT_TRUE(namespacesFromAbove(*top).empty());
}

}  // namespace tavisk::dom
