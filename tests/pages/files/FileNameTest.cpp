#include <gtest/gtest.h>

#include "base/Text.h"
#include "pages/files/FileName.h"

namespace quorvi {
namespace {

void ExpectParts(std::string_view path, std::string_view name, std::string_view extension) {
    const FileNameParts parts = SplitFileName(path);
    EXPECT_EQ(parts.name, name) << path;
    EXPECT_EQ(parts.extension, extension) << path;
}

TEST(FileName, LosesItsFoldersAndItsExtension) {
    ExpectParts("/sdcard/DCIM/Camera/IMG_20110617.jpg", "IMG_20110617", ".jpg");
}

TEST(FileName, WithoutAnExtensionIsWhole) {
    ExpectParts("/sdcard/data", "data", "");
    ExpectParts("data", "data", "");
}

TEST(FileName, WithSeveralDotsLosesOnlyTheLastPart) {
    ExpectParts("/sdcard/com.example.weather.apk", "com.example.weather", ".apk");
    ExpectParts("/sdcard/backup.tar.gz", "backup.tar", ".gz");
    ExpectParts("/sdcard/a..b", "a.", ".b");
}

TEST(FileName, ALeadingDotLeavesNoName) {
    ExpectParts("/sdcard/.nomedia", "", ".nomedia");
    ExpectParts("/sdcard/.config.xml", ".config", ".xml");
}

TEST(FileName, ADotAtItsEndIsAnExtensionOfNothing) {
    ExpectParts("/sdcard/name.", "name", ".");
    ExpectParts("/sdcard/..", ".", ".");
    ExpectParts("/sdcard/.", "", ".");
}

TEST(FileName, OfAFolderIsCutLikeThatOfAFile) {
    ExpectParts("/sdcard/LOST.DIR", "LOST", ".DIR");
}

TEST(FileName, ADotInAFolderIsNoExtension) {
    ExpectParts("/sdcard/v1.2/readme", "readme", "");
}

TEST(FileName, BackslashesSeparateToo) {
    ExpectParts("C:\\dir.d\\a.txt", "a", ".txt");
    ExpectParts("/sdcard/a\\b.txt", "b", ".txt");
}

TEST(FileName, ADrivesLetterCountsForNothing) {
    ExpectParts("C:a.txt", "a", ".txt");
    ExpectParts("C:", "", "");
}

TEST(FileName, OfAPathThatEndsInASeparatorIsEmpty) {
    ExpectParts("/sdcard/", "", "");
    ExpectParts("/", "", "");
    ExpectParts("", "", "");
}

// Of the two bytes of 乗 the second is that of a backslash.
TEST(FileName, ACharactersSecondByteIsNoSeparator) {
    const std::string name = Ansi(u8"乗车.表");
    ASSERT_EQ(name[1], '\\');
    ExpectParts("/sdcard/" + name + ".txt", name, ".txt");
}

TEST(FileName, AFirstByteAtTheEndEndsIt) {
    ExpectParts("/a.b\x81", "a", ".b\x81");
}

}  // namespace
}  // namespace quorvi
