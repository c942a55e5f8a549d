#include "command/jsonWriter.h"

#include <gtest/gtest.h>

namespace tavisk {
namespace {

using Layout = JsonWriter::Layout;

TEST(JsonWriter, SeparatesMembersAndElements) {
    JsonWriter json;
    json.beginObject().name("a").number(1).name("b").beginArray().truth(true).truth(false).end();
    json.name("c").null().name("d").textOrNull("").name("e").textOrNull("x").end();
    EXPECT_EQ(json.take(),
              "{\"a\": 1, \"b\": [true, false], \"c\": null, \"d\": null, \"e\": \"x\"}\n");
}

TEST(JsonWriter, LinesForElements) {
    JsonWriter json;
    json.beginArray(Layout::lines).beginObject().end().beginArray(Layout::lines).end().end();
    EXPECT_EQ(json.take(), "[\n{},\n[]\n]\n");
}

TEST(JsonWriter, ALineForTheEndAlsoWhereThereIsNothing) {
    JsonWriter json;
    json.beginArray(Layout::openLines).end();
    EXPECT_EQ(json.take(), "[\n]\n");
}

TEST(JsonWriter, PiecesFollowEachOther) {
    JsonWriter json;
    json.beginArray().number(1);
    EXPECT_EQ(json.take(), "[1");
    json.number(2);
    EXPECT_EQ(json.take(), ", 2");
    EXPECT_EQ(json.end().take(), "]\n");
}

TEST(JsonWriter, EscapesWhatJsonCannotHold) {
    EXPECT_EQ(JsonWriter().text("\"\\\n\r\t\x01\x1F/\xC3\xA4").take(),
              "\"\\\"\\\\\\n\\r\\t\\u0001\\u001f/\xC3\xA4\"");
}

TEST(JsonWriter, BytesThatAreNoTextBecomeTheReplacementCharacter) {
    EXPECT_EQ(JsonWriter().text("a\xFF\xC3(").take(), "\"a\xEF\xBF\xBD\xEF\xBF\xBD(\"");
}

}  // namespace
}  // namespace tavisk
