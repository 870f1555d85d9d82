#include <gtest/gtest.h>

#include "online/CheckSum.h"
#include "pages/store/StoreAddress.h"

namespace quorvi {
namespace {

constexpr std::string_view kRoot = "http://store.example/";

std::string Found(std::string_view words) {
    return StoreSearchAddress(kRoot, words);
}
// The address for keywords as they go out.
std::string AddressOf(const std::string& keywords) {
    return "http://store.example/search.php?keywords=" + keywords +
           "&key=" + StoreSearchKey(keywords);
}

TEST(StoreItemAddressTest, IsAmongTheArchives) {
    EXPECT_EQ(StoreItemAddress(kRoot, 4786), "http://store.example/archives/4786.html");
    EXPECT_EQ(StoreItemAddress(kRoot, 0), "http://store.example/archives/0.html");
}

TEST(StoreSearchAddressTest, HoldsTheWordsAndTheirKey) {
    EXPECT_EQ(Found("reader"), "http://store.example/search.php?keywords=reader&key=be7ccf7a");
    EXPECT_EQ(Found("听书"), "http://store.example/search.php?keywords=听书&key=f3b8e03c");
}

TEST(StoreSearchAddressTest, AHyphenBetweenTwoLettersJoinsThem) {
    EXPECT_EQ(Found("a-b"), AddressOf("ab"));
}

TEST(StoreSearchAddressTest, EachMarkIsLeftOut) {
    EXPECT_EQ(Found("a`b'c-d&e<f>g\\h/i"), AddressOf("abcdefghi"));
}

TEST(StoreSearchAddressTest, WordsOfMarksAloneAreEmptyWithTheKeyOfAnEmptyText) {
    EXPECT_EQ(Found("--"), "http://store.example/search.php?keywords=&key=e5d2c1c7");
}

TEST(StoreSearchAddressTest, NothingIsEscaped) {
    EXPECT_EQ(Found("C# 100%+?=\""), AddressOf("C# 100%+?=\""));
}

TEST(StoreLinkTest, NamesThePackageInFrontOfItsEnding) {
    EXPECT_EQ(PackageOfStoreLink("com.example.tingshu.apk"), "com.example.tingshu");
}

TEST(StoreLinkTest, WithoutTheEndingIsNone) {
    EXPECT_EQ(PackageOfStoreLink(""), std::nullopt);
    EXPECT_EQ(PackageOfStoreLink("4786"), std::nullopt);
    EXPECT_EQ(PackageOfStoreLink("com.example.tingshu"), std::nullopt);
    EXPECT_EQ(PackageOfStoreLink("com.example.tingshu.APK"), std::nullopt);
}

TEST(StoreLinkTest, TheFirstEndingIsCutOutWhereverItStands) {
    EXPECT_EQ(PackageOfStoreLink("com.apkeditor.apk"), "comeditor.apk");
    EXPECT_EQ(PackageOfStoreLink("com.example.apk?from=list"), "com.example?from=list");
    EXPECT_EQ(PackageOfStoreLink(".apk"), "");
}

}  // namespace
}  // namespace quorvi
