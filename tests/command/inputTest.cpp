#include "command/input.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <string_view>

#include "command/commandRun.h"
#include "command/fileError.h"

namespace tavisk {
namespace {

using namespace std::literals;

dom::Source readBytes(std::string_view bytes) {
    std::istringstream stream{std::string(bytes)};
    return readInput("-", stream);
}

Message rejectionOf(std::string_view bytes) {
    try {
        readBytes(bytes);
        return {"accepted"};
    } catch (const Rejected& rejected) {
        return rejected.refusal().message();
    }
}

std::string textOf(const dom::Source& source) {
    EXPECT_EQ(source.bytes.get()[source.size], '\0');
    return {source.bytes.get(), source.size};
}

TEST(Input, HyphenIsStandardInput) { EXPECT_EQ(textOf(readBytes("<a/>\r\n")), "<a/>\r\n"); }

TEST(Input, EmptyInput) { EXPECT_EQ(textOf(readBytes("")), ""); }

TEST(Input, KeepsNulAndInvalidBytesForTheParser) {
    EXPECT_EQ(textOf(readBytes("a\0\xC3("sv)), "a\0\xC3("sv);
}

TEST(Input, StandardInputLargerThanAnyFirstBuffer) {
    const std::string large(1'000'000, 'x');
    EXPECT_EQ(textOf(readBytes(large)), large);
}

TEST(Input, ReadsAFile) {
    const test::TemporaryFolder folder;
    std::istringstream none;
    EXPECT_EQ(textOf(readInput(folder.write("a.xml", "<a/>\n"), none)), "<a/>\n");
    EXPECT_EQ(textOf(readInput(folder.write("empty.xml", ""), none)), "");
}

TEST(Input, ReadsAFileOfUnknownSize) {
    std::istringstream none;
    EXPECT_NE(textOf(readInput("/proc/self/status", none)).find("Pid:"), std::string::npos);
}

TEST(Input, MissingFileIsError53WithItsName) {
    std::istringstream none;
    for (const char* path : {"/nowhere/at/all.xml", "/proc/version/all.xml"}) {
        try {
            readInput(path, none);
            FAIL();
        } catch (const FileError& error) {
            EXPECT_EQ(error.number(), 53);
            EXPECT_EQ(error.file(), path);
        }
    }
}

TEST(Input, FolderIsError70) {
    const test::TemporaryFolder folder;
    std::istringstream none;
    try {
        readInput(folder.path(), none);
        FAIL();
    } catch (const FileError& error) {
        EXPECT_EQ(error.number(), 70);
        EXPECT_EQ(error.file(), folder.path());
    }
}

TEST(Input, LittleEndianUtf16BecomesUtf8) {
    EXPECT_EQ(textOf(readBytes("\xFF\xFE<\0\xE4\0\x3D\xD8\x00\xDE"sv)),
              "<\xC3\xA4\xF0\x9F\x98\x80");
}

TEST(Input, BigEndianUtf16BecomesUtf8) {
    EXPECT_EQ(textOf(readBytes("\xFE\xFF\0<\0\xE4\xD8\x3D\xDE\x00"sv)),
              "<\xC3\xA4\xF0\x9F\x98\x80");
}

TEST(Input, ByteOrderMarkAloneIsAnEmptyText) {
    EXPECT_EQ(textOf(readBytes("\xFF\xFE")), "");
    EXPECT_EQ(textOf(readBytes("\xFE\xFF")), "");
}

TEST(Input, Utf8ByteOrderMarkIsLeftToTheParser) {
    EXPECT_EQ(textOf(readBytes("\xEF\xBB\xBF<a/>")), "\xEF\xBB\xBF<a/>");
}

TEST(Input, LoneSurrogateIsAParseErrorWithItsLine) {
    EXPECT_EQ(rejectionOf("\xFE\xFF\0a\0\n\0b\0\n\xD8\x00\0c"sv),
              (Message{"The text is not valid Unicode\r\nline 3", "Tavisk", BoxStyle::ok}));
}

TEST(Input, LoneSurrogateAtTheEndOrTheWrongWayRound) {
    EXPECT_EQ(rejectionOf("\xFE\xFF\xD8\x00"sv).text, "The text is not valid Unicode\r\nline 1");
    EXPECT_EQ(rejectionOf("\xFE\xFF\xDE\x00\xD8\x3D"sv).text,
              "The text is not valid Unicode\r\nline 1");
}

TEST(Input, HalfACodeUnitIsAParseError) {
    EXPECT_EQ(rejectionOf("\xFF\xFE<\0\n\0a"sv).text, "The text is not valid Unicode\r\nline 2");
    EXPECT_EQ(rejectionOf("\xFF\xFE\x41"sv).text, "The text is not valid Unicode\r\nline 1");
}

}  // namespace
}  // namespace tavisk
