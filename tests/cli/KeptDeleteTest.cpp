// What a delete takes from the phone is kept on the PC first; called in this process, with an agent
// on a port of its own.
#include <gmock/gmock.h>

#include <filesystem>

#include "base/Json.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "tests/backup/PhoneRecords.h"
#include "tests/support/KeptDeletes.h"
#include "tests/support/ScriptedAgent.h"

namespace quorvi::cli {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using RunOne = Status (*)(const Arguments& arguments, const Context& context, Output& output);

class KeptDelete : public testing::Test {
  protected:
    KeptDelete() {
        agent_.AnswerPayload(AgentCommand::listCalls, test::OneCall());
        agent_.AnswerPayload(AgentCommand::listConversations, test::OneConversation());
        agent_.AnswerPayload(AgentCommand::readConversation, test::TwoMessages());
        agent_.AnswerPayload(AgentCommand::listBookmarks, test::OneBookmark());
        agent_.AnswerPayload(AgentCommand::listContacts, test::TwoContacts());
        agent_.AnswerPayload(AgentCommand::readContact, test::OneContact());
        for (const AgentCommand command :
             {AgentCommand::deleteCalls, AgentCommand::deleteAllCalls,
              AgentCommand::deleteConversation, AgentCommand::deleteBookmarks,
              AgentCommand::deleteContacts}) {
            agent_.AnswerAcknowledged(command);
        }
    }

    Status Run(RunOne command, std::vector<std::string> operands, bool force = false) {
        Arguments arguments{.operands = std::move(operands), .options = {}};
        if (force) {
            arguments.options["--force"] = "";
        }
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        Output output(true);
        const Status status =
            command(arguments, {.agent = agent_.Port(), .attribution = {}}, output);
        output_ = testing::internal::GetCapturedStdout();
        messages_ = testing::internal::GetCapturedStderr();
        return status;
    }
    std::size_t Sent(AgentCommand command) { return agent_.Requests(command).size(); }

