#include <gtest/gtest.h>

#include "download/WaitingPackages.h"

namespace quorvi {
namespace {

TEST(WaitingPackages, TheFirstComesOutFirst) {
    const WaitingPackages waiting;
    waiting.Add("com.a");
    waiting.Add("com.b");
    EXPECT_EQ(waiting.Take(), "com.a");
    EXPECT_EQ(waiting.Take(), "com.b");
    EXPECT_EQ(waiting.Take(), std::nullopt);
}

TEST(WaitingPackages, CopiesShareOneList) {
    const WaitingPackages waiting;
    const WaitingPackages copy = waiting;  // NOLINT(performance-unnecessary-copy-initialization)
    copy.Add("com.a");
    EXPECT_EQ(waiting.Take(), "com.a");
    EXPECT_EQ(copy.Take(), std::nullopt);
}

}  // namespace
}  // namespace quorvi
