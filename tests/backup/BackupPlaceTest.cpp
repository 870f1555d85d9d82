#include <gmock/gmock.h>

#include <fstream>

#include "backup/BackupPlace.h"
#include "backup/BackupWriter.h"
#include "base/Text.h"
#include "tests/support/ScriptedAgent.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// 2026-11-18, at noon of the time zone in the middle of them all.
constexpr std::int64_t kNow = 1'795'003'200;

class BackupPlaceTest : public testing::Test {
  protected:
    [[nodiscard]] std::string NameFor(std::string_view model,
                                      BackupForm form = BackupForm::zip) const {
        return NewBackupPath(folder_.Path(), model, kNow, form).filename().string();
    }
    void Write(const std::string& name, std::int64_t made, const std::string& phone = {}) const {
        BackupWriter writer(folder_.Path() / name);
        Manifest manifest;
        manifest.made = made;
        manifest.phone = phone;
        ASSERT_FALSE(writer.Finish(manifest, StopSignal()));
    }
    [[nodiscard]] std::vector<std::string> Found() const {
        std::vector<std::string> names;
        for (const FoundBackup& backup : FindBackups(folder_.Path())) {
            names.push_back(backup.path.filename().string());
        }
        return names;
    }

    TemporaryFolder folder_;
};

TEST_F(BackupPlaceTest, ANewBackupIsCalledAfterThePhoneAndTheDay) {
    EXPECT_THAT(NameFor("Aurora S2"), testing::MatchesRegex("Aurora S2 2026-11-1[89]\\.zip"));
    EXPECT_THAT(NameFor("Aurora S2", BackupForm::folder),
                testing::MatchesRegex("Aurora S2 2026-11-1[89]"));
}

TEST_F(BackupPlaceTest, ANameThatIsTakenGetsANumber) {
    const std::string first = NameFor("a");
    std::ofstream(folder_.Path() / first) << "x";
    const std::string second = NameFor("a");
    EXPECT_EQ(second, first.substr(0, first.size() - 4) + " 2.zip");
    std::ofstream(folder_.Path() / second) << "x";
    EXPECT_EQ(NameFor("a"), first.substr(0, first.size() - 4) + " 3.zip");
}

TEST_F(BackupPlaceTest, WhatNoFileMayBeCalledIsLeftOut) {
    EXPECT_THAT(NameFor("../.a/b\n:c"), testing::StartsWith("abc 2026"));
}

TEST_F(BackupPlaceTest, AModelWithoutANameIsThePhone) {
    EXPECT_THAT(NameFor(""), testing::StartsWith("手机 2026"));
    EXPECT_THAT(NameFor("///"), testing::StartsWith("手机 2026"));
}

TEST_F(BackupPlaceTest, AnEndlessModelIsCutBetweenCharacters) {
    std::u8string endless(u8"a");
    for (int i = 0; i < 100; ++i) {
        endless += u8"机";
    }
    const std::string name = NameFor(Ansi(endless));
    EXPECT_LT(name.size(), 140u);
    EXPECT_THAT(name, testing::HasSubstr("机 2026"));
}

TEST_F(BackupPlaceTest, BackupsAreFoundNewestFirst) {
    Write("OLD.ZIP", 1000);  // as some disks write names
    Write("newest", 3000);
    Write("newer.zip", 2000, "Aurora");
    EXPECT_THAT(Found(), ElementsAre("newest", "newer.zip", "OLD.ZIP"));
    EXPECT_EQ(FindBackups(folder_.Path())[1].manifest.phone, "Aurora");
}

TEST_F(BackupPlaceTest, WhatIsNoBackupIsPassedOver) {
    std::filesystem::create_directories(folder_.Path() / "folder");
    std::filesystem::create_directories(folder_.Path() / "broken");
    std::ofstream(folder_.Path() / "broken" / "manifest.json") << "no";
    std::ofstream(folder_.Path() / "a.zip") << "no archive";
    std::ofstream(folder_.Path() / "note.txt") << "x";
    EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(BackupPlaceTest, AFolderThatIsMissingHoldsNone) {
    EXPECT_THAT(FindBackups(folder_.Path() / "none"), IsEmpty());
}

TEST_F(BackupPlaceTest, ABackupThatIsAFolderIsChosenByItsManifest) {
    EXPECT_EQ(ChosenBackup("/a/b/manifest.json"), std::filesystem::path("/a/b"));
    EXPECT_EQ(ChosenBackup("/a/b.zip"), std::filesystem::path("/a/b.zip"));
}

TEST_F(BackupPlaceTest, TheTitleIsTheTimeAndTheModel) {
    Manifest manifest;
    manifest.made = kNow;
    EXPECT_THAT(BackupTitle(manifest), testing::MatchesRegex("2026-11-1[89] [0-9:]{5}"));
    manifest.phone = "Aurora";
    EXPECT_THAT(BackupTitle(manifest), testing::MatchesRegex("2026-11-1[89] [0-9:]{5} Aurora"));
}

TEST_F(BackupPlaceTest, AStopEndsTheWaitForTheModel) {
    ScriptedAgent agent;
    agent.Hold(AgentCommand::systemInformation);
    StopSignal stop;
    stop.Stop();
    EXPECT_EQ(FetchModel(agent.Port(), stop), "");
    agent.Release();
}

}  // namespace
}  // namespace quorvi
