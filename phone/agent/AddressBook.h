// The contacts and groups on the phone. Text is UTF-8, or whatever bytes were sent.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "phone/Channel.h"

namespace quorvi::phone {

// A text with a data row of its own.
struct ContactText {
    std::uint64_t row = 0;
    std::string text;
};

struct ContactEntry {
    std::uint64_t row = 0;
    std::int32_t type = 0;
    std::string text;
};

// The lists of a contact, in the order of the wire. A group entry's type is the group's id; its
// text is the group's title, looked up when it is sent.
enum class ContactList { phones, groups, emails, ims, websites, addresses, organisations };
inline constexpr std::size_t kContactLists = 7;

struct Contact {
    std::uint64_t id = 0;
    bool favourite = false;
    std::uint64_t lastContact = 0;  // milliseconds since 1970; 0: never
    std::uint64_t timesContacted = 0;
    SharedBytes photo;
    std::uint64_t photoRow = 0;
    std::optional<ContactText> structured;
    std::optional<ContactText> name;
    std::optional<ContactText> nickname;
    std::optional<ContactText> note;
    std::array<std::vector<ContactEntry>, kContactLists> lists;

    [[nodiscard]] std::vector<ContactEntry>& List(ContactList list) {
        return lists[static_cast<std::size_t>(list)];
    }
    [[nodiscard]] const std::vector<ContactEntry>& List(ContactList list) const {
        return lists[static_cast<std::size_t>(list)];
    }
    // The name that lists show; empty without one.
    [[nodiscard]] std::string Name() const { return name ? name->text : std::string(); }
};

struct ContactGroup {
    std::uint64_t id = 0;
    std::string title;
    std::string account;
    std::uint32_t visible = 1;
};

// Whether two numbers are one: by their last eleven digits.
[[nodiscard]] bool IsSameNumber(std::string_view a, std::string_view b);

class AddressBook {
  public:
    std::vector<Contact> contacts;
    std::vector<ContactGroup> groups;

    [[nodiscard]] Contact* Find(std::uint64_t id);
    [[nodiscard]] ContactGroup* FindGroup(std::uint64_t id);
    // Its members stay as contacts.
    void RemoveGroup(std::uint64_t id);
    // Empty for a group that is gone.
    [[nodiscard]] std::string GroupTitle(std::uint64_t id) const;
    // The name of the contact with that number, compared by its last eleven digits; nothing when
    // nobody has it.
    [[nodiscard]] std::optional<std::string> NameOf(std::string_view number) const;

    [[nodiscard]] std::uint64_t NewContactId() { return ++lastContact_; }
    [[nodiscard]] std::uint64_t NewRow() { return ++lastRow_; }
    [[nodiscard]] std::uint64_t NewGroupId() { return ++lastGroup_; }

  private:
    std::uint64_t lastContact_ = 0;
    std::uint64_t lastRow_ = 100;
    std::uint64_t lastGroup_ = 0;
};

// What the owner of the phone has entered.
[[nodiscard]] AddressBook DeliveredAddressBook();

// What nobody would enter: markup and scripts, a megabyte of text, control characters, bytes that
// are no UTF-8, pictures that are none.
void AddHostileContacts(AddressBook& book);

// `count` contacts with one number each; with a photo of so many bytes each, or none for 0.
[[nodiscard]] AddressBook LargeAddressBook(std::uint32_t count, std::uint32_t photoBytes);

}  // namespace quorvi::phone
