#include <gtest/gtest.h>

#include <utility>

#include "base/Text.h"
#include "link/AdbNames.h"

namespace quorvi {
namespace {

TEST(AndroidVersionName, TableIsExact) {
    constexpr std::pair<int, const char*> kTable[] = {
        {3, "Android 1.5"},    {4, "Android 1.6"},  {5, "Android 2.0"},  {6, "Android 2.0.1"},
        {7, "Android 2.1"},    {8, "Android 2.2"},  {9, "Android 2.3"},  {10, "Android 2.3.X"},
        {11, "Android 3.0"},   {12, "Android 3.1"}, {13, "Android 3.2"}, {14, "Android 4.0"},
        {15, "Android 4.0.3"},
    };
    for (const auto& [level, name] : kTable) {
        EXPECT_EQ(AndroidVersionName(level), name) << level;
    }
}

TEST(AndroidVersionName, AnyOtherLevelIsUnknown) {
    for (const int level : {-1, 0, 1, 2, 16, 33, 2147483647}) {
        EXPECT_EQ(AndroidVersionName(level), Ansi(u8"未知版本")) << level;
    }
}

TEST(BrandImageId, TableIsExact) {
    constexpr std::pair<const char*, int> kTable[] = {
        {"acer", 21000},         {"apple", 21002},   {"dopod", 21003},    {"google", 21004},
        {"htc", 21015},          {"lenovo", 21006},  {"motorola", 21008}, {"meizu", 21007},
        {"nokia", 21009},        {"philips", 21010}, {"samsung", 21011},  {"sharp", 21012},
        {"sonyericsson", 21013}, {"zte", 21014},
    };
    for (const auto& [word, image] : kTable) {
        EXPECT_EQ(BrandImageId(word), image) << word;
    }
}

TEST(BrandImageId, CaseDoesNotMatterAndTheWordMayStandAnywhere) {
    EXPECT_EQ(BrandImageId("HTC Corporation"), 21015);
    EXPECT_EQ(BrandImageId("The SonyEricsson Co."), 21013);
}

TEST(BrandImageId, FirstRowOfTheTableDecides) {
    EXPECT_EQ(BrandImageId("zte htc"), 21015);
    EXPECT_EQ(BrandImageId("meizu motorola"), 21008);
}

TEST(BrandImageId, UnknownAndEmptyBrandsShareAnImage) {
    EXPECT_EQ(BrandImageId("sony"), 21004);
    EXPECT_EQ(BrandImageId(""), 21004);
}

TEST(BrandPicture, EachBrandImageHasAPicture) {
    constexpr std::pair<const char*, const char*> kTable[] = {
        {"acer", "phone-a"},    {"lenovo", "phone-a"},       {"nokia", "phone-a"},
        {"zte", "phone-a"},     {"google", "phone-b"},       {"motorola", "phone-c"},
        {"dopod", "phone-c"},   {"philips", "phone-d"},      {"sharp", "phone-d"},
        {"htc", "phone-d"},     {"apple", "phone-e"},        {"meizu", "phone-e"},
        {"samsung", "phone-e"}, {"sonyericsson", "phone-e"},
    };
    for (const auto& [word, picture] : kTable) {
        EXPECT_EQ(BrandPicture(BrandImageId(word)), picture) << word;
    }
    EXPECT_EQ(BrandPicture(0), "phone-b");
}

TEST(CleanModelName, PrefixOfOneBrandIsRemoved) {
    EXPECT_EQ(CleanModelName("meizu_m9"), "m9");
    EXPECT_EQ(CleanModelName("Meizu_m9"), "Meizu_m9");
    EXPECT_EQ(CleanModelName("HTC Desire"), "HTC Desire");
}

TEST(LocalBrandName, TwoBrandsHaveAChineseName) {
    EXPECT_EQ(LocalBrandName("meizu"), Ansi(u8"魅族"));
    EXPECT_EQ(LocalBrandName("motorola inc"), Ansi(u8"摩托罗拉 inc"));
    EXPECT_EQ(LocalBrandName("samsung"), "samsung");
}

TEST(LocalBrandName, ComparisonIsExactInCase) {
    EXPECT_EQ(LocalBrandName("Meizu"), "Meizu");
    EXPECT_EQ(LocalBrandName("Motorola"), "Motorola");
}

TEST(LocalBrandName, OnlyTheFirstBrandIsReplaced) {
    EXPECT_EQ(LocalBrandName("motorola meizu"), Ansi(u8"motorola 魅族"));
}

}  // namespace
}  // namespace quorvi
