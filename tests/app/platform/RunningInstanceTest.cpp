#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <future>
#include <map>
#include <optional>
#include <string>

#include "app/platform/RunningInstance.h"
#include "tests/support/PrintQt.h"
#include "tests/support/WidgetTest.h"

namespace quorvi {
namespace {

class SingleInstance : public WidgetTest {
  protected:
    QTemporaryDir folder_;
    QString socket_ = folder_.filePath(QStringLiteral("instance"));

    // A second start, in a thread as the first's own loop must run meanwhile.
    [[nodiscard]] bool SecondStartFinds() const { return SecondStartFinds({socket_}); }
    [[nodiscard]] static bool SecondStartFinds(const QStringList& sockets) {
        auto start = std::async(std::launch::async,
                                [&] { return LocalSocketInstance(sockets).ShowOther(); });
        if (!WaitFor([&] {
                return start.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
            })) {
            ADD_FAILURE() << "the second start hangs";
        }
        return start.get();
    }
};

TEST_F(SingleInstance, ASecondStartShowsTheFirst) {
    LocalSocketInstance first({socket_});
    int shown = 0;
    first.Announce([&] { ++shown; });
    EXPECT_TRUE(SecondStartFinds());
    EXPECT_TRUE(WaitFor([&] { return shown == 1; }));
    EXPECT_TRUE(SecondStartFinds());
    EXPECT_TRUE(WaitFor([&] { return shown == 2; }));
}

TEST_F(SingleInstance, AFirstThatHasNotAnnouncedItselfIsNotFound) {
    LocalSocketInstance first({socket_});
    EXPECT_FALSE(SecondStartFinds());
}

TEST_F(SingleInstance, TwoStartsAtTheSameInstantCanBothRun) {
    LocalSocketInstance first({socket_});
    LocalSocketInstance second({socket_});
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
    LocalSocketInstance first({socket_});
    EXPECT_FALSE(first.ShowOther());
    int shown = 0;
    first.Announce([&] { ++shown; });
    EXPECT_TRUE(SecondStartFinds());
    EXPECT_TRUE(WaitFor([&] { return shown == 1; }));
}

TEST_F(SingleInstance, OneThatHasWithdrawnIsNotFound) {
    LocalSocketInstance first({socket_});
    first.Announce([] {});
    first.Withdraw();
    EXPECT_FALSE(SecondStartFinds());
}

TEST_F(SingleInstance, ASessionsFirstIsFoundByAnyOfItsDisplays) {
    const QString wayland = folder_.filePath(QStringLiteral("wayland"));
    const QString x = folder_.filePath(QStringLiteral("x"));
    LocalSocketInstance first({wayland, x});
    int shown = 0;
    first.Announce([&] { ++shown; });
    EXPECT_TRUE(SecondStartFinds({x}));
    EXPECT_TRUE(WaitFor([&] { return shown == 1; }));
    EXPECT_TRUE(SecondStartFinds({wayland}));
    EXPECT_TRUE(WaitFor([&] { return shown == 2; }));
    EXPECT_TRUE(SecondStartFinds({folder_.filePath(QStringLiteral("other")), x}));
    EXPECT_TRUE(WaitFor([&] { return shown == 3; }));
    first.Withdraw();
    EXPECT_FALSE(SecondStartFinds({wayland, x}));
}

// ---- the sockets of an environment -------------------------------------------------------------

class SocketsOfASession : public ::testing::Test {
  protected:
    [[nodiscard]] QStringList Of(std::map<std::string, std::string> environment) const {
        environment.emplace("XDG_RUNTIME_DIR", folder_.path().toStdString());
        return SocketsOfDisplays([&](const char* name) -> std::optional<std::string> {
            const auto found = environment.find(name);
            return found == environment.end() ? std::nullopt : std::optional(found->second);
        });
    }
    [[nodiscard]] QStringList OfX(const char* display) const { return Of({{"DISPLAY", display}}); }

    QTemporaryDir folder_;
};

TEST_F(SocketsOfASession, TheScreenOfADisplayDoesNotCount) {
    EXPECT_EQ(OfX(":0"), QStringList{folder_.filePath(QStringLiteral("Quorvi-1103_0"))});
    EXPECT_EQ(OfX(":0.0"), OfX(":0"));
    EXPECT_EQ(OfX(":0.1"), OfX(":0"));
    EXPECT_EQ(OfX("unix:0.0"), OfX(":0"));
    EXPECT_NE(OfX(":1"), OfX(":0"));
    EXPECT_NE(OfX(":10"), OfX(":1"));
    EXPECT_NE(OfX("localhost:10.0"), OfX(":10"));
    EXPECT_EQ(OfX("host.example:10.0"), OfX("host.example:10"));
    EXPECT_NE(OfX("host.example:10"), OfX("host"));
}

TEST_F(SocketsOfASession, WaylandAndXOfOneSessionHaveBothSockets) {
    const QStringList both = Of({{"WAYLAND_DISPLAY", "wayland-0"}, {"DISPLAY", ":0"}});
    EXPECT_EQ(both, Of({{"WAYLAND_DISPLAY", "wayland-0"}}) + OfX(":0.0"));
    EXPECT_EQ(Of({{"WAYLAND_DISPLAY", "/run/user/1000/wayland-0"}, {"DISPLAY", ":0"}}), both);
}

TEST_F(SocketsOfASession, WithoutADisplayThereIsOneSocket) {
    EXPECT_EQ(Of({}), QStringList{folder_.filePath(QStringLiteral("Quorvi-1103"))});
}

TEST_F(SocketsOfASession, WithoutARuntimeFolderTheUserIsNamed) {
    const QStringList sockets =
        Of({{"XDG_RUNTIME_DIR", folder_.filePath(QStringLiteral("none")).toStdString()},
            {"DISPLAY", ":0"}});
    EXPECT_EQ(sockets,
              QStringList{QDir::tempPath() + QStringLiteral("/Quorvi-1103-%1_0").arg(::getuid())});
}

}  // namespace
}  // namespace quorvi
