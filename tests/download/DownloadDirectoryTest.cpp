#include <gtest/gtest.h>

#include <fstream>

#include "base/Text.h"
#include "download/DownloadDirectory.h"
#include "tests/support/MemorySettings.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

constexpr std::uint64_t kMegabyte = 1 << 20;

FixedDisk Disk(const std::filesystem::path& place, std::uint64_t megabytes) {
    return {.place = place, .freeBytes = megabytes * kMegabyte};
}

TEST(ChooseDisk, TheOneWithTheMostRoomWins) {
    const FixedDisk disks[] = {Disk("/a", 900), Disk("/b", 2000), Disk("/c", 1000)};
    EXPECT_EQ(ChooseDisk(disks), "/b");
}

TEST(ChooseDisk, OfTwoWithTheSameRoomTheLaterOneWins) {
    const FixedDisk disks[] = {Disk("/a", 900), Disk("/b", 900), Disk("/c", 600)};
    EXPECT_EQ(ChooseDisk(disks), "/b");
}

TEST(ChooseDisk, RoomIsTheSameWhereWholeMegabytesAre) {
    const FixedDisk disks[] = {{.place = "/a", .freeBytes = 901 * kMegabyte - 1},
                               {.place = "/b", .freeBytes = 900 * kMegabyte}};
    EXPECT_EQ(ChooseDisk(disks), "/b");
}

TEST(ChooseDisk, OneWithLessThanFiveHundredMegabytesIsNeverChosen) {
    const FixedDisk little[] = {{.place = "/a", .freeBytes = 500 * kMegabyte - 1}};
    EXPECT_EQ(ChooseDisk(little), "");
    const FixedDisk enough[] = {Disk("/a", 500)};
    EXPECT_EQ(ChooseDisk(enough), "/a");
}

TEST(ChooseDisk, OfNoneIsNone) {
    EXPECT_EQ(ChooseDisk({}), "");
}

class DownloadDirectoryTest : public testing::Test {
  protected:
    [[nodiscard]] std::filesystem::path Directory() {
        return DownloadDirectory(settings_, [this] {
            ++chosen_;
            return std::vector{Disk(disk_.Path(), room_)};
        });
    }
    [[nodiscard]] std::optional<std::string> Stored() const {
        return settings_.ReadText("Software\\Quorvi", "DownloadPath");
    }
    void Store(const std::filesystem::path& folder) {
        settings_.WriteText("Software\\Quorvi", "DownloadPath", ToAnsi(folder.native()));
    }

    TemporaryFolder disk_;
    MemorySettings settings_;
    std::uint64_t room_ = 1000;
    int chosen_ = 0;
};

TEST_F(DownloadDirectoryTest, IsTheStoredOneWhereItExists) {
    Store(disk_.Path());
    EXPECT_EQ(Directory(), disk_.Path());
    EXPECT_EQ(chosen_, 0);
}

TEST_F(DownloadDirectoryTest, WithoutAStoredOneOneIsChosenMadeAndStored) {
    EXPECT_EQ(Directory(), disk_.Path() / "QuorviDownload");
    EXPECT_TRUE(std::filesystem::is_directory(disk_.Path() / "QuorviDownload"));
    EXPECT_EQ(Stored(), (disk_.Path() / "QuorviDownload").native());
}

TEST_F(DownloadDirectoryTest, AStoredOneThatHasBeenRemovedLeadsToANewChoice) {
    Store(disk_.Path() / "gone");
    EXPECT_EQ(Directory(), disk_.Path() / "QuorviDownload");
    EXPECT_EQ(Stored(), (disk_.Path() / "QuorviDownload").native());
}

TEST_F(DownloadDirectoryTest, AFileUnderTheStoredNameIsNoFolder) {
    std::ofstream(disk_.Path() / "file") << "x";
    Store(disk_.Path() / "file");
    EXPECT_EQ(Directory(), disk_.Path() / "QuorviDownload");
}

TEST_F(DownloadDirectoryTest, WithoutADiskThatHasRoomThereIsNone) {
    room_ = 499;
    EXPECT_EQ(Directory(), "");
    EXPECT_EQ(Stored(), std::nullopt);
}

TEST_F(DownloadDirectoryTest, OneThatCannotBeMadeIsNoneAndIsNotStored) {
    std::ofstream(disk_.Path() / "QuorviDownload") << "in the way";
    EXPECT_EQ(Directory(), "");
    EXPECT_EQ(Stored(), std::nullopt);
}

TEST_F(DownloadDirectoryTest, KeepingOneMakesItWithItsParents) {
    EXPECT_TRUE(KeepDownloadDirectory(settings_, disk_.Path() / "a" / "下载"));
    EXPECT_TRUE(std::filesystem::is_directory(disk_.Path() / "a" / "下载"));
    EXPECT_EQ(StoredDownloadDirectory(settings_), disk_.Path() / "a" / "下载");
}

TEST_F(DownloadDirectoryTest, APathThatIsNotWholeIsNotKept) {
    EXPECT_FALSE(KeepDownloadDirectory(settings_, "somewhere"));
    EXPECT_FALSE(KeepDownloadDirectory(settings_, {}));
    EXPECT_FALSE(std::filesystem::exists("somewhere"));
    EXPECT_EQ(Stored(), std::nullopt);
}

// Tasks keep their folder in the code page: under a name that does not fit it no file was found.
TEST_F(DownloadDirectoryTest, APathThatDoesNotFitTheCodePageIsNotKept) {
    EXPECT_FALSE(KeepDownloadDirectory(settings_, disk_.Path() / "\xF0\x9F\x98\x80\xEE\x80"));
    EXPECT_EQ(Stored(), std::nullopt);
}

TEST_F(DownloadDirectoryTest, ReadingTheStoredOneMakesNothing) {
    EXPECT_EQ(StoredDownloadDirectory(settings_), "");
    Store(disk_.Path() / "gone");
    EXPECT_EQ(StoredDownloadDirectory(settings_), disk_.Path() / "gone");
    EXPECT_FALSE(std::filesystem::exists(disk_.Path() / "gone"));
}

}  // namespace
}  // namespace quorvi
