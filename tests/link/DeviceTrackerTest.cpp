#include <gtest/gtest.h>
#include <sys/socket.h>

#include <array>
#include <mutex>
#include <string>

#include "link/DeviceTracker.h"
#include "tests/support/Await.h"
#include "tests/support/FakeAdb.h"
#include "tests/support/LoopbackPort.h"

namespace quorvi {
namespace {

constexpr std::chrono::milliseconds kShortPause{2};

// A server whose every word the test says. It takes one connection at a time.
class ToldServer {
  public:
    explicit ToldServer(std::uint16_t port = 0) : listener_(ListenOn(port)) {}

    [[nodiscard]] std::uint16_t Port() const { return PortOf(listener_); }
    // Takes the next connection; its request.
    std::string Accept() {
        peer_ = TcpSocket(accept4(listener_.Descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
        std::array<char, 22> request{};
        peer_.ReceiveAll(std::as_writable_bytes(std::span(request)));
        return {request.data(), request.size()};
    }
    void Say(std::string_view bytes) const { peer_.Send(std::as_bytes(std::span(bytes))); }
    void HangUp() { peer_.Close(); }

  private:
    TcpSocket listener_;
    TcpSocket peer_;
};

class DeviceTrackerTest : public testing::Test {
  protected:
    DeviceTracker::Listener Listener() {
        return [this](const TrackedDevices& devices) {
            const std::lock_guard lock(mutex_);
            lists_.push_back(devices);
        };
    }
    std::vector<TrackedDevices> Lists() {
        const std::lock_guard lock(mutex_);
        return lists_;
    }
    bool AwaitLists(std::size_t count) {
        return Await([this, count] { return Lists().size() >= count; });
    }

    std::mutex mutex_;
    std::vector<TrackedDevices> lists_;
};

TEST_F(DeviceTrackerTest, EveryListIsToldInItsOrder) {
    ToldServer server;
    DeviceTracker tracker(server.Port(), kShortPause);
    ASSERT_TRUE(tracker.Start(Listener()));
    EXPECT_EQ(server.Accept(), "0012host:track-devices");
    server.Say("OKAY0000");
    server.Say("0011one\tunauthorized\n");
    server.Say("000Bone\tdevice\n");
    ASSERT_TRUE(AwaitLists(3));
    EXPECT_EQ(Lists(),
              (std::vector<TrackedDevices>{
                  {}, {{"one", DeviceState::unauthorized}}, {{"one", DeviceState::ready}}}));
}

TEST_F(DeviceTrackerTest, AServerThatEndsIsAskedAgainAndItsEndIsNotTold) {
    ToldServer server;
    DeviceTracker tracker(server.Port(), kShortPause);
    ASSERT_TRUE(tracker.Start(Listener()));
    server.Accept();
    server.Say("OKAY000Bone\tdevice\n");
    ASSERT_TRUE(AwaitLists(1));
    server.HangUp();
    EXPECT_EQ(server.Accept(), "0012host:track-devices");
    server.Say("OKAY000Btwo\tdevice\n");
    ASSERT_TRUE(AwaitLists(2));
    EXPECT_EQ(Lists()[1], (TrackedDevices{{"two", DeviceState::ready}}));
}

// adb 29 does not tell that a phone, with which it still speaks, waits for its user.
TEST_F(DeviceTrackerTest, APhoneThatIsNotReadyYetIsAskedForAgainUntilItIsOrWaitsForItsUser) {
    ToldServer server;
    DeviceTracker tracker(server.Port(), kShortPause);
    ASSERT_TRUE(tracker.Start(Listener()));
    for (const char* list : {"0010one\tauthorizing\n", "0010one\tauthorizing\n",
                             "000Cone\toffline\n", "0011one\tunauthorized\n"}) {
        server.Accept();
        server.Say("OKAY" + std::string(list));
    }
    ASSERT_TRUE(AwaitLists(3));
    server.Say("000Bone\tdevice\n");  // over the connection that stays
    ASSERT_TRUE(AwaitLists(4));
    EXPECT_EQ(Lists(), (std::vector<TrackedDevices>{{{"one", DeviceState::other}},
                                                    {{"one", DeviceState::offline}},
                                                    {{"one", DeviceState::unauthorized}},
                                                    {{"one", DeviceState::ready}}}));
}

TEST_F(DeviceTrackerTest, AServerThatStartsLaterIsFound) {
    const std::uint16_t port = ToldServer().Port();  // gone again
    DeviceTracker tracker(port, kShortPause);
    ASSERT_TRUE(tracker.Start(Listener()));
    ToldServer server(port);
    ASSERT_EQ(server.Port(), port);
    server.Accept();
    server.Say("OKAY0000");
    EXPECT_TRUE(AwaitLists(1));
}

TEST_F(DeviceTrackerTest, AServerThatRefusesOrTalksNonsenseIsAskedAgain) {
    ToldServer server;
    DeviceTracker tracker(server.Port(), kShortPause);
    ASSERT_TRUE(tracker.Start(Listener()));
    for (const char* answer : {"FAIL0005wrong", "OKAYzzzzone\tdevice\n"}) {
        server.Accept();
        server.Say(answer);
    }
    server.Accept();
    server.Say("OKAY0000");
    ASSERT_TRUE(AwaitLists(1));
    EXPECT_EQ(Lists().front(), TrackedDevices());
}

TEST_F(DeviceTrackerTest, StopEndsEachOfItsWaitsAtOnce) {
    // For the next try, for the status word, for the next list.
    DeviceTracker trying(UnusedPort(), std::chrono::hours(1));
    ASSERT_TRUE(trying.Start(Listener()));
    trying.Stop();

    ToldServer server;
    DeviceTracker tracker(server.Port(), std::chrono::hours(1));
    ASSERT_TRUE(tracker.Start(Listener()));
    server.Accept();
    tracker.Stop();

    ASSERT_TRUE(tracker.Start(Listener()));
    server.Accept();
    server.Say("OKAY0000");
    ASSERT_TRUE(AwaitLists(1));
    tracker.Stop();
    server.Say("0000");
    EXPECT_EQ(Lists().size(), 1U);
}

TEST_F(DeviceTrackerTest, StartAndStopLeaveNothingBehind) {
    const std::uint16_t port = UnusedPort();
    const int threads = SettledThreads();
    const int descriptors = OpenDescriptors();
    for (int i = 0; i < 20; ++i) {
        DeviceTracker tracker(port, kShortPause);
        ASSERT_TRUE(tracker.Start(Listener()));
    }
    EXPECT_EQ(SettledThreads(), threads);
    EXPECT_EQ(OpenDescriptors(), descriptors);
}

}  // namespace
}  // namespace quorvi
