#include <QFile>
#include <QTemporaryDir>
#include <future>

#include "app/platform/RunningInstance.h"
#include "tests/support/WidgetTest.h"

namespace quorvi {
namespace {

class SingleInstance : public WidgetTest {
  protected:
    QTemporaryDir folder_;
    QString socket_ = folder_.filePath(QStringLiteral("instance"));

    // A second start, in a thread as the first's own loop must run meanwhile.
    [[nodiscard]] bool SecondStartFinds() const {
        auto start = std::async(std::launch::async,
                                [this] { return LocalSocketInstance(socket_).ShowOther(); });
        if (!WaitFor([&] {
                return start.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
            })) {
            ADD_FAILURE() << "the second start hangs";
        }
        return start.get();
    }
};

TEST_F(SingleInstance, ASecondStartShowsTheFirst) {
    LocalSocketInstance first(socket_);
    int shown = 0;
    first.Announce([&] { ++shown; });
    EXPECT_TRUE(SecondStartFinds());
    EXPECT_TRUE(WaitFor([&] { return shown == 1; }));
    EXPECT_TRUE(SecondStartFinds());
    EXPECT_TRUE(WaitFor([&] { return shown == 2; }));
}

TEST_F(SingleInstance, AFirstThatHasNotAnnouncedItselfIsNotFound) {
    LocalSocketInstance first(socket_);
    EXPECT_FALSE(SecondStartFinds());
}

TEST_F(SingleInstance, TwoStartsAtTheSameInstantCanBothRun) {
    LocalSocketInstance first(socket_);
    LocalSocketInstance second(socket_);
    EXPECT_FALSE(first.ShowOther());
    EXPECT_FALSE(second.ShowOther());
    int firstShown = 0;
    int secondShown = 0;
    first.Announce([&] { ++firstShown; });
    second.Announce([&] { ++secondShown; });
    Settle();
    firstShown = 0;
    EXPECT_TRUE(SecondStartFinds());
    EXPECT_TRUE(WaitFor([&] { return firstShown + secondShown == 1; }));
}

TEST_F(SingleInstance, WhatAKilledInstanceLeftBehindIsNoInstance) {
    QFile stale(socket_);
    ASSERT_TRUE(stale.open(QIODevice::WriteOnly));
    stale.close();
    LocalSocketInstance first(socket_);
    EXPECT_FALSE(first.ShowOther());
    int shown = 0;
    first.Announce([&] { ++shown; });
    EXPECT_TRUE(SecondStartFinds());
    EXPECT_TRUE(WaitFor([&] { return shown == 1; }));
}

TEST_F(SingleInstance, OneThatHasWithdrawnIsNotFound) {
    LocalSocketInstance first(socket_);
    first.Announce([] {});
    first.Withdraw();
    EXPECT_FALSE(SecondStartFinds());
}

}  // namespace
}  // namespace quorvi
