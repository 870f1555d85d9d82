#include <gtest/gtest.h>

#include "base/Text.h"
#include "pages/bookmarks/BookmarkForm.h"
#include "tests/support/WireBytes.h"

namespace quorvi {
namespace {

TEST(BookmarkForm, ANewBookmarkOpensEmptyAndIsSavedWithoutVisits) {
    const BookmarkForm form;
    EXPECT_EQ(form, (BookmarkForm{"", "", ""}));
    EXPECT_EQ(SettingsOf(form), BookmarkSettings());  // an empty title is not refused
}

TEST(BookmarkForm, ShowsAndSavesTheFieldsOfTheBookmark) {
    BookmarkRow row;
    row.title = Ansi(u8"天气");
    row.url = "http://weather.example/";
    row.visits = 12;
    EXPECT_EQ(FormOf(row), (BookmarkForm{Ansi(u8"天气"), "http://weather.example/", "12"}));
    EXPECT_EQ(SettingsOf(FormOf(row)),
              (BookmarkSettings{Ansi(u8"天气"), "http://weather.example/", 12}));
}

TEST(BookmarkForm, VisitsAreTheNumberAtTheStartOfTheField) {
    EXPECT_EQ(SettingsOf({"", "", "0"}).visits, 0u);
    EXPECT_EQ(SettingsOf({"", "", "7x"}).visits, 7u);
    EXPECT_EQ(SettingsOf({"", "", "many"}).visits, 0u);
}

TEST(BookmarkForm, VisitsBeyondTheSignComeBackAsTheyWere) {
    BookmarkRow row;
    row.visits = 0xFFFFFFFE;
    EXPECT_EQ(FormOf(row).visits, "-2");
    EXPECT_EQ(SettingsOf(FormOf(row)).visits, 0xFFFFFFFEu);
}

TEST(BookmarkRequests, AddingCarriesVisitsTitleAndAddress) {
    EXPECT_EQ(AddBookmarkRequest({Ansi(u8"天气"), "http://x/", 12}), WireBytes()
                                                                         .U32(870702)  // code
                                                                         .U32(39)      // total
                                                                         .U32(1)       // item count
                                                                         .U32(12)      // visits
                                                                         .Text("天气")  // title
                                                                         .Text("http://x/")  // url
                                                                         .Get());
}

TEST(BookmarkRequests, AddingNothingButAnEmptyFormIsStillAFrame) {
    EXPECT_EQ(AddBookmarkRequest({}), WireBytes()
                                          .U32(870702)  // code
                                          .U32(24)      // total
                                          .U32(1)       // item count
                                          .U32(0)       // visits
                                          .Text("")     // title
                                          .Text("")     // url
                                          .Get());
}

TEST(BookmarkRequests, ChangingHasTheIdInFront) {
    EXPECT_EQ(UpdateBookmarkRequest(0x01020304, {Ansi(u8"天气"), "http://x/", 12}),
              WireBytes()
                  .U32(870703)        // code
                  .U32(43)            // total
                  .U32(1)             // item count
                  .U32(0x01020304)    // bookmark id
                  .U32(12)            // visits
                  .Text("天气")       // title
                  .Text("http://x/")  // url
                  .Get());
}

}  // namespace
}  // namespace quorvi
