#include "page/otherPlaces.h"

#include <gtest/gtest.h>

namespace tavisk {
namespace {

TEST(OtherPlaces, WhatLiesBesideThePageIsNone) {
    EXPECT_EQ(countOtherPlaces(""), 0U);
    EXPECT_EQ(countOtherPlaces("<link rel='stylesheet' href='style.css'>"
                               "<img src='temp_images/a.png'><img src='/home/a.png'>"
                               "<img src='data:image/png;base64,http://a/'>"),
              0U);
}

TEST(OtherPlaces, EveryAddressCountsOnce) {
    EXPECT_EQ(countOtherPlaces("<img src='http://a/1'><IMG SRC=HTTPS://a/2><img src='http://a/1'>"
                               "<img src=\" //a/3 \"><img src='ftp://a/4'>"),
              4U);
}

TEST(OtherPlaces, EverythingThatLoadsByItself) {
    EXPECT_EQ(countOtherPlaces("<link href='http://a/1'><body background='http://a/2'>"
                               "<img srcset='http://a/3 2x, http://a/4 1x'>"
                               "<video poster='http://a/5'><object data='http://a/6'>"
                               "<svg><image xlink:href='http://a/7'/></svg>"
                               "<p style='background: url(\"http://a/8\")'>"
                               "<style>@import 'http://a/9'; a{b:url(http://a/10)}</style>"),
              10U);
}

TEST(OtherPlaces, LinksAndTextLoadNothing) {
    EXPECT_EQ(countOtherPlaces("<a href='http://a/'>http://b/</a><area href='http://c/'>"
                               "<p title='http://d/'>http://e/</p><form action='http://f/'>"),
              0U);
}

TEST(OtherPlaces, UnfinishedTagsEnd) {
    for (const char* html : {"<", "<img", "<img src", "<img src=", "<img src='", "<style>http://a/",
                             "<img src='http://a/1"})
        EXPECT_LE(countOtherPlaces(html), 1U) << html;
}

}  // namespace
}  // namespace tavisk
