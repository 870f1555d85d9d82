#include <gmock/gmock.h>

#include "backup/Manifest.h"
#include "backup/Sha256.h"
#include "base/Text.h"

namespace quorvi {
namespace {

using testing::HasSubstr;

Manifest Sample() {
    Manifest manifest;
    manifest.phone = Ansi(u8"青鸟 X1");
    manifest.made = 1'308'361'330;
    manifest.kinds = {
        {BackupKind::contacts, 2, Sha256Hex("content"), {{"contacts.vcf", 17, Sha256Hex("file")}}},
        {BackupKind::phone, 1, "", {{"phone.json", 3, Sha256Hex("abc")}}}};
    manifest.skippedCount = 1;
    manifest.skipped = {{BackupKind::contacts, Ansi(u8"周子衿"), Ansi(u8"读不懂")}};
    return manifest;
}

std::string Changed(const std::string& from, const std::string& to) {
    const std::string text = WriteManifest(Sample());
    EXPECT_THAT(text, HasSubstr(from));
    return ReplaceAll(text, from, to);
}

void ExpectRefused(const std::string& text, std::u8string_view why) {
    const ManifestRead read = ReadManifest(text);
    EXPECT_FALSE(read.manifest);
    EXPECT_EQ(ToUtf8(read.why), ToUtf8(Ansi(why)));
}

TEST(Manifest, ReadsBackWhatItWrote) {
    const ManifestRead read = ReadManifest(WriteManifest(Sample()));
    ASSERT_TRUE(read.manifest) << ToUtf8(read.why);
    EXPECT_EQ(*read.manifest, Sample());
}

TEST(Manifest, AnotherVersionIsRefused) {
    ExpectRefused(Changed("\"version\" : 1", "\"version\" : 2"),
                  u8"备份的格式不是这个版本能读的，请换用新版本");
}

TEST(Manifest, NoJsonIsRefused) {
    ExpectRefused("{\"version\": 1,", u8"备份的清单读不懂");
    ExpectRefused("[1]", u8"备份的清单读不懂");
    ExpectRefused("", u8"备份的清单读不懂");
}

TEST(Manifest, OneLargerThanTheLimitIsRefusedUnread) {
    ExpectRefused(WriteManifest(Sample()) + std::string(kMostManifestBytes, ' '),
                  u8"备份的清单太大");
}

TEST(Manifest, ADeeplyNestedOneIsRefused) {
    ExpectRefused(std::string(100'000, '['), u8"备份的清单读不懂");
}

TEST(Manifest, ANameThatLeadsOutOfTheBackupIsRefused) {
    for (const char* name :
         {"../contacts.vcf", "/etc/passwd.txt", "a/b.vcf", "..", ".", "", "contacts", ".vcf", "a.",
          "Contacts.vcf", "a\\\\b.vcf", "c:a.vcf", "manifest.json", "a..b"}) {
        ExpectRefused(Changed("contacts.vcf", name), u8"备份的清单里有不能用的文件名");
    }
}

TEST(Manifest, AFileNamedTwiceIsRefused) {
    ExpectRefused(Changed("phone.json", "contacts.vcf"), u8"备份的清单里的文件重复或者太多");
}

TEST(Manifest, AKindNamedTwiceIsRefused) {
    ExpectRefused(Changed("\"kind\" : \"phone\"", "\"kind\" : \"contacts\""),
                  u8"备份的清单里有不认识的或重复的内容");
}

TEST(Manifest, AKindThatNobodyKnowsIsRefused) {
    ExpectRefused(Changed("\"kind\" : \"phone\"", "\"kind\" : \"photos\""),
                  u8"备份的清单里有不认识的或重复的内容");
}

TEST(Manifest, ASumThatIsNoneIsRefused) {
    ExpectRefused(Changed(Sha256Hex("abc"), "abc"), u8"备份的清单读不懂");
    ExpectRefused(Changed(Sha256Hex("content"), std::string(64, 'G')), u8"备份的清单读不懂");
}

TEST(Manifest, ALengthThatNoFileHasIsRefused) {
    ExpectRefused(Changed("\"bytes\" : 17", "\"bytes\" : -1"), u8"备份的清单读不懂");
    ExpectRefused(Changed("\"bytes\" : 17", "\"bytes\" : 17179869185"), u8"备份的清单读不懂");
}

TEST(Manifest, MoreSkippedThanCountedIsRefused) {
    ExpectRefused(Changed("\"skipped_count\" : 1", "\"skipped_count\" : 0"), u8"备份的清单读不懂");
}

TEST(Manifest, TooManyFilesAreRefused) {
    Manifest manifest = Sample();
    for (std::size_t i = 0; i < kMostBackupFiles; ++i) {
        manifest.kinds[0].files.push_back({"f" + std::to_string(i) + ".json", 1, Sha256Hex("x")});
    }
    ExpectRefused(WriteManifest(manifest), u8"备份的清单里的文件重复或者太多");
}

TEST(Sha256, IsThatOfTheStandard) {
    EXPECT_EQ(Sha256Hex("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(Sha256Hex(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

TEST(Sha256, OfPiecesIsThatOfTheWhole) {
    Sha256 sum;
    sum.Add("a");
    sum.Add("");
    sum.Add("bc");
    EXPECT_EQ(sum.Hex(), Sha256Hex("abc"));
}

}  // namespace
}  // namespace quorvi
