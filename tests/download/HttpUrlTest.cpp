#include <gtest/gtest.h>

#include "download/HttpUrl.h"

namespace quorvi {
namespace {

// "server port object" of an address.
std::string PartsOf(std::string_view url) {
    const HttpUrl parts = ParseHttpUrl(url);
    return parts.server + " " + std::to_string(parts.port) + " " + parts.object;
}

TEST(HttpUrl, HasServerPortAndObject) {
    EXPECT_EQ(PartsOf("http://download.example/apk/a.apk"), "download.example 80 /apk/a.apk");
    EXPECT_EQ(PartsOf("HTTP://h:8080/a?b=c"), "h 8080 /a?b=c");
    EXPECT_EQ(PartsOf("http://h:/a"), "h 80 /a");
    EXPECT_EQ(PartsOf("http://h"), "h 80 /");
    EXPECT_EQ(PartsOf("http://h?a"), "h 80 /?a");
    EXPECT_EQ(PartsOf("http://h/a:b@c"), "h 80 /a:b@c");
}

TEST(HttpUrl, AnAddressOfIpv6StandsInBrackets) {
    EXPECT_EQ(PartsOf("http://[::1]/a"), "[::1] 80 /a");
    EXPECT_EQ(PartsOf("http://[fe80::1]:81/a"), "[fe80::1] 81 /a");
}

TEST(HttpUrl, LeavesOutUserAndFragment) {
    EXPECT_EQ(PartsOf("http://li:secret@h/a#part"), "h 80 /a");
}

TEST(HttpUrl, NothingBreaksTheRequestsLines) {
    EXPECT_EQ(PartsOf("http://h/a b\r\nX: y"), "h 80 /a%20b%0D%0AX:%20y");
    EXPECT_EQ(PartsOf("http://h/听.apk"), "h 80 /%E5%90%AC.apk");
    EXPECT_EQ(ParseHttpUrl("http://h\r\nX: y/a").server, "");
    EXPECT_EQ(ParseHttpUrl("http://h h/a").server, "");
}

TEST(HttpUrl, SpeaksHttpAlone) {
    for (const char* url :
         {"https://h/a", "ftp://h/a", "file:///etc/passwd", "/a", "h/a", "", "http:/h/a",
          "http:///a", "http://h:0/", "http://h:65536/", "http://h:8x/"}) {
        EXPECT_EQ(ParseHttpUrl(url).server, "") << url;
    }
}

}  // namespace
}  // namespace quorvi
