#include <gtest/gtest.h>

#include "base/Text.h"
#include "ui/html/HtmlLink.h"

namespace quorvi {
namespace {

TEST(HtmlLink, RestOfAPrivateLinkIsItsText) {
    EXPECT_EQ(PrivateLinkText("qvh:refresh"), "refresh");
    EXPECT_EQ(PrivateLinkText("qvh:did=-7"), "did=-7");
}

TEST(HtmlLink, SchemeIsComparedWithoutRegardToCaseAndTheRestIsNotTouched) {
    EXPECT_EQ(PrivateLinkText("QVH:Refresh"), "Refresh");
}

TEST(HtmlLink, SchemeThatOnlyBeginsWithTheLettersIsNoMatch) {
    EXPECT_FALSE(PrivateLinkText("qvhx:refresh"));
    EXPECT_FALSE(PrivateLinkText("qvh"));
    EXPECT_FALSE(PrivateLinkText("qvh/refresh"));
}

TEST(HtmlLink, PrefixCountsOnlyAtTheStart) {
    EXPECT_FALSE(PrivateLinkText("http://site/qvh:refresh"));
    EXPECT_FALSE(PrivateLinkText(" qvh:refresh"));
}

TEST(HtmlLink, EmptyRestIsAnEmptyText) {
    EXPECT_EQ(PrivateLinkText("qvh:"), "");
}

TEST(HtmlLink, EscapesAreDecodedOnceIntoAnsi) {
    EXPECT_EQ(PrivateLinkText("qvh:a%20b%2541"), "a b%41");
    EXPECT_EQ(PrivateLinkText("qvh:%E8%BF%9E"), Ansi(u8"连"));
}

TEST(HtmlLink, MalformedEscapeStaysAsItIs) {
    EXPECT_EQ(PrivateLinkText("qvh:100%"), "100%");
    EXPECT_EQ(PrivateLinkText("qvh:%4"), "%4");
    EXPECT_EQ(PrivateLinkText("qvh:%G1%1G"), "%G1%1G");
}

TEST(HtmlLink, OnlyHttpLeadsToTheWeb) {
    EXPECT_TRUE(IsWebLink("HTTP://site/"));
    EXPECT_TRUE(IsWebLink("https://site/"));
    EXPECT_FALSE(IsWebLink("file:///etc/passwd"));
    EXPECT_FALSE(IsWebLink("javascript:void(0)"));
}

}  // namespace
}  // namespace quorvi
