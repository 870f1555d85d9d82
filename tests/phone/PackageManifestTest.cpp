#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "base/ByteText.h"
#include "phone/PackageManifest.h"
#include "tests/phone/MadePackage.h"
#include "tests/support/BuildPlaces.h"

namespace quorvi::phone {
namespace {

TEST(PackageManifest, SaysThePackageAndItsVersion) {
    const auto manifest = ReadPackageManifest(MadePackage("com.example.bus", 23));
    ASSERT_TRUE(manifest);
    EXPECT_EQ(manifest->package, "com.example.bus");
    EXPECT_EQ(manifest->version, 23u);
}

TEST(PackageManifest, OfTheAgentsOwnPackageIsVersion20) {
    std::ifstream file(QUORVI_SOURCE_DIR "/phone/com.quorvi.Quorvi.apk", std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    const auto manifest = ReadPackageManifest(ToBytes(bytes));
    ASSERT_TRUE(manifest);
    EXPECT_EQ(manifest->package, "com.quorvi.Quorvi");
    EXPECT_EQ(manifest->version, 20u);
}

TEST(PackageManifest, MayHaveItsTextsInUtf8) {
    const auto manifest = ReadPackageManifest(MadePackage("com.example.bus", 23, {.utf8 = true}));
    ASSERT_TRUE(manifest);
    EXPECT_EQ(manifest->package, "com.example.bus");
    EXPECT_EQ(manifest->version, 23u);
}

TEST(PackageManifest, OfACompressedOneThereIsNone) {
    EXPECT_FALSE(ReadPackageManifest(MadePackage("com.example.bus", 23, {.compressed = true})));
}

TEST(PackageManifest, OfNoNameOrNoVersionThereIsNone) {
    EXPECT_FALSE(ReadPackageManifest(MadePackage("", 23)));
    EXPECT_FALSE(ReadPackageManifest(MadePackage("com.example.bus", 0)));
}

TEST(PackageManifest, OfOtherFilesThereIsNone) {
    EXPECT_FALSE(ReadPackageManifest({}));
    EXPECT_FALSE(ReadPackageManifest(ToBytes("PK\x03\x04")));
    EXPECT_FALSE(ReadPackageManifest(ToBytes("notes")));
}

TEST(PackageManifest, OfAFileThatBreaksOffAnywhereThereIsNone) {
    const Bytes whole = MadePackage("com.example.bus", 23);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_FALSE(ReadPackageManifest(std::span(whole).first(size))) << size;
    }
}

TEST(PackageManifest, IsReadWhateverByteIsAnother) {
    Bytes package = MadePackage("com.example.bus", 23);
    for (std::byte& one : package) {
        const std::byte before = one;
        for (const int value : {0, 0x80, 0xFF}) {
            one = static_cast<std::byte>(value);
            const auto manifest = ReadPackageManifest(package);
            EXPECT_TRUE(!manifest || manifest->package.size() <= package.size());
        }
        one = before;
    }
    EXPECT_TRUE(ReadPackageManifest(package));
}

}  // namespace
}  // namespace quorvi::phone
