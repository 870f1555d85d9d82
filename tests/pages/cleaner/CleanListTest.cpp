#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "base/ByteText.h"
#include "base/Text.h"
#include "pages/cleaner/CleanList.h"
#include "pages/kit/ReplyPicture.h"
#include "tests/pages/cleaner/CleanReplies.h"

namespace quorvi {
namespace {

constexpr std::size_t kFixed = kFixedCleanRows;

CleanList Parse(const WireBytes& bytes) {
    return ParseCleanList(bytes.Shared());
}

std::string IconOf(const CleanItem& row) {
    return std::string(AsText(row.icon.Bytes()));
}

TEST(CleanListReading, ReadsEachFieldOfARowBehindTheFixedOnes) {
    WireBytes bytes;
    bytes
        .U32(0)           // leading word
        .U64(13'317'000)  // bytes of the cache
        .Text("浏览器")   // name
        .Text("com.a.b")  // package
        .U64(3)           // bytes of the icon
        .Raw("png");      // icon
    const CleanList list = Parse(bytes);
    EXPECT_FALSE(list.EndedByMark());
    ASSERT_EQ(list.rows.size(), kFixed + 1);
    const CleanItem& row = list.rows[kFixed];
    EXPECT_EQ(row.cache, 13'317'000u);
    EXPECT_EQ(row.name, Ansi(u8"浏览器"));
    EXPECT_EQ(row.description, "com.a.b");
    EXPECT_EQ(row.fixed, nullptr);
    EXPECT_EQ(IconOf(row), "png");
    EXPECT_EQ(CleanPeriodText(row), Ansi(u8"随时"));
    EXPECT_EQ(CleanRiskText(row), Ansi(u8"无"));
    EXPECT_EQ(CleanSizeText(row), "12.7 MB");
}

TEST(CleanListReading, TheFixedRowsStandInFrontInTheirOrder) {
    const std::vector<CleanItem> rows = FixedCleanRows();
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].name, Ansi(u8"浏览器搜索"));
    EXPECT_EQ(rows[0].description, Ansi(u8"删除系统自带浏览器的搜索记录"));
    EXPECT_EQ(CleanPeriodText(rows[0]), Ansi(u8"随时"));
    EXPECT_EQ(rows[1].name, Ansi(u8"浏览器历史"));
    EXPECT_EQ(rows[1].description, Ansi(u8"删除系统自带浏览器的历史记录"));
    EXPECT_EQ(CleanPeriodText(rows[1]), Ansi(u8"随时"));
    EXPECT_EQ(rows[2].name, Ansi(u8"Market搜索"));
    EXPECT_EQ(rows[2].description, Ansi(u8"删除Android Market搜索记录"));
    EXPECT_EQ(CleanPeriodText(rows[2]), Ansi(u8"每月"));
    for (const CleanItem& row : rows) {
        EXPECT_EQ(CleanRiskText(row), Ansi(u8"无"));
        EXPECT_EQ(CleanSizeText(row), "N/A");
        EXPECT_TRUE(row.icon.Empty());
    }
}

TEST(CleanListReading, APhoneThatIsNotFoundLeavesTheFixedRows) {
    const CleanListReply reply = FetchCleanList(AgentSession(1));  // nobody's port
    EXPECT_EQ(reply.outcome, SessionOutcome::connectFailed);
    EXPECT_EQ(reply.list.rows.size(), kFixed);
}

TEST(CleanListReading, KeepsTheOrderOfTheAgent) {
    const CleanList list = Parse(CachesPayload({{.bytes = 9}, {.bytes = 3}, {.bytes = 5}}));
    ASSERT_EQ(list.rows.size(), kFixed + 3);
    EXPECT_EQ(list.rows[kFixed].cache, 9u);
    EXPECT_EQ(list.rows[kFixed + 1].cache, 3u);
    EXPECT_EQ(list.rows[kFixed + 2].cache, 5u);
}

TEST(CleanListReading, TheDescriptionIsThePackageAsTheWireGaveIt) {
    const CleanList list = Parse(CachesPayload({{.package = " Com..Example "}, {.package = ""}}));
    EXPECT_EQ(list.rows[kFixed].description, " Com..Example ");
    EXPECT_EQ(list.rows[kFixed + 1].description, "");
}

