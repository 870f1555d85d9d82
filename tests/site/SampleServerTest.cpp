// The server itself: ranges, hostile requests, its bounds and its end.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <mutex>
#include <optional>

#include "site/SamplePackage.h"
#include "site/SampleServer.h"
#include "tests/site/RawRequest.h"
#include "tests/support/Await.h"
#include "tests/support/LoopbackPort.h"

namespace quorvi::site {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr std::string_view kNotes = "GET /download/com.example.notes.apk HTTP/1.1";
constexpr std::size_t kNotesBytes = 98'304;

class SampleServerTest : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(site_.Start(), ""); }
    [[nodiscard]] std::string Ask(std::string_view line, std::string_view headers = {}) const {
        return AskRaw(site_.Port(), line, headers);
    }
    [[nodiscard]] std::string AskRange(std::string_view range) const {
        return Ask(kNotes, fmt::format("Range: {}\r\n", range));
    }
    // The site still serves whoever asks as one should.
    void ExpectItServes() const {
        EXPECT_THAT(Ask("GET /update.xml HTTP/1.1"), StartsWith("HTTP/1.1 200 "));
    }

    const std::shared_ptr<const std::string> notes_ = SamplePackage("com.example.notes");
    SampleServer site_;
};

TEST_F(SampleServerTest, AFileHasItsLengthAndItsBytes) {
    const std::string answer = Ask(kNotes);
    EXPECT_THAT(answer, StartsWith("HTTP/1.1 200 OK\r\n"));
    EXPECT_THAT(answer, HasSubstr("\r\nContent-Length: 98304\r\n"));
    EXPECT_THAT(answer, HasSubstr("\r\nAccept-Ranges: bytes\r\n"));
    EXPECT_TRUE(BodyOf(answer) == *notes_);
}

