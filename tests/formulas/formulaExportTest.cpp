#include "formulas/formulaExport.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "support/errors.h"
#include "support/xml.h"
#include "xml/xmlWriter.h"

namespace tavisk {
namespace {

using test::element;
using test::errorOf;
using test::parsed;
using Names = std::vector<std::string>;

constexpr const char* fixedFormulas =
    R"(<formula name="code" standard="1"/><formula name="type" standard="1"/>)";

/// Loads the catalogue from the document, exports, and gives the document's text.
std::string exported(std::string_view xml) {
    const auto document = parsed(xml);
    FormulaCatalogue catalogue;
    catalogue.load(*document);
    prepareFormulaNodesForExport(*document, catalogue);
    return writeXml(*document);
}

/// The unknown formulas that export writes for an answer text in a document without formulas.
std::string unknownsFor(const std::string& value) {
    const auto document = parsed("<cabinetinfo><cabinet value=\"" + value + "\"/></cabinetinfo>");
    FormulaCatalogue catalogue;
    prepareFormulaNodesForExport(*document, catalogue);
    std::string names;
    for (const dom::Node* formula : document->elementsByTagName("formula")) {
        EXPECT_EQ(formula->attributes()[0].name(), "name");
        EXPECT_EQ(formula->attributes()[1].name(), "standard");
        if (formula->attributes()[1].text() == "0") {
            names += "[" + std::string(formula->attributes()[0].text()) + "]";
        }
    }
    return names;
}

std::string namesOf(const FormulaCatalogue& catalogue) {
    std::string names;
    for (const FormulaEntry& entry : catalogue.entries())
        names += "[" + entry.name + "]";
    return names;
}

/// Exports a document that cannot be exported; neither it nor the catalogue may change.
int errorLeavingAllAsItWas(std::string_view xml) {
    const auto document = parsed(xml);
    FormulaCatalogue catalogue;
    catalogue.load(*document);
    const std::string before = writeXml(*document);
    const std::string namesBefore = namesOf(catalogue);
    const int error = errorOf([&] { prepareFormulaNodesForExport(*document, catalogue); });
    EXPECT_EQ(writeXml(*document), before);
    EXPECT_EQ(namesOf(catalogue), namesBefore);
    return error;
}

TEST(FormulaExport, EmptyCatalogueWritesTheFixedFormulas) {
    EXPECT_EQ(exported("<cabinetinfo><cabinet/></cabinetinfo>"),
              "<cabinetinfo><cabinet/>" + std::string(fixedFormulas) + "</cabinetinfo>");
}

TEST(FormulaExport, EmptyCatalogueReceivesTheFixedFormulas) {
    const auto document = parsed("<cabinetinfo><cabinet/></cabinetinfo>");
    FormulaCatalogue catalogue;
    prepareFormulaNodesForExport(*document, catalogue);
    EXPECT_FALSE(catalogue.firstformula());
    ASSERT_EQ(namesOf(catalogue), "[code][type]");
    for (const FormulaEntry& entry : catalogue.entries()) {
        EXPECT_TRUE(entry.standard);
        EXPECT_EQ(entry.value, "");
        EXPECT_EQ(entry.description, "");
    }
}

TEST(FormulaExport, CatalogueComesFirstInItsOrderWithItsAttributes) {
    EXPECT_EQ(exported(R"(<cabinetinfo><formula standard="1" value="5" description="d" name="b"/>)"
                       R"(<formula name="a" other="x"/><cabinet/></cabinetinfo>)"),
              R"(<cabinetinfo><cabinet/><formula name="b" description="d" standard="1"/>)"
              R"(<formula name="a" description="" standard="0"/>)" +
                  std::string(fixedFormulas) + "</cabinetinfo>");
}

TEST(FormulaExport, ValueOfAnAddedFormulaIsNotWritten) {
    const auto document = parsed("<cabinetinfo><cabinet/></cabinetinfo>");
    FormulaCatalogue catalogue;
    catalogue.add({"Rate", "unknown formula", "d", true});
    prepareFormulaNodesForExport(*document, catalogue);
    EXPECT_EQ(writeXml(*document),
              R"(<cabinetinfo><cabinet/><formula name="Rate" description="d" standard="1"/>)" +
                  std::string(fixedFormulas) + "</cabinetinfo>");
}

TEST(FormulaExport, DuplicateEntriesAreWrittenTwice) {
    EXPECT_EQ(
        exported(R"(<cabinetinfo><cabinet/><formula name="a"/><formula name="a"/></cabinetinfo>)"),
        R"(<cabinetinfo><cabinet/><formula name="a" description="" standard="0"/>)"
        R"(<formula name="a" description="" standard="0"/>)" +
            std::string(fixedFormulas) + "</cabinetinfo>");
}

TEST(FormulaExport, EntriesNamedCodeOrTypeAreNotWrittenFromTheCatalogue) {
    EXPECT_EQ(
        exported(R"(<cabinetinfo><cabinet/><formula name="type" description="t" standard="0"/>)"
                 R"(<formula name="a"/><formula name="code" description="c" standard="0"/>)"
                 R"(<formula name="code"/></cabinetinfo>)"),
        R"(<cabinetinfo><cabinet/><formula name="a" description="" standard="0"/>)" +
            std::string(fixedFormulas) + "</cabinetinfo>");
}

TEST(FormulaExport, EntriesNamedCodeOrTypeStayInTheCatalogueAsTheyAre) {
    const auto document = parsed("<cabinetinfo><cabinet/></cabinetinfo>");
    FormulaCatalogue catalogue;
    catalogue.add({"type", "v", "t", false});
    catalogue.add({"code", "w", "c", false});
    prepareFormulaNodesForExport(*document, catalogue);
    ASSERT_EQ(namesOf(catalogue), "[type][code]");
    EXPECT_EQ(catalogue.entries()[0].value, "v");
    EXPECT_EQ(catalogue.entries()[1].description, "c");
    EXPECT_FALSE(catalogue.entries()[0].standard);
}

TEST(FormulaExport, OnlyTheMissingFixedFormulaEntersTheCatalogue) {
    for (const auto& [known, after] :
         {std::pair{"code", "[code][type]"}, {"type", "[type][code]"}}) {
        const auto document = parsed("<cabinetinfo><cabinet/></cabinetinfo>");
        FormulaCatalogue catalogue;
        catalogue.add({known, "", "", true});
        prepareFormulaNodesForExport(*document, catalogue);
        EXPECT_EQ(namesOf(catalogue), after);
    }
}

TEST(FormulaExport, NamesOfTheFixedFormulasAreCaseSensitive) {
    EXPECT_EQ(exported(R"(<cabinetinfo><cabinet/><formula name="Code"/></cabinetinfo>)"),
              R"(<cabinetinfo><cabinet/><formula name="Code" description="" standard="0"/>)" +
                  std::string(fixedFormulas) + "</cabinetinfo>");
}

TEST(FormulaExport, TokensCodeAndTypeMakeNoElement) {
    EXPECT_EQ(unknownsFor("`code` and `type`"), "");
    EXPECT_EQ(unknownsFor("`Code` and `Type`"), "[Code][Type]");
}

TEST(FormulaExport, UnknownTokenMakesANonStandardElementBehindAllOthers) {
    EXPECT_EQ(
        exported(R"(<cabinetinfo><cabinet value="x`Missing`y"/><formula name="a"/></cabinetinfo>)"),
        R"(<cabinetinfo><cabinet value="x`Missing`y"/>)"
        R"(<formula name="a" description="" standard="0"/>)" +
            std::string(fixedFormulas) + R"(<formula name="Missing" standard="0"/></cabinetinfo>)");
}

TEST(FormulaExport, UnknownNameUsedTwiceMakesTwoElements) {
    EXPECT_EQ(unknownsFor("`Missing` and `Missing`"), "[Missing][Missing]");
}

TEST(FormulaExport, UnknownNamesDoNotEnterTheCatalogue) {
    const auto document = parsed(R"(<cabinetinfo><cabinet value="`Missing`"/></cabinetinfo>)");
    FormulaCatalogue catalogue;
    prepareFormulaNodesForExport(*document, catalogue);
    EXPECT_EQ(namesOf(catalogue), "[code][type]");
}

TEST(FormulaExport, KnownNamesMakeNoElementStandardOrNot) {
    EXPECT_EQ(
        exported(R"(<cabinetinfo><formula name="a" standard="1"/><formula name="b"/>)"
                 R"(<cabinet value="`a``b`"/></cabinetinfo>)"),
        R"(<cabinetinfo><cabinet value="`a``b`"/><formula name="a" description="" standard="1"/>)"
        R"(<formula name="b" description="" standard="0"/>)" +
            std::string(fixedFormulas) + "</cabinetinfo>");
}

TEST(FormulaExport, NamesOfTokensAreCaseSensitive) {
    const auto document =
        parsed(R"(<cabinetinfo><cabinet value="`rate``Rate``Rate `"/></cabinetinfo>)");
    FormulaCatalogue catalogue;
    catalogue.add({"Rate", "", "", true});
    EXPECT_EQ(prepareFormulaNodeForExport(element(*document, "cabinet"), catalogue),
              (Names{"rate", "Rate "}));
}

TEST(FormulaExport, PictureAndOverlayTokensMakeNoElement) {
    EXPECT_EQ(unknownsFor("`~logo` `!logo`"), "");
}

TEST(FormulaExport, ExternalPictureTokenCountsAsAFormula) {
    EXPECT_EQ(unknownsFor("`@C:\\test.jpg`"), "[@C:\\test.jpg]");
}

TEST(FormulaExport, SingleBackquoteMakesNoElement) {
    EXPECT_EQ(unknownsFor("`"), "");
    EXPECT_EQ(unknownsFor("a`b"), "");
}

TEST(FormulaExport, TextOfTwoBackquotesMakesAnElementWithAnEmptyName) {
    EXPECT_EQ(unknownsFor("``"), "[]");
}

TEST(FormulaExport, OddLastBackquoteMakesNoElement) { EXPECT_EQ(unknownsFor("`a` `b"), "[a]"); }

TEST(FormulaExport, BackquotesPairFromLeftToRight) { EXPECT_EQ(unknownsFor("`a`b`c`"), "[a][c]"); }

TEST(FormulaExport, PositionsAreNotShiftedByShortOrLongNames) {
    EXPECT_EQ(unknownsFor("`a``LongName` `b`"), "[a][LongName][b]");
}

TEST(FormulaExport, NamesKeepTheirCharacters) {
    EXPECT_EQ(unknownsFor("`größe \U0001F600``a&#10;b``&lt;&amp;&quot;`"),
              "[größe \U0001F600][a\nb][<&\"]");
}

TEST(FormulaExport, WholeSubtreeOfCabinetIsScannedInDocumentOrder) {
    EXPECT_EQ(
        exported(R"(<cabinetinfo><cabinet value="`1`"><a value="`2`"><b value="`3`"/></a>text)"
                 R"(<!--`no`--><?pi `no`?><c value="`4`"/></cabinet></cabinetinfo>)"),
        R"(<cabinetinfo><cabinet value="`1`"><a value="`2`"><b value="`3`"/></a>text)"
        R"(<!--`no`--><?pi `no`?><c value="`4`"/></cabinet>)" +
            std::string(fixedFormulas) +
            R"(<formula name="1" standard="0"/><formula name="2" standard="0"/>)"
            R"(<formula name="3" standard="0"/><formula name="4" standard="0"/></cabinetinfo>)");
}

TEST(FormulaExport, OnlyTheAttributeValueIsScanned) {
    EXPECT_EQ(exported(R"(<cabinetinfo><cabinet titlecolor="`a`" Value="`b`"/></cabinetinfo>)"),
              R"(<cabinetinfo><cabinet titlecolor="`a`" Value="`b`"/>)" +
                  std::string(fixedFormulas) + "</cabinetinfo>");
}

TEST(FormulaExport, NothingOutsideCabinetIsScanned) {
    EXPECT_EQ(exported(R"(<cabinetinfo value="`a`"><image value="`b`"/><cabinet/></cabinetinfo>)"),
              R"(<cabinetinfo value="`a`"><image value="`b`"/><cabinet/>)" +
                  std::string(fixedFormulas) + "</cabinetinfo>");
}

TEST(FormulaExport, FormulasGoWhereverTheyStand) {
    EXPECT_EQ(
        exported(R"(<cabinetinfo><image><formula name="a"/></image><cabinet><x><formula name="b">)"
                 R"(<formula name="c"/></formula><y/></x></cabinet></cabinetinfo>)"),
        R"(<cabinetinfo><image/><cabinet><x><y/></x></cabinet>)"
        R"(<formula name="a" description="" standard="0"/>)"
        R"(<formula name="b" description="" standard="0"/>)"
        R"(<formula name="c" description="" standard="0"/>)" +
            std::string(fixedFormulas) + "</cabinetinfo>");
}

TEST(FormulaExport, OnlyLowerCaseFormulaElementsGo) {
    EXPECT_EQ(exported(R"(<cabinetinfo><Formula name="a"/><cabinet/></cabinetinfo>)"),
              R"(<cabinetinfo><Formula name="a"/><cabinet/>)" + std::string(fixedFormulas) +
                  "</cabinetinfo>");
}

TEST(FormulaExport, TextsInsideRemovedFormulasAreNotScanned) {
    EXPECT_EQ(
        exported(R"(<cabinetinfo><cabinet><formula name="a" value="`x`"><n value="`y`"/></formula>)"
                 R"(<n value="`z`"/></cabinet></cabinetinfo>)"),
        R"(<cabinetinfo><cabinet><n value="`z`"/></cabinet>)"
        R"(<formula name="a" description="" standard="0"/>)" +
            std::string(fixedFormulas) + R"(<formula name="z" standard="0"/></cabinetinfo>)");
}

TEST(FormulaExport, NewElementsGoBehindEverythingInTheDocumentElement) {
    EXPECT_EQ(
        exported("<?xml version=\"1.0\"?><!--first--><CabinetInfo><cabinet/><location value=\"k\"/>"
                 "<!--last--></CabinetInfo>"),
        "<?xml version=\"1.0\"?>\r\n<!--first--><CabinetInfo><cabinet/><location value=\"k\"/>"
        "<!--last-->" +
            std::string(fixedFormulas) + "</CabinetInfo>");
}

TEST(FormulaExport, RepeatedExportsDoNotAccumulate) {
    const auto document =
        parsed(R"(<cabinetinfo><formula name="a" description="d"/><cabinet value="`Missing`"/>)"
               "</cabinetinfo>");
    FormulaCatalogue catalogue;
    catalogue.load(*document);
    prepareFormulaNodesForExport(*document, catalogue);
    const std::string once = writeXml(*document);
    prepareFormulaNodesForExport(*document, catalogue);
    EXPECT_EQ(writeXml(*document), once);
    EXPECT_EQ(namesOf(catalogue), "[a][code][type]");
}

TEST(FormulaExport, FormulasInsideFormulasGoOnce) {
    const auto document = parsed(
        R"(<cabinetinfo><formula name="a"><formula name="b"/></formula><cabinet/></cabinetinfo>)");
    FormulaCatalogue catalogue;
    catalogue.load(*document);
    prepareFormulaNodesForExport(*document, catalogue);
    const std::string once = writeXml(*document);
    // The memory of the removed elements serves the new ones.
    prepareFormulaNodesForExport(*document, catalogue);
    EXPECT_EQ(writeXml(*document), once);
    EXPECT_EQ(document->elementsByTagName("formula").size(), 4u);
}

TEST(FormulaExport, ExportedDocumentExportsToItself) {
    const std::string once = exported(
        R"(<cabinetinfo><formula name="a" value="5"/><cabinet value="`a`"/></cabinetinfo>)");
    EXPECT_EQ(exported(once), once);
}

TEST(FormulaExport, UnknownTokenOfAReloadedDocumentIsKnownAndGetsADescription) {
    const std::string once = exported(R"(<cabinetinfo><cabinet value="`a``a`"/></cabinetinfo>)");
    EXPECT_EQ(
        exported(once),
        R"(<cabinetinfo><cabinet value="`a``a`"/><formula name="a" description="" standard="0"/>)"
        R"(<formula name="a" description="" standard="0"/>)" +
            std::string(fixedFormulas) + "</cabinetinfo>");
}

TEST(FormulaExport, FirstCabinetIsScanned) {
    EXPECT_EQ(
        exported(
            R"(<cabinetinfo><x><cabinet value="`a`"/></x><cabinet value="`b`"/></cabinetinfo>)"),
        R"(<cabinetinfo><x><cabinet value="`a`"/></x><cabinet value="`b`"/>)" +
            std::string(fixedFormulas) + R"(<formula name="a" standard="0"/></cabinetinfo>)");
}

TEST(FormulaExport, CabinetInsideAFormulaIsPassedOver) {
    EXPECT_EQ(
        exported(R"(<cabinetinfo><formula name="f"><x><cabinet value="`a`"/></x></formula>)"
                 R"(<cabinet value="`b`"/></cabinetinfo>)"),
        R"(<cabinetinfo><cabinet value="`b`"/><formula name="f" description="" standard="0"/>)" +
            std::string(fixedFormulas) + R"(<formula name="b" standard="0"/></cabinetinfo>)");
}

TEST(FormulaExport, WithoutCabinetAnErrorChangesNothing) {
    EXPECT_EQ(errorLeavingAllAsItWas(R"(<cabinetinfo><formula name="a"/><Cabinet/></cabinetinfo>)"),
              91);
    FormulaCatalogue catalogue;
    dom::Document empty;
    EXPECT_EQ(errorOf([&] { prepareFormulaNodesForExport(empty, catalogue); }), 91);
    EXPECT_TRUE(catalogue.firstformula());
}

TEST(FormulaExport, WithTheOnlyCabinetInsideAFormulaAnErrorChangesNothing) {
    EXPECT_EQ(errorLeavingAllAsItWas(
                  R"(<cabinetinfo><formula name="a"><cabinet/></formula></cabinetinfo>)"),
              91);
    EXPECT_EQ(errorLeavingAllAsItWas("<formula><cabinet/></formula>"), 91);
}

TEST(FormulaExport, LastChildThatIsNoElementIsAnErrorAndChangesNothing) {
    EXPECT_EQ(errorLeavingAllAsItWas(
                  R"(<cabinetinfo><cabinet/><formula name="a"/></cabinetinfo><!--c-->)"),
              5);
}

TEST(FormulaExport, NameThatCannotBeWrittenIsAnErrorAndChangesNothing) {
    const auto document = parsed(R"(<cabinetinfo><cabinet/><formula name="a"/></cabinetinfo>)");
    const std::string before = writeXml(*document);
    FormulaCatalogue catalogue;
    catalogue.add({"bell\x07", "", "d", true});
    EXPECT_EQ(errorOf([&] { prepareFormulaNodesForExport(*document, catalogue); }), 5);
    EXPECT_EQ(writeXml(*document), before);
    EXPECT_EQ(namesOf(catalogue), "[bell\x07]");
}

std::string cabinetWith(const std::string& value) {
    return "<cabinetinfo><formula name=\"a\" value=\"5\"/><cabinet><n value=\"" + value +
           "\"/></cabinet></cabinetinfo>";
}

TEST(FormulaExportLimit, TextOf32767UnitsPasses) {
    EXPECT_EQ(unknownsFor(std::string(32764, 'x') + "`a`"), "[a]");
}

TEST(FormulaExportLimit, TextOf32768UnitsOverflowsAndChangesNothing) {
    EXPECT_EQ(errorLeavingAllAsItWas(cabinetWith(std::string(32768, 'x'))), 6);
}

TEST(FormulaExportLimit, SurrogatePairsCountAsTwo) {
    std::string text;
    for (int i = 0; i < 16382; ++i)
        text += "\U0001F600";
    EXPECT_EQ(unknownsFor(text + "`a`"), "[a]");
    EXPECT_EQ(errorLeavingAllAsItWas(cabinetWith(text + "`ab`")), 6);
}

TEST(FormulaExportLimit, OtherForeignCharactersCountAsOne) {
    std::string text;
    for (int i = 0; i < 32764; ++i)
        text += "é";
    EXPECT_EQ(unknownsFor(text + "`a`"), "[a]");
    EXPECT_EQ(errorLeavingAllAsItWas(cabinetWith(text + "`ab`")), 6);
}

TEST(FormulaExportLimit, DoesNotHoldForTextsThatAreNotScanned) {
    const std::string tooLong(32768, 'x');
    EXPECT_EQ(exported("<cabinetinfo><image value=\"" + tooLong + "\"/><cabinet><formula value=\"" +
                       tooLong + "\"/></cabinet></cabinetinfo>"),
              "<cabinetinfo><image value=\"" + tooLong +
                  R"("/><cabinet/><formula name="" description="" standard="0"/>)" + fixedFormulas +
                  "</cabinetinfo>");
}

TEST(FormulaNodeExport, ScansTheNodeAndEverythingBelow) {
    const auto document =
        parsed(R"(<cabinet value="`0`"><a value="`1`"><b value="`2``1`"/>t</a></cabinet>)");
    FormulaCatalogue catalogue;
    EXPECT_EQ(prepareFormulaNodeForExport(element(*document, "a"), catalogue),
              (Names{"1", "2", "1"}));
}

TEST(FormulaNodeExport, LeavesOutNothingByName) {
    const auto document =
        parsed(R"(<cabinet><formula value="`a`"/><image value="`b`"/></cabinet>)");
    EXPECT_EQ(prepareFormulaNodeForExport(element(*document, "cabinet"), FormulaCatalogue()),
              (Names{"a", "b"}));
}

TEST(FormulaNodeExport, KnowsOnlyTheCatalogue) {
    const auto document = parsed(R"(<cabinet value="`code``Rate`"/>)");
    FormulaCatalogue catalogue;
    EXPECT_EQ(prepareFormulaNodeForExport(element(*document, "cabinet"), catalogue),
              (Names{"code", "Rate"}));
    catalogue.add({"Rate", "", "", false});
    EXPECT_EQ(prepareFormulaNodeForExport(element(*document, "cabinet"), catalogue),
              (Names{"code"}));
}

TEST(FormulaNodeExport, NodeWithoutAttributesGivesNothing) {
    const auto document = parsed("<cabinet>`a`</cabinet>");
    EXPECT_EQ(prepareFormulaNodeForExport(*element(*document, "cabinet").firstChild(),
                                          FormulaCatalogue()),
              Names{});
}

}  // namespace
}  // namespace tavisk
