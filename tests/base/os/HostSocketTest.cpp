#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <array>
#include <future>
#include <string_view>
#include <thread>

#include "base/os/HostAddresses.h"
#include "base/os/HostSocket.h"
#include "tests/support/Await.h"
#include "tests/support/LoopbackPort.h"

namespace quorvi {
namespace {

using namespace std::chrono_literals;

// A listening socket on a free port of ::1; not open where the system has no IPv6.
TcpSocket ListenOnIpv6() {
    TcpSocket listener(socket(AF_INET6, SOCK_STREAM | SOCK_CLOEXEC, IPPROTO_TCP));
    sockaddr_in6 address{};
    address.sin6_family = AF_INET6;
    address.sin6_addr = in6addr_loopback;
    if (bind(listener.Descriptor(), reinterpret_cast<const sockaddr*>(&address), sizeof address) !=
            0 ||
        listen(listener.Descriptor(), 1) != 0) {
        listener.Close();
    }
    return listener;
}

std::uint16_t PortOfIpv6(const TcpSocket& listener) {
    sockaddr_in6 address{};
    socklen_t size = sizeof address;
    getsockname(listener.Descriptor(), reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin6_port);
}

TEST(HostAddresses, AnAddressNeedsNoLookup) {
    const StopSignal stop;
    const auto never = [](const char*, const char*, const addrinfo*, addrinfo**) {
        ADD_FAILURE() << "looked up";
        return EAI_FAIL;
    };
    const auto four = FindHost("127.0.0.1", 80, stop, never);
    ASSERT_EQ(four.size(), 1U);
    EXPECT_EQ(four[0].Text(), "127.0.0.1");
    for (const char* host : {"::1", "[::1]"}) {
        const auto six = FindHost(host, 80, stop, never);
        ASSERT_EQ(six.size(), 1U) << host;
        EXPECT_EQ(six[0].Text(), "::1");
    }
}

TEST(HostAddresses, ANamesAddressesOfIpv4ComeFirst) {
    const StopSignal stop;
    // ::1 in front of 127.0.0.1.
    const auto both = [](const char*, const char* port, const addrinfo* hints, addrinfo** found) {
        addrinfo numeric = *hints;
        numeric.ai_flags |= AI_NUMERICHOST;
        addrinfo* four = nullptr;
        const int failed = getaddrinfo("::1", port, &numeric, found) +
                           getaddrinfo("127.0.0.1", port, &numeric, &four);
        (*found)->ai_next = four;
        return failed;
    };
    const auto addresses = FindHost("both.example", 80, stop, both);
    ASSERT_EQ(addresses.size(), 2U);
    EXPECT_EQ(addresses[0].Text(), "127.0.0.1");
    EXPECT_EQ(addresses[1].Text(), "::1");
}

TEST(HostAddresses, AnUnknownHostHasNone) {
    const StopSignal stop;
    EXPECT_TRUE(FindHost("", 80, stop).empty());
    EXPECT_TRUE(FindHost("[host.example]", 80, stop).empty());
    const auto unknown = [](const char*, const char*, const addrinfo*, addrinfo**) {
        return EAI_NONAME;
    };
    EXPECT_TRUE(FindHost("host.example", 80, stop, unknown).empty());
}

TEST(HostAddresses, StopEndsALookup) {
    StopSignal stop;
    std::promise<void> looking;
    std::promise<void> answer;
    std::promise<void> ended;
    const auto slow = [&, wait = answer.get_future().share()](const char*, const char*,
                                                              const addrinfo*, addrinfo**) {
        looking.set_value();
        wait.wait();
        ended.set_value();
        return EAI_AGAIN;
    };
    std::thread stopper([&] {
        looking.get_future().wait();
        stop.Stop();
    });
    EXPECT_TRUE(FindHost("slow.example", 80, stop, slow).empty());
    stopper.join();
    answer.set_value();
    ended.get_future().wait();
}

TEST(HostSocket, ConnectsToAnAddressOfIpv6) {
    const TcpSocket listener = ListenOnIpv6();
    if (!listener.IsOpen()) {
        GTEST_SKIP() << "no IPv6 on this system";
    }
    const StopSignal stop;
    HostSocket socket(stop);
    ASSERT_TRUE(socket.Connect("[::1]", PortOfIpv6(listener)));
    EXPECT_EQ(socket.PeerIp(), "::1");
}

TEST(HostSocket, SendsAndReceives) {
    const TcpSocket listener = ListenOn(0);
    const StopSignal stop;
    HostSocket socket(stop);
    ASSERT_TRUE(socket.Connect("127.0.0.1", PortOf(listener)));
    EXPECT_EQ(socket.PeerIp(), "127.0.0.1");
    TcpSocket peer(accept4(listener.Descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
    const std::string large(8 << 20, 'x');  // more than the system keeps
    std::thread reader([&peer, &large] {
        std::string got(large.size(), '\0');
        EXPECT_EQ(peer.ReceiveAll(std::as_writable_bytes(std::span(got))),
                  static_cast<std::ptrdiff_t>(large.size()));
        EXPECT_EQ(got, large);
        peer.Send(std::as_bytes(std::span(std::string_view("ok"))));
        peer.Close();
    });
    EXPECT_TRUE(socket.Send(std::as_bytes(std::span(large)), HostSocket::kNoLimit));
    std::array<std::byte, 8> bytes{};
    EXPECT_EQ(socket.Receive(bytes, 60s), 2);
    EXPECT_EQ(socket.Receive(bytes, 60s), 0);
    reader.join();
}

TEST(HostSocket, IsNotOpenWhereNobodyListens) {
    const StopSignal stop;
    HostSocket socket(stop);
    EXPECT_FALSE(socket.Connect("127.0.0.1", UnusedPort()));
    EXPECT_FALSE(socket.IsOpen());
}

TEST(HostSocket, AWaitEndsWithItsLimit) {
    const TcpSocket listener = ListenOn(0);
    const StopSignal stop;
    HostSocket socket(stop);
    ASSERT_TRUE(socket.Connect("127.0.0.1", PortOf(listener)));
    std::array<std::byte, 1> byte{};
    EXPECT_EQ(socket.Receive(byte, 10ms), -1);
    EXPECT_TRUE(socket.IsOpen());
}

TEST(HostSocket, StopEndsAWaitAndEveryLaterOne) {
    const TcpSocket listener = ListenOn(0);
    StopSignal stop;
    HostSocket socket(stop);
    ASSERT_TRUE(socket.Connect("127.0.0.1", PortOf(listener)));
    std::thread stopper([&stop] { stop.Stop(); });
    std::array<std::byte, 1> byte{};
    EXPECT_EQ(socket.Receive(byte, HostSocket::kNoLimit), -1);
    stopper.join();
    EXPECT_EQ(socket.Receive(byte, HostSocket::kNoLimit), -1);
    EXPECT_FALSE(socket.Connect("127.0.0.1", PortOf(listener)));
}

}  // namespace
}  // namespace quorvi
