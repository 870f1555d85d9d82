// The controls of the phone's settings, one for each, in their groups.
#pragma once

#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <map>
#include <string_view>

#include "pages/phonesettings/PhoneSettings.h"

class QGridLayout;

namespace quorvi {

class CSkinGroupBox;

// Every control stands for one row of the settings' table. What the program puts into a control is
// told to nobody; what the user chooses in it is told by `chosen`. The window's thread.
class PhoneSettingsForm : public QWidget {
    Q_OBJECT
  public:
    explicit PhoneSettingsForm(QWidget* parent = nullptr);

    // Puts what was read into the controls.
    void Show(const PhoneSettingValues& values);

    // Disables all controls.
    void Lock();
    // Disables all controls but that of one setting, which may be used on. They are drawn so when
    // it lasts: an exchange with a phone is over in a moment, and a form that turned grey at each
    // press would flicker.
    void LockAllBut(PhoneSetting setting);
    void Unlock();

  Q_SIGNALS:
    // The user has chosen a value, be it the one that is shown already: the phone may hold another.
    void chosen(quorvi::PhoneSetting setting, std::uint32_t value);
    // Buttons of the group that is hidden.
    void wallpapersAsked();
    void ringtonesAsked();

  private:
    void AddGeneral();
    void AddSoundAndScreen();
    void AddDateAndTime();
    void AddHidden();
    // A group of rows that are as high as each other.
    CSkinGroupBox* AddGroup(int number, std::u8string_view caption, QGridLayout*& rows);
    QWidget* Make(PhoneSetting setting, int number);
    QWidget* MakeSwitch(PhoneSetting setting);
    QWidget* MakeList(PhoneSetting setting);
    void DrawAll();

    std::map<PhoneSetting, QWidget*> controls_;
    QTimer lasting_;
};

}  // namespace quorvi
