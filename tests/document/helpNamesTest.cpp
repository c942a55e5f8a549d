#include "document/helpNames.h"

#include <gtest/gtest.h>

namespace tavisk {

TEST(HelpNames, UnderscoresAreShownAsSpaces) {
    EXPECT_EQ(shownName("how_to_open__it"), "how to open  it");
    EXPECT_EQ(shownName("_a_"), " a ");
}

TEST(HelpNames, SpacesAreStoredAsUnderscores) {
    EXPECT_EQ(elementName("how to open  it"), "how_to_open__it");
}

TEST(HelpNames, OtherCharactersStay) {
    EXPECT_EQ(shownName("a-B.1é\t"), "a-B.1é\t");
    EXPECT_EQ(elementName("a-B.1é\t"), "a-B.1é\t");
}

TEST(HelpNames, TheEmptyNameStaysEmpty) {
    EXPECT_EQ(shownName(""), "");
    EXPECT_EQ(elementName(""), "");
}

TEST(HelpNames, NamesWithoutUnderscoresComeBack) {
    EXPECT_EQ(shownName(elementName("a b-c 1")), "a b-c 1");
}

TEST(HelpNames, NamesWithBothDoNotComeBack) { EXPECT_EQ(shownName(elementName("a_b c")), "a b c"); }

}  // namespace tavisk
