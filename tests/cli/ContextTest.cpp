// Commands called in this process, with an agent on a port of its own.
#include <gtest/gtest.h>

#include "cli/Commands.h"
#include "cli/Output.h"
#include "tests/support/Bytes.h"
#include "tests/support/LoopbackAgent.h"

namespace quorvi::cli {
namespace {

Context At(AgentAddress agent) {
    return {.agent = agent,
            .attribution = [](std::string_view number) { return "of " + std::string(number); }};
}

TEST(Context, ACommandSpeaksToTheAgentAtItsAddress) {
    LoopbackAgent agent({.bytes = Word(1)});
    Output output(false);
    EXPECT_EQ(RunGroupsAdd({.operands = {"A"}, .options = {}}, At(agent.Port()), output),
              Status::done);
    const auto exchanges = agent.Exchanges(1);
    EXPECT_EQ(Join({exchanges[0].firstPiece, exchanges[0].rest}),
              Join({Word(870121), Word(17), Word(1), Text("A")}));
}

TEST(Context, ACommandShowsTheAttributionThatItWasHanded) {
    LoopbackAgent agent({.bytes = Framed(Join({
                             Word(0),        // leading word
                             LongWord(7),    // call id
                             Text("10086"),  // number
                             LongWord(0),    // date
                             LongWord(60),   // duration
                             Word(1),        // type
                             Text("A"),      // name
                         }))});
    Output output(false);
    testing::internal::CaptureStdout();
    const Status status = RunCallsList({}, At(agent.Port()), output);
    const std::string text = testing::internal::GetCapturedStdout();
    EXPECT_EQ(status, Status::done);
    EXPECT_NE(text.find("of 10086"), std::string::npos) << text;
}

}  // namespace
}  // namespace quorvi::cli
