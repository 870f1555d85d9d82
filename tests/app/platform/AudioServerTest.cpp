// The sounds of a desktop whose audio server accepts and never answers.
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <cstring>
#include <string>
#include <thread>

#include "app/platform/EffectSounds.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Heartbeat.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/WidgetTest.h"

namespace quorvi {
namespace {

// An audio server that accepts and stays silent, until it is closed.
class SilentServer {
  public:
    SilentServer() {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, Path().c_str(), sizeof(address.sun_path) - 1);
        EXPECT_EQ(bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(listener_, 1), 0);
        acceptor_ = std::thread([this] {
            client_ = accept(listener_, nullptr, nullptr);
            accepted_ = client_ >= 0;
        });
    }
    ~SilentServer() {
        Close();
        acceptor_.join();
        close(listener_);
        if (client_ >= 0) {
            close(client_);
        }
    }
    // Any thread.
    void Close() {
        shutdown(listener_, SHUT_RDWR);
        if (accepted_) {
            shutdown(client_, SHUT_RDWR);
        }
    }
    [[nodiscard]] std::string Path() const { return (folder_.Path() / "audio").string(); }
    [[nodiscard]] bool Accepted() const { return accepted_; }

  private:
    TemporaryFolder folder_;
    int listener_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    int client_ = -1;
    std::atomic<bool> accepted_ = false;
    std::thread acceptor_;
};

class AudioServer : public WidgetTest {};

TEST_F(AudioServer, ThatDoesNotAnswerHoldsUpNobody) {
    EffectSounds sounds;
    SilentServer server;
    const EnvironmentVariable address("PULSE_SERVER", "unix:" + server.Path());
    Heartbeat heart([&] { server.Close(); });
    const int before = heart.Beats();
    sounds.Play(Sound::linkUp);
    ASSERT_TRUE(WaitFor([&] { return server.Accepted(); })) << "nobody asked the server";
    EXPECT_TRUE(WaitFor([&] { return heart.Beats() >= before + 20; }));
    EXPECT_FALSE(heart.HasStopped()) << "the window's thread waited for the audio server";
}

}  // namespace
}  // namespace quorvi
