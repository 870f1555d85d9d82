// Backups that somebody made to do harm, or that a disk has spoilt: each is refused with its
// reason.
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <zip.h>

#include <fstream>
#include <functional>

#include "backup/BackupReader.h"
#include "backup/BackupWriter.h"
#include "backup/Sha256.h"
#include "base/Text.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

using std::filesystem::path;
using testing::HasSubstr;

constexpr const char* kFile = "calls.csv";

std::string ManifestText(const std::string& bytes, std::uint64_t claimed) {
    Manifest manifest;
    manifest.kinds = {{BackupKind::calls, 1, "", {{kFile, claimed, Sha256Hex(bytes)}}}};
    return WriteManifest(manifest);
}
std::string ManifestText(const std::string& bytes) {
    return ManifestText(bytes, bytes.size());
}

// Why a backup is refused, in UTF-8; empty when it is not.
std::string WhyRefused(const path& backup) {
    const OpenedBackup opened = BackupReader::Open(backup);
    return ToUtf8(opened.reader ? opened.reader->Verify(StopSignal()) : opened.why);
}

class HostileBackup : public testing::Test {
  protected:
    struct Member {
        std::string name;
        std::string bytes;
        std::function<void(zip_t*, zip_uint64_t)> change{};
    };

    path Zip(const std::vector<Member>& members) {
        path file = folder_.Path() / "x.zip";
        int code = 0;
        zip_t* zip = zip_open(file.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &code);
        for (const Member& member : members) {
            zip_source_t* source =
                zip_source_buffer(zip, member.bytes.data(), member.bytes.size(), 0);
            const zip_int64_t index = zip_file_add(zip, member.name.c_str(), source, 0);
            if (index >= 0 && member.change) {
                member.change(zip, static_cast<zip_uint64_t>(index));
            }
        }
        EXPECT_EQ(zip_close(zip), 0);
        return file;
    }

    path Folder(const std::string& manifest, const std::string& bytes) {
        path folder = folder_.Path() / "x";
        std::filesystem::create_directory(folder);
        std::ofstream(folder / "manifest.json", std::ios::binary) << manifest;
        std::ofstream(folder / kFile, std::ios::binary) << bytes;
        return folder;
    }

    TemporaryFolder folder_;
};

TEST_F(HostileBackup, AGoodOneIsNotRefused) {
    EXPECT_EQ(WhyRefused(Zip({{"manifest.json", ManifestText("x")}, {kFile, "x"}})), "");
    EXPECT_EQ(WhyRefused(Folder(ManifestText("x"), "x")), "");
}

TEST_F(HostileBackup, AZipWithANameThatLeadsOutsideIsRefused) {
    for (const char* name :
         {"../evil.txt", "a/../../evil.txt", "/etc/evil.txt", "..", "c:evil.txt", "..\\evil.txt"}) {
        EXPECT_THAT(
            WhyRefused(Zip({{"manifest.json", ManifestText("x")}, {kFile, "x"}, {name, "y"}})),
            HasSubstr("指向备份之外"))
            << name;
    }
}

TEST_F(HostileBackup, AZipWithALinkIsRefused) {
    const auto makeLink = [](zip_t* zip, zip_uint64_t index) {
        zip_file_set_external_attributes(zip, index, 0, ZIP_OPSYS_UNIX, 0120777u << 16u);
    };
    EXPECT_THAT(WhyRefused(Zip({{"manifest.json", ManifestText("/etc/passwd")},
                                {kFile, "/etc/passwd", makeLink}})),
                HasSubstr("链接"));
}

TEST_F(HostileBackup, AFolderWithALinkIsRefused) {
    const path folder = Folder(ManifestText("x"), "x");
    std::filesystem::remove(folder / kFile);
    std::filesystem::create_symlink("/etc/passwd", folder / kFile);
    EXPECT_THAT(WhyRefused(folder), HasSubstr("链接"));
    std::filesystem::rename(folder / "manifest.json", folder / "real.json");
    std::filesystem::create_symlink("real.json", folder / "manifest.json");
    EXPECT_THAT(WhyRefused(folder), HasSubstr("链接"));
}

TEST_F(HostileBackup, APipeInTheFolderIsNotWaitedFor) {
    const path folder = Folder(ManifestText("x"), "x");
    std::filesystem::remove(folder / "manifest.json");
    ASSERT_EQ(mkfifo((folder / "manifest.json").c_str(), 0600), 0);
    EXPECT_THAT(WhyRefused(folder), HasSubstr("不是普通文件"));
}

TEST_F(HostileBackup, ABombIsRefusedBeforeItIsUnpacked) {
    const std::string zeros(65 * 1024 * 1024, '\0');
    EXPECT_THAT(WhyRefused(Zip({{"manifest.json", ManifestText(zeros)}, {kFile, zeros}})),
                HasSubstr("大得不像备份"));
}

TEST_F(HostileBackup, ASmallFileMayPackAsWellAsItLikes) {
    const std::string note(1024 * 1024, 'g');
    EXPECT_EQ(WhyRefused(Zip({{"manifest.json", ManifestText(note)}, {kFile, note}})), "");
}

