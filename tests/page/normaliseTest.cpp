#include "page/normalise.h"

#include <gtest/gtest.h>

#include "page/openFile.h"
#include "support/errors.h"

namespace tavisk {
namespace {

using test::errorOf;
using test::OpenFile;

/// The tree after its rows "cabinet=>a" and "cabinet=>b" have been shown, in this order.
std::string shownBoth(std::string_view nodes) {
    OpenFile opened(nodes);
    opened.file.normalise(opened.row("cabinet=>b"));
    return opened.tree();
}

TEST(Normalise, ANodeWithDefaultsStaysAsItIs) {
    EXPECT_EQ(shownBoth("<a/><b/>"), "<cabinet><a/><b/></cabinet>");
}

TEST(Normalise, BoxesThatAreTickedAreWrittenAs1) {
    EXPECT_EQ(shownBoth(R"(<a columnbreak="2" pagebreak=""/><b answerhidden="no"/>)"),
              R"(<cabinet><a columnbreak="1" pagebreak="1"/>)"
              R"(<b answerhidden="1" columnbreak="0" pagebreak="0"/></cabinet>)");
}

TEST(Normalise, BoxesThatKeepTheirStateWriteNothing) {
    EXPECT_EQ(shownBoth(R"(<a titlehidden="1"/><b titlehidden="yes"/>)"),
              R"(<cabinet><a titlehidden="1"/><b titlehidden="yes"/></cabinet>)");
}

TEST(Normalise, AnEmptyTextAfterAnotherIsWritten) {
    EXPECT_EQ(shownBoth(R"(<a value="text"/><b/>)"),
              R"(<cabinet><a value="text"/><b value=""/></cabinet>)");
}

TEST(Normalise, NodesThatAreLockedStayAsTheyAre) {
    OpenFile opened("<a/><cabinetdata><b titlehidden='yes' style='x'/></cabinetdata>");
    opened.file.normalise(opened.row("cabinet=>cabinetdata=>b"));
    EXPECT_EQ(opened.tree(),
              R"(<cabinet><a/><cabinetdata><b titlehidden="yes" style="x"/></cabinetdata>)"
              "</cabinet>");
}

TEST(Normalise, TheTextIsWrittenBeforeTheStyleIsRead) {
    OpenFile opened("<a value='text'/><b style='x' titlehidden='yes'/>");
    EXPECT_EQ(errorOf([&] { opened.file.normalise(opened.row("cabinet=>b")); }), 13);
    EXPECT_EQ(writeXml(opened.row("cabinet=>b")), R"(<b style="x" titlehidden="yes" value=""/>)");
}

TEST(Normalise, AnOverlongTextIsError6) {
    OpenFile opened("<a/><b value='" + std::string(32768, 'x') + "'/>");
    EXPECT_EQ(errorOf([&] { opened.file.normalise(opened.row("cabinet=>b")); }), 6);
}

TEST(Normalise, NoNodeIsError91) {
    dom::Document document;
    ShownNode shown;
    EXPECT_EQ(errorOf([&] { normalise(document, nullptr, shown); }), 91);
}

}  // namespace
}  // namespace tavisk
