#include <gtest/gtest.h>

#include <iterator>

#include "base/os/WholeFile.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

std::ptrdiff_t EntriesOf(const std::filesystem::path& folder) {
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

TEST(WholeFile, IsThereOnceItIsCommitted) {
    const TemporaryFolder folder;
    const std::filesystem::path file = folder.Path() / "a";
    ASSERT_TRUE(ReplaceFile(file, "old"));
    WholeFile whole(file);
    whole.Append("one, ");
    whole.Append("two");
    EXPECT_EQ(ReadSmallFile(file), "old");
    EXPECT_FALSE(whole.Commit());
    EXPECT_EQ(ReadSmallFile(file), "one, two");
    EXPECT_EQ(EntriesOf(folder.Path()), 1);
}

TEST(WholeFile, LeavesNothingWithoutACommit) {
    const TemporaryFolder folder;
    {
        WholeFile whole(folder.Path() / "a");
        whole.Append("one");
    }
    EXPECT_EQ(EntriesOf(folder.Path()), 0);
}

TEST(WholeFile, MakesNoFolder) {
    const TemporaryFolder folder;
    WholeFile whole(folder.Path() / "none" / "a");
    whole.Append("one");
    EXPECT_EQ(whole.Error(), std::errc::no_such_file_or_directory);
    EXPECT_EQ(whole.Commit(), std::errc::no_such_file_or_directory);
}

TEST(WholeFile, AFullDiskLeavesTheFileAsItWas) {
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "no /dev/full";
    }
    const TemporaryFolder folder;
    std::filesystem::create_symlink("/dev/full", folder.Path() / "a.quorvi-part");
    {
        WholeFile whole(folder.Path() / "a");
        whole.Append("one");
        EXPECT_EQ(whole.Error(), std::errc::no_space_on_device);
        EXPECT_EQ(whole.Commit(), std::errc::no_space_on_device);
    }
    EXPECT_EQ(EntriesOf(folder.Path()), 0);
}

}  // namespace
}  // namespace quorvi