TEST(CleanListReading, ACacheOfFourGigabytesShowsItsLowerBits) {
    const CleanList list = Parse(CachesPayload({{.bytes = 1ULL << 32}}));
    EXPECT_EQ(CleanSizeText(list.rows[kFixed]), Ansi(u8"0 字节"));
}

TEST(CleanListReading, AnAbsentNameEndsTheReadAndLeavesARowWithoutAnItem) {
    WireBytes bytes = CachesPayload({{}});
    bytes
        .U64(4'096)  // cache of a second application
        .Absent();   // name
    const CleanList list = Parse(bytes);
    EXPECT_EQ(list.rows.size(), kFixed + 1);
    ASSERT_TRUE(list.EndedByMark());
    EXPECT_EQ(list.marked->cache, 4'096u);
}

TEST(CleanListReading, IconsLieInTheReplyAndAreNotCopied) {
    const auto reply = CachesPayload({{.icon = "first"}, {.icon = ""}}).Shared();
    const CleanList list = ParseCleanList(reply);
    ASSERT_EQ(list.rows.size(), kFixed + 2);
    const std::byte* icon = list.rows[kFixed].icon.Bytes().data();
    EXPECT_GE(icon, reply->Data());
    EXPECT_LT(icon, reply->Data() + reply->Length());
    EXPECT_TRUE(list.rows[kFixed + 1].icon.Empty());
}

TEST(CleanListReading, AnIconBeyondTheCapacityIsDroppedAndTheReadingGoesOn) {
    const std::string fits(kPictureCapacity, 'x');
    const CleanList list =
        Parse(CachesPayload({{.icon = fits}, {.icon = fits + "x"}, {.icon = "next"}}));
    ASSERT_EQ(list.rows.size(), kFixed + 3);
    EXPECT_EQ(list.rows[kFixed].icon.Bytes().size(), kPictureCapacity);
    EXPECT_TRUE(list.rows[kFixed + 1].icon.Empty());
    EXPECT_EQ(IconOf(list.rows[kFixed + 2]), "next");
}

TEST(CleanListReading, ARowWhosePackageWasCutIsDropped) {
    const WireBytes bytes = CachesPayload({{}, {.package = "com.example.bus", .icon = ""}});
    const std::size_t package = bytes.Get().size() - 8;  // in front of the icon's length
    const auto read = [&](std::size_t came) {
        return ParseCleanList(std::make_shared<const ReplyBuffer>(bytes.CutAfter(came)));
    };
    EXPECT_EQ(read(package - 1).rows.size(), kFixed + 1);
    EXPECT_EQ(read(package).rows.size(), kFixed + 2);
}

TEST(CleanListReading, ALengthThatPointsOutsideEndsTheRun) {
    WireBytes bytes = CachesPayload({{}});
    bytes.U64(1).U32(0x7FFFFFFF).Raw("x");
    const CleanList list = Parse(bytes);
    EXPECT_EQ(list.rows.size(), kFixed + 1);
    EXPECT_FALSE(list.EndedByMark());
}

TEST(CleanRequests, ThreeFlagsStandBetweenTheCountAndTheNames) {
    const std::vector<std::string> packages{"com.b", "a"};
    EXPECT_EQ(CleanRequest({true, false, true}, packages),
              WireBytes()
                  .U32(871602)                         // code
                  .U32(29)                             // total: 15 + 4 + 5 + 4 + 1
                  .U32(2)                              // count of names
                  .Raw(std::string_view("\1\0\1", 3))  // flags of the fixed rows
                  .Text("com.b")                       //
                  .Text("a")                           //
                  .Get());
}

TEST(CleanRequests, NothingToCleanIsACountOfZeroAndThreeZeroBytes) {
    EXPECT_EQ(CleanRequest({}, {}), WireBytes()
                                        .U32(871602)                         // code
                                        .U32(15)                             // total
                                        .U32(0)                              // count of names
                                        .Raw(std::string_view("\0\0\0", 3))  // flags
                                        .Get());
}

TEST(CleanRequests, NamesAreSentAsTheyStand) {
    const std::vector<std::string> packages{"\xD6\xD0"};  // 中 in the code page
    EXPECT_EQ(CleanRequest({true, true, true}, packages),
              WireBytes()
                  .U32(871602)       // code
                  .U32(21)           // total
                  .U32(1)            // count of names
                  .Raw("\1\1\1")     // flags
                  .Text("\xD6\xD0")  // not turned to UTF-8
                  .Get());
}

}  // namespace
}  // namespace quorvi
