#include <gmock/gmock.h>
#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <thread>

#include "backup/BackupReader.h"
#include "backup/BackupWriter.h"
#include "base/Text.h"
#include "base/os/SmallFile.h"
#include "tests/support/SmallDisk.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

using std::filesystem::path;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::vector<std::string> NamesIn(const path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename().native());
    }
    std::ranges::sort(names);
    return names;
}

Manifest ManifestOf(std::vector<BackedUpFile> files) {
    Manifest manifest;
    manifest.phone = "x";
    manifest.kinds = {{BackupKind::calls, 1, "", std::move(files)}};
    return manifest;
}

// A backup of one file.
std::error_code WriteBackup(const path& target, std::string_view bytes,
                            const StopSignal& stop = StopSignal()) {
    BackupWriter writer(target);
    if (writer.Error()) {
        return writer.Error();
    }
    BackupFile file = writer.Begin("calls.csv");
    file.Write(bytes);
    const BackedUpFile written = file.Close();
    return file.Error() ? file.Error() : writer.Finish(ManifestOf({written}), stop);
}

// For a folder and for a .zip.
class BackupTarget : public testing::TestWithParam<const char*> {
  protected:
    [[nodiscard]] path Target() const { return folder_.Path() / GetParam(); }
    TemporaryFolder folder_;
};

INSTANTIATE_TEST_SUITE_P(Each, BackupTarget, testing::Values("phone", "phone.zip", "phone.ZIP"),
                         [](const auto& test) { return ReplaceAll(test.param, ".", ""); });

TEST_P(BackupTarget, PiecesOfEverySizeComeInTheirOrder) {
    std::string bytes;
    BackupWriter writer(Target());
    BackupFile file = writer.Begin("calls.csv");
    // From less than what waits for others to more than what is sent to the disk at a time.
    for (std::size_t size = 1; size < 6'000'000; size = size * 3 + 1) {
        const std::string piece(size, static_cast<char>('a' + bytes.size() % 26));
        file.Write(piece);
        bytes += piece;
    }
    const BackedUpFile written = file.Close();
    EXPECT_EQ(written.bytes, bytes.size());
    ASSERT_EQ(writer.Finish(ManifestOf({written}), StopSignal()), std::error_code());
    const OpenedBackup opened = BackupReader::Open(Target());
    ASSERT_TRUE(opened.reader) << ToUtf8(opened.why);
    EXPECT_EQ(opened.reader->Verify(StopSignal()), "");
    std::string why;
    EXPECT_TRUE(opened.reader->ReadWhole(written, bytes.size(), why) == bytes);
}

TEST_P(BackupTarget, IsReadBackAndVerified) {
    const std::string bytes(1'000'000, 'c');
    ASSERT_EQ(WriteBackup(Target(), bytes), std::error_code());
    EXPECT_THAT(NamesIn(folder_.Path()), ElementsAre(GetParam()));
    const OpenedBackup opened = BackupReader::Open(Target());
    ASSERT_TRUE(opened.reader) << ToUtf8(opened.why);
    EXPECT_EQ(opened.reader->Verify(StopSignal()), "");
    std::string why;
    EXPECT_EQ(
        opened.reader->ReadWhole(opened.reader->TheManifest().kinds[0].files[0], 1'000'000, why),
        bytes);
}

