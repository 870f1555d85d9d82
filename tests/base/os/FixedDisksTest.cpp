#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/os/FixedDisks.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The words of a line: its number, the number above it, the device, the folder of the file system
// that hangs there, where it hangs, how, any number of tags, a dash, the type, the source, options.
constexpr const char* kRoot = "27 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw,discard\n";

TEST(ParseMountedDisks, GivesEachDiskWithItsPlaceInTheOrderOfTheList) {
    EXPECT_THAT(
        ParseMountedDisks(std::string(kRoot) + "40 27 8:17 / /srv/data rw - xfs /dev/sdb1 rw\n"),
        ElementsAre(MountedDisk{"8:1", "/"}, MountedDisk{"8:17", "/srv/data"}));
}

TEST(ParseMountedDisks, LeavesOutWhatIsNoDisk) {
    EXPECT_THAT(ParseMountedDisks("22 27 0:21 / /proc rw - proc proc rw\n"
                                  "25 24 0:23 / /dev/shm rw - tmpfs tmpfs rw\n"
                                  "30 27 0:40 / /net rw - nfs host:/files rw\n"
                                  "31 27 7:0 / /snap rw - squashfs /dev/loop0 rw\n"
                                  "32 27 11:0 / /cd rw - iso9660 /dev/sr0 rw\n"),
                IsEmpty());
}

TEST(ParseMountedDisks, LeavesOutADiskThatMayOnlyBeRead) {
    EXPECT_THAT(ParseMountedDisks("40 27 8:17 / /srv ro,relatime - ext4 /dev/sdb1 rw\n"),
                IsEmpty());
}

TEST(ParseMountedDisks, AnOptionThatOnlyBeginsLikeReadOnlyIsAnother) {
    EXPECT_THAT(ParseMountedDisks("40 27 8:17 / /srv rw,roomy - ext4 /dev/sdb1 rw\n"),
                ElementsAre(MountedDisk{"8:17", "/srv"}));
}

TEST(ParseMountedDisks, ADiskThatHangsInTwoPlacesCountsOnce) {
    EXPECT_THAT(ParseMountedDisks(std::string(kRoot) +
                                  "50 27 8:1 /home /mnt/home rw - ext4 /dev/sda1 rw\n"),
                ElementsAre(MountedDisk{"8:1", "/"}));
}

TEST(ParseMountedDisks, ABlankInAPlaceIsWrittenAsANumber) {
    EXPECT_THAT(ParseMountedDisks("40 27 8:17 / /srv/my\\040disk rw - ext4 /dev/sdb1 rw\n"),
                ElementsAre(MountedDisk{"8:17", "/srv/my disk"}));
}

TEST(ParseMountedDisks, ALineThatEndsEarlyIsNone) {
    EXPECT_THAT(ParseMountedDisks("40 27 8:17 / /srv rw -\n41 27\n\n"), IsEmpty());
}

TEST(FixedDisks, TheOneOfTheHomeFolderCountsAndItsPlaceIsTheHomeFolder) {
    const TemporaryFolder home;
    const auto disks = FixedDisks(home.Path());
    const auto own = std::ranges::find(disks, home.Path(), &FixedDisk::place);
    ASSERT_NE(own, disks.end());
    EXPECT_GT(own->freeBytes, 0u);
}

TEST(FixedDisks, StandInTheOrderOfTheirPaths) {
    const TemporaryFolder home;
    EXPECT_TRUE(std::ranges::is_sorted(FixedDisks(home.Path()), {}, &FixedDisk::place));
}

TEST(FreeBytes, OfAFolderThatIsStillToBeMadeAreThoseAboveIt) {
    const TemporaryFolder folder;
    const auto there = FreeBytes(folder.Path());
    const auto below = FreeBytes(folder.Path() / "a" / "b");
    ASSERT_TRUE(there && below);
    EXPECT_GT(*there, 0u);
    // Others write to the same disk meanwhile.
    EXPECT_NEAR(static_cast<double>(*below), static_cast<double>(*there), 1 << 30);
}

TEST(FreeBytes, OfNothingAreNotKnown) {
    EXPECT_EQ(FreeBytes({}), std::nullopt);
    EXPECT_EQ(FreeBytes("nowhere/at/all"), std::nullopt);
}

}  // namespace
}  // namespace quorvi
