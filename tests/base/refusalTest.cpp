#include "base/refusal.h"

#include <gtest/gtest.h>

namespace tavisk {

TEST(Refusal, TheLineStandsBelowTheReason) {
    EXPECT_EQ((Refusal{"Reason", Place{7}}.message()),
              (Message{"Reason\r\nline 7", "Tavisk", BoxStyle::ok}));
}

TEST(Refusal, OfTheShapeIsShownAsItIs) {
    EXPECT_EQ((Refusal{"No.\r\n\r\nwhy", std::nullopt, "Error", BoxStyle::okCritical}.message()),
              (Message{"No.\r\n\r\nwhy", "Error", BoxStyle::okCritical}));
}

TEST(Refusal, IsOneSentence) {
    EXPECT_EQ((Refusal{"Reason", Place{7, 3}}.sentence()), "Reason (line 7)");
    EXPECT_EQ((Refusal{"One:\r\n\r\ntwo\r\nthree"}.sentence()), "One: two three");
}

}  // namespace tavisk
