#include <gtest/gtest.h>

#include <string>
#include <string_view>
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

using Spellings = std::vector<std::u16string>;

TEST(FindIndex, TellsHowWhatWasFoundIsSpelt) {
    FindIndex index;
    index.KeepSpellings();
    index.AddRow();
    index.AddText(u"wifi 和 WiFi，还有ＷＩＦＩ", FindKind::text);
    index.AddRow();
    index.AddText(u"Wifi", FindKind::text);
    index.AddText(u"WIFI", FindKind::name);
    const auto wifi = [&](FindKind kind, std::vector<int> rows) {
        return index.Spellings(FindQuery(u"wIfI"), kind, rows);
    };
    EXPECT_EQ(wifi(FindKind::text, {0, 1}), (Spellings{u"WiFi", u"Wifi", u"wifi", u"ＷＩＦＩ"}));
    EXPECT_EQ(wifi(FindKind::text, {1}), Spellings{u"Wifi"});
    EXPECT_EQ(wifi(FindKind::name, {0, 1}), Spellings{u"WIFI"});
    EXPECT_EQ(wifi(FindKind::number, {0, 1}), Spellings{});
    EXPECT_EQ(wifi(FindKind::text, {}), Spellings{});
}

TEST(FindIndex, TheLongestSpellingIsToldFirst) {
    FindIndex index;
    index.KeepSpellings();
    for (const std::u16string_view name : {u"林远舟", u"李·亚洲", u"Lin", u"张三"}) {
        index.AddRow();
        index.AddText(name, FindKind::name);
    }
    EXPECT_EQ(index.Spellings(FindQuery(u"ly"), FindKind::name, std::vector<int>{0, 1, 2, 3}),
              (Spellings{u"李·亚", u"林远"}));
}

TEST(FindIndex, TellsOfNoMoreSpellingsThanItsLimit) {
    FindIndex index;
    index.KeepSpellings();
    std::vector<int> rows;
    for (int row = 0; row < 700; ++row) {
        index.AddRow();
        index.AddText(u"1" + std::u16string(static_cast<std::size_t>(row), u' ') + u"2",
                      FindKind::number);
        rows.push_back(row);
    }
    EXPECT_EQ(index.Spellings(FindQuery(u"12"), FindKind::number, rows).size(),
              FindIndex::kMostSpellings);
}

TEST(FindIndex, TellsOfNoSpellingThatItWasNotToldToKeep) {
    const FindIndex index = ThreeContacts();
    EXPECT_EQ(index.Spellings(FindQuery(u"anna"), FindKind::name, std::vector<int>{1}),
              Spellings{});
}

}  // namespace
}  // namespace quorvi
