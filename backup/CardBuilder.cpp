#include "backup/CardBuilder.h"

#include <algorithm>
#include <array>
#include <optional>

#include "backup/Base64.h"
#include "base/Text.h"

namespace quorvi {
namespace {

struct PropertyRow {
    std::string_view name;
    CardBuilder::Handler handler;
};

// What a property without a row here becomes, TakeUnknown says.
constexpr std::array kProperties{
    PropertyRow{"VERSION", &CardBuilder::TakeVersion},
    PropertyRow{"FN", &CardBuilder::TakeName},
    PropertyRow{"N", &CardBuilder::TakeNameParts},
    PropertyRow{"NICKNAME", &CardBuilder::TakeNickname},
    PropertyRow{"NOTE", &CardBuilder::TakeNote},
    PropertyRow{"CATEGORIES", &CardBuilder::TakeGroups},
    PropertyRow{"TEL", &CardBuilder::TakePhone},
    PropertyRow{"EMAIL", &CardBuilder::TakeEmail},
    PropertyRow{"URL", &CardBuilder::TakeWebsite},
    PropertyRow{"ADR", &CardBuilder::TakeAddress},
    PropertyRow{"LABEL", &CardBuilder::TakeAddressLabel},
    PropertyRow{"ORG", &CardBuilder::TakeOrganisation},
    PropertyRow{"IMPP", &CardBuilder::TakeMessengerAddress},
    PropertyRow{"X-CUSTOM-IM", &CardBuilder::TakeMessenger},
    PropertyRow{"X-MS-IMADDRESS", &CardBuilder::TakeMessenger},
    PropertyRow{"PHOTO", &CardBuilder::TakePhoto},
    PropertyRow{"X-QUORVI-FAVOURITE", &CardBuilder::TakeFavourite},
    PropertyRow{"X-ABLABEL", &CardBuilder::TakeLabel},
    PropertyRow{"X-ANDROID-CUSTOM", &CardBuilder::TakeCustom},
    // What says nothing of the person.
    PropertyRow{"PRODID", &CardBuilder::TakeNothing},
    PropertyRow{"REV", &CardBuilder::TakeNothing},
    PropertyRow{"UID", &CardBuilder::TakeNothing},
    PropertyRow{"CLASS", &CardBuilder::TakeNothing},
    PropertyRow{"SOURCE", &CardBuilder::TakeNothing},
    PropertyRow{"NAME", &CardBuilder::TakeNothing},
    PropertyRow{"PROFILE", &CardBuilder::TakeNothing},
    PropertyRow{"KIND", &CardBuilder::TakeNothing},
    PropertyRow{"SORT-STRING", &CardBuilder::TakeNothing},
    PropertyRow{"CLIENTPIDMAP", &CardBuilder::TakeNothing},
    PropertyRow{"X-ABUID", &CardBuilder::TakeNothing},
    PropertyRow{"X-ABADR", &CardBuilder::TakeNothing},
    PropertyRow{"X-ABSHOWAS", &CardBuilder::TakeNothing},
};

// How the note calls properties that many programs write.
struct NoteName {
    std::string_view property;
    std::string_view shown;
};
constexpr std::array<NoteName, 8> kNoteNames{{
    {"BDAY", "生日"},
    {"ANNIVERSARY", "纪念日"},
    {"X-ANNIVERSARY", "纪念日"},
    {"TITLE", "职位"},
    {"ROLE", "职务"},
    {"GEO", "位置"},
    {"TZ", "时区"},
    {"GENDER", "性别"},
}};

// The labels that one address book writes for its own types, and the words that they stand for.
struct KnownLabel {
    std::string_view label;
    std::string_view words;
};
constexpr std::array<KnownLabel, 10> kKnownLabels{{
    {"_$!<Mobile>!$_", "cell"},
    {"_$!<Home>!$_", "home"},
    {"_$!<Work>!$_", "work"},
    {"_$!<Main>!$_", "voice"},
    {"_$!<Other>!$_", "other"},
    {"_$!<HomeFAX>!$_", "home,fax"},
    {"_$!<WorkFAX>!$_", "work,fax"},
    {"_$!<OtherFAX>!$_", "fax"},
    {"_$!<Pager>!$_", "pager"},
    {"_$!<HomePage>!$_", ""},
}};

// "School" of "_$!<School>!$_", as that address book marks its own labels; any other as it is.
std::string PlainLabel(std::string_view label) {
    constexpr std::string_view kBegin = "_$!<";
    constexpr std::string_view kEnd = ">!$_";
    if (label.size() > kBegin.size() + kEnd.size() && label.starts_with(kBegin) &&
        label.ends_with(kEnd)) {
        label = label.substr(kBegin.size(), label.size() - kBegin.size() - kEnd.size());
    }
    return std::string(label);
}

// Whether a text has a character of the scripts of East Asia, in which names stand without blanks
// between their parts, and addresses from the large to the small.
bool IsEastAsian(std::string_view utf8) {
    return std::ranges::any_of(utf8, [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= 0xE3 && byte <= 0xED;
    });
}

std::string Joined(const std::vector<std::string>& parts, std::string_view between) {
    std::string text;
    for (const std::string& part : parts) {
        if (!Trim(part).empty()) {
            text.append(text.empty() ? "" : between).append(part);
        }
    }
    return text;
}

const std::string& PartAt(const std::vector<std::string>& parts, std::size_t i) {
    static const std::string none;
    return i < parts.size() ? parts[i] : none;
}

// Family, given, additional names, prefix, suffix.
std::string NameOfParts(const std::vector<std::string>& parts) {
    const auto part = [&](std::size_t i) { return PartAt(parts, i); };
    if (IsEastAsian(Joined(parts, ""))) {
        return Joined({part(3), part(0) + part(2) + part(1), part(4)}, " ");
    }
    return Joined({part(3), part(1), part(2), part(0), part(4)}, " ");
}

// Post office box, more of the address, street, town, region, postal code, country.
std::string AddressOfParts(const std::vector<std::string>& parts) {
    const auto part = [&](std::size_t i) { return PartAt(parts, i); };
    if (IsEastAsian(Joined(parts, ""))) {
        return Joined({part(6), part(4), part(3), part(2), part(1), part(0), part(5)}, " ");
    }
    return Joined({part(0), part(2), part(1), part(3), part(4), part(5), part(6)}, ", ");
}

// The address behind a scheme, "skype:", if `text` begins with one of these.
std::optional<std::string> BehindScheme(std::string_view text, std::string_view schemes) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || !HasWord(schemes, ToLower(text.substr(0, colon)))) {
        return std::nullopt;
    }
    return std::string(text.substr(colon + 1));
}

