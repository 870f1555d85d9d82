#include <gtest/gtest.h>

#include "download/WorkLock.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

class WorkLockTest : public testing::Test {
  protected:
    // As another process has it.
    [[nodiscard]] WorkLock Lock() const {
        return WorkLock([file = folder_.Path() / "lock"] { return file; });
    }

    TemporaryFolder folder_;
};

TEST_F(WorkLockTest, OneOfSeveralHasIt) {
    const WorkLock one = Lock();
    const WorkLock other = Lock();
    auto held = one.Take();
    EXPECT_NE(held, nullptr);
    EXPECT_EQ(other.Take(), nullptr);
    held.reset();
    EXPECT_NE(other.Take(), nullptr);
}

TEST_F(WorkLockTest, IsHeldUntilTheLastHolderHasEnded) {
    const WorkLock one = Lock();
    const WorkLock other = Lock();
    auto first = one.Take();
    auto second = one.Take();
    EXPECT_NE(second, nullptr);
    first.reset();
    EXPECT_EQ(other.Take(), nullptr);
    second.reset();
    EXPECT_NE(other.Take(), nullptr);
}

TEST_F(WorkLockTest, OutlivesItsObjectWithItsHolder) {
    auto held = Lock().Take();
    EXPECT_EQ(Lock().Take(), nullptr);
    held.reset();
    EXPECT_NE(Lock().Take(), nullptr);
}

TEST_F(WorkLockTest, WithoutAPlaceForItsFileEverybodyGetsOne) {
    const WorkLock lock([this] { return folder_.Path() / "gone" / "lock"; });
    const auto held = lock.Take();
    EXPECT_NE(held, nullptr);
    const WorkLock none([] { return std::filesystem::path(); });
    EXPECT_NE(none.Take(), nullptr);
    EXPECT_NE(none.Take(), nullptr);
}

}  // namespace
}  // namespace quorvi
