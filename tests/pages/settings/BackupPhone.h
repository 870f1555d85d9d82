// A phone with groups and alarms, and backups of it, for the tests of the backup group.
#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

#include "backup/Backup.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/PageTest.h"
#include "tests/support/PrintQt.h"
#include "tests/support/QtTest.h"
#include "tests/support/ScriptedAgent.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {

inline Bytes GroupRecord(std::uint64_t id, std::string_view title) {
    return Join({
        LongWord(id),     // group id
        Text(title),      // title
        Text("account"),  // account
        Word(1),          // visible
    });
}

inline Bytes AlarmRecord(std::uint64_t id, std::string_view label) {
    return Join({
        LongWord(id),            // alarm id
        Word(7),                 // hour
        Word(30),                // minute
        Word(0),                 // days
        Word(1),                 // enabled
        Word(0),                 // vibrate
        Text(label),             // label
        Text("tone"),            // name of the tone
        LongWord(0),             // time
        Text("content://tone"),  // address of the tone
    });
}

class BackupPhoneTest : public PageTest {
  public:
    static void SetUpTestSuite() { QtTest::SetUpTestSuite(); }

  protected:
    BackupPhoneTest() {
        agent_.AnswerNoData(AgentCommand::systemInformation);
        SetGroups({"family", "friends"});
        SetAlarms({"wake up"});
    }

    void SetGroups(const std::vector<std::string_view>& titles) {
        agent_.AnswerPayload(AgentCommand::listGroups, ListOf(titles, GroupRecord));
    }
    void SetAlarms(const std::vector<std::string_view>& labels) {
        agent_.AnswerPayload(AgentCommand::listAlarms, ListOf(labels, AlarmRecord));
    }
    // A backup of what the phone has now.
    [[nodiscard]] std::filesystem::path BackUp(const char* name,
                                               std::vector<BackupKind> kinds = {
                                                   BackupKind::groups, BackupKind::alarms}) {
        const std::filesystem::path target = folder_.Path() / name;
        const BackupResult result = RunBackup(
            agent_.Port(), {.target = target, .kinds = std::move(kinds), .now = 1'795'000'000},
            [](const BackupProgress&) {}, StopSignal());
        EXPECT_EQ(result.end, BackupEnd::whole);
        return target;
    }

    TemporaryFolder folder_;
    ScriptedAgent agent_;

  private:
    template <typename Record>
    static Bytes ListOf(const std::vector<std::string_view>& names, Record record) {
        Bytes bytes = Word(0);  // leading word
        for (std::size_t i = 0; i < names.size(); ++i) {
            bytes = Join({bytes, record(i + 1, names[i])});
        }
        return bytes;
    }
};

}  // namespace quorvi
