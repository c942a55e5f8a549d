#include "page/pictureTags.h"

#include <gtest/gtest.h>
#include <vector>

namespace tavisk {
namespace {

/// With every address in brackets.
std::string bracketed(std::string html) {
    replacePictureAddresses(html, [](const std::string& address) { return '[' + address + ']'; });
    return html;
}

TEST(PictureTags, EverySourceIsAsked) {
    EXPECT_EQ(bracketed("a<img src='x'>b<img src=\"y z\">c"),
              "a<img src='[x]'>b<img src=\"[y z]\">c");
}

TEST(PictureTags, TagsAreReadAsBrowsersReadThem) {
    EXPECT_EQ(bracketed("<IMG\n alt = 'src=\"a\" >' SRC = 'x' hidden>"),
              "<IMG\n alt = 'src=\"a\" >' SRC = '[x]' hidden>");
    EXPECT_EQ(bracketed("<img/src=x>"), "<img/src=\"[x]\">");
    EXPECT_EQ(bracketed("<img alt=x/y src=a/b.png width=1>"),
              "<img alt=x/y src=\"[a/b.png]\" width=1>");
    EXPECT_EQ(bracketed("<img src='first' src='second'>"), "<img src='[first]' src='second'>");
    EXPECT_EQ(bracketed("<img src=''>"), "<img src='[]'>");
}

TEST(PictureTags, OtherTextStays) {
    for (const char* html :
         {"", "<", "<img", "<image src='x'>", "<imgsrc='x'>", "img src='x'", "<img>", "<img alt=>",
          "<img data-src='x'>", "<img =''>", "< img src='x'>"}) {
        EXPECT_EQ(bracketed(html), html);
    }
}

TEST(PictureTags, ATagWithoutEndIsReadToTheEnd) {
    EXPECT_EQ(bracketed("<img src='x"), "<img src='[x]");
    EXPECT_EQ(bracketed("<img src=x"), "<img src=\"[x]\"");
    EXPECT_EQ(bracketed("<img src="), "<img src=");
}

TEST(PictureTags, NoAnswerLeavesTheAddress) {
    std::string html = "<img src='a'><img src='b'>";
    replacePictureAddresses(html, [](const std::string& address) {
        return address == "b" ? std::optional<std::string>("c") : std::nullopt;
    });
    EXPECT_EQ(html, "<img src='a'><img src='c'>");
}

TEST(PictureTags, AmpersandsMayBeReferences) {
    std::vector<std::string> asked;
    std::string html = "<img src='a&amp;b&c'>";
    replacePictureAddresses(html, [&](const std::string& address) -> std::optional<std::string> {
        asked.push_back(address);
        return std::nullopt;
    });
    EXPECT_EQ(asked, std::vector<std::string>{"a&b&c"});
    EXPECT_EQ(html, "<img src='a&amp;b&c'>");
}

TEST(LocalFile, NamesAndPaths) {
    EXPECT_EQ(localFile("a.png"), "a.png");
    EXPECT_EQ(localFile(" /x/a.png\n"), "/x/a.png");
    EXPECT_EQ(localFile("C:\\x\\a.png"), "C:\\x\\a.png");
    EXPECT_EQ(localFile("a%20b%C3%A4%2.png"), "a b\xC3\xA4%2.png");
    EXPECT_EQ(localFile("a.png?1#2"), "a.png");
    EXPECT_EQ(localFile(""), "");
}

TEST(LocalFile, FileAddresses) {
    EXPECT_EQ(localFile("file:///x/a.png"), "/x/a.png");
    EXPECT_EQ(localFile("FILE:/x/a.png"), "/x/a.png");
    EXPECT_EQ(localFile("file://localhost/x/a.png"), "/x/a.png");
    EXPECT_EQ(localFile("file:///C:/x/a.png"), "C:/x/a.png");
}

TEST(LocalFile, OtherAddressesAreElsewhere) {
    for (const char* address : {"http://h/a.png", "HTTPS://h/a.png", "//h/a.png",
                                "data:image/png;base64,AA==", "cid:1@x", "x-y+z.1:a"}) {
        EXPECT_EQ(localFile(address), std::nullopt) << address;
    }
}

}  // namespace
}  // namespace tavisk
