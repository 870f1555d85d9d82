// The tray's menu, and the tray and the sounds of a machine that has neither.
#include <QFile>

#include "app/platform/DesktopTray.h"
#include "app/platform/EffectSounds.h"
#include "app/platform/TrayMenu.h"
#include "tests/support/WidgetTest.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinMenu.h"

namespace quorvi {
namespace {

class TrayParts : public WidgetTest {};

TEST_F(TrayParts, TheMenuCarriesItsCommandsInOrder) {
    CSkinMenu menu;
    FillTrayMenu(menu);
    std::vector<int> commands;
    const auto actions = menu.actions();
    for (const QAction* action : actions) {
        commands.push_back(CSkinMenu::CommandOf(action));
        EXPECT_FALSE(action->icon().isNull());
    }
    EXPECT_EQ(commands, (std::vector{32772, 32773, 32774, 32771}));
}

TEST_F(TrayParts, WithoutATrayNoBalloonIsClaimed) {
    DesktopTray tray;
    tray.Listen({[](TrayMouse) {}, [](TrayCommand) {}, [] {}});
    tray.Add(QStringLiteral("tip"));
    EXPECT_FALSE(tray.Available());
    EXPECT_FALSE(tray.ShowBalloon(QStringLiteral("title"), QStringLiteral("text")));
    tray.Remove();
}

TEST_F(TrayParts, SoundsAreSilentWithoutADevice) {
    EffectSounds sounds([] { return false; });
    for (const Sound sound : {Sound::linkUp, Sound::removal}) {
        sounds.Play(sound);
        EXPECT_EQ(sounds.EffectOf(sound), nullptr);
    }
}

TEST_F(TrayParts, ADeviceThatComesLaterPlaysTheSoundOfItsNumber) {
    bool hasDevice = false;
    EffectSounds sounds([&] { return hasDevice; });
    sounds.Play(Sound::removal);
    hasDevice = true;
    sounds.Play(Sound::removal);
    ASSERT_NE(sounds.EffectOf(Sound::removal), nullptr);
    EXPECT_EQ(sounds.EffectOf(Sound::removal)->source(),
              QUrl(QStringLiteral("qrc:/sounds/657.wav")));
    EXPECT_EQ(sounds.EffectOf(Sound::linkUp), nullptr);
}

TEST_F(TrayParts, BothSoundsArePartOfTheProgram) {
    const EffectSounds sounds;
    for (const int sound : {656, 657}) {
        QFile wave(QStringLiteral(":/sounds/%1.wav").arg(sound));
        ASSERT_TRUE(wave.open(QIODevice::ReadOnly)) << sound;
        const QByteArray head = wave.read(12);
        EXPECT_EQ(head.left(4), "RIFF");
        EXPECT_EQ(head.mid(8), "WAVE");
    }
}

}  // namespace
}  // namespace quorvi
