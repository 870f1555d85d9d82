// What the tables of other programs call their columns, and what they write into them. For
// ContactTable.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "backup/ContactCard.h"

namespace quorvi {

// A column that holds one text of a contact.
enum class TableField {
    name,
    givenName,
    middleName,
    familyName,
    nickname,
    favourite,
    groups,        // one a line
    groupsInLine,  // see ValuesOf
    note,
};

// What a column holds: a field, an item of a list, or the type of the item in the column behind it.
// Neither field nor items: nobody knows it.
struct TableColumn {
    std::optional<TableField> field{};
    std::optional<ContactCard::List> items{};
    bool isType = false;
    std::int32_t type = 0;  // of the items, where no column tells it
};

// A heading in lower case and without its number: "phone - value" of "Phone 2 - Value". UTF-8.
[[nodiscard]] std::string PlainHeading(std::string_view heading);

// The column under a plain heading, in Chinese or English.
[[nodiscard]] TableColumn ColumnOfOtherPrograms(std::string_view plainHeading);

// The type of an item that a cell names in English, "Work Fax"; nothing for a label of its user's.
[[nodiscard]] std::optional<std::int32_t> TypeOfOtherPrograms(ContactCard::List items,
                                                              std::string_view cell);

// The values of one cell, " ::: " between them; the cell itself where there is one.
[[nodiscard]] std::vector<std::string> ValuesOf(std::string_view cell);

// Groups that a program keeps for itself, which say nothing of the contact, but for its favourites.
[[nodiscard]] bool IsGroupOfFavourites(std::string_view title);
[[nodiscard]] bool IsGroupOfProgram(std::string_view title);

}  // namespace quorvi
