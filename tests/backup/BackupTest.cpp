#include <gmock/gmock.h>

#include <thread>

#include "backup/Backup.h"
#include "backup/BackupReader.h"
#include "backup/Restore.h"
#include "base/ByteText.h"
#include "base/Text.h"
#include "base/os/SmallFile.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/ScriptedAgent.h"
#include "tests/support/SmallDisk.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

Bytes GroupRecord(std::uint64_t id, std::string_view title) {
    return Join({
        LongWord(id), Text(title), Text("account"), Word(1),  // visible
    });
}

Bytes AlarmRecord(std::uint64_t id, std::string_view label) {
    return Join({
        LongWord(id),
        Word(7),
        Word(30),
        Word(0),  // hour, minute, days
        Word(1),
        Word(0),
        Text(label),  // enabled, vibrate
        Text("tone"),
        LongWord(0),
        Text("content://tone"),
    });
}

class BackupTest : public testing::Test {
  protected:
    BackupTest() {
        agent_.AnswerNoData(AgentCommand::systemInformation);
        agent_.AnswerPayload(AgentCommand::listGroups,
                             Join({Word(0), GroupRecord(1, "family"), GroupRecord(2, "friends")}));
        agent_.AnswerPayload(AgentCommand::listAlarms, Join({Word(0), AlarmRecord(1, "wake up")}));
    }

