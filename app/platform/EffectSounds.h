// Sounds on the machine's own device.
#pragma once

#include <QThread>
#include <QUrl>
#include <chrono>
#include <functional>

#include "app/platform/Sounds.h"

namespace quorvi {

// Whoever plays a sound waits for nobody: the device is asked for, and the sound played, on a
// thread of the sounds' own, as an audio server that does not answer holds up whoever asks it. A
// sound whose turn comes too late to tell anything is dropped.
class EffectSounds : public Sounds {
  public:
    using Now = std::function<std::chrono::steady_clock::time_point()>;

    // What plays. Both are called on the thread of the sounds.
    struct Device {
        std::function<bool()> isThere;  // asked at each sound
        // `owner` lives on the thread of the sounds, and owns what plays.
        std::function<void(Sound sound, QObject& owner)> play;
    };

    // A sound that has waited longer than this is dropped.
    static constexpr std::chrono::seconds kLatest{3};

    // On the default device of the machine.
    EffectSounds();
    EffectSounds(Device device, Now now);
    // Waits for the sound that is being played; the program ends without it.
    ~EffectSounds() override;

    void Play(Sound sound) override;

    // Where the program has a sound.
    [[nodiscard]] static QUrl SourceOf(Sound sound);

  private:
    Device device_;
    Now now_;
    QThread thread_;
    QObject* owner_ = nullptr;  // lives on thread_, from the first sound to the thread's end
};

}  // namespace quorvi
