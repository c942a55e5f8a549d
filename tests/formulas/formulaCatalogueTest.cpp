#include "formulas/formulaCatalogue.h"

#include <gtest/gtest.h>

#include "support/errors.h"
#include "support/scriptedDialogs.h"
#include "support/xml.h"

namespace tavisk {
namespace {

using test::parsed;
using test::ScriptedDialogs;

constexpr const char* namePrompt = "Please enter the formula";
constexpr const char* descriptionPrompt = "Please enter a description for this formula";
constexpr const char* title = "Add Formula";
constexpr const char* noHelp = "Description: No help exists for the selected formula.";

FormulaCatalogue loaded(std::string_view xml) {
    FormulaCatalogue catalogue;
    catalogue.load(*parsed(xml));
    return catalogue;
}

std::string namesOf(const FormulaCatalogue& catalogue) {
    std::string names;
    for (const FormulaEntry& entry : catalogue.entries())
        names += "[" + entry.name + "]";
    return names;
}

void ignoreName(const std::string&) {}

TEST(FormulaCatalogue, LoadReadsAllAttributes) {
    const FormulaCatalogue catalogue =
        loaded(R"(<x><formula name="Rate" description="a rate" standard="1" value="5"/></x>)");
    ASSERT_EQ(catalogue.entries().size(), 1u);
    EXPECT_EQ(catalogue.entries()[0].name, "Rate");
    EXPECT_EQ(catalogue.entries()[0].description, "a rate");
    EXPECT_EQ(catalogue.entries()[0].value, "5");
    EXPECT_TRUE(catalogue.entries()[0].standard);
    EXPECT_FALSE(catalogue.firstformula());
}

TEST(FormulaCatalogue, LoadFindsFormulasAnywhereInDocumentOrder) {
    const FormulaCatalogue catalogue =
        loaded(R"(<cabinetinfo><formula name="a"><formula name="b"/></formula>)"
               R"(<cabinet><x><formula name="c"/></x></cabinet><formula name="d"/></cabinetinfo>)");
    EXPECT_EQ(namesOf(catalogue), "[a][b][c][d]");
}

TEST(FormulaCatalogue, LoadKeepsDuplicateNames) {
    EXPECT_EQ(namesOf(loaded(R"(<x><formula name="a"/><formula name="a"/></x>)")), "[a][a]");
}

TEST(FormulaCatalogue, LoadTakesOnlyLowerCaseElements) {
    EXPECT_EQ(namesOf(loaded(R"(<x><Formula name="a"/><FORMULA name="b"/></x>)")), "");
}

TEST(FormulaCatalogue, LoadReadsMissingAttributesAsEmptyAndNotStandard) {
    const FormulaCatalogue catalogue = loaded("<x><formula/></x>");
    ASSERT_EQ(catalogue.entries().size(), 1u);
    EXPECT_EQ(catalogue.entries()[0].name, "");
    EXPECT_EQ(catalogue.entries()[0].description, "");
    EXPECT_EQ(catalogue.entries()[0].value, "");
    EXPECT_FALSE(catalogue.entries()[0].standard);
}

TEST(FormulaCatalogue, OnlyTheExactTextOneIsStandard) {
    for (const char* text : {"0", "", "true", "yes", " 1", "1 ", "01", "1.0", "2"}) {
        const FormulaCatalogue catalogue =
            loaded("<x><formula standard=\"" + std::string(text) + "\"/></x>");
        EXPECT_FALSE(catalogue.entries().at(0).standard) << text;
    }
    EXPECT_TRUE(loaded(R"(<x><formula standard="1"/></x>)").entries().at(0).standard);
}

TEST(FormulaCatalogue, LoadDiscardsWhatWasThere) {
    FormulaCatalogue catalogue;
    catalogue.add({"old", "", "", true});
    catalogue.load(*parsed(R"(<x><formula name="new"/></x>)"));
    EXPECT_EQ(namesOf(catalogue), "[new]");
}

TEST(FormulaCatalogue, DocumentWithoutFormulasLeavesFirstformulaTrue) {
    FormulaCatalogue catalogue;
    catalogue.add({"old", "", "", true});
    catalogue.load(*parsed("<x><cabinet/></x>"));
    EXPECT_TRUE(catalogue.firstformula());
}

TEST(FormulaCatalogue, ContainsComparesExactly) {
    const FormulaCatalogue catalogue = loaded(R"(<x><formula name="Rate"/></x>)");
    EXPECT_TRUE(catalogue.contains("Rate"));
    EXPECT_FALSE(catalogue.contains("rate"));
    EXPECT_FALSE(catalogue.contains("Rate "));
    EXPECT_FALSE(catalogue.contains(""));
}

TEST(FormulaDescription, StandsBehindItsLabel) {
    EXPECT_EQ(loaded(R"(<x><formula name="a" description="d"/></x>)").descriptionOf("a"),
              "Description: d");
}

TEST(FormulaDescription, EmptyDescriptionShowsThatNoHelpExists) {
    EXPECT_EQ(loaded(R"(<x><formula name="a"/></x>)").descriptionOf("a"), noHelp);
}

TEST(FormulaDescription, UnknownNameShowsThatNoHelpExists) {
    EXPECT_EQ(loaded(R"(<x><formula name="a" description="d"/></x>)").descriptionOf("A"), noHelp);
    EXPECT_EQ(FormulaCatalogue().descriptionOf(""), noHelp);
}

TEST(FormulaDescription, FirstEntryOfTheNameCounts) {
    const FormulaCatalogue catalogue =
        loaded(R"(<x><formula name="a" description="1"/><formula name="a" description="2"/></x>)");
    EXPECT_EQ(catalogue.descriptionOf("a"), "Description: 1");
}

TEST(FormulaDescription, EmptyFirstEntryHidesTheSecond) {
    const FormulaCatalogue catalogue =
        loaded(R"(<x><formula name="a"/><formula name="a" description="2"/></x>)");
    EXPECT_EQ(catalogue.descriptionOf("a"), noHelp);
}

TEST(FormulaDescription, EmptyNameIsANameLikeAnyOther) {
    EXPECT_EQ(loaded(R"(<x><formula description="d"/></x>)").descriptionOf(""), "Description: d");
}

TEST(FormulaAdd, FirstEntryIsStandardWithAnUnknownValue) {
    FormulaCatalogue catalogue;
    ScriptedDialogs dialogs;
    dialogs.expectPrompt(namePrompt, title, "", "Rate")
        .expectPrompt(descriptionPrompt, title, "Rate", "a rate")
        .expectBox("Formula added successfully", title, BoxStyle::ok);
    catalogue.addByPrompt(dialogs, ignoreName);
    ASSERT_EQ(catalogue.entries().size(), 1u);
    EXPECT_EQ(catalogue.entries()[0].name, "Rate");
    EXPECT_EQ(catalogue.entries()[0].value, "unknown formula");
    EXPECT_EQ(catalogue.entries()[0].description, "a rate");
    EXPECT_TRUE(catalogue.entries()[0].standard);
    EXPECT_FALSE(catalogue.firstformula());
}

TEST(FormulaAdd, LaterEntryGoesLast) {
    FormulaCatalogue catalogue = loaded(R"(<x><formula name="a"/></x>)");
    ScriptedDialogs dialogs;
    dialogs.expectPrompt(namePrompt, title, "", "b")
        .expectPrompt(descriptionPrompt, title, "b", "d")
        .expectBox("Formula added successfully", title, BoxStyle::ok);
    catalogue.addByPrompt(dialogs, ignoreName);
    EXPECT_EQ(namesOf(catalogue), "[a][b]");
}

TEST(FormulaAdd, NameIsListedBeforeTheSuccessMessage) {
    FormulaCatalogue catalogue;
    ScriptedDialogs dialogs;
    std::string list;
    std::string listAtMessage;
    dialogs.expectPrompt(namePrompt, title, "", "Rate")
        .expectPrompt(descriptionPrompt, title, "Rate", "d")
        .expectBox("Formula added successfully", title, BoxStyle::ok)
        .during([&] { listAtMessage = list; });
    catalogue.addByPrompt(dialogs, [&](const std::string& name) { list += "[" + name + "]"; });
    EXPECT_EQ(listAtMessage, "[Rate]");
    EXPECT_EQ(list, "[Rate]");
}

TEST(FormulaAdd, EmptyNameStops) {
    FormulaCatalogue catalogue;
    ScriptedDialogs dialogs;
    dialogs.expectPrompt(namePrompt, title, "", "");
    catalogue.addByPrompt(dialogs, [](const std::string&) { FAIL() << "nothing to list"; });
    EXPECT_TRUE(catalogue.firstformula());
}

TEST(FormulaAdd, EmptyDescriptionStopsAndAddsNothing) {
    FormulaCatalogue catalogue;
    ScriptedDialogs dialogs;
    dialogs.expectPrompt(namePrompt, title, "", "Rate")
        .expectPrompt(descriptionPrompt, title, "Rate", "");
    catalogue.addByPrompt(dialogs, [](const std::string&) { FAIL() << "nothing to list"; });
    EXPECT_TRUE(catalogue.firstformula());
}

TEST(FormulaAdd, NameInUseIsRefused) {
    FormulaCatalogue catalogue = loaded(R"(<x><formula name="Rate" standard="1" value="5"/></x>)");
    ScriptedDialogs dialogs;
    dialogs.expectPrompt(namePrompt, title, "", "Rate")
        .expectPrompt(descriptionPrompt, title, "Rate", "d")
        .expectBox("This name is already in use", title, BoxStyle::okInformation);
    catalogue.addByPrompt(dialogs, [](const std::string&) { FAIL() << "nothing to list"; });
    EXPECT_EQ(namesOf(catalogue), "[Rate]");
    EXPECT_EQ(catalogue.entries()[0].value, "5");
}

TEST(FormulaAdd, NameOfANonStandardEntryIsRefused) {
    FormulaCatalogue catalogue = loaded(R"(<x><formula name="Rate" standard="0"/></x>)");
    ScriptedDialogs dialogs;
    dialogs.expectPrompt(namePrompt, title, "", "Rate")
        .expectPrompt(descriptionPrompt, title, "Rate", "d")
        .expectBox("This name is already in use", title, BoxStyle::okInformation);
    catalogue.addByPrompt(dialogs, [](const std::string&) { FAIL() << "nothing to list"; });
    EXPECT_EQ(namesOf(catalogue), "[Rate]");
}

TEST(FormulaAdd, WhatXmlCannotHoldIsError5AndNothingIsAdded) {
    FormulaCatalogue catalogue;
    ScriptedDialogs dialogs;
    dialogs.expectPrompt(namePrompt, title, "", "a\x01")
        .expectPrompt(descriptionPrompt, title, "a\x01", "d")
        .expectPrompt(namePrompt, title, "", "a")
        .expectPrompt(descriptionPrompt, title, "a", "\x01");
    const auto listed = [](const std::string&) { FAIL() << "nothing to list"; };
    EXPECT_EQ(test::errorOf([&] { catalogue.addByPrompt(dialogs, listed); }), 5);
    EXPECT_EQ(test::errorOf([&] { catalogue.addByPrompt(dialogs, listed); }), 5);
    EXPECT_TRUE(catalogue.firstformula());
}

TEST(FormulaAdd, NameInAnotherLetterCaseIsNew) {
    FormulaCatalogue catalogue = loaded(R"(<x><formula name="Rate"/></x>)");
    ScriptedDialogs dialogs;
    dialogs.expectPrompt(namePrompt, title, "", "RATE")
        .expectPrompt(descriptionPrompt, title, "RATE", "d")
        .expectBox("Formula added successfully", title, BoxStyle::ok);
    catalogue.addByPrompt(dialogs, ignoreName);
    EXPECT_EQ(namesOf(catalogue), "[Rate][RATE]");
}

TEST(FormulaAdd, CharactersOfTheNameAreNotChecked) {
    FormulaCatalogue catalogue;
    ScriptedDialogs dialogs;
    dialogs.expectPrompt(namePrompt, title, "", "a`b")
        .expectPrompt(descriptionPrompt, title, "a`b", "d")
        .expectBox("Formula added successfully", title, BoxStyle::ok);
    catalogue.addByPrompt(dialogs, ignoreName);
    EXPECT_EQ(namesOf(catalogue), "[a`b]");
}

TEST(FormulaToken, IsTheNameBetweenBackquotes) {
    EXPECT_EQ(formulaToken("Rate"), "`Rate`");
    EXPECT_EQ(formulaToken("~logo"), "`~logo`");
}

TEST(FormulaToken, EmptyNameGivesTwoBackquotes) { EXPECT_EQ(formulaToken(""), "``"); }

}  // namespace
}  // namespace tavisk
