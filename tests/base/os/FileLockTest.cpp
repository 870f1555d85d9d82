#include <gtest/gtest.h>

#include <optional>

#include "base/os/FileLock.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

TEST(FileLock, WhoDoesNotWaitIsToldThatItIsBusy) {
    const TemporaryFolder folder;
    const auto file = folder.Path() / "lock";
    std::optional<FileLock> first(std::in_place, file, FileLock::Wait::never);
    EXPECT_TRUE(first->IsHeld());
    EXPECT_FALSE(first->IsBusy());
    const FileLock second(file, FileLock::Wait::never);
    EXPECT_FALSE(second.IsHeld());
    EXPECT_TRUE(second.IsBusy());
    first.reset();
    EXPECT_TRUE(FileLock(file, FileLock::Wait::never).IsHeld());
}

TEST(FileLock, AFileThatCannotBeMadeIsNotBusy) {
    const TemporaryFolder folder;
    const FileLock lock(folder.Path() / "gone" / "lock", FileLock::Wait::never);
    EXPECT_FALSE(lock.IsHeld());
    EXPECT_FALSE(lock.IsBusy());
}

}  // namespace
}  // namespace quorvi
