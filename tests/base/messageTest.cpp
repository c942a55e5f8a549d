#include "base/message.h"

#include <gtest/gtest.h>

namespace tavisk {

TEST(Message, TheDefaultTitleIsTavisk) { EXPECT_EQ(Message{"text"}.title, "Tavisk"); }

TEST(Message, ABoxIsPlainByDefault) { EXPECT_EQ(Message{"text"}.style, BoxStyle::ok); }

TEST(Message, StylesHaveTheirFlagValues) {
    EXPECT_EQ(static_cast<int>(BoxStyle::ok), 0);
    EXPECT_EQ(static_cast<int>(BoxStyle::okCritical), 16);
    EXPECT_EQ(static_cast<int>(BoxStyle::okCancelQuestion), 33);
    EXPECT_EQ(static_cast<int>(BoxStyle::yesNoCancelQuestion), 35);
    EXPECT_EQ(static_cast<int>(BoxStyle::okInformation), 64);
}

TEST(Message, AnswersHaveTheirNumbers) {
    EXPECT_EQ(static_cast<int>(Answer::cancel), 2);
    EXPECT_EQ(static_cast<int>(Answer::yes), 6);
    EXPECT_EQ(static_cast<int>(Answer::no), 7);
}

TEST(Message, TheErrorReportHasNumberEmptyLineAndText) {
    const Message report = errorReport(6, "Overflow");
    EXPECT_EQ(report.text, "Run-time error '6':\r\n\r\nOverflow");
    EXPECT_EQ(report.title, "Tavisk");
    EXPECT_EQ(report.style, BoxStyle::okCritical);
}

}  // namespace tavisk
