#include "phone/agent/AddressBook.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "base/Utf8.h"
#include "phone/agent/Photos.h"

namespace quorvi::phone {
namespace {

// Digits that tell two numbers apart; what stands in front is a country's or a carrier's prefix.
constexpr std::size_t kComparedDigits = 11;

std::string LastDigits(std::string_view number) {
    std::string digits;
    std::copy_if(number.begin(), number.end(), std::back_inserter(digits),
                 [](char c) { return c >= '0' && c <= '9'; });
    return digits.size() > kComparedDigits ? digits.substr(digits.size() - kComparedDigits)
                                           : digits;
}

template <typename Records>
auto* FindById(Records& records, std::uint64_t id) {
    const auto found = std::find_if(records.begin(), records.end(),
                                    [&](const auto& record) { return record.id == id; });
    return found == records.end() ? nullptr : &*found;
}

// A length past what the suite keeps of a photo, by one byte.
constexpr std::size_t kPhotoTooLong = 262'245;

constexpr std::uint32_t kAbsurdSide = 60'000;

constexpr std::size_t kMegabyte = 1024 * 1024;

}  // namespace

bool IsSameNumber(std::string_view a, std::string_view b) {
    return LastDigits(a) == LastDigits(b);
}

Contact* AddressBook::Find(std::uint64_t id) {
    return FindById(contacts, id);
}

ContactGroup* AddressBook::FindGroup(std::uint64_t id) {
    return FindById(groups, id);
}

void AddressBook::RemoveGroup(std::uint64_t id) {
    std::erase_if(groups, [&](const ContactGroup& group) { return group.id == id; });
    for (Contact& contact : contacts) {
        std::erase_if(contact.List(ContactList::groups), [&](const ContactEntry& entry) {
            return static_cast<std::uint64_t>(entry.type) == id;
        });
    }
}

std::string AddressBook::GroupTitle(std::uint64_t id) const {
    const ContactGroup* group = FindById(groups, id);
    return group ? group->title : std::string();
}

std::optional<std::string> AddressBook::NameOf(std::string_view number) const {
    const std::string wanted = LastDigits(number);
    if (wanted.empty()) {
        return std::nullopt;
    }
    for (const Contact& contact : contacts) {
        for (const ContactEntry& phone : contact.List(ContactList::phones)) {
            if (LastDigits(phone.text) == wanted) {
                return contact.Name();
            }
        }
    }
    return std::nullopt;
}

AddressBook LargeAddressBook(std::uint32_t count, std::uint32_t photoBytes) {
    AddressBook book;
    book.contacts.reserve(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        Contact contact;
        contact.id = book.NewContactId();
        contact.favourite = i % 7 == 0;
        contact.lastContact = i % 3 == 0 ? 0 : 1'308'361'330'000u - i * 60'000ull;
        contact.name = ContactText{book.NewRow(), Utf8(u8"联系人 ") + std::to_string(i + 1)};
        contact.List(ContactList::phones)
            .push_back({book.NewRow(), 2, fmt::format("138{:08}", i * 7919ull % 100'000'000)});
        if (photoBytes > 0) {
            contact.photo = Share(PaddedPhoto(photoBytes, i));
        }
        book.contacts.push_back(std::move(contact));
    }
    return book;
}

void AddHostileContacts(AddressBook& book) {
    const auto add = [&](std::string name, std::string note,
                         std::optional<Bytes> photo = std::nullopt) {
        Contact contact;
        contact.id = book.NewContactId();
        contact.name = ContactText{book.NewRow(), std::move(name)};
        contact.note = ContactText{book.NewRow(), std::move(note)};
        contact.List(ContactList::phones).push_back({book.NewRow(), 2, "13800000000"});
        if (photo) {
            contact.photo = Share(std::move(*photo));
        }
        book.contacts.push_back(std::move(contact));
    };
    add("<script>document.title='owned'</script><b>bold", "<img src=x onerror=alert(1)>");
    add("</li></ul><form action='http://example.com/'><input name=q></form>",
        "<iframe src='http://example.com/'></iframe><meta http-equiv=refresh "
        "content='0;url=http://example.com/'>");
    add("<a href='qvh:did=1'>x</a>", "<a href='javascript:alert(1)' target=_blank>y</a>");
    add("%s%n%d %1$s", std::string("zero \0 inside", 13));
    add("\x01\x02\x1b[31m\t\r\n\x7f", "line one\nline two\r\nline three");
    add("\xff\xfe\xc0\xaf broken \xe4\xb8", "\xed\xa0\x80 half a pair");
    add(Utf8(u8"\u202e右到左\u202c \u200b\ufeff"), Utf8(u8"e\u0301\u0301\u0301\u0301"));
    add("megabyte of note", std::string(kMegabyte, 'x'));
    add(std::string(kMegabyte, 'n'), "megabyte of name");
    add("broken picture", "",
        Bytes{std::byte{0xff}, std::byte{0xd8}, std::byte{0xff}, std::byte{0}});
    add("picture of no byte", "", Bytes());
    add("picture of one byte", "", Bytes{std::byte{0x42}});
    add("picture too long", "", PaddedPhoto(kPhotoTooLong, 0));
    add("picture of 60000 by 60000", "", HeaderOnlyPng(kAbsurdSide, kAbsurdSide));
    // The last of them is in the groups, so that their titles are shown with it.
    const auto addGroup = [&](std::string title) {
        const std::uint64_t id = book.NewGroupId();
        book.groups.push_back({id, std::move(title), "x", 2});
        book.contacts.back()
            .List(ContactList::groups)
            .push_back({book.NewRow(), static_cast<std::int32_t>(id), {}});
    };
    addGroup("<b>group</b><script>alert(1)</script>");
    addGroup(std::string(kMegabyte, 'g'));
}

}  // namespace quorvi::phone
