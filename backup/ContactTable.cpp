#include "backup/ContactTable.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "backup/Charset.h"
#include "backup/ContactTableHeadings.h"
#include "backup/Csv.h"
#include "base/Text.h"
#include "pages/contacts/ContactTypes.h"

namespace quorvi {
namespace {

constexpr std::string_view kName = "姓名";
constexpr std::string_view kNickname = "昵称";
constexpr std::string_view kFavourite = "收藏";
constexpr std::string_view kGroups = "分组";
constexpr std::string_view kNote = "备注";
constexpr std::string_view kType = "类型";
constexpr std::string_view kYes = "是";

// The lists in the order of their columns.
struct TableList {
    std::string_view heading;
    ContactCard::List items;
    const ContactTypeTable* types;  // nullptr: no column for the type
    std::int32_t typeOfOthers;
};
const std::array<TableList, 6> kLists{{
    {"电话", &ContactCard::phones, &kPhoneTypes, 7},
    {"邮箱", &ContactCard::emails, &kEmailTypes, 3},
    {"IM", &ContactCard::ims, &kImTypes, -1},
    {"网站", &ContactCard::websites, nullptr, 0},
    {"地址", &ContactCard::addresses, &kAddressTypes, 0},
    {"公司", &ContactCard::organisations, &kOrganisationTypes, 0},
}};

std::string WithoutColon(std::string label) {
    for (const std::string_view colon : {"：", ":"}) {
        if (label.ends_with(colon)) {
            label.resize(label.size() - colon.size());
        }
    }
    return label;
}

std::string TypeCell(const ContactTypeTable& types, const CardItem& item) {
    if (!item.label.empty()) {
        return item.label;
    }
    if (std::ranges::find(types.types, item.type, &ContactType::code) == types.types.end()) {
        return std::to_string(item.type);
    }
    return WithoutColon(ToUtf8(types.Label(item.type)));
}

// The type that a cell names, into `item`.
void ReadType(const TableList& list, std::string_view cell, CardItem& item) {
    item.type = list.typeOfOthers;
    if (cell.empty()) {
        return;
    }
    for (const ContactType& type : list.types->types) {
        if (WithoutColon(ToUtf8(Ansi(type.label))) == cell) {
            item.type = type.code;
            return;
        }
    }
    std::int32_t code = 0;
    const auto [end, error] = std::from_chars(cell.data(), cell.data() + cell.size(), code);
    if (error == std::errc() && end == cell.data() + cell.size()) {
        item.type = code;
    } else if (const auto other = TypeOfOtherPrograms(list.items, cell)) {
        item.type = *other;
    } else {
        item.label = cell;
    }
}

std::string JoinedLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text.append(text.empty() ? "" : "\n").append(line);
    }
    return text;
}

std::string Numbered(std::string_view heading, std::size_t number) {
    return std::string(heading) + " " + std::to_string(number);
}

// What a column holds.
struct Column {
    std::optional<TableField> field{};
    const TableList* list = nullptr;
    bool isType = false;
    std::int32_t type = 0;  // of a list without a column for it
    bool several = false;   // a cell may hold several items
};

const TableList* ListOf(ContactCard::List items) {
    return std::ranges::find(kLists, items, &TableList::items);
}

Column ColumnOf(std::string_view heading) {
    const std::string name = PlainHeading(heading);
    for (const TableList& list : kLists) {
        if (name == ToLower(list.heading)) {
            return {.list = &list, .type = list.typeOfOthers};
        }
        if (list.types && name == ToLower(list.heading) + std::string(kType)) {
            return {.list = &list, .isType = true};
        }
    }
    const TableColumn other = ColumnOfOtherPrograms(name);
    return {.field = other.field,
            .list = other.items ? ListOf(*other.items) : nullptr,
            .isType = other.isType,
            .type = other.type,
            .several = true};
}

bool NamesAnybody(const Column& column) {
    using enum TableField;
    if (column.list) {
        return column.list->items == &ContactCard::phones ||
               column.list->items == &ContactCard::emails;
    }
    return column.field == name || column.field == givenName || column.field == familyName;
}

class RowReader {
  public:
    explicit RowReader(const CsvRow& headings) : headings_(headings) {
        std::ranges::transform(headings, std::back_inserter(columns_), ColumnOf);
    }

    [[nodiscard]] bool NamesAnybody() const {
        return std::ranges::any_of(columns_, quorvi::NamesAnybody);
    }

