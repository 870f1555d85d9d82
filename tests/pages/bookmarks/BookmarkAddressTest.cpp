#include <gtest/gtest.h>

#include "pages/bookmarks/BookmarkAddress.h"

namespace quorvi {
namespace {

TEST(BookmarkAddress, AWebPageIsOpenedAtOnce) {
    for (const char* url : {"http://weather.example/", "https://x", "HTTP://X/", "hTTpS://x/?a=b c",
                            "http://x/javascript:y"}) {
        EXPECT_EQ(OpeningOf(url), AddressOpening::atOnce) << url;
    }
}

TEST(BookmarkAddress, AnyOtherSchemeAsksFirst) {
    for (const char* url :
         {"javascript:alert(1)", "file:///etc/passwd", "ftp://x/", "data:text/html,x", "qvh:did=1",
          "httpx://x", "http:/x", "http:x", "http://", "https://", " http://x/", "\thttps://x/",
          "weather.example", "/bin/sh", "--help", "mailto:http://x/"}) {
        EXPECT_EQ(OpeningOf(url), AddressOpening::askFirst) << url;
    }
}

TEST(BookmarkAddress, NoAddressStartsNothing) {
    EXPECT_EQ(OpeningOf(""), AddressOpening::nothing);
}

}  // namespace
}  // namespace quorvi
