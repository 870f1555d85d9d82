// The chosen size of text becomes the scale of the interface, while the application is made.
#include <gtest/gtest.h>

#include "app/process/InterfaceScale.h"
#include "base/LookChoice.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/MemorySettings.h"

namespace quorvi {
namespace {

constexpr char kVariable[] = "QT_SCALE_FACTOR";

class InterfaceScaleTest : public testing::Test {
  protected:
    void SetUp() override { qunsetenv(kVariable); }

    static double Asked() { return qgetenv(kVariable).toDouble(); }

    EnvironmentVariable kept_{kVariable, "1"};  // what the test program was started with comes back
    MemorySettings settings_;
};

TEST_F(InterfaceScaleTest, TheUsualSizeAsksForNothing) {
    const InterfaceScale scale(settings_);
    EXPECT_FALSE(qEnvironmentVariableIsSet(kVariable));
}

TEST_F(InterfaceScaleTest, AChosenSizeIsAskedForUntilTheApplicationIsMade) {
    ChooseTextPercent(settings_, 125);
    {
        const InterfaceScale scale(settings_);
        EXPECT_DOUBLE_EQ(Asked(), 1.25);
    }
    EXPECT_FALSE(qEnvironmentVariableIsSet(kVariable));
}

TEST_F(InterfaceScaleTest, AScaleOfTheEnvironmentIsMultipliedAndComesBack) {
    qputenv(kVariable, "2");
    ChooseTextPercent(settings_, 150);
    {
        const InterfaceScale scale(settings_);
        EXPECT_DOUBLE_EQ(Asked(), 3);
    }
    EXPECT_EQ(qgetenv(kVariable), "2");
}

TEST_F(InterfaceScaleTest, AScaleThatIsNoneCountsForNothing) {
    qputenv(kVariable, "large");
    ChooseTextPercent(settings_, 150);
    const InterfaceScale scale(settings_);
    EXPECT_DOUBLE_EQ(Asked(), 1.5);
}

}  // namespace
}  // namespace quorvi
