// The sounds on their own thread, with devices of the test's own and with an audio server that
// never answers.
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QFile>
#include <atomic>
#include <cstring>
#include <mutex>
#include <thread>

#include "app/platform/EffectSounds.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Heartbeat.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/WidgetTest.h"

namespace quorvi {
namespace {

using Time = std::chrono::steady_clock::time_point;

class SoundsTest : public WidgetTest {
  protected:
    EffectSounds::Device Device() {
        return {.isThere =
                    [this] {
                        onWindowsThread_ = QThread::currentThread() == qApp->thread();
                        now_ = now_.load() + takes_.load();
                        ++asked_;
                        return isThere_.load();
                    },
                .play =
                    [this](Sound sound, QObject&) {
                        const std::lock_guard lock(mutex_);
                        played_.push_back(sound);
                    }};
    }
    EffectSounds::Now Now() {
        return [this] { return now_.load(); };
    }

    std::atomic<bool> isThere_ = true;
    std::atomic<std::chrono::milliseconds> takes_{std::chrono::milliseconds(0)};  // the asking
    std::atomic<Time> now_{Time()};
    std::atomic<int> asked_ = 0;
    std::atomic<bool> onWindowsThread_ = false;
    std::mutex mutex_;
    std::vector<Sound> played_;
};

TEST_F(SoundsTest, ASoundIsPlayedOffTheWindowsThread) {
    EffectSounds sounds(Device(), Now());
    sounds.Play(Sound::removal);
    ASSERT_TRUE(WaitFor([&] {
        const std::lock_guard lock(mutex_);
        return played_ == std::vector{Sound::removal};
    }));
    EXPECT_FALSE(onWindowsThread_);
}

TEST_F(SoundsTest, NothingIsPlayedWithoutADevice) {
    isThere_ = false;
    {
        EffectSounds sounds(Device(), Now());
        sounds.Play(Sound::linkUp);
        ASSERT_TRUE(WaitFor([&] { return asked_ == 1; }));
        isThere_ = true;  // one that comes later
        sounds.Play(Sound::removal);
        ASSERT_TRUE(WaitFor([&] { return asked_ == 2; }));
    }
    EXPECT_EQ(played_, std::vector{Sound::removal});
}

TEST_F(SoundsTest, ASoundThatComesTooLateIsDropped) {
    {
        EffectSounds sounds(Device(), Now());
        takes_ = EffectSounds::kLatest;
        sounds.Play(Sound::linkUp);
        ASSERT_TRUE(WaitFor([&] { return asked_ == 1; }));
        takes_ = EffectSounds::kLatest + std::chrono::milliseconds(1);
        sounds.Play(Sound::removal);
        ASSERT_TRUE(WaitFor([&] { return asked_ == 2; }));
    }
    EXPECT_EQ(played_, std::vector{Sound::linkUp});
}

TEST_F(SoundsTest, BothSoundsArePartOfTheProgram) {
    const EffectSounds sounds;
    for (const Sound sound : {Sound::linkUp, Sound::removal}) {
        QFile wave(QStringLiteral(":") + EffectSounds::SourceOf(sound).path());
        ASSERT_TRUE(wave.open(QIODevice::ReadOnly)) << static_cast<int>(sound);
        const QByteArray head = wave.read(12);
        EXPECT_EQ(head.left(4), "RIFF");
        EXPECT_EQ(head.mid(8), "WAVE");
    }
}

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

TEST_F(SoundsTest, AnAudioServerThatDoesNotAnswerHoldsUpNobody) {
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