    ScriptedAgent agent_;
    KeptDeletes kept_;
    std::string output_;
    std::string messages_;
};

TEST_F(KeptDelete, WhatIsDeletedIsKept) {
    EXPECT_EQ(Run(&RunCallsDelete, {"9"}), Status::done);
    EXPECT_TRUE(kept_.IsOne(BackupKind::calls, 1));
    EXPECT_EQ(Sent(AgentCommand::deleteCalls), 1u);
    EXPECT_EQ(ParseJson(output_), ParseJson(R"({"deleted": [9]})"));
    EXPECT_EQ(messages_, "");
}

TEST_F(KeptDelete, OfManyRowsThoseOfTheIdsAreKept) {
    EXPECT_EQ(Run(&RunContactsDelete, {"7"}), Status::done);
    EXPECT_TRUE(kept_.IsOne(BackupKind::contacts, 1));
    EXPECT_THAT(agent_.Requests(AgentCommand::readContact), SizeIs(1));
}

TEST_F(KeptDelete, AConversationIsKeptWithItsMessages) {
    EXPECT_EQ(Run(&RunSmsDelete, {"5"}), Status::done);
    EXPECT_TRUE(kept_.IsOne(BackupKind::messages, 2));
    EXPECT_EQ(Sent(AgentCommand::deleteConversation), 1u);
}

TEST_F(KeptDelete, AClearKeepsTheWholeLog) {
    EXPECT_EQ(Run(&RunCallsClear, {}), Status::done);
    EXPECT_TRUE(kept_.IsOne(BackupKind::calls, 1));
    EXPECT_EQ(Sent(AgentCommand::deleteAllCalls), 1u);
}

TEST_F(KeptDelete, WhatThePhoneDoesNotListIsDeletedAndNothingKept) {
    EXPECT_EQ(Run(&RunBookmarksDelete, {"77"}), Status::done);
    EXPECT_THAT(kept_.List(), IsEmpty());
    EXPECT_EQ(Sent(AgentCommand::deleteBookmarks), 1u);
}

TEST_F(KeptDelete, WhereNothingCanBeWrittenNothingIsDeleted) {
    kept_.Refuse();
    EXPECT_EQ(Run(&RunCallsDelete, {"9"}), Status::wrongUsage);
    EXPECT_EQ(messages_,
              "quorvictl: 要删除的内容没能先保存到电脑: 路径里有一段不是文件夹，"
              "请检查保存个人数据的文件夹\n"
              "quorvictl: 没有删除。加上 --force 就照样删除，以后找不回来\n");
    EXPECT_EQ(output_, "");
    EXPECT_EQ(Sent(AgentCommand::deleteCalls), 0u);
}

TEST_F(KeptDelete, ForceDeletesWhatCannotBeWritten) {
    kept_.Refuse();
    EXPECT_EQ(Run(&RunCallsDelete, {"9"}, true), Status::done);
    EXPECT_THAT(messages_, HasSubstr("没能先保存到电脑"));
    EXPECT_EQ(ParseJson(output_), ParseJson(R"({"deleted": [9]})"));
    EXPECT_EQ(Sent(AgentCommand::deleteCalls), 1u);
}

TEST_F(KeptDelete, WhatIsKeptInPartGoesNeitherFromThePhoneNorStays) {
    agent_.AnswerNoData(AgentCommand::readContact);
    EXPECT_EQ(Run(&RunContactsDelete, {"7"}), Status::noLink);
    EXPECT_THAT(messages_, HasSubstr("林远舟: "));
    EXPECT_EQ(Sent(AgentCommand::deleteContacts), 0u);
    EXPECT_THAT(kept_.List(), IsEmpty());
}

TEST_F(KeptDelete, AListThatEndsInTheMiddleDeletesNothing) {
    Bytes cut = test::OneCall();
    cut.resize(cut.size() - 3);
    agent_.AnswerPayload(AgentCommand::listCalls, cut);
    EXPECT_EQ(Run(&RunCallsClear, {}), Status::noLink);
    EXPECT_THAT(messages_, HasSubstr("手机给出的内容不完整"));
    EXPECT_EQ(Sent(AgentCommand::deleteAllCalls), 0u);
}

TEST_F(KeptDelete, APhoneThatDoesNotAnswerIsNotAskedToDelete) {
    agent_.Answer(AgentCommand::listCalls, {});  // closed without a word
    EXPECT_EQ(Run(&RunCallsDelete, {"9"}), Status::noLink);
    EXPECT_EQ(messages_, "quorvictl: 手机端没有回答，请重新连接手机后再试\n");
    EXPECT_EQ(Sent(AgentCommand::deleteCalls), 0u);
}

TEST_F(KeptDelete, ADeleteThatIsNotAcknowledgedStaysKept) {
    agent_.Answer(AgentCommand::deleteCalls, {});
    EXPECT_EQ(Run(&RunCallsDelete, {"9"}), Status::noLink);
    EXPECT_EQ(messages_, "quorvictl: 手机没有确认，请查看手机上是否已经生效\n");
    EXPECT_EQ(output_, "");
    EXPECT_THAT(kept_.List(), SizeIs(1)) << "the phone may have deleted it";
}

TEST_F(KeptDelete, WhatWasKeptAMonthAgoGoes) {
    const std::filesystem::path folder = ThePlaces().DeletedItems();
    const DeletedItems items(folder);
    CallLogRow row;
    row.id = 1;
    const auto old = items.Keep(agent_.Port(), std::vector{row},
                                std::time(nullptr) - kKeptSeconds - 60, StopSignal());
    ASSERT_TRUE(std::filesystem::exists(old.backup));
    EXPECT_EQ(Run(&RunBookmarksDelete, {"77"}), Status::done);
    EXPECT_FALSE(std::filesystem::exists(old.backup));
}

}  // namespace
}  // namespace quorvi::cli
