#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <limits>

#include "base/Format.h"
#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::uint64_t kKilobyte = 1024;
constexpr std::uint64_t kMegabyte = 1024 * kKilobyte;
constexpr std::uint64_t kGigabyte = 1024 * kMegabyte;

TEST(FormatDuration, DaysAreDroppedAndALineFeedEndsTheText) {
    EXPECT_EQ(FormatDuration(90061), "01:01:01\n");  // 1 day, 1 hour, 1 minute, 1 second
}

TEST(FormatDuration, HoursMinutesAndSecondsHaveTwoDigits) {
    EXPECT_EQ(FormatDuration(0), "00:00:00\n");
    EXPECT_EQ(FormatDuration(59), "00:00:59\n");
    EXPECT_EQ(FormatDuration(86399), "23:59:59\n");
    EXPECT_EQ(FormatDuration(86400), "00:00:00\n");
    EXPECT_EQ(FormatDuration(0xFFFFFFFF), "06:28:15\n");
}

TEST(FormatByteSize, LessThanAKilobyteShowsInBytes) {
    EXPECT_EQ(FormatByteSize(0), Ansi(u8"0 字节"));
    EXPECT_EQ(FormatByteSize(532), Ansi(u8"532 字节"));
    EXPECT_EQ(FormatByteSize(1023), Ansi(u8"1023 字节"));
}

TEST(FormatByteSize, ThreeSignificantDigits) {
    EXPECT_EQ(FormatByteSize(1024), "1.00 KB");
    EXPECT_EQ(FormatByteSize(1340), "1.30 KB");
    EXPECT_EQ(FormatByteSize(23506), "22.9 KB");
    EXPECT_EQ(FormatByteSize(2400016), "2.28 MB");
    EXPECT_EQ(FormatByteSize(2400000000), "2.23 GB");
    EXPECT_EQ(FormatByteSize(999 * kKilobyte), "999 KB");
    EXPECT_EQ(FormatByteSize(100 * kMegabyte), "100 MB");
}

TEST(FormatByteSize, DigitsAreCutAndNotRounded) {
    EXPECT_EQ(FormatByteSize(2 * kKilobyte - 1), "1.99 KB");    // 1.9990
    EXPECT_EQ(FormatByteSize(10 * kKilobyte - 1), "9.99 KB");   // 9.9990
    EXPECT_EQ(FormatByteSize(100 * kKilobyte - 1), "99.9 KB");  // 99.999
    EXPECT_EQ(FormatByteSize(0xFFFFFFFF), "3.99 GB");
}

TEST(FormatByteSize, AThousandOfAUnitIsAFractionOfTheNext) {
    EXPECT_EQ(FormatByteSize(1000 * kKilobyte - 1), "999 KB");
    EXPECT_EQ(FormatByteSize(1000 * kKilobyte), "0.97 MB");  // 0.9765
    EXPECT_EQ(FormatByteSize(1000 * kMegabyte), "0.97 GB");
}

TEST(FormatByteSize, ExactlyFourGigabytesShowAsZero) {
    EXPECT_EQ(FormatByteSize(4 * kGigabyte), Ansi(u8"0 字节"));
}

TEST(FormatByteSize, OnlyTheLower32BitsShow) {
    EXPECT_EQ(FormatByteSize(4 * kGigabyte + 532), Ansi(u8"532 字节"));
    EXPECT_EQ(FormatByteSize(std::numeric_limits<std::uint64_t>::max()), "3.99 GB");
}

class FormatUnixTimeInChina : public testing::Test {
  protected:
    void SetUp() override {
        setenv("TZ", "CST-8", 1);
        tzset();
    }
    void TearDown() override {
        unsetenv("TZ");
        tzset();
    }
};

TEST_F(FormatUnixTimeInChina, ShowsLocalTime) {
    EXPECT_EQ(FormatUnixTime(0), "1970-01-01 08:00:00");
    EXPECT_EQ(FormatUnixTime(1325347199), "2011-12-31 23:59:59");
}

TEST_F(FormatUnixTimeInChina, ATimeBeyond32BitsIsShown) {
    EXPECT_EQ(FormatUnixTime(4102444800), "2100-01-01 08:00:00");
}

TEST_F(FormatUnixTimeInChina, ATimeThatNoCalendarHoldsIsNoCrash) {
    EXPECT_EQ(FormatUnixTime(std::numeric_limits<std::int64_t>::max()), "1970-01-01 00:00:00");
    EXPECT_EQ(FormatUnixTime(std::numeric_limits<std::int64_t>::min()), "1970-01-01 00:00:00");
    // The last year whose distance to 1900 is still an int.
    EXPECT_EQ(FormatUnixTime(67768036191647999).substr(0, 10), "2147485547");
}

}  // namespace
}  // namespace quorvi