    [[nodiscard]] ContactCard Read(const CsvRow& row) {
        card_ = {};
        given_.clear();
        family_.clear();
        std::string_view type;
        bool hasType = false;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const Column column = i < columns_.size() ? columns_[i] : Column{};
            const std::string text = CardText(row[i]);
            if (column.isType) {  // of the column behind it
                type = row[i];
                hasType = column.list->types != nullptr;
                continue;
            }
            if (column.list && !Trim(text).empty()) {
                for (std::string& value : column.several ? ValuesOf(text) : std::vector{text}) {
                    CardItem item{column.type, std::move(value)};
                    if (hasType) {
                        ReadType(*column.list, type, item);
                    }
                    (card_.*column.list->items).push_back(std::move(item));
                }
            } else if (column.field) {
                TakeField(*column.field, text);
            } else if (!column.list && !Trim(text).empty()) {
                AddNoteLine(i < headings_.size() ? headings_[i] : std::string(), text);
            }
            hasType = false;
        }
        if (card_.name.empty()) {
            const bool ascii = std::ranges::all_of(
                family_ + given_, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
            card_.name = ascii ? std::string(Trim(given_ + " " + family_)) : family_ + given_;
        }
        if (!noteLines_.empty()) {
            card_.note.append(card_.note.empty() ? "" : "\n").append(noteLines_);
            noteLines_.clear();
        }
        return std::move(card_);
    }

  private:
    void TakeField(TableField field, const std::string& text) {
        switch (field) {
            case TableField::name:
                card_.name = text;
                break;
            case TableField::givenName:
            case TableField::middleName:
                given_ += (given_.empty() || text.empty() ? "" : " ") + text;
                break;
            case TableField::familyName:
                family_ = text;
                break;
            case TableField::nickname:
                card_.nickname = text;
                break;
            case TableField::favourite:
                card_.favourite = text == kYes;
                break;
            case TableField::groups:
                for (const std::string_view title : SplitAt(text, '\n')) {
                    if (!title.empty()) {
                        card_.groups.emplace_back(title);
                    }
                }
                break;
            case TableField::groupsInLine:
                TakeGroupsInLine(text);
                break;
            case TableField::note:
                card_.note = text;
                break;
        }
    }

    void TakeGroupsInLine(const std::string& text) {
        for (std::string& title : ValuesOf(text)) {
            if (IsGroupOfFavourites(title)) {
                card_.favourite = true;
            } else if (!title.empty() && !IsGroupOfProgram(title)) {
                card_.groups.push_back(std::move(title));
            }
        }
    }

    void AddNoteLine(const std::string& heading, std::string_view text) {
        noteLines_.append(noteLines_.empty() ? "" : "\n");
        noteLines_.append(heading).append(heading.empty() ? "" : "：").append(text);
    }

    CsvRow headings_;
    std::vector<Column> columns_;
    ContactCard card_;
    std::string given_;
    std::string family_;
    std::string noteLines_;
};

}  // namespace

std::string WriteContactTable(std::span<const ContactCard> cards) {
    std::array<std::size_t, kLists.size()> widths{};
    for (const ContactCard& card : cards) {
        for (std::size_t i = 0; i < kLists.size(); ++i) {
            widths[i] = std::max(widths[i], (card.*kLists[i].items).size());
        }
    }
    CsvRow row{std::string(kName), std::string(kNickname), std::string(kFavourite),
               std::string(kGroups), std::string(kNote)};
    for (std::size_t i = 0; i < kLists.size(); ++i) {
        for (std::size_t n = 1; n <= widths[i]; ++n) {
            if (kLists[i].types) {
                row.push_back(Numbered(std::string(kLists[i].heading) + std::string(kType), n));
            }
            row.push_back(Numbered(kLists[i].heading, n));
        }
    }
    std::string csv(kUtf8Mark);
    AppendCsvRow(row, csv);
    for (const ContactCard& card : cards) {
        row = {card.name, card.nickname, card.favourite ? std::string(kYes) : std::string(),
               JoinedLines(card.groups), card.note};
        for (std::size_t i = 0; i < kLists.size(); ++i) {
            const auto& items = card.*kLists[i].items;
            for (std::size_t n = 0; n < widths[i]; ++n) {
                if (kLists[i].types) {
                    row.push_back(n < items.size() ? TypeCell(*kLists[i].types, items[n])
                                                   : std::string());
                }
                row.push_back(n < items.size() ? items[n].text : std::string());
            }
        }
        AppendCsvRow(row, csv);
    }
    return csv;
}

ContactTable ReadContactTable(std::string_view file) {
    ContactTable table;
    const std::string text = GuessedToUtf8(std::string(file));
    CsvReader rows(text);
    const auto headings = rows.Next();
    if (!headings) {
        table.tooWide = rows.Refused();
        return table;
    }
    RowReader reader(*headings);
    table.hasHeading = reader.NamesAnybody();
    if (!table.hasHeading) {
        return table;
    }
    std::size_t number = 1;
    while (const auto row = rows.Next()) {
        ++number;
        if (std::ranges::all_of(*row, [](const auto& cell) { return Trim(cell).empty(); })) {
            continue;
        }
        if (table.cards.size() + table.skipped.size() == kMostTableRows) {
            table.tooMany = true;
            break;
        }
        ContactCard card = reader.Read(*row);
        if (RecordOf(card)) {
            table.cards.push_back(std::move(card));
        } else {
            table.skipped.push_back(number);
        }
    }
    table.tooWide = rows.Refused();
    return table;
}

}  // namespace quorvi
