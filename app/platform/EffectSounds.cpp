#include "app/platform/EffectSounds.h"

#include <QAudioDevice>
#include <QMediaDevices>
#include <QUrl>
#include <utility>

// The linker drops the resources of a static library that nobody names. Q_INIT_RESOURCE names them,
// and works outside of namespaces only.
static void FindSounds() {
    Q_INIT_RESOURCE(sounds);
}

namespace quorvi {

EffectSounds::EffectSounds()
    : EffectSounds([] { return !QMediaDevices::defaultAudioOutput().isNull(); }) {}

EffectSounds::EffectSounds(HasDevice hasDevice) : hasDevice_(std::move(hasDevice)) {
    FindSounds();
}

const QSoundEffect* EffectSounds::EffectOf(Sound sound) const {
    const auto found = effects_.find(sound);
    return found == effects_.end() ? nullptr : found->second.get();
}

void EffectSounds::Play(Sound sound) {
    if (!hasDevice_()) {
        return;
    }
    std::unique_ptr<QSoundEffect>& effect = effects_[sound];
    if (!effect) {
        effect = std::make_unique<QSoundEffect>();
        effect->setSource(QUrl(QStringLiteral("qrc:/sounds/%1.wav").arg(static_cast<int>(sound))));
    }
    effect->play();
}

}  // namespace quorvi
