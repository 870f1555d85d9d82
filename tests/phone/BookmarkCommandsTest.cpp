#include <gmock/gmock.h>

#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#include "phone/agent/LocalTime.h"
#include "phone/agent/Photos.h"
#include "tests/support/Ask.h"

namespace quorvi::phone {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct Listed {
    std::uint64_t id = 0;
    std::string title;
    std::string url;
    std::uint32_t visits = 0;
    std::uint64_t lastVisit = 0;
    bool hasFavicon = false;
    bool hasThumbnail = false;
    Bytes thumbnail;
};

class BookmarkCommands : public testing::Test {
  protected:
    Outcome AskFor(const Bytes& request) { return Ask(data_, request); }

    static bool TakePicture(ReplyCursor& cursor, Bytes& picture) {
        if (cursor.TakeUInt32() == 0) {
            return false;
        }
        picture.resize(cursor.TakeUInt64());
        cursor.TakeBytes(picture.data(), picture.size());
        return true;
    }

    std::vector<Listed> List() {
        std::vector<Listed> all;
        const ReplyBuffer reply = PayloadOf(AskFor(BareRequest(AgentCommand::listBookmarks)));
        ReplyCursor cursor(reply);
        do {
            Listed listed;
            Bytes favicon;
            listed.id = cursor.TakeUInt64();
            listed.title = cursor.TakeUtf8().value_or("");
            listed.url = cursor.TakeUtf8().value_or("");
            listed.visits = cursor.TakeUInt32();
            listed.lastVisit = cursor.TakeUInt64();
            listed.hasFavicon = TakePicture(cursor, favicon);
            listed.hasThumbnail = TakePicture(cursor, listed.thumbnail);
            all.push_back(std::move(listed));
        } while (!cursor.AtEnd());
        EXPECT_FALSE(cursor.Overran());
        return all;
    }

