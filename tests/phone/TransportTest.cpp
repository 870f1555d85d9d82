#include <gtest/gtest.h>

#include "base/ByteText.h"
#include "phone/PhoneServer.h"
#include "phone/adb/Transport.h"

namespace quorvi::phone {
namespace {

// An adb server that says what a test wants it to.
class Server {
  public:
    explicit Server(std::uint16_t port) : socket_(TcpSocket::Connect(port)) {}

    void Send(const Packet& packet) { SendRaw(EncodePacket(packet, kVersionWithChecksum)); }
    void SendRaw(const Bytes& bytes) { socket_.Send(bytes); }

    // Nothing when the phone has closed.
    std::optional<Packet> Receive() {
        for (;;) {
            if (auto packet = reader_.Take()) {
                return packet;
            }
            std::array<std::byte, 65536> chunk;
            const auto count = socket_.Receive(chunk);
            if (count <= 0) {
                return std::nullopt;
            }
            reader_.Feed(std::span(chunk).first(static_cast<std::size_t>(count)));
        }
    }

    Packet Connect(std::uint32_t version, std::uint32_t maxPayload) {
        Send({kConnect, version, maxPayload, ToBytes("host::features=shell_v2,cmd")});
        return Receive().value_or(Packet{});
    }

  private:
    TcpSocket socket_;
    PacketReader reader_;
};

class TransportTest : public testing::Test {
  protected:
    static ServerOptions Options(bool old) {
        PhoneOptions phone;
        phone.profile = DeliveredProfile(0);
        phone.adbPort = 0;
        phone.announce = false;
        phone.oldTransport = old;
        return {{phone}, std::nullopt};
    }

