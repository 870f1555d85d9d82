// The contact editor: adds a contact, or changes one by the difference to what was loaded.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "agent/AgentAddress.h"
#include "pages/contacts/ContactForm.h"
#include "pages/contacts/ContactTypes.h"
#include "ui/kit/FieldTexts.h"
#include "ui/kit/SkinDialog.h"
#include "ui/page/Page.h"

namespace quorvi {

class CSkinCheck;
class CSkinCombo;
class CSkinEdit;
class SkinTextEdit;

// Dialog 540. Ends with Accepted once a save is on its way, whether or not the link was there and
// whichever way it is closed; with Rejected otherwise. While it speaks to the phone its fields and
// 保存 are disabled; 取消 never is. The window's thread.
class CContactEditDlg : public SkinDialog {
    Q_OBJECT
  public:
    // Add mode.
    CContactEditDlg(PageHost& host, QWidget* parent, AgentAddress agent);
    // Update mode: loads the contact at once.
    CContactEditDlg(PageHost& host, std::uint32_t contactId, QWidget* parent, AgentAddress agent);

    // The form as it is filled in, and the other way round. A text that the user has not changed is
    // the one that was set, whatever the field shows of it.
    [[nodiscard]] ContactForm Form() const;
    void SetForm(const ContactForm& form);

    // Right behind the construction, in add mode: the new contact begins with a number, which is
    // ANSI.
    void BeginWithNumber(const std::string& number);

    // Right behind the construction: puts a form back that did not get to the phone from an earlier
    // dialog. One that changes a contact comes over what is loaded, and is given up where the phone
    // has it by now.
    void Resume(const ContactForm& form);
    // The form that the user has told to save and the phone has not acknowledged.
    [[nodiscard]] const std::optional<ContactForm>& Unsaved() const { return unsaved_; }

  private:
    // A field with a combo box before it.
    struct TypedField {
        CSkinCombo* type = nullptr;
        CSkinEdit* text = nullptr;
    };

    void BuildControls();
    CSkinEdit* Edit(int number, const QString& name);
    SkinTextEdit* TextEdit(int number, const QString& name);
    TypedField Typed(int typeNumber, int textNumber, const QString& name,
                     const ContactTypeTable& types);
    void Load();
    void ShowLoaded(ContactReply&& reply);
    // Shows what the user begins with.
    void Begin(const ContactForm& form);
    // A field's text has changed.
    void Follow(const QWidget* field, const QString& text);
    // What the state says from now on; an empty text is 就绪.
    void Notice(int state, std::u8string_view text);
    void ShowNotice();
    [[nodiscard]] bool WouldLose() const;
    void Save();
    void Send(Bytes request);
    void SetBusy(bool busy);

    PageHost& host_;
    bool adds_;
    std::uint32_t contactId_ = 0;
    AgentAddress agent_;
    ContactRecord record_;  // update mode: as it was loaded
    ContactForm begun_;     // as the fields stood before the user changed them
    std::optional<ContactForm> unsaved_;
    std::optional<ContactForm> resumed_;  // update mode: until the contact is loaded
    // What the state says while no field has characters that cannot be saved.
    int noticeState_ = 0;
    QString noticeText_;
    bool refused_ = false;            // a save was refused for want of a name
    std::set<const QWidget*> lossy_;  // fields with characters that cannot be saved
    FieldTexts texts_;

    CSkinEdit* name_ = nullptr;
    CSkinEdit* nickname_ = nullptr;
    std::array<TypedField, kContactFormPhones> phones_;
    TypedField im_;
    TypedField email_;
    CSkinEdit* address_ = nullptr;
    CSkinEdit* organisation_ = nullptr;
    SkinTextEdit* website_ = nullptr;
    SkinTextEdit* note_ = nullptr;
    CSkinCheck* favourite_ = nullptr;
    CSkinStateLabel* state_ = nullptr;
    CSkinButton* save_ = nullptr;
};

}  // namespace quorvi