TEST_F(SampleServerTest, ARangeIsAPartOfTheFile) {
    const std::string rest = AskRange("bytes=90000-");
    EXPECT_THAT(rest, StartsWith("HTTP/1.1 206 Partial Content\r\n"));
    EXPECT_THAT(rest, HasSubstr("\r\nContent-Length: 8304\r\n"));
    EXPECT_THAT(rest, HasSubstr("\r\nContent-Range: bytes 90000-98303/98304\r\n"));
    EXPECT_TRUE(BodyOf(rest) == notes_->substr(90'000));

    EXPECT_TRUE(BodyOf(AskRange("bytes=5-9")) == notes_->substr(5, 5));
    EXPECT_TRUE(BodyOf(AskRange("bytes=-22")) == notes_->substr(kNotesBytes - 22));
}

TEST_F(SampleServerTest, ARangeBeyondTheEndIsCutThere) {
    const std::string answer = AskRange("bytes=98300-9999999");
    EXPECT_THAT(answer, StartsWith("HTTP/1.1 206 "));
    EXPECT_THAT(answer, HasSubstr("\r\nContent-Length: 4\r\n"));
    EXPECT_TRUE(BodyOf(answer) == notes_->substr(98'300));
}

TEST_F(SampleServerTest, ARangeThatTheFileDoesNotHaveIsRefusedWithTheFilesLength) {
    for (const char* range : {"bytes=98304-", "bytes=98304-98310", "bytes=-0", "bytes=0-1,5-6"}) {
        const std::string answer = AskRange(range);
        EXPECT_THAT(answer, StartsWith("HTTP/1.1 416 ")) << range;
        EXPECT_THAT(answer, HasSubstr("\r\nContent-Range: bytes */98304\r\n")) << range;
        EXPECT_EQ(BodyOf(answer), "") << range;
    }
}

TEST_F(SampleServerTest, ARangeThatIsNoneIsRefused) {
    for (const std::string& range :
         {std::string("bytes=9-5"), std::string("bytes=99999999999999999999-"),
          std::string("bytes=a-b"), std::string("words"), "bytes=" + std::string(5000, '1') + "-",
          "bytes=0-" + [] {
              std::string many;
              for (int i = 0; i < 1000; ++i) {
                  many += ",0-";
              }
              return many;
          }()}) {
        EXPECT_THAT(AskRange(range), StartsWith("HTTP/1.1 416 ")) << range.substr(0, 40);
    }
    ExpectItServes();
}

TEST_F(SampleServerTest, APageIsNotCutByARange) {
    const std::string answer = Ask("GET /update.xml HTTP/1.1", "Range: bytes=5-\r\n");
    EXPECT_THAT(answer, StartsWith("HTTP/1.1 200 "));
    EXPECT_THAT(BodyOf(answer), StartsWith("<?xml "));
}

TEST_F(SampleServerTest, AHeadHasNoBody) {
    const std::string answer = Ask("HEAD /download/com.example.notes.apk HTTP/1.1");
    EXPECT_THAT(answer, StartsWith("HTTP/1.1 200 "));
    EXPECT_THAT(answer, HasSubstr("\r\nContent-Length: 98304\r\n"));
    EXPECT_EQ(BodyOf(answer), "");
}

TEST_F(SampleServerTest, AnUnknownPackageIsNotThere) {
    for (const char* path : {"/download/com.example.unknown.apk", "/download/.apk", "/download/",
                             "/download/com.example.notes"}) {
        EXPECT_THAT(Ask(fmt::format("GET {} HTTP/1.1", path)), StartsWith("HTTP/1.1 404 ")) << path;
    }
}

TEST_F(SampleServerTest, HostilePathsLeadNowhere) {
    for (const char* path :
         {"/../../../../etc/passwd", "/store/../../../../etc/passwd",
          "/store/pictures/..%2f..%2f..%2f..%2fetc%2fpasswd", "/%2e%2e/%2e%2e/etc/passwd",
          "/download/../../../../etc/passwd", "/download/..%2f..%2fetc%2fpasswd.apk",
          "/download/%00com.example.notes.apk", "/download/com.example.notes.apk%00.apk",
          "/store/pictures/books.svg%00", "file:///etc/passwd", "//etc/passwd",
          "/store/pictures/C:%5Cwindows.svg"}) {
        const std::string answer = Ask(fmt::format("GET {} HTTP/1.1", path));
        EXPECT_THAT(answer, StartsWith("HTTP/1.1 404 ")) << path;
        EXPECT_THAT(answer, Not(HasSubstr("root:"))) << path;
    }
}

TEST_F(SampleServerTest, MarkupInAnAddressIsNotShownAsMarkup) {
    EXPECT_THAT(Ask("GET /store/search.php?keywords=%3Cscript%3E&key=0 HTTP/1.1"),
                Not(HasSubstr("<script")));
    EXPECT_THAT(Ask("GET /%3Cscript%3E HTTP/1.1"), Not(HasSubstr("<script")));
}

TEST_F(SampleServerTest, OtherMethodsAreRefused) {
    for (const char* method : {"PUT", "DELETE", "OPTIONS", "PATCH"}) {
        EXPECT_THAT(Ask(fmt::format("{} /store/ HTTP/1.1", method)), StartsWith("HTTP/1.1 405 "))
            << method;
    }
    EXPECT_THAT(Ask("POST /store/ HTTP/1.1", "Content-Length: 0\r\n"), StartsWith("HTTP/1.1 404 "));
}

TEST_F(SampleServerTest, AFormOfHundredsOfKilobytesIsRead) {
    const std::string body = "apps=" + std::string(500'000, ' ') + "{}&";
    const TcpSocket socket = TcpSocket::Connect(site_.Port());
    SendText(socket, fmt::format("POST /feedback/apk_list.php HTTP/1.1\r\nHost: a\r\n"
                                 "Content-Type:   application/x-www-form-urlencoded\r\n"
                                 "Connection: close\r\nContent-Length: {}\r\n\r\n{}",
                                 body.size(), body));
    EXPECT_THAT(ReceiveText(socket), HasSubstr("请求里没有应用的清单"));
}

TEST_F(SampleServerTest, AFormOfMoreThanAMegabyteIsRefused) {
    const std::string body(3 << 20, ' ');
    // By its length, and where it tells none.
    for (const std::string& length :
         {fmt::format("Content-Length: {}\r\n\r\n", body.size()),
          fmt::format("Transfer-Encoding: chunked\r\n\r\n{:x}\r\n", body.size())}) {
        const TcpSocket socket = TcpSocket::Connect(site_.Port());
        SendText(socket,
                 "POST /feedback/feedback.php HTTP/1.1\r\nHost: a\r\nConnection: close\r\n" +
                     length + body + "\r\n0\r\n\r\n");
        EXPECT_THAT(ReceiveText(socket), Not(HasSubstr(" 200 ")));
    }
    ExpectItServes();
}

TEST_F(SampleServerTest, WhatIsNoRequestIsRefused) {
    for (const std::string& line :
         {std::string("\x16\x03\x01\x02"), std::string("GET"), std::string("GET /"),
          "GET /" + std::string(20'000, 'a') + " HTTP/1.1", std::string(20'000, 'G')}) {
        EXPECT_THAT(Ask(line), Not(HasSubstr(" 200 "))) << line.substr(0, 20);
    }
    EXPECT_THAT(Ask("GET /store/ HTTP/1.1", "X: " + std::string(20'000, 'x') + "\r\n"),
                Not(HasSubstr(" 200 ")));
    ExpectItServes();
}

TEST_F(SampleServerTest, WhoSaysNothingHoldsNobodyUp) {
    std::vector<TcpSocket> silent;
    for (int i = 0; i < 12; ++i) {
        silent.push_back(TcpSocket::Connect(site_.Port()));
        SendText(silent.back(), "GET /store/ HT");
    }
    ExpectItServes();
}

// The table of the system's listening sockets: 127.0.0.1 is 0100007F there.
TEST_F(SampleServerTest, ListensOnLoopbackAlone) {
    std::ifstream table("/proc/net/tcp");
    const std::string text{std::istreambuf_iterator(table), {}};
    EXPECT_THAT(text, HasSubstr(fmt::format(" 0100007F:{:04X} 00000000:0000 0A ", site_.Port())));
    EXPECT_THAT(text, Not(HasSubstr(fmt::format(" 00000000:{:04X} ", site_.Port()))));
}

TEST(SampleServer, APortThatIsTakenIsSaid) {
    const TcpSocket other = ListenOn(0);
    SampleServer site({.port = PortOf(other)});
    EXPECT_EQ(site.Start(), fmt::format("cannot listen on port {} of 127.0.0.1", PortOf(other)));
}

TEST(SampleServer, TwoDoNotShareAPort) {
    SampleServer first;
    ASSERT_EQ(first.Start(), "");
    EXPECT_NE(SampleServer({.port = first.Port()}).Start(), "");
}

TEST(SampleServer, TellsEachRequestInPrintableCharacters) {
    std::mutex mutex;
    std::vector<std::string> lines;
    SampleServer site({.log = [&](const std::string& line) {
        const std::scoped_lock lock(mutex);
        lines.push_back(line);
    }});
    ASSERT_EQ(site.Start(), "");
    AskRaw(site.Port(), "GET /\x1B[31m\xE5 HTTP/1.1");
    EXPECT_TRUE(Await([&] {
        const std::scoped_lock lock(mutex);
        return !lines.empty();
    }));
    const std::scoped_lock lock(mutex);
    EXPECT_EQ(lines.front(), "GET /?[31m? 404");
}

TEST(SampleServer, ADownloadTakesAsLongAsItsRateSays) {
    SampleServer site({.kilobytesASecond = 960});
    ASSERT_EQ(site.Start(), "");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(BodyOf(AskRaw(site.Port(), kNotes)).size(), kNotesBytes);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(90));
}

TEST(SampleServer, ItsEndEndsADownload) {
    auto site = std::make_optional<SampleServer>(ServerOptions{.kilobytesASecond = 1});
    ASSERT_EQ(site->Start(), "");
    const TcpSocket socket = TcpSocket::Connect(site->Port());
    SendText(socket, std::string(kNotes) + "\r\nHost: a\r\n\r\n");
    std::array<std::byte, 1000> begin{};
    ASSERT_EQ(socket.ReceiveAll(begin), 1000);
    site.reset();
    EXPECT_LT(ReceiveText(socket).size(), kNotesBytes);
}

}  // namespace
}  // namespace quorvi::site
