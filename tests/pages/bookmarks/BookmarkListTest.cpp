#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <ctime>

#include "base/ByteText.h"
#include "base/Text.h"
#include "pages/bookmarks/BookmarkList.h"
#include "pages/kit/ReplyPicture.h"
#include "tests/pages/bookmarks/BookmarkReplies.h"

namespace quorvi {
namespace {

class BookmarkReading : public testing::Test {
  protected:
    BookmarkReading() {
        setenv("TZ", "Asia/Shanghai", 1);
        tzset();
    }
};

BookmarkList Parse(const WireBytes& bytes) {
    return ParseBookmarkList(bytes.Shared());
}

std::string ThumbnailOf(const BookmarkRow& row) {
    return std::string(AsText(row.thumbnail.Bytes()));
}

TEST_F(BookmarkReading, ReadsEachFieldOfARow) {
    const BookmarkList list = Parse(BookmarksPayload({{.id = 0x500000009,
                                                       .title = "天气",
                                                       .url = "http://weather.example/无锡",
                                                       .visits = 3,
                                                       .lastVisit = 1308361330999,
                                                       .favicon = "icon",
                                                       .thumbnail = "thumb"}}));
    EXPECT_FALSE(list.EndedByMark());
    ASSERT_EQ(list.rows.size(), 1u);
    const BookmarkRow& row = list.rows[0];
    EXPECT_EQ(row.id, 9u);  // the low 32 bits
    EXPECT_EQ(row.title, Ansi(u8"天气"));
    EXPECT_EQ(row.url, Ansi(u8"http://weather.example/无锡"));
    EXPECT_EQ(row.visits, 3u);
    EXPECT_EQ(row.lastVisit, "2011-06-18 09:42:10");
    EXPECT_EQ(ThumbnailOf(row), "thumb");
}

TEST_F(BookmarkReading, KeepsTheOrderOfTheAgent) {
    const BookmarkList list = Parse(BookmarksPayload({{9}, {3}, {5}}));
    ASSERT_EQ(list.rows.size(), 3u);
    EXPECT_EQ(list.rows[0].id, 9u);
    EXPECT_EQ(list.rows[1].id, 3u);
    EXPECT_EQ(list.rows[2].id, 5u);
}

TEST_F(BookmarkReading, ABookmarkNeverVisitedSaysSo) {
    const BookmarkList list = Parse(BookmarksPayload({{.lastVisit = 0}, {.lastVisit = 999}}));
    ASSERT_EQ(list.rows.size(), 2u);
    EXPECT_EQ(list.rows[0].lastVisit, Ansi(u8"从未"));
    EXPECT_EQ(list.rows[1].lastVisit, "1970-01-01 08:00:00");
}

TEST_F(BookmarkReading, TheFaviconIsReadPastAndOnlyTheThumbnailIsKept) {
    const BookmarkList list = Parse(BookmarksPayload({{.id = 1, .favicon = "icon"},
                                                      {.id = 2, .thumbnail = "thumb"},
                                                      {.id = 3, .favicon = "i", .thumbnail = "t"},
                                                      {.id = 4}}));
    ASSERT_EQ(list.rows.size(), 4u);
    EXPECT_TRUE(list.rows[0].thumbnail.Empty());
    EXPECT_EQ(ThumbnailOf(list.rows[1]), "thumb");
    EXPECT_EQ(ThumbnailOf(list.rows[2]), "t");
    EXPECT_TRUE(list.rows[3].thumbnail.Empty());
    EXPECT_EQ(list.rows[3].id, 4u);
}

TEST_F(BookmarkReading, OnlyAOneSaysThatAPictureFollows) {
    WireBytes bytes;
    bytes
        .U32(0)     // leading word
        .U64(1)     // bookmark id
        .Text("a")  // title
        .Text("b")  // url
        .U32(0)     // visits
        .U64(0)     // last visit
        .U32(2)     // no favicon
        .U32(7)     // no thumbnail
        .U64(2)     // bookmark id of the next
        .Text("c")  // title
        .Text("d")  // url
        .U32(0)     // visits
        .U64(0)     // last visit
        .U32(0)     // no favicon
        .U32(0);    // no thumbnail
    const BookmarkList list = Parse(bytes);
    ASSERT_EQ(list.rows.size(), 2u);
    EXPECT_EQ(list.rows[1].title, "c");
}

TEST_F(BookmarkReading, AThumbnailOfFullCapacityIsKeptAndALongerOneDropped) {
    const BookmarkList list =
        Parse(BookmarksPayload({{.thumbnail = std::string(262'244, 'x')},
                                {.thumbnail = std::string(262'245, 'x')},
                                {.title = "behind", .favicon = std::string(300'000, 'x')}}));
    ASSERT_EQ(list.rows.size(), 3u);
    EXPECT_EQ(list.rows[0].thumbnail.Bytes().size(), kPictureCapacity);
    EXPECT_TRUE(list.rows[1].thumbnail.Empty());
    EXPECT_EQ(list.rows[2].title, "behind");
}

TEST_F(BookmarkReading, OnlyTheLow32BitsOfAPicturesLengthCount) {
    WireBytes bytes = BookmarksPayload({});
    bytes
        .U64(1)            // bookmark id
        .Text("a")         // title
        .Text("b")         // url
        .U32(0)            // visits
        .U64(0)            // last visit
        .U32(0)            // no favicon
        .U32(1)            // has thumbnail
        .U64(0x500000002)  // length: 2
        .Raw("xy");        // thumbnail
    const BookmarkList list = Parse(bytes);
    ASSERT_EQ(list.rows.size(), 1u);
    EXPECT_EQ(ThumbnailOf(list.rows[0]), "xy");
}

TEST_F(BookmarkReading, AnAbsentTitleEndsTheReadAndLeavesARowWithItsId) {
    WireBytes bytes = BookmarksPayload({{1}});
    bytes.U64(2).Absent();  // a second record whose title is absent
    const BookmarkList list = Parse(bytes);
    EXPECT_EQ(list.rows.size(), 1u);
    ASSERT_TRUE(list.EndedByMark());
    EXPECT_EQ(list.marked->id, 2u);
}

TEST_F(BookmarkReading, AnAbsentUrlIsEmpty) {
    WireBytes bytes = BookmarksPayload({});
    bytes.U64(1).Text("a").Absent().U32(0).U64(0).U32(0).U32(0);  // a record without an address
    const BookmarkList list = Parse(bytes);
    EXPECT_FALSE(list.EndedByMark());
    ASSERT_EQ(list.rows.size(), 1u);
    EXPECT_EQ(list.rows[0].url, "");
}

TEST_F(BookmarkReading, ARowInWhoseIdACutReplyEndsIsDropped) {
    const std::size_t first = BookmarksPayload({{1}}).Get().size();
    const WireBytes bytes = BookmarksPayload({{1}, {0x102}});
    const auto cut = [&](std::size_t came) {
        return ParseBookmarkList(ShareReply(bytes.CutAfter(came)));
    };
    EXPECT_EQ(cut(first + 7).rows.size(), 1u);  // 0x100 is another
    ASSERT_EQ(cut(first + 8).rows.size(), 2u);
    EXPECT_EQ(cut(first + 8).rows[1].id, 0x102u);
}

TEST_F(BookmarkReading, AThumbnailInWhichACutReplyEndsIsDroppedAndItsRowKept) {
    const WireBytes bytes = BookmarksPayload({{.thumbnail = "thumb"}});
    const auto list = ParseBookmarkList(ShareReply(bytes.CutAfter(bytes.Get().size() - 1)));
    ASSERT_EQ(list.rows.size(), 1u);
    EXPECT_TRUE(list.rows[0].thumbnail.Empty());
}

TEST_F(BookmarkReading, APictureThatPointsOutsideEndsTheRun) {
    WireBytes bytes = BookmarksPayload({{1}});
    // A second record, whose favicon is longer than the reply.
    bytes.U64(2).Text("a").Text("b").U32(0).U64(0).U32(1).U64(0xFFFFFFFF).Raw("xy");
    const BookmarkList list = Parse(bytes);
    EXPECT_EQ(list.rows.size(), 1u);
    EXPECT_FALSE(list.EndedByMark());
}

TEST(BookmarkText, VisitsAreCountedFromZero) {
    EXPECT_EQ(BookmarkVisitsText(0), Ansi(u8"0 次"));
    EXPECT_EQ(BookmarkVisitsText(12), Ansi(u8"12 次"));
}

TEST(BookmarkText, EveryBookmarkIsKeptOnThePhoneAlone) {
    EXPECT_EQ(kPhoneBookmarkStore, u8"仅手机上的");
    EXPECT_EQ(kBookmarkStores, (std::array<std::u8string_view, 4>{u8"所有类型", u8"仅手机上的",
                                                                  u8"仅电脑上的", u8"电脑和手机"}));
}

TEST(BookmarkRequests, DeletingCarriesTheIdsInOrder) {
    const std::array<std::uint32_t, 2> ids{7, 0x01020304};
    EXPECT_EQ(DeleteBookmarksRequest(ids), WireBytes()
                                               .U32(870705)      // code
                                               .U32(20)          // total
                                               .U32(2)           // item count
                                               .U32(7)           // first id
                                               .U32(0x01020304)  // second id
                                               .Get());
}

}  // namespace
}  // namespace quorvi
