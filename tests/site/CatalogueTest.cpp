#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "base/PackageName.h"
#include "site/Catalogue.h"
#include "site/SamplePackage.h"

namespace quorvi::site {
namespace {

TEST(Catalogue, HasADozenApplicationsAndMore) {
    EXPECT_GE(StoreApps().size(), 12u);
}

TEST(Catalogue, NumbersAndPackagesAreEachOnesOwn) {
    std::set<int> numbers;
    std::set<std::string_view> packages;
    for (const StoreApp& app : StoreApps()) {
        EXPECT_TRUE(numbers.insert(app.number).second) << app.number;
        EXPECT_TRUE(packages.insert(app.package).second) << app.package;
        EXPECT_TRUE(IsPackageName(app.package)) << app.package;
        EXPECT_GE(app.kilobytes * 1024, kLeastPackageBytes) << app.package;
        EXPECT_GE(app.stars, 1) << app.package;
        EXPECT_LE(app.stars, 5) << app.package;
        EXPECT_EQ(AppOfNumber(app.number), &app);
        EXPECT_EQ(AppOfPackage(app.package), &app);
    }
    EXPECT_EQ(AppOfNumber(1), nullptr);
    EXPECT_EQ(AppOfPackage("com.example.unknown"), nullptr);
}

TEST(Catalogue, SizesAreShownInKilobytesAndMegabytes) {
    EXPECT_EQ(SizeText({.kilobytes = 920}), "920 KB");
    EXPECT_EQ(SizeText({.kilobytes = 1023}), "1023 KB");
    EXPECT_EQ(SizeText({.kilobytes = 1024}), "1.0 MB");
    EXPECT_EQ(SizeText(*AppOfPackage("com.example.dict")), "5.8 MB");
}

TEST(Catalogue, EveryShelfHasApplicationsAndEachCategoryAShelf) {
    std::size_t shelved = 0;
    for (const Shelf& shelf : Shelves()) {
        EXPECT_FALSE(shelf.apps.empty()) << shelf.word;
        EXPECT_THAT(shelf.apps, testing::Each(testing::NotNull())) << shelf.word;
        EXPECT_EQ(ShelfOfWord(shelf.word), &shelf);
    }
    for (const std::string_view word : {"tools", "life", "reading", "photo", "travel", "games"}) {
        ASSERT_NE(ShelfOfWord(word), nullptr) << word;
        shelved += ShelfOfWord(word)->apps.size();
    }
    EXPECT_EQ(shelved, StoreApps().size());
    EXPECT_EQ(ShelfOfWord("all")->apps.size(), StoreApps().size());
    EXPECT_EQ(ShelfOfWord("other"), nullptr);
}

TEST(Catalogue, IsSearchedByNameCategorySummaryAndPackage) {
    using testing::Contains;
    EXPECT_THAT(FindApps("词典"), testing::ElementsAre(AppOfPackage("com.example.dict")));
    EXPECT_THAT(FindApps("出行"), Contains(AppOfPackage("com.example.bus")));
    EXPECT_THAT(FindApps("洗车"), testing::IsEmpty());  // stands in a story alone
    EXPECT_THAT(FindApps("生活指数"), testing::ElementsAre(AppOfPackage("com.example.weather")));
    EXPECT_THAT(FindApps("MetroMap"), testing::ElementsAre(AppOfPackage("com.example.metromap")));
    EXPECT_THAT(FindApps(""), testing::IsEmpty());
}

}  // namespace
}  // namespace quorvi::site
