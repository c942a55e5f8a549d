#include "command/reportText.h"

#include <gtest/gtest.h>
#include <new>

#include "command/fileError.h"

namespace tavisk {
namespace {

template <class Error>
std::string complaintOf(const std::string& file, Error error) {
    try {
        throw error;
    } catch (...) {
        return currentComplaint(file);
    }
}

TEST(Complaint, ARejectionIsOneLine) {
    EXPECT_EQ(complaint("a.xml", {"Error in XML data:\r\n\r\nNo."}),
              "a.xml: rejected: Error in XML data: No.\n");
    EXPECT_EQ(complaint("a.xml", {"Reason", Place{7}}), "a.xml: rejected: Reason (line 7)\n");
}

TEST(Complaint, AnErrorOfTheDocumentsOwnFile) {
    EXPECT_EQ(complaintOf("a.xml", FileError(ErrorNumber::fileNotFound, "a.xml")),
              "a.xml: Run-time error '53': File not found\n");
    EXPECT_EQ(complaintOf("-", FileError(ErrorNumber::deviceError, "standard input")),
              "-: Run-time error '57': Device I/O error\n");
}

TEST(Complaint, AnErrorOfAnotherFileNamesIt) {
    EXPECT_EQ(complaintOf("a.xml", FileError(ErrorNumber::diskFull, "out/a/temp.html")),
              "a.xml: Run-time error '61': Disk full (out/a/temp.html)\n");
}

TEST(Complaint, OtherErrors) {
    EXPECT_EQ(complaintOf("a.xml", RunTimeError(ErrorNumber::overflow)),
              "a.xml: Run-time error '6': Overflow\n");
    EXPECT_EQ(complaintOf("a.xml", std::bad_alloc()), "a.xml: Run-time error '7': Out of memory\n");
}

TEST(Complaint, NamesDoNotControlTheTerminal) {
    EXPECT_EQ(complaintOf("a\n\x1B[2J", RunTimeError(ErrorNumber::overflow)),
              "a  [2J: Run-time error '6': Overflow\n");
}

TEST(MissingPictures, ALineForEach) {
    EXPECT_EQ(missingPictures("a.xml", {}), "");
    EXPECT_EQ(missingPictures("a.xml", {"b.png", "c\n.png"}),
              "a.xml: warning: the picture \"b.png\" is missing\n"
              "a.xml: warning: the picture \"c .png\" is missing\n");
}

TEST(Counted, OneHasNoS) {
    EXPECT_EQ(counted(0, "finding"), "0 findings");
    EXPECT_EQ(counted(1, "finding"), "1 finding");
    EXPECT_EQ(counted(2, "finding"), "2 findings");
}

TEST(Summary, WhatDidNotHappenIsLeftOut) {
    Summary summary(4);
    summary.add(0, "rendered");
    summary.add(3, "rejected");
    summary.add(1, "failed");
    EXPECT_EQ(summary.text(), "4 documents: 3 rejected, 1 failed");
}

}  // namespace
}  // namespace tavisk