constexpr std::string_view kDataUri = "data:";

}  // namespace

void CardBuilder::Add(const VCardProperty& property, std::size_t bytes) {
    bytes_ += bytes;
    ++properties_;
    tooLarge_ = tooLarge_ || properties_ > kMostCardProperties || bytes_ > kMostCardBytes;
    if (tooLarge_) {
        return;
    }
    const auto row = std::ranges::find(kProperties, property.name, &PropertyRow::name);
    (this->*(row == kProperties.end() ? &CardBuilder::TakeUnknown : row->handler))(property);
}

void CardBuilder::LeaveOut(std::string_view name) {
    std::string text = CardText(name);
    if (std::ranges::find(read_.leftOut, text) == read_.leftOut.end()) {
        read_.leftOut.push_back(std::move(text));
    }
}

void CardBuilder::TakeVersion(const VCardProperty& property) {
    const std::string_view version = Trim(property.value);
    version_ = version == "2.1"            ? VCardVersion::v21
               : version.starts_with("3.") ? VCardVersion::v30
                                           : VCardVersion::v40;
}

void CardBuilder::TakeName(const VCardProperty& property) {
    if (read_.card.name.empty()) {
        read_.card.name = VCardText(property, version_);
    }
}

void CardBuilder::TakeNameParts(const VCardProperty& property) {
    nameOfParts_ = NameOfParts(VCardParts(property, version_, ';'));
}

void CardBuilder::TakeNickname(const VCardProperty& property) {
    if (read_.card.nickname.empty()) {
        read_.card.nickname = VCardText(property, version_);
    }
}