TEST_F(HostileBackup, AManifestInAZipThatIsLargerThanItsLimitIsRefused) {
    const std::string text = ManifestText("x") + std::string(2 * kMostManifestBytes, ' ');
    const auto store = [](zip_t* zip, zip_uint64_t index) {
        zip_set_file_compression(zip, index, ZIP_CM_STORE, 0);
    };
    EXPECT_EQ(WhyRefused(Zip({{"manifest.json", text, store}, {kFile, "x"}})), "备份的清单太大");
}

TEST_F(HostileBackup, AManifestOfAGigabyteIsRefusedWithoutReadingIt) {
    const path folder = Folder(ManifestText("x"), "x");
    std::filesystem::resize_file(folder / "manifest.json", 1024ull * 1024 * 1024);
    EXPECT_EQ(WhyRefused(folder), "备份的清单太大");
}

TEST_F(HostileBackup, AWrongSumIsRefused) {
    EXPECT_THAT(WhyRefused(Zip({{"manifest.json", ManifestText("x")}, {kFile, "y"}})),
                HasSubstr("校验值不同"));
    EXPECT_THAT(WhyRefused(Folder(ManifestText("x"), "y")), HasSubstr("校验值不同"));
}

TEST_F(HostileBackup, AWrongLengthIsRefused) {
    EXPECT_THAT(WhyRefused(Zip({{"manifest.json", ManifestText("x", 2)}, {kFile, "x"}})),
                HasSubstr("长度和清单里的不同"));
    EXPECT_THAT(WhyRefused(Folder(ManifestText("x"), "xy")), HasSubstr("长度和清单里的不同"));
}

TEST_F(HostileBackup, AFileThatIsMissingIsNamed) {
    EXPECT_THAT(WhyRefused(Zip({{"manifest.json", ManifestText("x")}})),
                HasSubstr("calls.csv: 备份里缺少这个文件"));
    const path folder = Folder(ManifestText("x"), "x");
    std::filesystem::remove(folder / kFile);
    EXPECT_THAT(WhyRefused(folder), HasSubstr("calls.csv: 备份里缺少这个文件"));
}

TEST_F(HostileBackup, OneWithoutAManifestIsNone) {
    EXPECT_THAT(WhyRefused(Zip({{kFile, "x"}})), HasSubstr("不是备份"));
    const path folder = Folder("", "x");
    std::filesystem::remove(folder / "manifest.json");
    EXPECT_THAT(WhyRefused(folder), HasSubstr("不是备份"));
}

TEST_F(HostileBackup, AZipWithAFileThatTheManifestDoesNotNameIsRefused) {
    EXPECT_THAT(
        WhyRefused(Zip({{"manifest.json", ManifestText("x")}, {kFile, "x"}, {"extra.csv", "y"}})),
        HasSubstr("清单没有写"));
}

TEST_F(HostileBackup, AZipWithTooManyFilesIsRefused) {
    std::vector<Member> members{{"manifest.json", ManifestText("x")}};
    for (int i = 0; i < 70; ++i) {
        members.push_back({"f" + std::to_string(i) + ".csv", "x"});
    }
    EXPECT_THAT(WhyRefused(Zip(members)), HasSubstr("文件太多"));
}

TEST_F(HostileBackup, AZipThatIsCutAnywhereIsRefused) {
    const path zip = Zip({{"manifest.json", ManifestText("some calls")}, {kFile, "some calls"}});
    const auto whole = std::filesystem::file_size(zip);
    for (auto length = whole; length-- > 0;) {
        std::filesystem::resize_file(zip, length);
        EXPECT_NE(WhyRefused(zip), "") << length;
    }
}

TEST_F(HostileBackup, AZipWithAnyByteOfItsFilesChangedIsRefused) {
    const std::string bytes(300, 'q');
    const path zip = Zip({{"manifest.json", ManifestText(bytes)},
                          {kFile, bytes, [](zip_t* archive, zip_uint64_t index) {
                               zip_set_file_compression(archive, index, ZIP_CM_STORE, 0);
                           }}});
    std::fstream file(zip, std::ios::in | std::ios::out | std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(file), {});
    const auto at = text.find(bytes);
    ASSERT_NE(at, std::string::npos);
    file.seekp(static_cast<std::streamoff>(at + 150));
    file.put('r');
    file.close();
    EXPECT_NE(WhyRefused(zip), "");
}

TEST_F(HostileBackup, SomethingElseIsNoBackup) {
    std::ofstream(folder_.Path() / "x.zip") << "hello";
    EXPECT_EQ(WhyRefused(folder_.Path() / "x.zip"), "不是 zip 文件");
    EXPECT_EQ(WhyRefused(folder_.Path() / "missing"), "没有这个备份");
    EXPECT_EQ(WhyRefused("/dev/zero"), "没有这个备份");
}

}  // namespace
}  // namespace quorvi
