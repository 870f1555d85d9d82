// A network of a test's own.
#pragma once

#include <gtest/gtest.h>

namespace quorvi {

// Moves the calling process, and what it starts from then on, into a network where nothing listens
// and only 127.0.0.1 exists, so that a test may use the suite's fixed ports whatever else runs on
// the machine. Called before any other thread exists. False where the system does not allow it: the
// process stays in the network it was in.
bool EnterPrivateNetwork();

// For a whole test program:
//   const auto* const kNetwork = testing::AddGlobalTestEnvironment(new PrivateNetwork);
class PrivateNetwork : public testing::Environment {
  public:
    void SetUp() override { EnterPrivateNetwork(); }
};

}  // namespace quorvi
