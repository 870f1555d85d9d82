// Commands that talk to an agent, against one that a test stands on the suite's own port.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <utility>

#include "agent/Wire.h"
#include "tests/support/LoopbackAgent.h"

namespace quorvi::cli {

class AgentFixture : public testing::Test {
  protected:
    // False when the suite's port belongs to somebody else.
    bool Start(Answer answer) {
        agent_ = std::make_unique<LoopbackAgent>(std::move(answer), AgentPort);
        return agent_->Port() == AgentPort;
    }
    // Nobody listens from then on.
    void Stop() { agent_.reset(); }
    // What came over the nth connection.
    Bytes Request(std::size_t nth) {
        const auto exchanges = agent_->Exchanges(nth + 1);
        return nth < exchanges.size() ? Join({exchanges[nth].firstPiece, exchanges[nth].rest})
                                      : Bytes();
    }

    // The delete of what an agent that says NoDataMark does not list: the list was asked for twice.
    Bytes DeleteBehindEmptyList() { return Request(2); }

    std::unique_ptr<LoopbackAgent> agent_;
};

#define START_OR_SKIP(...)                      \
    if (!Start(__VA_ARGS__)) {                  \
        GTEST_SKIP() << "port 50505 is in use"; \
    }

}  // namespace quorvi::cli
