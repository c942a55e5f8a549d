#include "check/plainPage.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <variant>

#include "check/check.h"
#include "check/nodeChecks.h"
#include "check/rehearsal.h"
#include "check/storeChecks.h"
#include "document/helpDocument.h"
#include "support/xml.h"

namespace tavisk {
namespace {

bool cannotFail(const std::string& xml) {
    const auto document = test::parsed(xml);
    const TokenNames names(*document);
    return pageCannotFail(test::element(*document, "cabinet"), names);
}

std::string documentOf(const std::string& nodes, const std::string& rest = "") {
    return "<cabinetinfo><cabinet>" + nodes + "</cabinet>" + rest + "</cabinetinfo>";
}

std::string repeated(std::string_view text, std::size_t count) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

constexpr const char* formula = "<formula name='f' value='5'/>";

TEST(PageCannotFail, InAnOrdinaryDocument) {
    EXPECT_TRUE(cannotFail(documentOf(
        "<A value='`f` &#10; `~p` `!p` `@x`' style='63'/>",
        std::string(formula) + "<image name='p' extension='gif' width='9'>aGk=</image>")));
}

TEST(PageCannotFail, NotWhereAValueMakesTokens) {
    EXPECT_FALSE(cannotFail(documentOf("<A/>", "<formula name='f' value='a`'/>")));
}

TEST(PageCannotFail, NotWhereTheCodePageLacksACharacterOfAValueOrAPicture) {
    EXPECT_FALSE(cannotFail(documentOf("<A/>", "<formula name='f' value='\xC5\x82'/>")));
    EXPECT_FALSE(cannotFail(documentOf("<A/>", "<image name='\xC5\x82' extension='gif'/>")));
    EXPECT_FALSE(cannotFail(documentOf("<A/>", "<image name='p' extension='\xC5\x82'/>")));
    EXPECT_FALSE(cannotFail(documentOf("<A/>", "<image name='p' width='\xC5\x82'/>")));
    EXPECT_TRUE(cannotFail(documentOf("<A/>", "<formula name='\xC5\x82' value='1'/>")));
}

TEST(PageCannotFail, NotWhereTokensMayGrowBeyondTheLimit) {
    const std::string value(1000, 'v');
    const std::string rest = "<formula name='f' value='" + value + "'/>";
    EXPECT_TRUE(cannotFail(documentOf("<A value='" + repeated("`f`", 32) + "'/>", rest)));
    EXPECT_FALSE(cannotFail(documentOf("<A value='" + repeated("`f`", 33) + "'/>", rest)));
}

TEST(PageCannotFail, NotWhereLineFeedsMayGrowBeyondTheLimit) {
    // Each becomes four characters.
    EXPECT_TRUE(cannotFail(documentOf("<A value='" + repeated("&#10;", 8191) + "'/>")));
    EXPECT_FALSE(cannotFail(documentOf("<A value='" + repeated("&#10;", 8192) + "'/>")));
    EXPECT_TRUE(cannotFail(documentOf("<A value='" + std::string(32767, 'x') + "'/>")));
    EXPECT_FALSE(cannotFail(documentOf("<A value='" + std::string(32768, 'x') + "'/>")));
}

TEST(PageCannotFail, EveryAttributeCounts) {
    EXPECT_FALSE(cannotFail(documentOf("<A note='" + repeated("&#10;", 8192) + "'/>")));
}

TEST(PageCannotFail, NotWhereGapsMayFillThePage) {
    EXPECT_TRUE(cannotFail(documentOf("<A spacebefore='1000' spaceafter='-9'/>")));
    EXPECT_FALSE(cannotFail(documentOf("<A spacebefore='1e9'/>")));
    EXPECT_FALSE(
        cannotFail(documentOf("<A><B/><C spaceafter='6000000'/></A><D spacebefore="
                              "'6000000'/>")));
}

TEST(PageCannotFail, NotAmongOtherNodes) {
    EXPECT_FALSE(cannotFail(documentOf("<A/><!--x-->")));
    EXPECT_FALSE(cannotFail(documentOf("<A/><?x?>")));
    EXPECT_FALSE(cannotFail(documentOf("<A>x</A>")));
}

/// Documents near what a page can hold.
class Generator {
public:
    explicit Generator(std::uint32_t seed) : random_(seed) {}

    std::string document() {
        std::string nodes;
        for (std::size_t i = 1 + below(3); i > 0; --i)
            nodes += "<n" + std::to_string(i) + " " + attributes() + "/>";
        std::string rest = "<formula name='f' value='" + value() + "'/><formula name='g' value='" +
                           value() + "'/>";
        rest +=
            "<image name='p' extension='gif'>aGk=</image>"
            "<image name='q' extension='" +
            std::string(below(200), 'e') + "x'>aGk=</image>";
        return documentOf(nodes, rest);
    }

private:
    std::size_t below(std::size_t end) { return random_() % end; }

    std::string value() {
        switch (below(8)) {
            case 0: return std::string(below(4000), 'v');
            case 1: return "&#10;`";
            case 2: return "`g`";
            case 3: return "\xC5\x82";
            default: return "600";
        }
    }

    std::string text() {
        constexpr const char* pieces[] = {"`f`",  "`g`",   "`~p`",  "`!q`",    "`@h://x`",
                                          "`~q`", "&#10;", "word ", "\xC3\xA4"};
        std::string text;
        const std::size_t most = below(5) == 0 ? 3000 : 40;
        for (std::size_t i = below(most); i > 0; --i)
            text += repeated(pieces[below(std::size(pieces))], 1 + below(3));
        return text;
    }

    std::string attributes() {
        std::string all = "value='" + text() + "`~p` `~q`'";
        if (below(4) == 0) all += " note='" + text() + "'";
        if (below(4) == 0) all += " spacebefore='" + std::to_string(below(3)) + "'";
        if (below(9) == 0) all += " style='" + std::to_string(below(64)) + "'";
        return all;
    }

    std::mt19937 random_;
};

/// Whether the check would leave out making the page, and whether that page can be made.
struct Verdict {
    bool leftOut;
    bool made;
};

Verdict verdictOn(const std::string& xml) {
    auto opened = openHelpDocument(dom::Source::copy(xml));
    auto& document = std::get<HelpDocument>(opened);
    FindingList found;
    TokenNames names(*document.articledoc);
    checkNodes(*document.cabinet, names, found);
    checkFormulas(names, found);
    checkPictures(names, found);
    const bool leftOut = found.findings().empty() && pageCannotFail(*document.cabinet, names);
    return {leftOut, !rehearse(std::move(document)).has_value()};
}

TEST(PageCannotFail, IsNeverWrongOnRandomDocuments) {
    int leftOut = 0;
    int failing = 0;
    for (std::uint32_t seed = 0; seed < 1500; ++seed) {
        const std::string xml = Generator(seed).document();
        const Verdict verdict = verdictOn(xml);
        EXPECT_TRUE(verdict.made || !verdict.leftOut) << seed << ": " << xml.substr(0, 2000);
        leftOut += verdict.leftOut ? 1 : 0;
        failing += verdict.made ? 0 : 1;
    }
    // Both happen often enough to mean something.
    EXPECT_GT(leftOut, 100);
    EXPECT_GT(failing, 100);
}

}  // namespace
}  // namespace tavisk
