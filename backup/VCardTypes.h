// What the types of a contact's items are called in a vCard. One table a kind serves the writer and
// the reader.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "backup/ContactCard.h"
#include "pages/contacts/ContactTypes.h"

namespace quorvi {

// A type code and the words of the TYPE parameter by which a vCard says it.
struct VCardType {
    std::int32_t code;
    // In lower case, a comma between them. Empty for the type of an item that has no words.
    std::string_view words;
};

// One list of a card, and the property that holds its items.
struct VCardList {
    std::string_view property;
    ContactCard::List items;
    std::span<const VCardType> types;
    const ContactTypeTable& labels;
    std::int32_t typeOfOthers;  // of an item whose words are none of the table's
};

extern const VCardList kVCardPhones;
extern const VCardList kVCardEmails;
extern const VCardList kVCardAddresses;
extern const VCardList kVCardOrganisations;
extern const VCardList kVCardWebsites;

// The words for a code: those of the table, or, for a code that vCards have no words for,
// "x-type-17".
[[nodiscard]] std::string VCardWords(const VCardList& list, std::int32_t code);
[[nodiscard]] bool HasVCardWords(const VCardList& list, std::int32_t code);

// What a type is called in the detail view, without the colon. UTF-8.
[[nodiscard]] std::string VCardLabel(const VCardList& list, std::int32_t code);

// The code of an item with these words, in lower case.
[[nodiscard]] std::int32_t VCardCode(const VCardList& list, std::span<const std::string> words);

// A code that "x-type-17" stands for; nothing for any other word.
[[nodiscard]] std::optional<std::int32_t> CodeOfOwnWord(std::string_view word);
[[nodiscard]] std::string OwnWordOf(std::int32_t code);

// The properties of instant messengers, one a protocol, and the schemes by which version 4 and some
// of version 3 name them in IMPP.
struct VCardMessenger {
    std::int32_t code;
    std::string_view property;
    std::string_view schemes;  // a comma between them
};
[[nodiscard]] std::span<const VCardMessenger> VCardMessengers();

// The messenger of kinds that have no property of their own.
inline constexpr std::string_view kOtherMessenger = "X-CUSTOM-IM";
inline constexpr std::int32_t kOtherMessengerCode = -1;

// Whether `list`, words with commas between them, has `word`.
[[nodiscard]] bool HasWord(std::string_view list, std::string_view word);

}  // namespace quorvi
