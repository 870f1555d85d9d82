// The expected digits are cut by hand out of digests that another program has made; the digest of
// each text stands beside it.
#include <gtest/gtest.h>

#include <array>

#include "online/CheckSum.h"

namespace quorvi {
namespace {

TEST(StoreLinkCheckSumTest, IsCutFromTheDigestOfTheLastThreeCharacters) {
    // "gtu": 4c300fd33c9f214dfbeb0f4a3ba0b283
    EXPECT_EQ(StoreLinkCheckSum("com.example.xingtu"), "d33c");
}

TEST(StoreLinkCheckSumTest, OfAShorterNameIsThatOfTheWholeOfIt) {
    // "ab": 187ef4436122d1cc2f40dc2b92f0eba0
    EXPECT_EQ(StoreLinkCheckSum("ab"), "4361");
    // "": d41d8cd98f00b204e9800998ecf8427e
    EXPECT_EQ(StoreLinkCheckSum(""), "d98f");
}

TEST(StoreSearchKeyTest, IsCutFromTheDigestOfFourDigitsOfTheDigest) {
    // "reader": 1de9b0a30075ae8c303eb420c103c320
    // "a300": 0e5b17dfbe7ccf7aefbaa1b583ed4b5c
    EXPECT_EQ(StoreSearchKey("reader"), "be7ccf7a");
    // "": d41d8cd98f00b204e9800998ecf8427e
    // "d98f": fa96ade3e5d2c1c710080ac8af75de02
    EXPECT_EQ(StoreSearchKey(""), "e5d2c1c7");
}

TEST(StoreCheckCheckSumTest, IsCutFromTheirNumberAndTheLastName) {
    // "2": c81e728d9d4c2f636f067f89cc14862c
    // "com.example.tingshu": 5fab9f79e931314476976539491eb7b7
    const std::array<std::string, 2> packages{"com.example.xingtu", "com.example.tingshu"};
    EXPECT_EQ(StoreCheckCheckSum(packages), "e72b9f");
}

TEST(StoreCheckCheckSumTest, OfNoPackageTakesAnEmptyName) {
    // "0": cfcd208495d565ef66e7dff9f98764da
    // "": d41d8cd98f00b204e9800998ecf8427e
    EXPECT_EQ(StoreCheckCheckSum({}), "d20d8c");
}

TEST(FeedbackCheckSumTest, IsCutFromTheDigestOfBothDigests) {
    // "Linux": edc9f0a5a5d57797bf68e37364743831
    // "好用": 29558f23481b8b082df282157e9a055e
    // both: c251eee7cd85cfbb721fdd44f7ddda31
    EXPECT_EQ(FeedbackCheckSum("Linux", "好用"), "1eee7cd85cfbb721");
}

}  // namespace
}  // namespace quorvi
