#include <gtest/gtest.h>

#include <string_view>

#include "online/Md5.h"

namespace quorvi {
namespace {

TEST(Md5, OfNothingIsTheWellKnownDigest) {
    EXPECT_EQ(CMd5().Hash(""), "d41d8cd98f00b204e9800998ecf8427e");
}

TEST(Md5, HasLowerCaseDigitsWithTheirZeros) {
    EXPECT_EQ(CMd5().Hash("a"), "0cc175b9c0f1b6a831c399e269772661");
    EXPECT_EQ(CMd5().Hash("message digest"), "f96b697d7cb7938d525a2f31aaf161d0");
}

TEST(Md5, TakesAllBytesZeroBytesIncluded) {
    EXPECT_EQ(CMd5().Hash(std::string_view("\0", 1)), "93b885adfe0da089cdf634904fd59f71");
}

TEST(Md5, KeepsNothingOfTheTextBefore) {
    CMd5 md5;
    md5.Hash("something else");
    EXPECT_EQ(md5.Hash("a"), "0cc175b9c0f1b6a831c399e269772661");
}

}  // namespace
}  // namespace quorvi
