// Which navigation leads where.
#include <gtest/gtest.h>

#include "ui/preview/browserPolicy.h"

namespace tavisk {
namespace {

constexpr std::string_view page = "file:///app/temp.html";

NavigationAnswer clicked(std::string_view address, bool newWindow = false) {
    return answerNavigation({.address = address, .linkClicked = true, .newWindow = newWindow},
                            page);
}

TEST(AnswerNavigation, NothingLeadsAnywhereWithoutAClick) {
    for (const std::string_view address :
         {page, std::string_view("file:///app/temp.html#a"), std::string_view("http://a/"),
          std::string_view("mailto:a@b"), std::string_view("about:blank")})
        EXPECT_EQ(answerNavigation({.address = address}, page), NavigationAnswer::ignore)
            << address;
}

TEST(AnswerNavigation, PlacesOfThePageAreShown) {
    EXPECT_EQ(clicked("file:///app/temp.html#a"), NavigationAnswer::show);
    EXPECT_EQ(clicked("file:///app/temp.html#"), NavigationAnswer::show);
    EXPECT_EQ(clicked("file:///app/temp.html#a", true), NavigationAnswer::ignore);
    EXPECT_EQ(clicked("file:///app/temp.html?a#a"), NavigationAnswer::ignore);
    EXPECT_EQ(clicked("file:///app/temp.html"), NavigationAnswer::ignore);
    EXPECT_EQ(clicked("file:///app/temp.htm#a"), NavigationAnswer::ignore);
}

TEST(AnswerNavigation, WebAndMailOpenOutside) {
    for (const std::string_view address : {"http://a/", "https://a/", "HTTPS://a/", "mailto:a@b"}) {
        EXPECT_EQ(clicked(address), NavigationAnswer::openOutside) << address;
        EXPECT_EQ(clicked(address, true), NavigationAnswer::openOutside) << address;
    }
}

TEST(AnswerNavigation, OtherAddressesStayClosed) {
    for (const std::string_view address :
         {"", "file:///app/other.html", "file:///bin/sh", "ftp://a/", "javascript:1", "data:,1",
          "about:blank", "httpx://a/", "http", "smb://a/b", "xdg-open:a"})
        EXPECT_EQ(clicked(address), NavigationAnswer::ignore) << address;
}

}  // namespace
}  // namespace tavisk
