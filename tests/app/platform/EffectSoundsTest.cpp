// The sounds on their own thread, with devices of the test's own.
#include <QFile>
#include <atomic>
#include <mutex>
#include <vector>

#include "app/platform/EffectSounds.h"
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

}  // namespace
}  // namespace quorvi
