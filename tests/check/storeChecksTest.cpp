#include "check/storeChecks.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "support/xml.h"

namespace tavisk {
namespace {

/// The findings of formulas and pictures beside a cabinet without texts.
Findings findingsOf(std::string_view elements) {
    const auto document =
        test::parsed("<cabinetinfo><cabinet/>" + std::string(elements) + "</cabinetinfo>");
    TokenNames names(*document);
    names.usePicture("used");
    FindingList findings;
    checkFormulas(names, findings);
    checkPictures(names, findings);
    return std::move(findings).take();
}

/// One line per finding: severity, code, locator, attribute.
std::string linesOf(std::string_view elements) {
    std::string lines;
    for (const Finding& finding : findingsOf(elements)) {
        lines += finding.severity == Severity::error ? "error " : "warning ";
        lines += std::string(finding.code) + ' ' + finding.key + ' ' + finding.attribute + '\n';
    }
    return lines;
}

/// A picture without any fault, but for the attributes that are given once more.
std::string picture(std::string_view attributes) {
    return "<image extension='png' " + std::string(attributes) + ">aGk=</image>";
}

TEST(CheckFormulas, FindsNothingInAPlainCatalogue) {
    EXPECT_EQ(linesOf("<formula name='a' standard='1'/><formula name='b' standard='0'/>"), "");
}

TEST(CheckFormulas, DuplicateNames) {
    EXPECT_EQ(linesOf("<formula name='a'/><formula name='a'/><formula name='A'/>"),
              "warning duplicate-formula formula \"a\" name\n");
}

TEST(CheckFormulas, WithoutName) {
    EXPECT_EQ(linesOf("<formula name='a'/><formula/><formula name=''/>"),
              "warning formula-without-name formula #2 name\n"
              "warning formula-without-name formula #3 name\n");
}

TEST(CheckFormulas, BackquoteInTheName) {
    const Findings findings = findingsOf("<formula name='\xC3\xA4`'/>");
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0],
              (Finding{Severity::warning, "name-with-backquote", "formula \"\xC3\xA4`\"", "name", 1,
                       "A name with a backquote cannot be written in a token."}));
}

TEST(CheckFormulas, StandardFlag) {
    EXPECT_EQ(linesOf("<formula name='a' standard='true'/>"),
              "warning bad-flag formula \"a\" standard\n");
}

TEST(CheckPictures, FindsNothingInAPlainPicture) {
    EXPECT_EQ(linesOf(picture("name='used' width='10' height='20'")), "");
}

TEST(CheckPictures, Unused) {
    EXPECT_EQ(linesOf(picture("name='other'")), "warning picture-unused image \"other\" name\n");
}

TEST(CheckPictures, TheGeneratedPictureNeedNotBeUsed) {
    EXPECT_EQ(linesOf(picture("name='generated_cabinet_picture'")), "");
}

TEST(CheckPictures, TheGeneratedPicturesSizeMustBeANumber) {
    EXPECT_EQ(linesOf(picture("name='generated_cabinet_picture' width='' height='x'")),
              "error bad-number image \"generated_cabinet_picture\" width\n"
              "error bad-number image \"generated_cabinet_picture\" height\n");
}

TEST(CheckPictures, WithoutName) {
    EXPECT_EQ(linesOf(picture("")), "warning picture-without-name image #1 name\n");
}

TEST(CheckPictures, WithoutExtension) {
    EXPECT_EQ(linesOf("<image name='used'>aGk=</image>"),
              "warning picture-without-extension image \"used\" extension\n");
}

TEST(CheckPictures, BackquoteInTheName) {
    EXPECT_EQ(linesOf(picture("name='a`'")),
              "warning name-with-backquote image \"a`\" name\n"
              "warning picture-unused image \"a`\" name\n");
}

TEST(CheckPictures, Sizes) {
    EXPECT_EQ(linesOf(picture("name='used' width='wide' height=''")),
              "warning bad-number image \"used\" width\n");
}

TEST(CheckPictures, WithoutData) {
    EXPECT_EQ(linesOf("<image name='used' extension='png'/>"),
              "error picture-without-data image \"used\" \n");
    EXPECT_EQ(linesOf("<image name='used' extension='png' "
                      "xmlns:dt='urn:schemas-microsoft-com:datatypes' dt:dt='bin.base64'/>"),
              "error picture-without-data image \"used\" \n");
}

TEST(CheckPictures, BadData) {
    EXPECT_EQ(linesOf("<image name='used' extension='png'>a*</image>"),
              "error picture-bad-data image \"used\" \n");
    EXPECT_EQ(linesOf("<image name='used' extension='png' "
                      "xmlns:dt='urn:schemas-microsoft-com:datatypes' dt:dt='bin.base64'>aGk"
                      "</image>"),
              "error picture-bad-data image \"used\" \n");
}

TEST(CheckPictures, SameFile) {
    EXPECT_EQ(linesOf(picture("name='used'") + picture("name='used'")),
              "warning picture-file-clash image \"used\" name\n");
    EXPECT_EQ(linesOf("<image name='used.x' extension='png'>aGk=</image>"
                      "<image name='used' extension='x.png'>aGk=</image>"),
              "warning picture-unused image \"used.x\" name\n"
              "warning picture-file-clash image \"used\" name\n");
}

TEST(CheckPictures, SameFileByTheDefaultName) {
    EXPECT_EQ(linesOf(picture("") + picture("name='default'")),
              "warning picture-without-name image #1 name\n"
              "warning picture-file-clash image \"default\" name\n");
}

TEST(CheckPictures, SameNameInAnotherFormat) {
    EXPECT_EQ(linesOf(picture("name='used'") + "<image name='used' extension='gif'>aGk=</image>"),
              "warning duplicate-picture image \"used\" name\n");
}

TEST(CheckPictures, NamesThatLeadOutOfTheFolder) {
    EXPECT_EQ(linesOf(picture("name='../used'")),
              "warning picture-unused image \"../used\" name\n"
              "error picture-name-unsafe image \"../used\" name\n");
    EXPECT_EQ(linesOf("<image name='used' extension='a/b'>aGk=</image>"),
              "error picture-name-unsafe image \"used\" name\n");
    EXPECT_EQ(linesOf("<image name='' extension='.'>aGk=</image>"),
              "warning picture-without-name image #1 name\n"
              "error picture-name-unsafe image #1 name\n");
}

TEST(CheckPictures, NamesTooLongForAFile) {
    const std::string longest(251, 'x');
    EXPECT_EQ(linesOf(picture("name='" + longest + "'")).find("unsafe"), std::string::npos);
    EXPECT_NE(linesOf(picture("name='" + longest + "y'")).find("unsafe"), std::string::npos);
}

TEST(CheckPictures, NamesThatFilesOrLinksDoNotSurvive) {
    for (const char* name : {"a\\b", "a:b", "a*b", "a?b", "a&quot;b", "a&lt;b", "a&gt;b", "a|b",
                             "a&apos;b", "a#b", "a%b"}) {
        EXPECT_NE(linesOf(picture("name='" + std::string(name) + "'"))
                      .find("warning picture-name-special"),
                  std::string::npos)
            << name;
    }
}

TEST(CheckPictures, TooManyAttributes) {
    std::string attributes;
    for (int i = 0; i <= 32767; ++i)
        attributes += " a" + std::to_string(i) + "=''";
    EXPECT_EQ(linesOf("<formula" + attributes + "/><image" + attributes + "/>"),
              "error too-many-attributes formula #1 \n"
              "error too-many-attributes image #1 \n");
}

}  // namespace
}  // namespace tavisk
