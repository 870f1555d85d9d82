// Contacts as a table for spreadsheets: CSV, one row a contact.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "backup/ContactCard.h"

namespace quorvi {

// The table in UTF-8 with its mark. Behind the name, nickname, mark of a favourite, groups (one a
// line) and note, each list has as many columns as the card with the most items needs, and in front
// of each the type. Photos are left out.
[[nodiscard]] std::string WriteContactTable(std::span<const ContactCard> cards);

// No more rows are read of one table.
inline constexpr std::size_t kMostTableRows = 100'000;

struct ContactTable {
    std::vector<ContactCard> cards;
    std::vector<std::size_t> skipped;  // rows of which nothing could be called by a name; from 2
    // False when the first row names no column that could hold a name, number or e-mail address.
    bool hasHeading = false;
    bool tooMany = false;  // it has more than kMostTableRows, and was read up to there
    bool tooWide = false;  // a row has more cells than kMostCsvColumns: what follows is not read
};

// A table that WriteContactTable wrote, or one whose first row names its columns as spreadsheets
// and mail programs do, in Chinese or English. A column that nobody knows goes into the note, as
// "heading：cell". Rows without any text are passed over.
[[nodiscard]] ContactTable ReadContactTable(std::string_view file);

}  // namespace quorvi
