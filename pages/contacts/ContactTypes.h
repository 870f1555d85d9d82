// The type codes of a contact's data rows, as the phone's own contact store numbers them, and how
// they are shown. One table a kind serves the detail view, the editor's combo boxes, and the
// conversion between code and combo index in both directions.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

struct ContactType {
    std::int32_t code;
    std::u8string_view label;      // in the detail view, its colon included
    std::u8string_view caption{};  // in the editor's combo box
    int comboIndex = 0;
};

struct ContactTypeTable {
    std::span<const ContactType> types;
    std::u8string_view otherLabel;  // for a code that is not in the table

    // What the detail view puts in front of a value of this code. ANSI.
    [[nodiscard]] std::string Label(std::int32_t code) const;
    // The editor's entry of a code; the last entry for a code that is not in the table.
    [[nodiscard]] int ComboIndex(std::int32_t code) const;
    // The code of the editor's entry; that of the last entry for an index outside the table.
    [[nodiscard]] std::int32_t Code(int comboIndex) const;
    // The entries of the editor's combo box, in their order.
    [[nodiscard]] std::vector<std::u8string_view> Captions() const;
};

extern const ContactTypeTable kPhoneTypes;
extern const ContactTypeTable kEmailTypes;
extern const ContactTypeTable kImTypes;
// These have no combo box: the editor sends 0.
extern const ContactTypeTable kAddressTypes;
extern const ContactTypeTable kOrganisationTypes;
// One label for every code.
extern const ContactTypeTable kWebsiteTypes;
extern const ContactTypeTable kGroupTypes;

}  // namespace quorvi
