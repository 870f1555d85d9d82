// Ctrl+C while a phone is backed up, or exported from, on the command line.
#include <gmock/gmock.h>
#include <signal.h>

#include <filesystem>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "base/os/SmallFile.h"
#include "tests/support/Await.h"
#include "tests/support/BuildPlaces.h"
#include "tests/support/PhoneRig.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi::e2e {
namespace {

using testing::HasSubstr;

class BackupStop : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(rig_.Error(), "");
        ASSERT_EQ(rig_.BringAgentUp(0), "");
    }
    // Starts a backup, which comes as far as a command that the phone does not answer, and stops
    // it there.
    void StopAt(const std::string& code, const char* name) {
        StopAt(code, std::vector<std::string>{"backup", Path(name)});
    }
    void StopAt(const std::string& code, std::vector<std::string> command) {
        ASSERT_EQ(rig_.Control(0, "fault " + code + " stall"), "ok\n");
        command.insert(command.begin(), QUORVI_BIN_DIR "/quorvictl");
        Process backup(command, Path("said"));
        ASSERT_TRUE(Await([&] { return rig_.Control(0, "log").find(code) != std::string::npos; }));
        ASSERT_EQ(kill(backup.Id(), SIGINT), 0);
        ASSERT_TRUE(Await([&] { return !backup.IsRunning(); }));
        EXPECT_EQ(backup.Status(), 130);
    }
    [[nodiscard]] std::string Path(const char* name) const {
        return (folder_.Path() / name).string();
    }
    [[nodiscard]] std::string Said() const { return ReadSmallFile(Path("said"), 10'000).value(); }

    PhoneRig rig_{1};
    TemporaryFolder folder_;
};

TEST_F(BackupStop, LeavesNoBackupAndSaysHowFarItCame) {
    for (const char* name : {"phone", "phone.zip"}) {
        StopAt("870202", name);
        EXPECT_THAT(Said(), HasSubstr("quorvictl: 已停止\n"));
        EXPECT_THAT(Said(), HasSubstr("quorvictl: 已读取 联系人分组 8，联系人 48，"));
        EXPECT_THAT(Said(), HasSubstr("，没有留下备份\n"));
        // What was said stands alone in the folder.
        std::filesystem::remove(Path("said"));
        EXPECT_TRUE(std::filesystem::is_empty(folder_.Path())) << name;
        EXPECT_EQ(rig_.Control(0, "faults clear"), "ok\n");
        EXPECT_EQ(rig_.Control(0, "log clear"), "ok\n");
    }
}

TEST_F(BackupStop, TheNextBackupIsWhole) {
    StopAt("870102", "phone");
    EXPECT_EQ(rig_.Control(0, "faults clear"), "ok\n");
    EXPECT_EQ(rig_.Suite({"backup", Path("phone")}).status, 0);
    EXPECT_EQ(rig_.Suite({"verify", Path("phone")}).status, 0);
}

TEST_F(BackupStop, AnExportLeavesTheOldFile) {
    ASSERT_TRUE(ReplaceFile(Path("a.vcf"), "old"));
    StopAt("870102", {"export", "contacts", Path("a.vcf")});
    EXPECT_THAT(Said(), HasSubstr("quorvictl: 已停止\n"));
    EXPECT_EQ(ReadSmallFile(Path("a.vcf")), "old");
    std::filesystem::remove(Path("said"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path()), {}), 1);
}

TEST_F(BackupStop, AnExportDoesNotWaitForAListThatDoesNotCome) {
    struct Export {
        const char* kind;
        const char* file;
        const char* list;  // its command
    };
    for (const auto& [kind, file, list] :
         {Export{"contacts", "a.vcf", "870101"}, Export{"messages", "a.html", "870201"},
          Export{"calls", "a.csv", "870301"}, Export{"bookmarks", "a.html", "870701"}}) {
        StopAt(list, {"export", kind, Path(file)});
        EXPECT_THAT(Said(), HasSubstr("quorvictl: 已停止\n")) << kind;
        EXPECT_FALSE(std::filesystem::exists(Path(file)));
        EXPECT_EQ(rig_.Control(0, "faults clear"), "ok\n");
        EXPECT_EQ(rig_.Control(0, "log clear"), "ok\n");
    }
}

}  // namespace
}  // namespace quorvi::e2e
