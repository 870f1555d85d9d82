#include "backup/ContactCard.h"

#include "backup/Charset.h"
#include "base/Text.h"

namespace quorvi {
namespace {

// The very bytes that came from the phone.
template <typename Loaded>
std::string TextOf(const Loaded& loaded) {
    return CardText(loaded.came);
}

std::string NameToGoBy(const ContactCard& card) {
    if (!card.name.empty()) {
        return card.name;
    }
    if (!card.nickname.empty()) {
        return card.nickname;
    }
    for (const auto list :
         {&ContactCard::organisations, &ContactCard::phones, &ContactCard::emails}) {
        if (const auto& items = card.*list; !items.empty()) {
            return items.front().text;
        }
    }
    return {};
}

ContactField NewField(std::string text) {
    return {!text.empty(), ContactItemOp::add, kNewContactItem, std::move(text)};
}

std::string NoteWithLabels(const ContactCard& card) {
    std::string note = card.note;
    for (const CardList& list : kCardLists) {
        for (const CardItem& item : card.*list.card) {
            if (!item.label.empty()) {
                note.append(note.empty() ? "" : "\n").append(item.label);
                note.append("：").append(item.text);
            }
        }
    }
    return note;
}

}  // namespace

std::string CardText(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const char c = utf8[i];
        if (c == '\r') {
            if (i + 1 == utf8.size() || utf8[i + 1] != '\n') {
                text += '\n';
            }
        } else if (c == '\n' || c == '\t' || (static_cast<unsigned char>(c) >= 0x20 && c != 0x7F)) {
            text += c;
        }
    }
    return WellFormedUtf8(std::move(text));
}

ContactCard CardOf(const ContactRecord& record, std::string_view photo) {
    ContactCard card;
    card.favourite = record.favourite;
    for (const auto& [field, text] : {std::pair{&record.name, &card.name},
                                      {&record.nickname, &card.nickname},
                                      {&record.note, &card.note}}) {
        if (field->present) {
            *text = TextOf(*field);
        }
    }
    for (const CardList& list : kCardLists) {
        for (const ContactItem& item : record.*list.record) {
            if (std::string text = TextOf(item); !Trim(text).empty()) {
                (card.*list.card).push_back({item.type, std::move(text)});
            }
        }
    }
    for (const ContactItem& group : record.groups) {
        if (std::string title = TextOf(group); !title.empty()) {
            card.groups.push_back(std::move(title));
        }
    }
    card.photo = photo;
    return card;
}

std::optional<ContactRecord> RecordOf(const ContactCard& card) {
    std::string name = NameToGoBy(card);
    if (name.empty()) {
        return std::nullopt;
    }
    ContactRecord record;
    record.favourite = card.favourite;
    record.name = NewField(std::move(name));
    record.nickname = NewField(card.nickname);
    record.note = NewField(NoteWithLabels(card));
    for (const CardList& list : kCardLists) {
        for (const CardItem& item : card.*list.card) {
            (record.*list.record)
                .push_back({kNewContactItem, ContactItemOp::add, item.type, item.text});
        }
    }
    return record;
}

}  // namespace quorvi