TEST_P(BackupTarget, IsTheUsersAlone) {
    ASSERT_EQ(WriteBackup(Target(), "x"), std::error_code());
    struct stat facts {};
    ASSERT_EQ(stat(Target().c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & (S_IRWXG | S_IRWXO), 0u);
}

TEST_P(BackupTarget, WhatHasTheNameAlreadyStays) {
    std::ofstream(Target()) << "mine";
    EXPECT_EQ(WriteBackup(Target(), "x"), std::errc::file_exists);
    EXPECT_EQ(ReadSmallFile(Target()), "mine");
    EXPECT_THAT(NamesIn(folder_.Path()), ElementsAre(GetParam()));
}

TEST_P(BackupTarget, WhatGetsTheNameMeanwhileStays) {
    BackupWriter writer(Target());
    BackupFile file = writer.Begin("calls.csv");
    const BackedUpFile written = file.Close();
    std::filesystem::create_directory(Target());
    EXPECT_EQ(writer.Finish(ManifestOf({written}), StopSignal()), std::errc::file_exists);
    EXPECT_THAT(NamesIn(Target()), IsEmpty());
}

TEST_P(BackupTarget, LeavesNothingWhenItIsNotFinished) {
    {
        BackupWriter writer(Target());
        BackupFile file = writer.Begin("calls.csv");
        file.Write("half");
    }
    EXPECT_THAT(NamesIn(folder_.Path()), IsEmpty());
}

TEST_P(BackupTarget, LeavesNothingWhenItIsStopped) {
    StopSignal stop;
    stop.Stop();
    EXPECT_EQ(WriteBackup(Target(), "x", stop), std::errc::operation_canceled);
    EXPECT_THAT(NamesIn(folder_.Path()), IsEmpty());
}

TEST_P(BackupTarget, TakesAwayWhatAKilledWriterHasLeft) {
    const path left = folder_.Path() / ("." + std::string(GetParam()) + ".quorvi-part");
    std::filesystem::create_directory(left);
    std::ofstream(left / "calls.csv") << "old";
    std::ofstream(left / "manifest.json") << "old";
    ASSERT_EQ(WriteBackup(Target(), "new"), std::error_code());
    EXPECT_THAT(NamesIn(folder_.Path()), ElementsAre(GetParam()));
}

TEST_P(BackupTarget, TakesAwayWhatAKilledWriterHasLeftOfAnotherName) {
    const path left = folder_.Path() / ".Aurora S2 2026-11-22.zip.quorvi-part";
    std::filesystem::create_directory(left);
    std::ofstream(left / "messages.json") << "half";
    BackupWriter another(folder_.Path() / "another.zip");
    ASSERT_EQ(WriteBackup(Target(), "new"), std::error_code());
    EXPECT_THAT(NamesIn(folder_.Path()),
                UnorderedElementsAre(GetParam(), ".another.zip.quorvi-part"));
}

TEST_P(BackupTarget, TwoWritersDoNotMix) {
    BackupWriter first(Target());
    ASSERT_EQ(first.Error(), std::error_code());
    BackupFile file = first.Begin("calls.csv");
    file.Write("first");
    EXPECT_EQ(WriteBackup(Target(), "second"), std::errc::device_or_resource_busy);
    EXPECT_EQ(first.Finish(ManifestOf({file.Close()}), StopSignal()), std::error_code());
}

TEST(BackupWriter, WritersInOneFolderTakeNothingFromEachOther) {
    const TemporaryFolder folder;
    const auto write = [&folder](const std::string& name) {
        for (int i = 0; i < 300; ++i) {
            const path target = folder.Path() / (name + std::to_string(i));
            const std::error_code failed = WriteBackup(target, "x");
            // The other one was looking whether a killed writer had left it.
            EXPECT_TRUE(!failed || failed == std::errc::device_or_resource_busy)
                << failed.message();
            EXPECT_EQ(std::filesystem::exists(target / "calls.csv"), !failed);
        }
    };
    std::thread other([&] { write("other"); });
    write("one");
    other.join();
}

TEST_P(BackupTarget, ALinkInThePlaceOfItsOwnFolderIsNotFollowed) {
    const path elsewhere = folder_.Path() / "elsewhere";
    std::filesystem::create_directory(elsewhere);
    std::ofstream(elsewhere / "precious") << "x";
    std::filesystem::create_directory_symlink(
        elsewhere, folder_.Path() / ("." + std::string(GetParam()) + ".quorvi-part"));
    EXPECT_NE(WriteBackup(Target(), "x"), std::error_code());
    EXPECT_THAT(NamesIn(elsewhere), ElementsAre("precious"));
}

TEST_P(BackupTarget, AFolderThatIsMissingIsTold) {
    EXPECT_EQ(WriteBackup(folder_.Path() / "missing" / GetParam(), "x"),
              std::errc::no_such_file_or_directory);
}

TEST_P(BackupTarget, AFullDiskLeavesNothingUnderItsName) {
    const SmallDisk disk(512 * 1024);
    if (!disk.IsThere()) {
        GTEST_SKIP() << "no namespace to mount in";
    }
    // Bytes that pack badly.
    std::string bytes;
    for (std::uint32_t i = 0; i < 200'000; ++i) {
        bytes += static_cast<char>(i * 2'654'435'761u >> 24u);
    }
    EXPECT_EQ(WriteBackup(disk.Path() / GetParam(), bytes + bytes + bytes),
              std::errc::no_space_on_device);
    EXPECT_THAT(NamesIn(disk.Path()), IsEmpty());
}

TEST(BackupWriter, AZipForWhichThereIsNoRoomLeavesNothingUnderItsName) {
    const SmallDisk disk(512 * 1024);
    if (!disk.IsThere()) {
        GTEST_SKIP() << "no namespace to mount in";
    }
    // The files have room, and the archive beside them has not.
    std::string bytes;
    std::uint32_t state = 1;
    for (std::uint32_t i = 0; i < 380'000; ++i) {
        state = state * 1'664'525u + 1'013'904'223u;
        bytes += static_cast<char>(state >> 24u);
    }
    EXPECT_EQ(WriteBackup(disk.Path() / "phone.zip", bytes), std::errc::no_space_on_device);
    EXPECT_THAT(NamesIn(disk.Path()), IsEmpty());
}

TEST(BackupWriter, AnErrorOfTheDiskSaysWhatToDo) {
    EXPECT_EQ(DiskErrorText(std::make_error_code(std::errc::no_space_on_device)),
              Ansi(u8"磁盘空间不足，请清理磁盘后重试"));
}

TEST(BackupWriter, WhoHasNotChosenTheFolderIsNotToldToChooseAnother) {
    const auto denied = std::make_error_code(std::errc::permission_denied);
    EXPECT_EQ(DiskErrorText(denied), Ansi(u8"没有权限，请换一个文件夹"));
    EXPECT_EQ(DiskErrorText(denied, WhoseFolder::suite),
              Ansi(u8"没有权限，请检查保存个人数据的文件夹"));
}

}  // namespace
}  // namespace quorvi
