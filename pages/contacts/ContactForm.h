// The contact editor's fields, and what a save makes of them: a new record, or the difference to
// the record that was loaded. Pure functions, so that the dialog and the command line send the very
// same bytes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "pages/contacts/ContactRecord.h"
#include "pages/kit/SavedText.h"  // for editors and the command line: what they say of the form

namespace quorvi {

// A field with a combo box beside it.
struct ContactTypedField {
    std::int32_t type = 0;
    std::string text;

    bool operator==(const ContactTypedField&) const = default;
};

inline constexpr std::size_t kContactFormPhones = 3;

// Why a new contact is not saved.
inline constexpr std::u8string_view kEmptyContactName = u8"错误: 联系人姓名不能为空";

// The fields, ANSI, as the editor opens with them: texts empty, types at their defaults.
struct ContactForm {
    bool favourite = false;
    std::string name;
    std::string nickname;
    std::string note;
    // Mobile, work, home.
    std::array<ContactTypedField, kContactFormPhones> phones{{{2, {}}, {3, {}}, {1, {}}}};
    ContactTypedField im{4, {}};     // QQ
    ContactTypedField email{1, {}};  // home
    std::string website;
    std::string organisation;
    std::string address;

    bool operator==(const ContactForm&) const = default;
};

// What the editor shows of a record: the first three phones and the first item of each other list.
[[nodiscard]] ContactForm FormOf(const ContactRecord& record);

// The warning that the editor shows of a contact that was loaded like this: a save overwrites with
// blank fields what was not read, and of a text that is changed it loses the characters that the
// code page lacks. Empty where neither is so, and where the phone has no data of the contact.
[[nodiscard]] std::u8string_view RiskOfSaving(const ContactReply& loaded);

// The record that a save sends for a new contact; nothing when the name is empty. A name of blanks
// is one. Name, nickname, note, website, organisation and address are turned to UTF-8; phones, IM
// and e-mail go out as they stand in the field. Kept on purpose: agents have always been sent them
// so.
[[nodiscard]] std::optional<ContactRecord> RecordToAdd(const ContactForm& form);

// The record that a save sends for a contact that was loaded as `loaded`: each row that the form
// stands for is marked to be added, updated or removed, all others to be left alone. Name,
// nickname, note and website are turned to UTF-8; phones, IM, e-mail, and, unlike for a new
// contact, organisation and address go out as they stand in the field. Kept on purpose: agents have
// always been sent them so (test ContactForm.ChangedContactConvertsOnlySingleFieldsAndTheWebsite).
//
// A text that is still as FormOf gave it goes back in the very bytes in which it came: one of the
// first four always, one of the others where its bytes would be lost in the code page.
[[nodiscard]] ContactRecord RecordToUpdate(ContactRecord loaded, const ContactForm& form);

// The requests of commands 870103 and 870104. Texts go out as they stand in the record.
[[nodiscard]] Bytes AddContactRequest(const ContactRecord& record);
[[nodiscard]] Bytes UpdateContactRequest(const ContactRecord& record);

}  // namespace quorvi