    RunningPhones phones_{Options(false)};
    Server server_{phones_.AdbPort(0)};
};

constexpr std::uint32_t kServerStream = 33;

TEST_F(TransportTest, PresentsItselfWithoutFeatures) {
    const Packet hello = server_.Connect(kVersionWithoutChecksum, kMaxPayload);
    EXPECT_EQ(hello.command, kConnect);
    EXPECT_EQ(hello.arg0, kVersionWithoutChecksum);
    EXPECT_EQ(AsText(hello.payload),
              "device::ro.product.name=aurora_S2;ro.product.model=S2;ro.product.device=S2;");
}

TEST_F(TransportTest, APhoneThatAsksItsUserGreetsTheServerOnceItIsAllowed) {
    ASSERT_EQ(phones_.Control(0, "debugging asks"), "ok\n");
    Server server(phones_.AdbPort(0));
    const Packet token = server.Connect(kVersionWithoutChecksum, kMaxPayload);
    EXPECT_EQ(token.command, kAuth);
    EXPECT_EQ(token.arg0, kAuthToken);
    EXPECT_EQ(token.payload.size(), kAuthTokenBytes);
    // It knows no key, whatever is signed.
    server.Send({kAuth, kAuthSignature, 0, Bytes(256)});
    EXPECT_EQ(server.Receive()->arg0, kAuthToken);
    server.Send({kAuth, kAuthPublicKey, 0, ToBytes("QAAAAK user@pc")});
    // Before its user has agreed it opens nothing.
    server.Send({kOpen, kServerStream, 0, ToBytes(std::string("shell:echo hi\0", 14))});
    ASSERT_EQ(phones_.Control(0, "debugging allowed"), "ok\n");
    EXPECT_EQ(server.Receive()->command, kConnect);
    server.Send({kOpen, kServerStream, 0, ToBytes(std::string("shell:echo hi\0", 14))});
    EXPECT_EQ(server.Receive()->command, kOkay);
}

TEST_F(TransportTest, ASilentPhoneAnswersOnceItIsAllowed) {
    ASSERT_EQ(phones_.Control(0, "debugging silent"), "ok\n");
    Server server(phones_.AdbPort(0));
    server.Send({kConnect, kVersionWithoutChecksum, kMaxPayload, ToBytes("host::")});
    ASSERT_EQ(phones_.Control(0, "debugging allowed"), "ok\n");
    EXPECT_EQ(server.Receive()->command, kConnect);
}

TEST_F(TransportTest, AWordThatIsNoWayToMeetAServerIsRefused) {
    for (const char* line : {"debugging", "debugging maybe", "debugging asks now"}) {
        EXPECT_EQ(phones_.Control(0, line), "error: debugging allowed|asks|silent\n");
    }
}

TEST_F(TransportTest, RunsAShellCommandAndCloses) {
    server_.Connect(kVersionWithoutChecksum, kMaxPayload);
    server_.Send({kOpen, kServerStream, 0, ToBytes(std::string("shell:echo hi\0", 14))});
    const auto opened = server_.Receive();
    EXPECT_EQ(opened->command, kOkay);
    EXPECT_EQ(opened->arg1, kServerStream);
    const auto output = server_.Receive();
    EXPECT_EQ(output->command, kWrite);
    EXPECT_EQ(AsText(output->payload), "hi\r\n");
    server_.Send({kOkay, kServerStream, opened->arg0, {}});
    const auto closed = server_.Receive();
    EXPECT_EQ(closed->command, kClose);
    EXPECT_EQ(closed->arg0, opened->arg0);
}

TEST_F(TransportTest, SendsNoMoreThanTheServerTakesAndOneMessageAtATime) {
    server_.Connect(kVersionWithoutChecksum, 16);
    server_.Send({kOpen, kServerStream, 0, ToBytes("shell:echo 0123456789012345678")});
    const auto opened = server_.Receive();
    EXPECT_EQ(AsText(server_.Receive()->payload), "0123456789012345");
    server_.Send({kOkay, kServerStream, opened->arg0, {}});
    EXPECT_EQ(AsText(server_.Receive()->payload), "678\r\n");
}

TEST_F(TransportTest, RefusesAServiceThatItDoesNotHave) {
    server_.Connect(kVersionWithoutChecksum, kMaxPayload);
    server_.Send({kOpen, kServerStream, 0, ToBytes("jdwp:1")});
    const auto refused = server_.Receive();
    EXPECT_EQ(refused->command, kClose);
    EXPECT_EQ(refused->arg0, 0u);
    EXPECT_EQ(refused->arg1, kServerStream);
}

TEST_F(TransportTest, RefusesTheAgentsPortUntilTheAgentRuns) {
    server_.Connect(kVersionWithoutChecksum, kMaxPayload);
    server_.Send({kOpen, kServerStream, 0, ToBytes("tcp:50505")});
    EXPECT_EQ(server_.Receive()->command, kClose);
    phones_.Control(0, "agent start");
    server_.Send({kOpen, kServerStream, 0, ToBytes("tcp:50505")});
    EXPECT_EQ(server_.Receive()->command, kOkay);
}

TEST_F(TransportTest, MindsNoMessageBeforeTheConnectMessage) {
    server_.Send({kOpen, kServerStream, 0, ToBytes("shell:echo hi")});
    EXPECT_EQ(server_.Connect(kVersionWithoutChecksum, kMaxPayload).command, kConnect);
}

TEST_F(TransportTest, ClosesAStreamThatDoesNotExist) {
    server_.Connect(kVersionWithoutChecksum, kMaxPayload);
    server_.Send({kWrite, kServerStream, 99, ToBytes("hi")});
    const auto closed = server_.Receive();
    EXPECT_EQ(closed->command, kClose);
    EXPECT_EQ(closed->arg1, kServerStream);
}

TEST_F(TransportTest, AnotherStreamsNumberOpensNoDoor) {
    server_.Connect(kVersionWithoutChecksum, kMaxPayload);
    server_.Send({kOpen, kServerStream, 0, ToBytes("shell:")});
    const auto opened = server_.Receive();
    server_.Send({kWrite, kServerStream + 1, opened->arg0, ToBytes("exit\n")});
    EXPECT_EQ(AsText(server_.Receive()->payload), "$ ");
    EXPECT_EQ(server_.Receive()->command, kClose);
}

TEST_F(TransportTest, DropsAServerThatSpeaksNonsense) {
    server_.Connect(kVersionWithoutChecksum, kMaxPayload);
    server_.SendRaw(Bytes(kPacketHeaderBytes, std::byte{0x41}));
    EXPECT_FALSE(server_.Receive());
    EXPECT_NE(phones_.Control(0, "status").find("plugged 1"), std::string::npos);
}

TEST_F(TransportTest, RefusesMoreStreamsThanItsLimit) {
    server_.Connect(kVersionWithoutChecksum, kMaxPayload);
    for (std::uint32_t i = 1; i <= kMaxStreams; ++i) {
        server_.Send({kOpen, i, 0, ToBytes("sync:")});
        ASSERT_EQ(server_.Receive()->command, kOkay);
    }
    server_.Send({kOpen, kMaxStreams + 1, 0, ToBytes("sync:")});
    EXPECT_EQ(server_.Receive()->command, kClose);
}

TEST_F(TransportTest, AnUnpluggedPhoneIsGoneAndComesBackOnItsPort) {
    server_.Connect(kVersionWithoutChecksum, kMaxPayload);
    const auto port = phones_.AdbPort(0);
    phones_.Control(0, "unplug");
    EXPECT_FALSE(server_.Receive());
    EXPECT_FALSE(TcpSocket::Connect(port).IsOpen());
    EXPECT_EQ(phones_.Control(0, "plug"), "ok\n");
    EXPECT_EQ(Server(port).Connect(kVersionWithoutChecksum, kMaxPayload).command, kConnect);
}

TEST(OldTransport, SpeaksTheVersionWithChecksumsInMessagesOf4096Bytes) {
    PhoneOptions phone;
    phone.profile = DeliveredProfile(0);
    phone.adbPort = 0;
    phone.announce = false;
    phone.oldTransport = true;
    RunningPhones phones({{phone}, std::nullopt});
    Server server(phones.AdbPort(0));
    const Packet hello = server.Connect(kVersionWithoutChecksum, kMaxPayload);
    EXPECT_EQ(hello.arg0, kVersionWithChecksum);
    EXPECT_EQ(hello.arg1, kOldMaxPayload);
    // A message whose sum is wrong ends the connection.
    Bytes wrong = EncodePacket({kOpen, 1, 0, ToBytes("shell:echo")}, kVersionWithChecksum);
    wrong[16] ^= std::byte{1};
    server.SendRaw(wrong);
    EXPECT_FALSE(server.Receive());
}

}  // namespace
}  // namespace quorvi::phone
