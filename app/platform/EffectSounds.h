// Sounds on the machine's own device.
#pragma once

#include <QSoundEffect>
#include <functional>
#include <map>
#include <memory>

#include "app/platform/Sounds.h"

namespace quorvi {

class EffectSounds : public Sounds {
  public:
    // Whether the machine has a device now; asked at each sound.
    using HasDevice = std::function<bool()>;

    // On the default device of the machine.
    EffectSounds();
    explicit EffectSounds(HasDevice hasDevice);

    void Play(Sound sound) override;

    // What plays a sound; null before its first time.
    [[nodiscard]] const QSoundEffect* EffectOf(Sound sound) const;

  private:
    HasDevice hasDevice_;
    std::map<Sound, std::unique_ptr<QSoundEffect>> effects_;
};

}  // namespace quorvi
