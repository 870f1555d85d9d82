// What the tests of the phone settings' page share: its controls, and a phone that answers it.
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <algorithm>
#include <iterator>
#include <span>
#include <vector>

#include "pages/phonesettings/PhoneSettingsPage.h"
#include "tests/pages/phonesettings/PhoneSettingsReplies.h"
#include "tests/support/AgentPageTest.h"
#include "tests/support/ControlDriver.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinFields.h"

namespace quorvi {

// Control numbers.
inline constexpr int kWifi = 1280;
inline constexpr int kBluetooth = 1282;
inline constexpr int kAirplane = 1284;
inline constexpr int kGps = 1281;
inline constexpr int kGravity = 1283;
inline constexpr int kVibrate = 1255;
inline constexpr int kBacklight = 1213;
inline constexpr int kRingVolume = 1214;
inline constexpr int kMusicVolume = 1215;
inline constexpr int kTime24 = 1204;
inline constexpr int kDateFormat = 1206;

inline constexpr int kSwitches[] = {kWifi,    kBluetooth, kAirplane, kGps,
                                    kGravity, kVibrate,   kTime24};
inline constexpr int kLists[] = {kBacklight, kRingVolume, kMusicVolume, kDateFormat};

// The request that writes a setting.
inline Bytes Written(std::uint32_t key, std::uint32_t value) {
    return WireBytes()
        .U32(871502)  // code
        .U32(20)      // total
        .U32(1)       // item count
        .U32(key)     //
        .U32(value)   //
        .Get();
}

class PhoneSettingsFixture : public AgentPageTest<CPhoneSettingsPage, AgentCommand::readSettings> {
  protected:
    void SetUp() override {
        Tell({});
        agent_.AnswerAcknowledged(AgentCommand::writeSetting);
    }

    void Tell(const ToldSettings& settings) {
        agent_.AnswerPayload(AgentCommand::readSettings, SettingsPayload(settings).Get());
    }
    CPhoneSettingsPage& OpenAt(std::uint16_t port) {
        MakeAt(port).show();
        return *page_;
    }
    CPhoneSettingsPage& Open() { return OpenAt(agent_.Port()); }
    CPhoneSettingsPage& OpenLoaded() {
        Open().Load();
        WaitForLoads(1);
        return *page_;
    }
    CPhoneSettingsPage& OpenWith(const ToldSettings& settings) {
        Tell(settings);
        return OpenLoaded();
    }
    // Reads the settings again, to the end.
    void LoadAgain() {
        page_->Load();
        Settle();
    }

    QWidget& Control(int number) { return *FindControl(page_.get(), number); }
    QAbstractButton& Switch(int number) {
        return *FindControl<QAbstractButton>(page_.get(), number);
    }
    CSkinCombo& List(int number) { return *FindControl<CSkinCombo>(page_.get(), number); }
    QString Said() { return page_->findChild<QLabel*>(QStringLiteral("settingsState"))->text(); }
    // Chooses an entry as the arrow keys do, one step after the other.
    void StepTo(int number, int entry) {
        while (List(number).currentIndex() != entry) {
            QTest::keyClick(&List(number),
                            List(number).currentIndex() < entry ? Qt::Key_Down : Qt::Key_Up);
        }
    }
    std::vector<Bytes> Writes() { return agent_.Requests(AgentCommand::writeSetting); }
    void WaitForWrites(std::size_t count) {
        ASSERT_TRUE(WaitFor([&] { return Writes().size() == count; }));
    }
    // What all controls show.
    std::vector<int> Shown() {
        std::vector<int> shown;
        for (const int number : kSwitches) {
            shown.push_back(Switch(number).isChecked() ? 1 : 0);
        }
        for (const int number : kLists) {
            shown.push_back(List(number).currentIndex());
        }
        return shown;
    }
    // The controls that can be used.
    std::vector<int> Usable() {
        std::vector<int> usable;
        for (const auto& numbers :
             {std::span<const int>(kSwitches), std::span<const int>(kLists)}) {
            std::ranges::copy_if(numbers, std::back_inserter(usable),
                                 [&](int number) { return Control(number).isEnabled(); });
        }
        return usable;
    }
};

inline constexpr std::size_t kControls = std::size(kSwitches) + std::size(kLists);

}  // namespace quorvi