void CardBuilder::TakeNote(const VCardProperty& property) {
    const std::string text = VCardText(property, version_);
    if (!text.empty()) {
        read_.card.note.append(read_.card.note.empty() ? "" : "\n").append(text);
    }
}

void CardBuilder::TakeGroups(const VCardProperty& property) {
    for (std::string& title : VCardParts(property, version_, ',')) {
        if (!title.empty()) {
            read_.card.groups.push_back(std::move(title));
        }
    }
}

void CardBuilder::AddItem(const VCardList& list, const VCardProperty& property, std::string text) {
    if (text.empty()) {
        return;
    }
    std::vector<std::string> words = property.TypeWords();
    auto& items = read_.card.*list.items;
    items.push_back({VCardCode(list, words), std::move(text)});
    if (!property.group.empty()) {
        grouped_.push_back({&list, items.size() - 1, property.group, std::move(words)});
    }
}

// Version 4 gives numbers and addresses as URIs, and some of version 3 say that they do.
std::string CardBuilder::TextBehind(std::string_view scheme, const VCardProperty& property) const {
    std::string text = VCardText(property, version_);
    if (version_ != VCardVersion::v40 && !EqualsNoCase(property.Parameter("VALUE"), "uri")) {
        return text;
    }
    return BehindScheme(text, scheme).value_or(text);
}

void CardBuilder::TakePhone(const VCardProperty& property) {
    AddItem(kVCardPhones, property, TextBehind("tel", property));
}

void CardBuilder::TakeEmail(const VCardProperty& property) {
    AddItem(kVCardEmails, property, TextBehind("mailto", property));
}

void CardBuilder::TakeWebsite(const VCardProperty& property) {
    AddItem(kVCardWebsites, property, VCardText(property, version_));
}

void CardBuilder::TakeAddress(const VCardProperty& property) {
    AddItem(kVCardAddresses, property, AddressOfParts(VCardParts(property, version_, ';')));
}

void CardBuilder::TakeAddressLabel(const VCardProperty& property) {
    if (addressLabel_.empty()) {
        addressLabel_ = VCardText(property, version_);
    }
}

void CardBuilder::TakeOrganisation(const VCardProperty& property) {
    AddItem(kVCardOrganisations, property, Joined(VCardParts(property, version_, ';'), " "));
}

void CardBuilder::AddMessenger(std::int32_t code, std::string text) {
    if (!text.empty()) {
        read_.card.ims.push_back({code, std::move(text)});
    }
}

void CardBuilder::TakeMessenger(const VCardProperty& property) {
    for (const std::string& word : property.TypeWords()) {
        if (const auto code = CodeOfOwnWord(word)) {
            return AddMessenger(*code, VCardText(property, version_));
        }
    }
    AddMessenger(kOtherMessengerCode, VCardText(property, version_));
}

void CardBuilder::TakeMessengerAddress(const VCardProperty& property) {
    const std::string text = VCardText(property, version_);
    const std::string service = ToLower(property.Parameter("X-SERVICE-TYPE"));
    const std::string behind = text.substr(text.find(':') + 1);
    for (const VCardMessenger& messenger : VCardMessengers()) {
        if (auto address = BehindScheme(text, messenger.schemes)) {
            return AddMessenger(messenger.code, *std::move(address));
        }
        if (!service.empty() && HasWord(messenger.schemes, service)) {
            return AddMessenger(messenger.code, behind);
        }
    }
    AddMessenger(kOtherMessengerCode, BehindScheme(text, "im,sip,x-apple").value_or(text));
}

void CardBuilder::TakePhoto(const VCardProperty& property) {
    std::string_view text = property.value;
    if (!property.IsBase64()) {
        // Version 4: data:image/jpeg;base64,...
        const std::size_t comma = text.find(',');
        if (!text.starts_with(kDataUri) || comma == std::string_view::npos ||
            !ToLower(text.substr(0, comma)).ends_with(";base64")) {
            return LeaveOut(property.name);
        }
        text.remove_prefix(comma + 1);
    }
    auto photo = FromBase64(text);
    if (!photo || photo->empty() || !read_.card.photo.empty()) {
        return LeaveOut(property.name);
    }
    read_.card.photo = *std::move(photo);
}

