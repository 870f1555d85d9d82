#include <gtest/gtest.h>

#include <iterator>
#include <string>

#include "base/os/SmallFile.h"
#include "tests/support/SmallDisk.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

std::ptrdiff_t EntriesOf(const std::filesystem::path& folder) {
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

TEST(SmallFile, WriteWholePutsAllBytesThereAndNothingBeside) {
    const TemporaryFolder folder;
    const std::filesystem::path file = folder.Path() / "a";
    const std::string bytes("\0\xFF\n", 3);
    EXPECT_FALSE(WriteWhole(file, "longer than what follows"));
    EXPECT_FALSE(WriteWhole(file, bytes));
    EXPECT_EQ(ReadSmallFile(file), bytes);
    EXPECT_EQ(EntriesOf(folder.Path()), 1);
}

TEST(SmallFile, WriteWholeMakesNoFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(WriteWhole(folder.Path() / "none" / "a", "x"), std::errc::no_such_file_or_directory);
    EXPECT_EQ(EntriesOf(folder.Path()), 0);
}

TEST(SmallFile, WriteWholeOntoAFolderLeavesItAsItWas) {
    const TemporaryFolder folder;
    const std::filesystem::path inner = folder.Path() / "inner";
    std::filesystem::create_directory(inner);
    EXPECT_EQ(WriteWhole(inner, "x"), std::errc::is_a_directory);
    EXPECT_TRUE(std::filesystem::is_directory(inner));
    EXPECT_EQ(EntriesOf(folder.Path()), 1);
}

TEST(SmallFile, WriteWholeSaysThatTheDiskIsFull) {
    const SmallDisk disk(64 * 1024);
    if (!disk.IsThere()) {
        GTEST_SKIP() << "no namespace to mount in";
    }
    EXPECT_EQ(WriteWhole(disk.Path() / "a", std::string(256 * 1024, 'x')),
              std::errc::no_space_on_device);
    EXPECT_EQ(EntriesOf(disk.Path()), 0);
}

TEST(SmallFile, ReplaceFileMakesTheFolder) {
    const TemporaryFolder folder;
    EXPECT_TRUE(ReplaceFile(folder.Path() / "new" / "a", "x"));
    EXPECT_EQ(ReadSmallFile(folder.Path() / "new" / "a"), "x");
}

}  // namespace
}  // namespace quorvi
