// What the log holds of an exchange.
#include <gmock/gmock.h>

#include "agent/AgentSession.h"
#include "log/EventLog.h"
#include "tests/support/Await.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/LoopbackPort.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

TEST(SessionLog, HoldsCommandOutcomeSizeAndTimeAndNothingOfTheContent) {
    const TemporaryFolder folder;
    const LogFile log(folder.Path() / "quorvi.log");
    StartLog("test", folder.Path() / "quorvi.log");

    LoopbackAgent agent({.bytes = Framed(Join({Word(0), Text("13861234567")}))});
    static_cast<void>(
        AgentSession(agent.Port()).RunPayload(BareRequest(AgentCommand::listContacts)));
    RequestBuilder request(AgentCommand::addGroup);
    request.BeginItem().AddText("secret");
    static_cast<void>(AgentSession(UnusedPort()).RunAcknowledged(request.Take()));

    ASSERT_TRUE(Await([&] { return log.Read().find("870121") != std::string::npos; }));
    const std::string text = log.Read();
    EXPECT_THAT(text, ContainsRegex("session command=870101 outcome=complete kb=1 ms=[0-9]+\n"));
    EXPECT_THAT(text,
                ContainsRegex("session command=870121 outcome=connect-failed kb=0 ms=[0-9]+\n"));
    EXPECT_THAT(text, Not(HasSubstr("13861234567")));
    EXPECT_THAT(text, Not(HasSubstr("secret")));
}

}  // namespace
}  // namespace quorvi
