// A card as it grows from the properties of a vCard.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "backup/ContactCard.h"
#include "backup/VCardProperty.h"
#include "backup/VCardTypes.h"

namespace quorvi {

// A vCard as it was read.
struct ReadCard {
    ContactCard card;
    // Properties that a contact has no place for: sounds, keys, photos that are but an address.
    std::vector<std::string> leftOut{};

    bool operator==(const ReadCard&) const = default;
};

// What a card holds at most; one with more is skipped.
inline constexpr std::size_t kMostCardProperties = 10'000;
inline constexpr std::size_t kMostCardBytes = 16 * 1024 * 1024;

// A property that no contact has goes into the note as "NAME：value", unless it is longer: then it
// is left out.
inline constexpr std::size_t kMostNoteLineBytes = 2048;

class CardBuilder {
  public:
    void Add(const VCardProperty& property, std::size_t bytes);
    void LeaveOut(std::string_view name);
    // True when the card is larger than a card may be: Add then does nothing.
    [[nodiscard]] bool TooLarge() const { return tooLarge_; }
    [[nodiscard]] VCardVersion Version() const { return version_; }

    // The card. The builder is used up.
    [[nodiscard]] ReadCard Take();

    // A property of the card; its handler is found by name.
    using Handler = void (CardBuilder::*)(const VCardProperty&);

    void TakeVersion(const VCardProperty& property);
    void TakeName(const VCardProperty& property);
    void TakeNameParts(const VCardProperty& property);
    void TakeNickname(const VCardProperty& property);
    void TakeNote(const VCardProperty& property);
    void TakeGroups(const VCardProperty& property);
    void TakePhone(const VCardProperty& property);
    void TakeEmail(const VCardProperty& property);
    void TakeWebsite(const VCardProperty& property);
    void TakeAddress(const VCardProperty& property);
    void TakeAddressLabel(const VCardProperty& property);
    void TakeOrganisation(const VCardProperty& property);
    void TakeMessenger(const VCardProperty& property);
    void TakeMessengerAddress(const VCardProperty& property);
    void TakePhoto(const VCardProperty& property);
    void TakeFavourite(const VCardProperty& property);
    void TakeLabel(const VCardProperty& property);
    void TakeCustom(const VCardProperty& property);
    void TakeNothing(const VCardProperty&) {}
    void TakeUnknown(const VCardProperty& property);

  private:
    // An item whose label may still come, in a property of the same group.
    struct Grouped {
        const VCardList* list;
        std::size_t index;
        std::string group;
        std::vector<std::string> words;
    };

    // A property that no contact has, which a label of its group may name.
    struct NoteLine {
        std::string name;
        std::string text;
        std::string group;
    };

    [[nodiscard]] std::string TextBehind(std::string_view scheme,
                                         const VCardProperty& property) const;
    void AddItem(const VCardList& list, const VCardProperty& property, std::string text);
    void AddMessenger(std::int32_t code, std::string text);
    void AddNoteLine(std::string_view name, std::string_view text, std::string_view group = {});
    void WriteNoteLines();
    void LabelItem(const Grouped& item);

    ReadCard read_;
    VCardVersion version_ = VCardVersion::v30;
    std::size_t properties_ = 0;
    std::size_t bytes_ = 0;
    bool tooLarge_ = false;
    std::string nameOfParts_;
    std::string addressLabel_;
    std::vector<NoteLine> noteLines_;
    std::vector<Grouped> grouped_;
    std::map<std::string, std::string, std::less<>> labels_;  // by group
};

}  // namespace quorvi
