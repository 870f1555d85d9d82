#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <utility>

#include "base/os/TcpListener.h"
#include "tests/support/Await.h"

namespace quorvi {
namespace {

TEST(TcpListener, TakesConnectionsOneAfterTheOtherAndNeverWaits) {
    const TcpListener listener = TcpListener::On(0);
    ASSERT_TRUE(listener.IsOpen());
    ASSERT_NE(listener.Port(), 0);
    EXPECT_FALSE(listener.Accept().IsOpen());
    const TcpSocket near = TcpSocket::Connect(listener.Port());
    ASSERT_TRUE(near.IsOpen());
    TcpSocket far;
    ASSERT_TRUE(Await([&] {
        far = listener.Accept();
        return far.IsOpen();
    }));
    EXPECT_FALSE(listener.Accept().IsOpen());
    const std::array sent{std::byte{7}};
    EXPECT_EQ(near.Send(sent), 1);
    std::array<std::byte, 1> come{};
    EXPECT_EQ(far.ReceiveAll(come), 1);  // the connection itself waits
    EXPECT_EQ(come, sent);
}

TEST(TcpListener, APortInUseIsNotShared) {
    const TcpListener first = TcpListener::On(0);
    const TcpListener second = TcpListener::On(first.Port());
    EXPECT_FALSE(second.IsOpen());
    EXPECT_EQ(second.Port(), 0);
}

TEST(TcpListener, APortIsFreeAgainAtItsEnd) {
    TcpListener first = TcpListener::On(0);
    const std::uint16_t port = first.Port();
    first = TcpListener();
    EXPECT_EQ(TcpListener::On(port).Port(), port);
}

}  // namespace
}  // namespace quorvi
