// Sounds on the machine's own device.
#pragma once

#include <QSoundEffect>
#include <map>
#include <memory>

#include "app/platform/Sounds.h"

namespace quorvi {

class EffectSounds : public Sounds {
  public:
    EffectSounds();
    void Play(Sound sound) override;

  private:
    std::map<Sound, std::unique_ptr<QSoundEffect>> effects_;
};

}  // namespace quorvi
