// A source of test programs that use the suite's fixed ports: all their tests run in a network of
// their own.
#include <gtest/gtest.h>

#include "tests/support/PrivateNetwork.h"

namespace quorvi {
namespace {

class OwnNetwork : public testing::Environment {
  public:
    void SetUp() override { EnterPrivateNetwork(); }
};

const auto* const kNetwork = testing::AddGlobalTestEnvironment(new OwnNetwork);

}  // namespace
}  // namespace quorvi
