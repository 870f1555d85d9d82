#include "app/platform/EffectSounds.h"

#include <QAudioDevice>
#include <QMediaDevices>
#include <QUrl>

// The linker drops the resources of a static library that nobody names. Q_INIT_RESOURCE names them,
// and works outside of namespaces only.
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