    Handset handset_{DeliveredProfile(0)};
    AgentData data_{handset_};
};

TEST_F(BookmarkCommands, ListHoldsEveryFieldOfEveryBookmark) {
    setenv("TZ", "Asia/Shanghai", 1);
    tzset();
    data_.Fill({});
    const auto listed = List();
    ASSERT_THAT(listed, SizeIs(data_.bookmarks.bookmarks.size()));
    EXPECT_EQ(listed[0].id, 1u);
    EXPECT_EQ(listed[0].title, "天气预报 - 无锡");
    EXPECT_EQ(listed[0].url, "http://m.weather.example/101190201.html");
    EXPECT_EQ(listed[0].visits, 214u);
    EXPECT_EQ(listed[0].lastVisit, LocalMilliseconds("2011-06-18 07:10:22"));
    EXPECT_TRUE(listed[0].hasFavicon);
    EXPECT_EQ(listed[0].thumbnail, *PhotoFile("sea.jpg"));
    EXPECT_TRUE(listed[2].hasFavicon);
    EXPECT_FALSE(listed[2].hasThumbnail);
    EXPECT_FALSE(listed[3].hasFavicon);
    EXPECT_TRUE(listed[3].hasThumbnail);
}

TEST_F(BookmarkCommands, AnAddedBookmarkIsTheLastWithAnIdOfItsOwn) {
    const std::uint64_t last = data_.bookmarks.bookmarks.back().id;
    const Outcome outcome = AskFor(RequestBuilder(AgentCommand::addBookmark)
                                       .BeginItem()
                                       .AddUInt32(5)            // visits
                                       .AddRawText("title")     // title
                                       .AddRawText("http://x")  // url
                                       .Take());
    EXPECT_THAT(outcome.deviations, IsEmpty());
    const Listed added = List().back();
    EXPECT_EQ(added.id, last + 1);
    EXPECT_EQ(added.title, "title");
    EXPECT_EQ(added.url, "http://x");
    EXPECT_EQ(added.visits, 5u);
    EXPECT_EQ(added.lastVisit, 0u);
    EXPECT_FALSE(added.hasFavicon);
    EXPECT_FALSE(added.hasThumbnail);
}

TEST_F(BookmarkCommands, AChangedBookmarkKeepsItsPlacePicturesAndLastVisit) {
    const auto before = List();
    const Outcome outcome = AskFor(RequestBuilder(AgentCommand::updateBookmark)
                                       .BeginItem()
                                       .AddUInt32(2)            // bookmark id
                                       .AddUInt32(0)            // visits
                                       .AddRawText("title")     // title
                                       .AddRawText("http://x")  // url
                                       .Take());
    EXPECT_THAT(outcome.deviations, IsEmpty());
    const auto after = List();
    ASSERT_THAT(after, SizeIs(before.size()));
    EXPECT_EQ(after[1].id, 2u);
    EXPECT_EQ(after[1].title, "title");
    EXPECT_EQ(after[1].url, "http://x");
    EXPECT_EQ(after[1].visits, 0u);
    EXPECT_EQ(after[1].lastVisit, before[1].lastVisit);
    EXPECT_EQ(after[1].thumbnail, before[1].thumbnail);
    EXPECT_EQ(after[0].title, before[0].title);
}

TEST_F(BookmarkCommands, ChangingAnUnknownBookmarkChangesNothing) {
    const Outcome outcome = AskFor(RequestBuilder(AgentCommand::updateBookmark)
                                       .BeginItem()
                                       .AddUInt32(99)
                                       .AddUInt32(0)
                                       .AddRawText("title")
                                       .AddRawText("http://x")
                                       .Take());
    EXPECT_EQ(outcome.note, "bookmark 99 \"title\" http://x, unknown");
    for (const Listed& listed : List()) {
        EXPECT_NE(listed.title, "title");
    }
}

TEST_F(BookmarkCommands, DeletesEachBookmarkNamed) {
    const std::size_t before = data_.bookmarks.bookmarks.size();
    const Outcome outcome = AskFor(RequestBuilder(AgentCommand::deleteBookmarks)
                                       .BeginItem()
                                       .AddUInt32(1)
                                       .BeginItem()
                                       .AddUInt32(3)
                                       .Take());
    EXPECT_THAT(outcome.deviations, IsEmpty());
    const auto listed = List();
    ASSERT_THAT(listed, SizeIs(before - 2));
    EXPECT_EQ(listed[0].id, 2u);
    EXPECT_EQ(listed[1].id, 4u);
}

TEST_F(BookmarkCommands, WithoutBookmarksTheListIsNoData) {
    data_.bookmarks.bookmarks.clear();
    EXPECT_TRUE(IsNoData(AskFor(BareRequest(AgentCommand::listBookmarks))));
}

TEST_F(BookmarkCommands, AFrameThatIsTooShortChangesNothing) {
    const std::size_t before = data_.bookmarks.bookmarks.size();
    EXPECT_THAT(AskFor(RequestBuilder(AgentCommand::addBookmark).BeginItem().AddUInt32(6).Take())
                    .deviations,
                ElementsAre("the frame ends before the fields of its 1 items do"));
    EXPECT_THAT(AskFor(RequestBuilder(AgentCommand::updateBookmark).BeginItem().AddUInt32(1).Take())
                    .deviations,
                SizeIs(1));
    EXPECT_THAT(data_.bookmarks.bookmarks, SizeIs(before));
    EXPECT_EQ(data_.bookmarks.bookmarks[0].visits, 214u);
}

TEST_F(BookmarkCommands, MadeUpAndHostileBookmarksAreAsManyAsAskedFor) {
    data_.Fill({.photoBytes = 5'000, .bookmarks = 1'000});
    const auto listed = List();
    ASSERT_THAT(listed, SizeIs(1'000));
    EXPECT_THAT(listed[999].thumbnail, SizeIs(5'000));
    data_.Fill({.bookmarks = 0, .hostile = true});
    EXPECT_THAT(List(), SizeIs(21));
}

}  // namespace
}  // namespace quorvi::phone
