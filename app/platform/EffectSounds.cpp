#include "app/platform/EffectSounds.h"

#include <QAudioDevice>
#include <QMediaDevices>
#include <QSoundEffect>
#include <utility>

// The linker drops the resources of a static library that nobody names. Q_INIT_RESOURCE names them,
// and works outside of namespaces only.
static void FindSounds() {
    Q_INIT_RESOURCE(sounds);
}

namespace quorvi {
namespace {

void PlayEffect(Sound sound, QObject& owner) {
    const QString name = QString::number(static_cast<int>(sound));
    auto* effect = owner.findChild<QSoundEffect*>(name);
    if (effect == nullptr) {
        effect = new QSoundEffect(&owner);
        effect->setObjectName(name);
        effect->setSource(EffectSounds::SourceOf(sound));
    }
    effect->play();
}

}  // namespace

EffectSounds::EffectSounds()
    : EffectSounds({.isThere = [] { return !QMediaDevices::defaultAudioOutput().isNull(); },
                    .play = PlayEffect},
                   &std::chrono::steady_clock::now) {}

EffectSounds::EffectSounds(Device device, Now now)
    : device_(std::move(device)), now_(std::move(now)) {
    FindSounds();
}

EffectSounds::~EffectSounds() {
    thread_.quit();
    thread_.wait();
}

void EffectSounds::Play(Sound sound) {
    if (owner_ == nullptr) {
        owner_ = new QObject;
        owner_->moveToThread(&thread_);
        QObject::connect(&thread_, &QThread::finished, owner_, &QObject::deleteLater);
        thread_.start();
    }
    QMetaObject::invokeMethod(
        owner_,
        [this, sound, asked = now_()] {
            if (device_.isThere() && now_() - asked <= kLatest) {
                device_.play(sound, *owner_);
            }
        },
        Qt::QueuedConnection);
}

QUrl EffectSounds::SourceOf(Sound sound) {
    return QUrl(QStringLiteral("qrc:/sounds/%1.wav").arg(static_cast<int>(sound)));
}

}  // namespace quorvi
