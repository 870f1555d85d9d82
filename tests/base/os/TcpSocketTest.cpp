#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <array>
#include <thread>
#include <utility>

#include "base/os/TcpSocket.h"

namespace quorvi {
namespace {

struct Pair {
    TcpSocket near;
    TcpSocket far;
};

Pair MakePair() {
    int ends[2] = {-1, -1};
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
    return {TcpSocket(ends[0]), TcpSocket(ends[1])};
}

bool IsOpenDescriptor(int descriptor) {
    return fcntl(descriptor, F_GETFD) != -1;
}

constexpr std::array<std::byte, 4> kFour{std::byte{1}, std::byte{2}, std::byte{3}, std::byte{4}};

TEST(TcpSocket, ClosesItsDescriptorWithTheObject) {
    int descriptor = -1;
    {
        const Pair pair = MakePair();
        descriptor = pair.near.Descriptor();
        EXPECT_TRUE(IsOpenDescriptor(descriptor));
    }
    EXPECT_FALSE(IsOpenDescriptor(descriptor));
}

TEST(TcpSocket, AMoveHandsTheDescriptorOverAndClosesTheOldOne) {
    Pair first = MakePair();
    Pair second = MakePair();
    const int kept = first.near.Descriptor();
    const int dropped = second.near.Descriptor();
    second.near = std::move(first.near);
    EXPECT_EQ(second.near.Descriptor(), kept);
    EXPECT_FALSE(IsOpenDescriptor(dropped));
    const TcpSocket third(std::move(second.near));
    EXPECT_EQ(third.Descriptor(), kept);
    EXPECT_TRUE(IsOpenDescriptor(kept));
}

TEST(TcpSocket, SendsAllBytesAndReceivesWhatIsThere) {
    const Pair pair = MakePair();
    EXPECT_EQ(pair.near.Send(kFour), 4);
    std::array<std::byte, 8> received{};
    EXPECT_EQ(pair.far.Receive(received), 4);
    EXPECT_TRUE(std::equal(kFour.begin(), kFour.end(), received.begin()));
}

TEST(TcpSocket, ASendToAPeerThatIsGoneFailsAndRaisesNoSignal) {
    Pair pair = MakePair();
    pair.far.Close();
    EXPECT_EQ(pair.near.Send(kFour), -1);
}

TEST(TcpSocket, AReceiveFromAPeerThatHasClosedIsZero) {
    Pair pair = MakePair();
    pair.far.Close();
    std::array<std::byte, 4> received{};
    EXPECT_EQ(pair.near.Receive(received), 0);
}

TEST(TcpSocket, ReceiveAllWaitsForBytesThatComeOneByOne) {
    const Pair pair = MakePair();
    std::thread sender([&] {
        for (const std::byte& byte : kFour) {
            pair.far.Send({&byte, 1});
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    });
    std::array<std::byte, 4> received{};
    EXPECT_EQ(pair.near.ReceiveAll(received), 4);
    EXPECT_EQ(received, kFour);
    sender.join();
}

TEST(TcpSocket, ReceiveAllGivesWhatCameBeforeAClose) {
    Pair pair = MakePair();
    pair.far.Send(std::span(kFour).first(2));
    pair.far.Close();
    std::array<std::byte, 4> received{};
    EXPECT_EQ(pair.near.ReceiveAll(received), 2);
}

TEST(TcpSocket, AClosedSocketFailsInsteadOfBlocking) {
    const TcpSocket socket;
    std::array<std::byte, 4> received{};
    EXPECT_FALSE(socket.IsOpen());
    EXPECT_EQ(socket.Send(kFour), -1);
    EXPECT_EQ(socket.Receive(received), -1);
}

TEST(TcpSocket, ReceiveToWhichNothingComesEndsAtTheLimit) {
    Pair pair = MakePair();
    pair.near.LimitReceive(std::chrono::milliseconds(1));
    std::array<std::byte, 4> received{};
    EXPECT_EQ(pair.near.Receive(received), -1);
    EXPECT_TRUE(TcpSocket::TimedOut());
    pair.far.Send(kFour);
    EXPECT_EQ(pair.near.Receive(received), 4);
    pair.far.Close();
    EXPECT_EQ(pair.near.Receive(received), 0);
}

TEST(TcpSocket, ReceiveThatFailsOtherwiseHasNotTimedOut) {
    std::array<std::byte, 4> received{};
    EXPECT_EQ(TcpSocket().Receive(received), -1);
    EXPECT_FALSE(TcpSocket::TimedOut());
}

}  // namespace
}  // namespace quorvi
