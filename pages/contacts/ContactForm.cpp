#include "pages/contacts/ContactForm.h"

#include <utility>

#include "base/Text.h"
#include "pages/contacts/ContactTypes.h"

namespace quorvi {
namespace {

// The type that a field with a combo box is saved with: a code that the combo lacks shows as its
// last entry, and goes out as that one's.
std::int32_t SavedType(const ContactTypeTable& types, std::int32_t code) {
    return types.Code(types.ComboIndex(code));
}

void Show(const std::vector<ContactItem>& items, std::size_t index, ContactTypedField& field) {
    if (index < items.size()) {
        field = {items[index].type, items[index].text};
    }
}

void Show(const std::vector<ContactItem>& items, std::string& field) {
    if (!items.empty()) {
        field = items.front().text;
    }
}

ContactField NewField(const std::string& ansi) {
    return {!ansi.empty(), ContactItemOp::add, kNewContactItem, ToUtf8(ansi)};
}

void AddItem(std::vector<ContactItem>& items, std::int32_t type, std::string text) {
    if (!text.empty()) {
        items.push_back({kNewContactItem, ContactItemOp::add, type, std::move(text)});
    }
}

// The bytes of a text that goes out in UTF-8: those that came, where it is unchanged.
template <typename Loaded>
std::string Utf8Of(const Loaded& loaded, const std::string& ansi) {
    return ansi == loaded.text && !loaded.came.empty() ? loaded.came : ToUtf8(ansi);
}

// The bytes of a text that goes out in ANSI: those that came, where it is unchanged and the code
// page could not hold them.
std::string AnsiOf(const ContactItem& loaded, const std::string& ansi) {
    return ansi == loaded.text && !FitsCodePage(loaded.came) ? loaded.came : ansi;
}

// A row that is left alone or removed goes out with the text that it came with.
void KeepText(ContactItem& item) {
    if (item.op == ContactItemOp::leave || item.op == ContactItemOp::remove) {
        item.text = AnsiOf(item, item.text);
    }
}

void UpdateField(ContactField& field, const std::string& ansi) {
    if (ansi.empty()) {
        // Kept on purpose: without the flag the block is not sent, and so the removal is not either
        // (test ContactForm.ClearedNicknameLosesItsFlagAndKeepsItsOperationUnsent).
        field.present = false;
        field.op = ContactItemOp::remove;
        return;
    }
    field.op = field.present ? ContactItemOp::update : ContactItemOp::add;
    field.present = true;
    field.text = Utf8Of(field, ansi);
}

enum class Sent { utf8, ansi };

// One control, with an ANSI text, against the item it stands for.
void UpdateItem(std::vector<ContactItem>& items, std::size_t index, std::int32_t type,
                const std::string& text, Sent sent = Sent::ansi) {
    if (items.size() <= index) {
        // Keeps its place and is sent like the others.
        items.emplace_back();
    }
    ContactItem& item = items[index];
    if (text.empty()) {
        if (!item.text.empty()) {
            item.op = ContactItemOp::remove;
        }
        return;
    }
    if (item.text.empty()) {
        item.id = kNewContactItem;
        item.op = ContactItemOp::add;
    } else {
        item.op = ContactItemOp::update;
    }
    item.type = type;
    item.text = sent == Sent::utf8 ? Utf8Of(item, text) : AnsiOf(item, text);
}

}  // namespace

ContactForm FormOf(const ContactRecord& record) {
    ContactForm form;
    form.favourite = record.favourite;
    form.name = record.name.Shown();
    form.nickname = record.nickname.Shown();
    form.note = record.note.Shown();
    for (std::size_t i = 0; i < form.phones.size(); ++i) {
        Show(record.phones, i, form.phones[i]);
    }
    Show(record.ims, 0, form.im);
    Show(record.emails, 0, form.email);
    Show(record.websites, form.website);
    Show(record.organisations, form.organisation);
    Show(record.addresses, form.address);
    return form;
}

std::u8string_view RiskOfSaving(const ContactReply& loaded) {
    if (loaded.outcome == SessionOutcome::noData) {
        return {};
    }
    if (loaded.outcome != SessionOutcome::complete || !loaded.record) {
        return u8"没有读全原有的资料，保存可能会覆盖它们";
    }
    if (loaded.record->charactersLost) {
        return u8"有些字符显示成“?”，改动那一栏后手机上也是“?”";
    }
    return {};
}

std::optional<ContactRecord> RecordToAdd(const ContactForm& form) {
    if (form.name.empty()) {
        return std::nullopt;
    }
    ContactRecord record;
    record.favourite = form.favourite;
    record.name = NewField(form.name);
    record.nickname = NewField(form.nickname);
    record.note = NewField(form.note);
    for (const ContactTypedField& phone : form.phones) {
        AddItem(record.phones, SavedType(kPhoneTypes, phone.type), phone.text);
    }
    AddItem(record.ims, SavedType(kImTypes, form.im.type), form.im.text);
    AddItem(record.emails, SavedType(kEmailTypes, form.email.type), form.email.text);
    AddItem(record.websites, 0, ToUtf8(form.website));
    AddItem(record.organisations, 0, ToUtf8(form.organisation));
    AddItem(record.addresses, 0, ToUtf8(form.address));
    return record;
}

ContactRecord RecordToUpdate(ContactRecord loaded, const ContactForm& form) {
    ContactRecord record = std::move(loaded);
    record.favourite = form.favourite;
    UpdateField(record.name, form.name);
    UpdateField(record.nickname, form.nickname);
    UpdateField(record.note, form.note);
    for (std::size_t i = 0; i < form.phones.size(); ++i) {
        UpdateItem(record.phones, i, SavedType(kPhoneTypes, form.phones[i].type),
                   form.phones[i].text);
    }
    UpdateItem(record.ims, 0, SavedType(kImTypes, form.im.type), form.im.text);
    UpdateItem(record.emails, 0, SavedType(kEmailTypes, form.email.type), form.email.text);
    UpdateItem(record.websites, 0, 0, form.website, Sent::utf8);
    UpdateItem(record.organisations, 0, 0, form.organisation);
    UpdateItem(record.addresses, 0, 0, form.address);
    for (const ContactRecord::List list : kContactLists) {
        for (ContactItem& item : record.*list) {
            KeepText(item);
        }
    }
    return record;
}

}  // namespace quorvi
