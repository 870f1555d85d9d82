// The alarm editor: adds an alarm to the phone's clock, or changes one.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "agent/AgentAddress.h"
#include "pages/alarms/AlarmDays.h"
#include "pages/alarms/AlarmForm.h"
#include "ui/kit/FieldTexts.h"
#include "ui/kit/SkinDialog.h"
#include "ui/page/Page.h"

class QHBoxLayout;

namespace quorvi {

class CSkinCheck;
class CSkinCombo;
class CSkinEdit;

// Dialog 551. 确定 ends with Accepted whatever happens, a close while it is sent included: nothing
// is sent while the label or the ring tone is empty, and a failed connect shows in the status. The
// window's thread.
class CAlarmEditDlg : public SkinDialog {
    Q_OBJECT
  public:
    // Add mode.
    CAlarmEditDlg(PageHost& host, QWidget* parent, AgentAddress agent);
    // Update mode: changes the alarm of that id, and begins with these fields.
    CAlarmEditDlg(PageHost& host, std::uint32_t id, const AlarmForm& form, QWidget* parent,
                  AgentAddress agent);

    // The fields as they are filled in. A text that the user has not changed is the one that was
    // set.
    [[nodiscard]] AlarmForm Form() const;

    // Puts a form back that did not get to the phone from an earlier dialog.
    void Resume(const AlarmForm& form);
    // The form that the user has told to save and the phone has not acknowledged, or that could not
    // be sent.
    [[nodiscard]] const std::optional<AlarmForm>& Unsaved() const { return unsaved_; }

  private:
    void BuildControls();
    CSkinEdit* Edit(int number, std::u8string_view name);
    CSkinCombo* Combo(int number, std::u8string_view name, int width);
    CSkinCheck* Check(int number, std::u8string_view name);
    void BuildTime(QHBoxLayout& row);
    void SetForm(const AlarmForm& form);
    void Begin(const AlarmForm& form);
    [[nodiscard]] bool WouldLose() const { return Form() != begun_; }
    void ShowNotice();
    void Save();

    PageHost& host_;
    std::optional<std::uint32_t> id_;  // of the alarm to change; nothing: adds
    AgentAddress agent_;
    AlarmForm begun_;  // as the fields stood before the user changed them
    std::optional<AlarmForm> unsaved_;
    bool resumed_ = false;
    FieldTexts texts_;

    CSkinEdit* label_ = nullptr;
    CSkinCombo* halfDay_ = nullptr;
    CSkinCombo* hour_ = nullptr;
    CSkinCombo* minute_ = nullptr;
    std::array<CSkinCheck*, kAlarmDays.size()> days_{};
    CSkinEdit* alert_ = nullptr;
    CSkinCheck* enabled_ = nullptr;
    CSkinCheck* vibrate_ = nullptr;
    CSkinButton* ok_ = nullptr;
    CSkinStateLabel* state_ = nullptr;
};

}  // namespace quorvi
