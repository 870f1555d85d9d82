#include <gtest/gtest.h>

#include "base/PackageName.h"

namespace quorvi {
namespace {

TEST(IsPackageNameTest, KnowsLettersDigitsUnderscoresAndDots) {
    EXPECT_TRUE(IsPackageName("com.example.App_2"));
    EXPECT_TRUE(IsPackageName("android"));
    EXPECT_TRUE(IsPackageName("a..b."));
}

TEST(IsPackageNameTest, NoOtherNameIsOne) {
    for (const char* name : {"", "a b", "a -k", "-k", "a;b", "a/b", "a\nb", "\xC4\xE3"}) {
        EXPECT_FALSE(IsPackageName(name)) << name;
    }
    EXPECT_FALSE(IsPackageName({"a\0b", 3}));
}

TEST(IsPackageNameTest, NoneBeginsWithADot) {
    for (const char* name : {".", "..", ".a", "..a"}) {
        EXPECT_FALSE(IsPackageName(name)) << name;
    }
}

}  // namespace
}  // namespace quorvi
