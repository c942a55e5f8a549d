#include "base/error.h"

#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace tavisk {
namespace {

void expectText(ErrorNumber number, int value, const std::string& text) {
    const RunTimeError error(number);
    EXPECT_EQ(error.number(), value);
    EXPECT_EQ(error.what(), text);
}

/// The run-time error that an exception counts as.
template <class Throw>
RunTimeError errorFor(Throw action) {
    try {
        action();
    } catch (...) {
        return currentRunTimeError();
    }
    throw std::logic_error("nothing was thrown");
}

}  // namespace

TEST(RunTimeError, Error5IsInvalidProcedureCall) {
    expectText(ErrorNumber::invalidArgument, 5, "Invalid procedure call or argument");
}

TEST(RunTimeError, Error6IsOverflow) { expectText(ErrorNumber::overflow, 6, "Overflow"); }

TEST(RunTimeError, Error13IsTypeMismatch) {
    expectText(ErrorNumber::typeMismatch, 13, "Type mismatch");
}

TEST(RunTimeError, Error52IsBadFileName) {
    expectText(ErrorNumber::badFileName, 52, "Bad file name or number");
}

TEST(RunTimeError, Error53IsFileNotFound) {
    expectText(ErrorNumber::fileNotFound, 53, "File not found");
}

TEST(RunTimeError, Error70IsPermissionDenied) {
    expectText(ErrorNumber::permissionDenied, 70, "Permission denied");
}

TEST(RunTimeError, Error76IsPathNotFound) {
    expectText(ErrorNumber::pathNotFound, 76, "Path not found");
}

TEST(RunTimeError, Error91IsObjectNotSet) {
    expectText(ErrorNumber::objectNotSet, 91, "Object variable or With block variable not set");
}

TEST(RunTimeError, FurtherNumbersHaveTheirOwnTexts) {
    expectText(ErrorNumber::outOfMemory, 7, "Out of memory");
    expectText(ErrorNumber::deviceError, 57, "Device I/O error");
    expectText(ErrorNumber::diskFull, 61, "Disk full");
}

TEST(RunTimeError, RaiseThrowsTheNumber) {
    try {
        raise(ErrorNumber::pathNotFound);
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), 76);
        return;
    }
    FAIL();
}

TEST(RunTimeError, ARunTimeErrorStandsForItself) {
    EXPECT_EQ(errorFor([] { raise(ErrorNumber::typeMismatch); }).number(), 13);
}

TEST(RunTimeError, AFailedAllocationCountsAsError7) {
    EXPECT_EQ(errorFor([] { throw std::bad_alloc(); }).number(), 7);
}

TEST(RunTimeError, ATextBeyondAllMemoryCountsAsError7) {
    EXPECT_EQ(errorFor([] { std::string().resize(std::string().max_size() + 1); }).number(), 7);
}

TEST(RunTimeError, AnyOtherExceptionCountsAsError5) {
    EXPECT_EQ(errorFor([] { std::vector<int>().at(1); }).number(), 5);
    EXPECT_EQ(errorFor([] { throw 42; }).number(), 5);
}

}  // namespace tavisk
