#include "backup/VCardTypes.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::string_view kOwnWord = "x-type-";

// In each table the first row of a code is how it is written, and the first row whose words are all
// there is how an item is read.
constexpr VCardType kPhones[] = {
    {4, "work,fax"}, {5, "home,fax"}, {4, "fax"},     {6, "pager"}, {2, "cell"},  {2, "mobile"},
    {2, "iphone"},   {3, "work"},     {3, "company"}, {1, "home"},  {7, "voice"},
};

constexpr VCardType kEmails[] = {
    {4, "internet,cell"}, {1, "internet,home"}, {2, "internet,work"}, {4, "cell"},
    {4, "mobile"},        {1, "home"},          {2, "work"},          {3, "internet"},
};

constexpr VCardType kAddresses[] = {{1, "home"}, {2, "work"}, {3, "other"}, {0, ""}};

constexpr VCardType kOrganisations[] = {{1, "work"}, {2, "other"}, {0, ""}};

constexpr VCardType kWebsites[] = {{0, ""}};

constexpr std::array<VCardMessenger, 9> kMessengers{{
    {0, "X-AIM", "aim"},
    {1, "X-MSN", "msn,msnim,messenger"},
    {2, "X-YAHOO", "ymsgr,yahoo"},
    {3, "X-SKYPE-USERNAME", "skype"},
    {4, "X-QQ", "qq,tencent"},
    {5, "X-GOOGLE-TALK", "gtalk,google,googletalk"},
    {6, "X-ICQ", "icq"},
    {7, "X-JABBER", "xmpp,jabber"},
    {8, "X-NETMEETING", "netmeeting"},
}};

const VCardType* FindType(const VCardList& list, std::int32_t code) {
    const auto found = std::ranges::find(list.types, code, &VCardType::code);
    return found == list.types.end() ? nullptr : &*found;
}

bool HasAll(std::span<const std::string> words, std::string_view wanted) {
    return std::ranges::all_of(SplitAt(wanted, ','), [&](std::string_view word) {
        return word.empty() || std::ranges::find(words, word) != words.end();
    });
}

}  // namespace

const VCardList kVCardPhones{"TEL", &ContactCard::phones, kPhones, kPhoneTypes, 7};
const VCardList kVCardEmails{"EMAIL", &ContactCard::emails, kEmails, kEmailTypes, 3};
const VCardList kVCardAddresses{"ADR", &ContactCard::addresses, kAddresses, kAddressTypes, 0};
const VCardList kVCardOrganisations{"ORG", &ContactCard::organisations, kOrganisations,
                                    kOrganisationTypes, 0};
const VCardList kVCardWebsites{"URL", &ContactCard::websites, kWebsites, kWebsiteTypes, 0};

bool HasWord(std::string_view list, std::string_view word) {
    const auto words = SplitAt(list, ',');
    return std::ranges::find(words, word) != words.end();
}

std::string OwnWordOf(std::int32_t code) {
    return std::string(kOwnWord) + std::to_string(code);
}

std::optional<std::int32_t> CodeOfOwnWord(std::string_view word) {
    if (!word.starts_with(kOwnWord)) {
        return std::nullopt;
    }
    word.remove_prefix(kOwnWord.size());
    std::int32_t code = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), code);
    if (error != std::errc() || end != word.data() + word.size()) {
        return std::nullopt;
    }
    return code;
}

bool HasVCardWords(const VCardList& list, std::int32_t code) {
    return FindType(list, code) != nullptr;
}

std::string VCardWords(const VCardList& list, std::int32_t code) {
    const VCardType* type = FindType(list, code);
    return type ? std::string(type->words) : OwnWordOf(code);
}

std::string VCardLabel(const VCardList& list, std::int32_t code) {
    std::string label = ToUtf8(list.labels.Label(code));
    for (const std::string_view colon : {"：", ":"}) {
        if (label.ends_with(colon)) {
            label.resize(label.size() - colon.size());
        }
    }
    return label;
}

std::int32_t VCardCode(const VCardList& list, std::span<const std::string> words) {
    for (const std::string& word : words) {
        if (const auto code = CodeOfOwnWord(word)) {
            return *code;
        }
    }
    for (const VCardType& type : list.types) {
        if (HasAll(words, type.words)) {
            return type.code;
        }
    }
    return list.typeOfOthers;
}

std::span<const VCardMessenger> VCardMessengers() {
    return kMessengers;
}

}  // namespace quorvi
