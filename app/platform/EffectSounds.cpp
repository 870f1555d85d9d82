#include "app/platform/EffectSounds.h"

#include <QAudioDevice>
#include <QMediaDevices>
#include <QUrl>

// In a static library resources are found only once they are asked for; outside of namespaces.
static void FindSounds() {
    Q_INIT_RESOURCE(sounds);
}

namespace quorvi {

EffectSounds::EffectSounds() {
    FindSounds();
}

void EffectSounds::Play(Sound sound) {
    if (QMediaDevices::defaultAudioOutput().isNull()) {
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
