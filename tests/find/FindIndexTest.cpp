#include <gtest/gtest.h>

#include <vector>

#include "find/FindIndex.h"

namespace quorvi {
namespace {

FindIndex ThreeContacts() {
    FindIndex index;
    index.AddRow();
    index.AddText(u"林远舟", FindKind::name);
    index.AddText(u"138-6123 4567", FindKind::number);
    index.AddRow();
    index.AddText(u"Anna", FindKind::name);
    index.AddText(u"10086", FindKind::number);
    index.AddRow();  // nothing is known of the third
    return index;
}

TEST(FindIndex, TheRowsAreFoundInTheirOrder) {
    const FindIndex index = ThreeContacts();
    EXPECT_EQ(index.RowCount(), 3U);
    EXPECT_EQ(index.Find(FindQuery(u"lyz")), std::vector<int>{0});
    EXPECT_EQ(index.Find(FindQuery(u"anna")), std::vector<int>{1});
    EXPECT_EQ(index.Find(FindQuery(u"86")), (std::vector<int>{0, 1}));
    EXPECT_EQ(index.Find(FindQuery(u"x")), std::vector<int>{});
}

TEST(FindIndex, ATextIsSearchedByItself) {
    const FindIndex index = ThreeContacts();
    EXPECT_EQ(index.Find(FindQuery(u"舟1")), std::vector<int>{});
    EXPECT_EQ(index.Find(FindQuery(u"67anna")), std::vector<int>{});
}

TEST(FindIndex, IsEmptyAgainOnceItWasCleared) {
    FindIndex index = ThreeContacts();
    index.Clear();
    EXPECT_EQ(index.RowCount(), 0U);
    EXPECT_EQ(index.Find(FindQuery(u"86")), std::vector<int>{});
    index.AddRow();
    index.AddText(u"86", FindKind::number);
    EXPECT_EQ(index.Find(FindQuery(u"86")), std::vector<int>{0});
}

TEST(FindIndex, TakesTextsInUtf8) {
    FindIndex index;
    index.AddRow();
    index.AddUtf8("林远舟", FindKind::name);
    index.AddRow();
    index.AddUtf8("😀 Hi", FindKind::text);
    index.AddRow();
    index.AddUtf8("\xFF\xE6 ok", FindKind::text);  // a part of a character
    index.AddUtf8({}, FindKind::text);
    EXPECT_EQ(index.Find(FindQuery(u"lyz")), std::vector<int>{0});
    EXPECT_EQ(index.Find(FindQuery(u"😀 h")), std::vector<int>{1});
    EXPECT_EQ(index.Find(FindQuery(u"ok")), std::vector<int>{2});
}

}  // namespace
}  // namespace quorvi
