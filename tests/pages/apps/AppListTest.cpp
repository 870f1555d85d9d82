#include <gtest/gtest.h>

#include "base/ByteText.h"
#include "base/Format.h"
#include "pages/apps/AppList.h"
#include "pages/kit/ReplyPicture.h"
#include "tests/pages/apps/AppReplies.h"
#include "tests/support/LoopbackAgent.h"

namespace quorvi {
namespace {

AppList Parse(const WireBytes& bytes) {
    return ParseAppList(bytes.Shared());
}

std::string IconOf(const AppRecord& row) {
    return std::string(AsText(row.icon.Bytes()));
}

TEST(AppListReading, ReadsEachFieldOfARow) {
    WireBytes bytes;
    bytes
        .U32(0)                      // leading word
        .U32(0xDEADBEEF)             // skipped
        .Text("轻步计数")            // name
        .Text("com.example.qingbu")  // package
        .Text("1.0.4")               // version
        .U32(11)                     // extra value
        .U64(1'363'148)              // bytes
        .U64(3)                      // bytes of the icon
        .Raw("png")                  // icon
        .Text("whatever")            // skipped
        .U32(0xDEADBEEF)             // skipped
        .U64(1'320'000'000'999);     // time of the installation
    const AppList list = Parse(bytes);
    EXPECT_FALSE(list.EndedByMark());
    ASSERT_EQ(list.rows.size(), 1U);
    const AppRecord& row = list.rows[0];
    EXPECT_EQ(row.name, Ansi(u8"轻步计数"));
    EXPECT_EQ(row.package, "com.example.qingbu");
    EXPECT_EQ(row.version, "1.0.4");
    EXPECT_EQ(row.extraValue, 11U);
    EXPECT_EQ(row.size, 1'363'148U);
    EXPECT_EQ(IconOf(row), "png");
    EXPECT_EQ(row.installed, 1'320'000'000'999U);
}

TEST(AppListReading, ARowKnowsNothingOfTheStore) {
    const AppList list = Parse(AppsPayload({{}}));
    ASSERT_EQ(list.rows.size(), 1U);
    EXPECT_EQ(list.rows[0].store.rating, 3);
    EXPECT_EQ(list.rows[0].store.storeId, -1);
    EXPECT_EQ(list.rows[0].store.category, Ansi(u8"未知"));
    EXPECT_EQ(list.rows[0].store.description, "N/A");
}

TEST(AppListReading, KeepsTheOrderOfTheAgent) {
    const AppList list = Parse(AppsPayload({{.package = "b"}, {.package = "a"}}));
    ASSERT_EQ(list.rows.size(), 2U);
    EXPECT_EQ(list.rows[0].package, "b");
    EXPECT_EQ(list.rows[1].package, "a");
}

TEST(AppListReading, AnAbsentNameEndsTheRead) {
    WireBytes bytes = AppsPayload({{}});
    bytes
        .U32(0)     // skipped
        .Absent();  // name
    const AppList list = Parse(bytes);
    EXPECT_EQ(list.rows.size(), 1U);
    EXPECT_TRUE(list.EndedByMark());
}

TEST(AppListReading, AnIconBeyondTheCapacityIsDroppedAndTheReadingGoesOn) {
    const std::string fits(kPictureCapacity, 'x');
    const AppList list =
        Parse(AppsPayload({{.icon = fits}, {.icon = fits + "x"}, {.icon = "next"}}));
    ASSERT_EQ(list.rows.size(), 3U);
    EXPECT_EQ(list.rows[0].icon.Bytes().size(), kPictureCapacity);
    EXPECT_TRUE(list.rows[1].icon.Empty());
    EXPECT_EQ(IconOf(list.rows[2]), "next");
}

TEST(AppListReading, ARowWhosePackageWasCutIsDropped) {
    WireBytes bytes = AppsPayload({{}});
    const std::size_t whole = bytes.Get().size();
    bytes
        .U32(0)            // skipped
        .Text("name")      // name
        .Text("com.next")  // package
        .Text("1");        // version
    const std::size_t package = whole + 4 + 8 + 12;
    const auto read = [&](std::size_t came) {
        return ParseAppList(std::make_shared<const ReplyBuffer>(bytes.CutAfter(came)));
    };
    EXPECT_EQ(read(package - 1).rows.size(), 1U);
}

TEST(AppListReading, ALengthThatPointsOutsideEndsTheRun) {
    WireBytes bytes = AppsPayload({{}});
    bytes
        .U32(0)           // skipped
        .U32(0x7FFFFFFF)  // bytes of the name
        .Raw("x");
    const AppList list = Parse(bytes);
    EXPECT_EQ(list.rows.size(), 1U);
    EXPECT_FALSE(list.EndedByMark());
}

TEST(AppListReading, ASizeOfFourGigabytesShowsItsLowerBits) {
    const AppList list = Parse(AppsPayload({{.size = (1ULL << 32) + 532}}));
    ASSERT_EQ(list.rows.size(), 1U);
    EXPECT_EQ(FormatByteSize(list.rows[0].size), Ansi(u8"532 字节"));
}

TEST(InstalledTextTest, ATimeOfZeroIsNever) {
    EXPECT_EQ(InstalledText(0), Ansi(u8"从未"));
    EXPECT_EQ(InstalledText(1'320'000'000'999), FormatUnixTime(1'320'000'000));
}

TEST(AppListFetch, AsksWithTheCommandAlone) {
    LoopbackAgent agent({.bytes = Framed(AppsPayload({{}}).Get())});
    const AppListReply reply = FetchAppList(AgentSession(agent.Port()));
    EXPECT_EQ(reply.outcome, SessionOutcome::complete);
    EXPECT_EQ(reply.list.rows.size(), 1U);
    EXPECT_EQ(agent.Exchanges(1).at(0).firstPiece, Word(870802));
}

TEST(AppListFetch, TakesTheMarkOfNoDataForALength) {
    LoopbackAgent agent(
        {.bytes = Join({Word(NoDataMark), AppsPayload({{}}).Get()}), .end = Answer::End::close});
    const AppListReply reply = FetchAppList(AgentSession(agent.Port()));
    EXPECT_EQ(reply.outcome, SessionOutcome::cut);
    EXPECT_EQ(reply.list.rows.size(), 1U);
}

TEST(AppListFetch, TheMarkOfNoDataAloneBringsNoRow) {
    LoopbackAgent agent({.bytes = Word(NoDataMark), .end = Answer::End::close});
    const AppListReply reply = FetchAppList(AgentSession(agent.Port()));
    EXPECT_EQ(reply.outcome, SessionOutcome::cut);
    EXPECT_TRUE(reply.list.rows.empty());
}

}  // namespace
}  // namespace quorvi
