#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <type_traits>

#include "log/LogLine.h"

namespace quorvi {
namespace {

using std::chrono::milliseconds;
using std::chrono::system_clock;

// 2026-11-22 09:30:12.345 UTC.
const system_clock::time_point kTime{milliseconds(1'795'339'812'345)};
const LogWriter kWriter{"quorvi", 4711};

std::string Text(const LogValue& value) {
    return std::string(value.Text());
}

TEST(LogLine, IsTimeProgramProcessEventAndFields) {
    EXPECT_EQ(FormatLogLine(kTime, kWriter, "link.search",
                            {{"result", "found"}, {"phones", LogValue::Count(2)}}),
              "2026-11-22T09:30:12.345Z quorvi[4711] link.search result=found phones=2\n");
    EXPECT_EQ(FormatLogLine(kTime, kWriter, "end", {}),
              "2026-11-22T09:30:12.345Z quorvi[4711] end\n");
}

TEST(LogLine, AFieldThatHasNoRoomIsLeftOut) {
    const LogField field{"forty-characters-is-what-a-name-may-have",
                         "forty-characters-is-what-a-word-may-have"};
    const std::string line = FormatLogLine(kTime, kWriter, "event",
                                           {field, field, field, field, field, {"last", "word"}});
    EXPECT_LE(line.size(), kMostLogLine);
    EXPECT_TRUE(line.ends_with(" last=word\n"));
    EXPECT_TRUE(IsLogLine(line.substr(0, line.size() - 1)));
}

// What a mistake would put into the log does not compile.
TEST(LogValue, IsNotMadeOfATextThatCameInNorOfABareNumber) {
    EXPECT_FALSE((std::is_constructible_v<LogValue, std::string>));
    EXPECT_FALSE((std::is_constructible_v<LogValue, std::string_view>));
    EXPECT_FALSE((std::is_constructible_v<LogValue, const char*>));
    EXPECT_FALSE((std::is_constructible_v<LogValue, std::u8string_view>));
    EXPECT_FALSE((std::is_constructible_v<LogValue, std::uint64_t>));
    EXPECT_FALSE((std::is_constructible_v<LogValue, int>));
    EXPECT_FALSE((std::is_constructible_v<LogValue, bool>));
    EXPECT_FALSE((std::is_constructible_v<LogWord, std::string>));
    EXPECT_FALSE((std::is_constructible_v<LogWord, std::string_view>));
    EXPECT_FALSE((std::is_constructible_v<LogWord, const char*>));
}

TEST(LogValue, OfANumberThatIsAsLongAsAPhonesOnlyItsSizeStays) {
    EXPECT_EQ(Text(LogValue::Count(0)), "0");
    EXPECT_EQ(Text(LogValue::Count(-7)), "-7");
    EXPECT_EQ(Text(LogValue::Count(99'999'999)), "99999999");
    EXPECT_EQ(Text(LogValue::Count(100'000'000)), "over-99999999");
    EXPECT_EQ(Text(LogValue::Count(13'861'234'567)), "over-99999999");
    EXPECT_EQ(Text(LogValue::Count(-13'861'234'567)), "over-99999999");
}

TEST(LogValue, BytesAreWholeKilobytesRoundedUp) {
    EXPECT_EQ(Text(LogValue::Kilobytes(0)), "0");
    EXPECT_EQ(Text(LogValue::Kilobytes(1)), "1");
    EXPECT_EQ(Text(LogValue::Kilobytes(1024)), "1");
    EXPECT_EQ(Text(LogValue::Kilobytes(1025)), "2");
    EXPECT_EQ(Text(LogValue::Kilobytes(std::numeric_limits<std::uint64_t>::max())),
              "over-99999999");
}

TEST(LogValue, TimeIsInMilliseconds) {
    EXPECT_EQ(
        Text(LogValue::Since(std::chrono::steady_clock::now() + std::chrono::seconds(100))).size(),
        std::string("-99999").size());
    EXPECT_GE(
        std::stoi(Text(LogValue::Since(std::chrono::steady_clock::now() - milliseconds(1500)))),
        1500);
}

TEST(LogValue, AVersionIsKeptAndAnythingElseIsUnknown) {
    EXPECT_EQ(Text(LogValue::Version("1.0")), "1.0");
    EXPECT_EQ(Text(LogValue::Version("28.0.2-debian")), "28.0.2-debian");
    EXPECT_EQ(Text(LogValue::Version("34.0.5-10900879")), "34.0.5-10900879");
    EXPECT_EQ(Text(LogValue::Version("6.1.0-13-amd64 of somebody")), "6.1.0-13-amd64");
    EXPECT_EQ(Text(LogValue::Version("1.0\n林远舟")), "1.0");
    for (const char* text : {"", "1", "1.", ".1", "13861234567", "13861.234567", "138-6123-4567",
                             "1.13861234567", "v1.0", "林远舟"}) {
        EXPECT_EQ(Text(LogValue::Version(text)), "unknown") << text;
    }
}

TEST(LogValue, OfASerialTwoCharactersAtEachEndStay) {
    EXPECT_EQ(Text(LogValue::Serial("HT04XPL00342")), "HT..42");
    EXPECT_EQ(Text(LogValue::Serial("192.168.1.23:5555")), "19..55");
    EXPECT_EQ(Text(LogValue::Serial("HT04XPL0")), "HT..L0");
}

TEST(LogValue, OfAShortSerialNothingStays) {
    EXPECT_EQ(Text(LogValue::Serial("HT04XPL")), "..");
    EXPECT_EQ(Text(LogValue::Serial("")), "..");
}

TEST(LogValue, ASerialOfOtherBytesBreaksNoLine) {
    EXPECT_EQ(Text(LogValue::Serial("\n HT04XP =")), "__..__");
}

TEST(LogValue, AnErrorIsItsNumber) {
    EXPECT_EQ(Text(LogValue::Error({})), "none");
    EXPECT_EQ(Text(LogValue::Error(std::make_error_code(std::errc::no_space_on_device))),
              "errno-28");
}

TEST(LogLine, IsToldFromWhatIsNone) {
    EXPECT_TRUE(IsLogLine("2026-11-22T09:30:12.345Z quorvi[4711] link.agent version=-1 linked=no"));
    EXPECT_TRUE(IsLogLine("2026-11-22T09:30:12.345Z quorvi[4711] phone serial=HT..42"));
    for (const char* line : {
             "",
             "2026-11-22T09:30:12.345Z",
             "2026-11-22T09:30:12.345Z ",
             "2026-11-22T09:30:12.345Z quorvi  end",   // two blanks
             "2026-11-22T09:30:12.345Z quorvi end ",   // one behind it
             "2026-11-22T09:30:12Z quorvi[4711] end",  // another form of the time
             "sult=found ms=8",                        // a part of a line
             "2026-11-22T09:30:12.345Z 林远舟",
             "2026-11-22T09:30:12.345Z /home/lin",
             "2026-11-22T09:30:12.345Z quorvi\tend",
         }) {
        EXPECT_FALSE(IsLogLine(line)) << line;
    }
    EXPECT_FALSE(IsLogLine("2026-11-22T09:30:12.345Z " + std::string(kMostLogLine, 'a')));
}

}  // namespace
}  // namespace quorvi
