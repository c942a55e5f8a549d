#include "check/textChecks.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/xml.h"

namespace tavisk {
namespace {

struct Fixture {
    std::unique_ptr<dom::Document> document = test::parsed(
        "<cabinetinfo><cabinet/>"
        "<formula name='Rate'/><formula name='a&lt;br&gt;b'/><formula name='c&#10;d'/>"
        "<formula name='@C:\\old.jpg'/><formula name='!shade'/>"
        "<image name='logo'/><image name='shade'/></cabinetinfo>");
    TokenNames names{*document};

    /// "position severity code" of each problem.
    std::vector<std::string> check(std::string_view text) {
        std::vector<std::string> found;
        for (const Problem& problem : checkTokens(text, names)) {
            found.push_back(std::to_string(problem.position.value()) +
                            (problem.severity == Severity::error ? " error " : " warning ") +
                            std::string(problem.code));
        }
        return found;
    }
    std::string message(std::string_view text) {
        const std::vector<Problem> problems = checkTokens(text, names);
        return problems.empty() ? "none" : problems.front().message;
    }
};

using Found = std::vector<std::string>;

TEST(CheckTokens, KnownNamesAreFine) {
    Fixture f;
    EXPECT_EQ(f.check("no token"), Found{});
    EXPECT_EQ(f.check("`Rate` `~logo` `!logo` `@C:\\new.jpg`"), Found{});
}

TEST(CheckTokens, CodeAndTypeAreAlwaysKnown) {
    Fixture f;
    EXPECT_EQ(f.check("`code``type`"), Found{});
}

TEST(CheckTokens, TheGeneratedPictureIsAlwaysThere) {
    Fixture f;
    EXPECT_EQ(f.check("`~generated_cabinet_picture`"), Found{});
}

TEST(CheckTokens, UnknownFormula) {
    Fixture f;
    EXPECT_EQ(f.check("a `Missing`"), Found{"2 error unknown-formula"});
    EXPECT_EQ(f.message("a `Missing`"), "No formula is named \"Missing\".");
}

TEST(CheckTokens, NamesAreComparedExactly) {
    Fixture f;
    EXPECT_EQ(f.check("`rate``~Logo`"),
              (Found{"0 error unknown-formula", "6 error unknown-picture"}));
}

TEST(CheckTokens, EmptyTokenIsAnUnknownFormula) {
    Fixture f;
    EXPECT_EQ(f.check("``"), Found{"0 error unknown-formula"});
    EXPECT_EQ(f.message("``"), "Two backquotes with nothing in between name no formula.");
}

TEST(CheckTokens, UnknownPictureAndOverlay) {
    Fixture f;
    EXPECT_EQ(f.check("`~nil` `!nil`"),
              (Found{"0 error unknown-picture", "7 error unknown-overlay"}));
    EXPECT_EQ(f.message("`~nil`"), "No picture is named \"nil\".");
}

TEST(CheckTokens, OddBackquote) {
    Fixture f;
    EXPECT_EQ(f.check("`Rate` 5` long"), Found{"8 warning odd-backquote"});
    EXPECT_EQ(f.message("`"), "This backquote has no partner; it is shown as it is.");
}

TEST(CheckTokens, PositionsCountUtf16Units) {
    Fixture f;
    EXPECT_EQ(f.check("\xC3\xA4\xF0\x9F\x98\x80`x` \xE2\x82\xAC `y`"),
              (Found{"3 error unknown-formula", "9 error unknown-formula"}));
}

TEST(CheckTokens, ALineBreakInsideATokenIsALineBreakTag) {
    Fixture f;
    EXPECT_EQ(f.check("`a\nb`"), Found{});
    EXPECT_EQ(f.check("`c\nd`"), Found{"0 error unknown-formula"});
    EXPECT_EQ(f.message("`c\nd`"),
              "From this backquote to the next there is a line break, and no formula.");
}

TEST(CheckTokens, AFormulaNamedLikeAPictureTokenHidesIt) {
    Fixture f;
    EXPECT_EQ(f.check("`@C:\\old.jpg` `!shade`"),
              (Found{"0 warning formula-hides-picture", "14 warning formula-hides-picture"}));
    EXPECT_EQ(f.message("`!shade`"),
              "A formula is named \"!shade\"; its value is shown in place of the picture.");
}

TEST(CheckTokens, PicturesThatAreReferredToCountAsUsed) {
    Fixture f;
    EXPECT_FALSE(f.names.isUsed("logo"));
    f.check("`~logo`");
    EXPECT_TRUE(f.names.isUsed("logo"));
    f.check("`!shade`");
    EXPECT_TRUE(f.names.isUsed("shade"));
}

TEST(TokenNames, AFormulasValueUsesPictures) {
    const auto document = test::parsed(
        "<cabinetinfo><cabinet/><formula name='f' value='`~logo`'/><image name='logo'/>"
        "</cabinetinfo>");
    EXPECT_TRUE(TokenNames(*document).isUsed("logo"));
}

std::string verdict(const std::optional<Problem>& problem) {
    if (!problem) return "fine";
    return std::to_string(problem->position.value()) +
           (problem->severity == Severity::error ? " error " : " warning ") + problem->message;
}

TEST(CheckCharacters, TheWholeCodePageIsFine) {
    EXPECT_EQ(verdict(checkCharacters("\xE2\x82\xAC \xC3\xA4 \xE2\x80\x9C", false)), "fine");
}

TEST(CheckCharacters, TellsTheFirstOne) {
    EXPECT_EQ(verdict(checkCharacters("\xC3\xA4z\xC5\x82y", false)),
              "2 error The page cannot hold \"\xC5\x82\" (U+0142).");
}

TEST(CheckCharacters, CountsTheOthers) {
    EXPECT_EQ(verdict(checkCharacters("\xF0\x9F\x98\x80\xC5\x82\xC5\x82", false)),
              "0 error The page cannot hold \"\xF0\x9F\x98\x80\" (U+1F600) and 2 more in this "
              "text.");
}

TEST(CheckCharacters, UnassignedBytesAreOutside) {
    EXPECT_EQ(verdict(checkCharacters("\xC2\x81", false)),
              "0 error The page cannot hold \"\xC2\x81\" (U+0081).");
}

TEST(CheckCharacters, HiddenTextsAreWarnedAbout) {
    EXPECT_EQ(verdict(checkCharacters("\xC5\x82", true)),
              "0 warning The page cannot hold \"\xC5\x82\" (U+0142); it is hidden for now.");
}

}  // namespace
}  // namespace tavisk