void CardBuilder::TakeFavourite(const VCardProperty& property) {
    read_.card.favourite = Trim(property.value) == "1";
}

void CardBuilder::TakeLabel(const VCardProperty& property) {
    labels_[property.group] = VCardText(property, version_);
}

// What one phone system adds to version 2.1: the kind of a row of its contact store, and its
// columns.
void CardBuilder::TakeCustom(const VCardProperty& property) {
    const std::vector<std::string> parts = VCardParts(property, version_, ';');
    const std::string_view kind = PartAt(parts, 0);
    const std::string& text = PartAt(parts, 1);
    if (kind.ends_with("/nickname") && read_.card.nickname.empty()) {
        read_.card.nickname = text;
    } else if (kind.ends_with("/contact_event")) {
        constexpr std::string_view kBirthday = "3";
        AddNoteLine(PartAt(parts, 2) == kBirthday ? "生日" : "纪念日", text);
    } else {
        AddNoteLine(kind.substr(kind.find('/') + 1), text);
    }
}

void CardBuilder::TakeUnknown(const VCardProperty& property) {
    for (const VCardMessenger& messenger : VCardMessengers()) {
        const bool byScheme = property.name.starts_with("X-") &&
                              HasWord(messenger.schemes, ToLower(property.name).substr(2));
        if (property.name == messenger.property || byScheme) {
            return AddMessenger(messenger.code, VCardText(property, version_));
        }
    }
    if (property.IsBase64() || property.value.starts_with(kDataUri) ||
        property.value.size() > kMostNoteLineBytes) {
        return LeaveOut(property.name);
    }
    const auto known = std::ranges::find(kNoteNames, property.name, &NoteName::property);
    const bool isKnown = known != kNoteNames.end();
    AddNoteLine(isKnown ? known->shown : std::string_view(property.name),
                Joined(VCardParts(property, version_, ';'), ", "),
                isKnown ? std::string_view() : std::string_view(property.group));
}

void CardBuilder::AddNoteLine(std::string_view name, std::string_view text,
                              std::string_view group) {
    if (!text.empty()) {
        noteLines_.push_back({CardText(name), std::string(text), std::string(group)});
    }
}

void CardBuilder::WriteNoteLines() {
    for (const NoteLine& line : noteLines_) {
        const auto label = line.group.empty() ? labels_.end() : labels_.find(line.group);
        std::string& note = read_.card.note;
        note.append(note.empty() ? "" : "\n");
        note.append(label == labels_.end() ? line.name : PlainLabel(label->second));
        note.append("：").append(line.text);
    }
}

void CardBuilder::LabelItem(const Grouped& grouped) {
    const auto found = labels_.find(grouped.group);
    if (found == labels_.end()) {
        return;
    }
    CardItem& item = (read_.card.*grouped.list->items)[grouped.index];
    const std::string& label = found->second;
    const auto known = std::ranges::find(kKnownLabels, label, &KnownLabel::label);
    if (known != kKnownLabels.end()) {
        std::vector<std::string> words = grouped.words;
        for (const std::string_view word : SplitAt(known->words, ',')) {
            words.emplace_back(word);
        }
        item.type = VCardCode(*grouped.list, words);
    } else if (HasVCardWords(*grouped.list, item.type) ||
               label != VCardLabel(*grouped.list, item.type)) {
        item.label = PlainLabel(label);  // another program's; ours says what the type says
    }
}

ReadCard CardBuilder::Take() {
    ContactCard& card = read_.card;
    for (const Grouped& grouped : grouped_) {
        LabelItem(grouped);
    }
    if (card.name.empty()) {
        card.name = std::move(nameOfParts_);
    }
    if (card.addresses.empty() && !addressLabel_.empty()) {
        card.addresses.push_back({kVCardAddresses.typeOfOthers, std::move(addressLabel_)});
    }
    WriteNoteLines();
    return std::move(read_);
}

}  // namespace quorvi
