#include <gtest/gtest.h>

#include <limits>

#include "download/HttpHead.h"

namespace quorvi {
namespace {

using Next = ResponseHead::Next;

// The head that is made of these bytes, as far as it wants them.
ResponseHead HeadOf(std::string_view bytes) {
    ResponseHead head;
    for (const char byte : bytes) {
        if (head.Take(byte) != Next::more) {
            break;
        }
    }
    head.End();
    return head;
}

TEST(HttpHead, ARequestHasTheseBytes) {
    EXPECT_EQ(BuildRequest({.host = "download.example", .object = "/apk/a.apk?v=1"}),
              "GET /apk/a.apk?v=1 HTTP/1.1\r\n"
              "Host:download.example\r\n"
              "Accept:*/*\r\n"
              "User-Agent:Mozilla/4.0 (compatible; QVH 1987; Quorvi Downloader)\r\n"
              "Connection:Keep-Alive\r\n"
              "\r\n");
}

TEST(HttpHead, ACookieFollowsAZero) {
    EXPECT_EQ(BuildRequest({.host = "h", .object = "/", .cookie = "a=b", .referer = "http://r/"}),
              "GET / HTTP/1.1\r\n"
              "Host:h\r\n"
              "Referer:http://r/\r\n"
              "Accept:*/*\r\n"
              "User-Agent:Mozilla/4.0 (compatible; QVH 1987; Quorvi Downloader)\r\n"
              "Connection:Keep-Alive\r\n"
              "Set Cookie:0a=b\r\n"
              "\r\n");
}

TEST(HttpHead, ARangeIsOpenUnlessItsEndLiesBehindItsStart) {
    const auto range = [](std::int64_t start, std::int64_t end) {
        const std::string text =
            BuildRequest({.host = "h", .object = "/", .rangeStart = start, .rangeEnd = end});
        const std::size_t at = text.find("Range");
        return at == std::string::npos ? std::string() : text.substr(at);
    };
    EXPECT_EQ(range(0, 0), "");
    EXPECT_EQ(range(0, 10), "");
    EXPECT_EQ(range(1000, 0), "Range: bytes=1000-\r\n\r\n");
    EXPECT_EQ(range(1000, 1000), "Range: bytes=1000-\r\n\r\n");
    EXPECT_EQ(range(1000, 1001), "Range: bytes=1000-1001\r\n\r\n");
    EXPECT_EQ(range(5'000'000'000, 0), "Range: bytes=5000000000-\r\n\r\n");
}

TEST(HttpHead, EndsWithItsBlankLine) {
    const ResponseHead head = HeadOf("HTTP/1.1 200 OK\r\nA: b\r\n\r\nbody");
    EXPECT_EQ(head.Bytes(), "HTTP/1.1 200 OK\r\nA: b\r\n\r\n");
}

TEST(HttpHead, EndsAfter1024Bytes) {
    const std::string bytes = "HTTP/1.1 200 OK\r\nX: " + std::string(2000, 'x');
    EXPECT_EQ(HeadOf(bytes).Bytes(), bytes.substr(0, 1024));
}

TEST(HttpHead, IsRejectedWhereNoLetterOfHttpIsInItsPlace) {
    ResponseHead head;
    EXPECT_EQ(head.Take('P'), Next::more);
    EXPECT_EQ(head.Take('H'), Next::more);
    EXPECT_EQ(head.Take('P'), Next::more);
    EXPECT_EQ(head.Take('T'), Next::rejected);
    head.End();
    EXPECT_TRUE(head.IsValid());
    EXPECT_EQ(head.GetStatusCode(), 0);
}

TEST(HttpHead, OneLetterOfHttpIsEnough) {
    for (const char* begin : {"Hxxx", "xTxx", "xxTx", "xxxP"}) {
        const std::string bytes = std::string(begin) + "/1.1 200 OK\r\n\r\n";
        EXPECT_EQ(HeadOf(bytes).GetStatusCode(), 200) << begin;
    }
}

TEST(HttpHead, TheStatusIsAtItsPlace) {
    EXPECT_EQ(HeadOf("HTTP/1.1 206 Partial Content\r\n\r\n").GetStatusCode(), 206);
    EXPECT_EQ(HeadOf("HTTP/1.0 404\r\n\r\n").GetStatusCode(), 404);
    EXPECT_EQ(HeadOf("HTTP/2 200 OK\r\n\r\n").GetStatusCode(), 0);  // "0 O" behind the blank
    EXPECT_EQ(HeadOf("HTTP/1.1 2x0\r\n\r\n").GetStatusCode(), 2);
    EXPECT_EQ(HeadOf("HTTP/1.1 \r\n\r\n").GetStatusCode(), 0);
}

TEST(HttpHead, TellsNothingBeforeItHasEnded) {
    ResponseHead head;
    for (const char byte : std::string_view("HTTP/1.1 200 OK\r\nA: b\r\n\r\n")) {
        static_cast<void>(head.Take(byte));
    }
    EXPECT_EQ(head.GetStatusCode(), -1);
    EXPECT_EQ(head.GetHeaderValue("A"), std::nullopt);
}

TEST(HttpHead, AnEmptyOneIsValidAndHasNoStatus) {
    const ResponseHead head = HeadOf("");
    EXPECT_TRUE(head.IsValid());
    EXPECT_EQ(head.GetStatusCode(), 0);
    EXPECT_EQ(head.GetHeaderValue("Content-Length"), std::nullopt);
}

TEST(HttpHead, AValueGoesToTheEndOfItsLine) {
    const ResponseHead head = HeadOf("HTTP/1.1 200 OK\r\nContent-Length: 42 \r\nA: b\r\n\r\n");
    EXPECT_EQ(head.GetHeaderValue("Content-Length"), "42 ");
    EXPECT_EQ(head.GetHeaderValue("A"), "b");
    EXPECT_EQ(head.GetHeaderValue("Missing"), std::nullopt);
}

TEST(HttpHead, ANameInLowerCaseIsNotFound) {
    const ResponseHead head = HeadOf("HTTP/1.1 200 OK\r\ncontent-length: 42\r\n\r\n");
    EXPECT_EQ(head.GetHeaderValue("Content-Length"), std::nullopt);
}

TEST(HttpHead, AValueWithoutItsBlankLosesAByte) {
    const ResponseHead head = HeadOf("HTTP/1.1 200 OK\r\nContent-Length:1234\r\n\r\n");
    EXPECT_EQ(head.GetHeaderValue("Content-Length"), "234");
}

TEST(HttpHead, TheFirstOccurrenceOfANameCounts) {
    EXPECT_EQ(HeadOf("HTTP/1.1 301 M\r\nContent-Location: /one\r\nLocation: /two\r\n\r\n")
                  .GetHeaderValue("Location"),
              "/one");
    EXPECT_EQ(HeadOf("HTTP/1.1 301 M\r\nX: no Location here\r\nLocation: /two\r\n\r\n")
                  .GetHeaderValue("Location"),
              "ere");
}

TEST(HttpHead, AValueEndsWhereTheHeadDoes) {
    EXPECT_EQ(HeadOf("HTTP/1.1 200 OK\r\nA: b").GetHeaderValue("A"), "b");
    EXPECT_EQ(HeadOf("HTTP/1.1 200 OK\r\nA").GetHeaderValue("A"), "");
    EXPECT_EQ(HeadOf("HTTP/1.1 200 OK\r\nA:").GetHeaderValue("A"), "");
    EXPECT_EQ(HeadOf("HTTP/1.1 200 OK\r\nA:\r\n\r\n").GetHeaderValue("A"), "\n");
}

TEST(HttpHead, AZeroByteEndsItsText) {
    using namespace std::string_view_literals;
    const ResponseHead head = HeadOf("HTTP/1.1 200 OK\r\n\0A: b\r\n\r\n"sv);
    EXPECT_EQ(head.GetHeaderValue("A"), std::nullopt);
    EXPECT_EQ(head.GetStatusCode(), 200);
}

TEST(HttpHead, ALengthIsReadLikeANumberOfCsIn64Bits) {
    EXPECT_EQ(ToLength(""), 0);
    EXPECT_EQ(ToLength("x1"), 0);
    EXPECT_EQ(ToLength(" \t42abc"), 42);
    EXPECT_EQ(ToLength("+7"), 7);
    EXPECT_EQ(ToLength("-7"), -7);
    EXPECT_EQ(ToLength("5000000000"), 5'000'000'000);
    EXPECT_EQ(ToLength("99999999999999999999999"), kMostLength);
}

}  // namespace
}  // namespace quorvi