    BackupResult Run(const std::filesystem::path& target,
                     const std::function<void(const BackupProgress&)>& progress,
                     const StopSignal& stop) {
        return RunBackup(agent_.Port(),
                         {.target = target,
                          .kinds = {BackupKind::groups, BackupKind::alarms},
                          .now = 1'795'000'000},
                         progress, stop);
    }
    BackupResult Run() {
        return Run(
            target_, [](const BackupProgress&) {}, StopSignal());
    }
    [[nodiscard]] bool NothingIsThere() const { return std::filesystem::is_empty(folder_.Path()); }

    TemporaryFolder folder_;
    std::filesystem::path target_ = folder_.Path() / "phone";
    ScriptedAgent agent_;
};

TEST_F(BackupTest, HoldsWhatThePhoneLists) {
    const BackupResult result = Run();
    ASSERT_EQ(result.end, BackupEnd::whole) << ToUtf8(result.why);
    const OpenedBackup opened = BackupReader::Open(target_);
    ASSERT_TRUE(opened.reader) << ToUtf8(opened.why);
    EXPECT_EQ(opened.reader->TheManifest(), result.manifest);
    EXPECT_EQ(result.manifest.Find(BackupKind::groups)->count, 2u);
    EXPECT_EQ(result.manifest.made, 1'795'000'000);
}

// U+1F426 and U+9FBB are not in GBK, in which tests keep their texts.
TEST_F(BackupTest, NoCharacterIsLostWhereTheWindowShowsNone) {
    ASSERT_EQ(ActiveCodePage(), CodePage::gbk);
    const std::string label = "早起 \xF0\x9F\x90\xA6 \xE9\xBE\xBB";
    agent_.AnswerPayload(AgentCommand::listAlarms, Join({Word(0), AlarmRecord(1, label)}));
    ASSERT_EQ(Run().end, BackupEnd::whole);
    EXPECT_THAT(ReadSmallFile(target_ / "alarms.json").value_or(""), testing::HasSubstr(label));
    EXPECT_EQ(ActiveCodePage(), CodePage::gbk);

    const auto reader = BackupReader::Open(target_).reader;
    ASSERT_TRUE(reader);
    agent_.AnswerNoData(AgentCommand::listAlarms);
    Restore restore(agent_.Port(), *reader, {BackupKind::alarms});
    ASSERT_EQ(restore.Prepare(StopSignal()).end, RestoreEnd::whole);
    agent_.AnswerAcknowledged(AgentCommand::addAlarm);
    agent_.AnswerPayload(AgentCommand::listAlarms, Join({Word(0), AlarmRecord(1, label)}));
    ASSERT_EQ(restore.Run([](std::size_t, std::size_t) {}, StopSignal()).end, RestoreEnd::whole);
    ASSERT_EQ(agent_.Requests(AgentCommand::addAlarm).size(), 1u);
    EXPECT_THAT(AsText(agent_.Requests(AgentCommand::addAlarm)[0]), testing::HasSubstr(label));
}

TEST_F(BackupTest, TheContentDoesNotDependOnTheOrderOnThePhone) {
    const BackupResult first = Run();
    agent_.AnswerPayload(AgentCommand::listGroups,
                         Join({Word(0), GroupRecord(8, "friends"), GroupRecord(9, "family")}));
    target_ = folder_.Path() / "again";
    const BackupResult second = Run();
    EXPECT_EQ(first.manifest.Find(BackupKind::groups)->content,
              second.manifest.Find(BackupKind::groups)->content);
    EXPECT_NE(first.manifest.Find(BackupKind::groups)->files[0].sha256,
              second.manifest.Find(BackupKind::groups)->files[0].sha256);
}

TEST_F(BackupTest, AStopLeavesNothingAndSaysHowFarItCame) {
    StopSignal stop;
    const BackupResult result = Run(
        target_,
        [&](const BackupProgress& progress) {
            if (progress.kind == BackupKind::alarms) {
                stop.Stop();
            }
        },
        stop);
    EXPECT_EQ(result.end, BackupEnd::stopped);
    EXPECT_EQ(result.reached.kind, BackupKind::alarms);
    EXPECT_EQ(CountsText(result.manifest), Ansi(u8"联系人分组 2，闹铃 1"));
    EXPECT_TRUE(NothingIsThere());
}

TEST_F(BackupTest, AStopEndsTheWaitForAPhoneThatDoesNotAnswer) {
    agent_.Hold(AgentCommand::listAlarms);
    StopSignal stop;
    std::thread stopper([&] {
        while (agent_.Requests(AgentCommand::listAlarms).empty()) {
            std::this_thread::yield();
        }
        stop.Stop();
    });
    EXPECT_EQ(Run(
                  target_, [](const BackupProgress&) {}, stop)
                  .end,
              BackupEnd::stopped);
    stopper.join();
    EXPECT_TRUE(NothingIsThere());
    agent_.Release();
}

TEST_F(BackupTest, ALinkThatBreaksLeavesNothingAndSaysHowFarItCame) {
    agent_.Answer(AgentCommand::listAlarms, {{}, ScriptedAgent::End::reset});
    const BackupResult result = Run();
    EXPECT_EQ(result.end, BackupEnd::linkLost);
    EXPECT_EQ(CountsText(result.manifest), Ansi(u8"联系人分组 2"));
    EXPECT_TRUE(NothingIsThere());
}

TEST_F(BackupTest, AListThatEndsInsideARecordIsNoBackup) {
    agent_.AnswerPayload(AgentCommand::listAlarms,
                         Join({Word(0), AlarmRecord(1, "wake up"), LongWord(2), Word(7)}));
    EXPECT_EQ(Run().end, BackupEnd::notWhole);
    EXPECT_TRUE(NothingIsThere());
}

TEST_F(BackupTest, AnEmptyListIsBelievedWhenItIsSaidTwice) {
    agent_.AnswerNoData(AgentCommand::listAlarms);
    const BackupResult result = Run();
    EXPECT_EQ(result.end, BackupEnd::whole);
    EXPECT_EQ(result.manifest.Find(BackupKind::alarms)->count, 0u);
    EXPECT_EQ(agent_.Requests(AgentCommand::listAlarms).size(), 2u);
}

TEST_F(BackupTest, AConnectionThatBreaksOffInTheLengthIsNoEmptyList) {
    agent_.Answer(AgentCommand::listAlarms, {Bytes(2), ScriptedAgent::End::close});
    EXPECT_EQ(Run().end, BackupEnd::linkLost);
    EXPECT_TRUE(NothingIsThere());
}

TEST_F(BackupTest, AFullDiskLeavesNothingAndSaysSo) {
    const SmallDisk disk(64 * 1024);
    if (!disk.IsThere()) {
        GTEST_SKIP() << "no namespace to mount in";
    }
    agent_.AnswerPayload(AgentCommand::listGroups,
                         Join({Word(0), GroupRecord(1, std::string(200'000, 'g'))}));
    const BackupResult result = Run(
        disk.Path() / "phone", [](const BackupProgress&) {}, StopSignal());
    EXPECT_EQ(result.end, BackupEnd::diskFailed);
    EXPECT_EQ(result.why, Ansi(u8"磁盘空间不足，请清理磁盘后重试"));
    EXPECT_TRUE(std::filesystem::is_empty(disk.Path()));
}

}  // namespace
}  // namespace quorvi
