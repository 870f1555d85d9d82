#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <iterator>
#include <string>

#include "base/os/WholeFile.h"
#include "tests/support/SmallDisk.h"
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
    const SmallDisk disk(256 * 1024);
    if (!disk.IsThere()) {
        GTEST_SKIP() << "no namespace to mount in";
    }
    const std::filesystem::path file = disk.Path() / "a";
    ASSERT_TRUE(ReplaceFile(file, "old"));
    {
        WholeFile whole(file);
        whole.Append(std::string(512 * 1024, 'x'));
        EXPECT_EQ(whole.Error(), std::errc::no_space_on_device);
        EXPECT_EQ(whole.Commit(), std::errc::no_space_on_device);
    }
    EXPECT_EQ(ReadSmallFile(file), "old");
    EXPECT_EQ(EntriesOf(disk.Path()), 1);
}

TEST(WholeFile, TwoWritersOfOneFileDoNotMix) {
    const TemporaryFolder folder;
    const std::filesystem::path file = folder.Path() / "a";
    {
        WholeFile first(file);
        first.Append("first, ");
        WholeFile second(file);
        second.Append("second");
        first.Append("and all of it");
        EXPECT_FALSE(first.Commit());
        EXPECT_EQ(ReadSmallFile(file), "first, and all of it");
        EXPECT_FALSE(second.Commit());
    }
    EXPECT_EQ(ReadSmallFile(file), "second");
    EXPECT_EQ(EntriesOf(folder.Path()), 1);
}

TEST(WholeFile, TakesOverWhatAKilledWriterHasLeft) {
    const TemporaryFolder folder;
    std::ofstream(folder.Path() / "a.quorvi-part") << "half of what was longer";
    WholeFile whole(folder.Path() / "a");
    whole.Append("new");
    EXPECT_FALSE(whole.Commit());
    EXPECT_EQ(ReadSmallFile(folder.Path() / "a"), "new");
    EXPECT_EQ(EntriesOf(folder.Path()), 1);
}

TEST(WholeFile, ALinkInThePlaceOfItsPartIsNotFollowed) {
    const TemporaryFolder folder;
    std::ofstream(folder.Path() / "precious") << "mine";
    std::filesystem::create_symlink("precious", folder.Path() / "a.quorvi-part");
    ASSERT_EQ(mkfifo((folder.Path() / "a.quorvi-part2").c_str(), S_IRWXU), 0);
    WholeFile whole(folder.Path() / "a");
    whole.Append("new");
    EXPECT_FALSE(whole.Commit());
    EXPECT_EQ(ReadSmallFile(folder.Path() / "precious"), "mine");
    EXPECT_EQ(ReadSmallFile(folder.Path() / "a"), "new");
}

}  // namespace
}  // namespace quorvi
