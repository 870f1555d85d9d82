#include "backup/ContactTable.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "backup/Charset.h"
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

// What other programs call a column.
enum class Field { name, givenName, familyName, nickname, favourite, groups, note };
struct FieldName {
    std::string_view heading;  // in lower case
    Field field;
};
constexpr std::array<FieldName, 22> kFieldNames{{
    {kName, Field::name},
    {"名字", Field::name},
    {"联系人", Field::name},
    {"name", Field::name},
    {"full name", Field::name},
    {"display name", Field::name},
    {"名", Field::givenName},
    {"first name", Field::givenName},
    {"given name", Field::givenName},
    {"姓", Field::familyName},
    {"last name", Field::familyName},
    {"family name", Field::familyName},
    {kNickname, Field::nickname},
    {"nickname", Field::nickname},
    {kFavourite, Field::favourite},
    {kGroups, Field::groups},
    {"groups", Field::groups},
    {"categories", Field::groups},
    {kNote, Field::note},
    {"note", Field::note},
    {"notes", Field::note},
    {"memo", Field::note},
}};

struct ItemName {
    std::string_view heading;  // in lower case
    ContactCard::List items;
    std::int32_t type;
};
constexpr std::array<ItemName, 38> kItemNames{{
    {"手机", &ContactCard::phones, 2},
    {"手机号", &ContactCard::phones, 2},
    {"手机号码", &ContactCard::phones, 2},
    {"移动电话", &ContactCard::phones, 2},
    {"mobile", &ContactCard::phones, 2},
    {"mobile phone", &ContactCard::phones, 2},
    {"cell phone", &ContactCard::phones, 2},
    {"家庭电话", &ContactCard::phones, 1},
    {"住宅电话", &ContactCard::phones, 1},
    {"home phone", &ContactCard::phones, 1},
    {"公司电话", &ContactCard::phones, 3},
    {"单位电话", &ContactCard::phones, 3},
    {"商务电话", &ContactCard::phones, 3},
    {"business phone", &ContactCard::phones, 3},
    {"work phone", &ContactCard::phones, 3},
    {"传真", &ContactCard::phones, 4},
    {"business fax", &ContactCard::phones, 4},
    {"home fax", &ContactCard::phones, 5},
    {"pager", &ContactCard::phones, 6},
    {"号码", &ContactCard::phones, 7},
    {"phone", &ContactCard::phones, 7},
    {"phone number", &ContactCard::phones, 7},
    {"电子邮件", &ContactCard::emails, 3},
    {"电子邮件地址", &ContactCard::emails, 3},
    {"email", &ContactCard::emails, 3},
    {"e-mail", &ContactCard::emails, 3},
    {"email address", &ContactCard::emails, 3},
    {"e-mail address", &ContactCard::emails, 3},
    {"qq", &ContactCard::ims, 4},
    {"msn", &ContactCard::ims, 1},
    {"skype", &ContactCard::ims, 3},
    {"网址", &ContactCard::websites, 0},
    {"website", &ContactCard::websites, 0},
    {"web page", &ContactCard::websites, 0},
    {"address", &ContactCard::addresses, 0},
    {"company", &ContactCard::organisations, 0},
    {"organization", &ContactCard::organisations, 0},
    {"单位", &ContactCard::organisations, 0},
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
    std::optional<Field> field{};
    const TableList* list = nullptr;
    bool isType = false;
    std::int32_t type = 0;  // of a list without a column for it
};

// "电话 2" without the number.
std::string_view WithoutNumber(std::string_view heading) {
    const std::size_t end = heading.find_last_not_of("0123456789 ");
    return end == std::string_view::npos ? heading : heading.substr(0, end + 1);
}

const TableList* ListOf(ContactCard::List items) {
    return std::ranges::find(kLists, items, &TableList::items);
}

Column ColumnOf(std::string_view heading) {
    const std::string name = ToLower(WithoutNumber(Trim(heading)));
    if (const auto field = std::ranges::find(kFieldNames, name, &FieldName::heading);
        field != kFieldNames.end()) {
        return {.field = field->field};
    }
    for (const TableList& list : kLists) {
        if (name == ToLower(list.heading)) {
            return {.list = &list, .type = list.typeOfOthers};
        }
        if (list.types && name == ToLower(list.heading) + std::string(kType)) {
            return {.list = &list, .isType = true};
        }
    }
    if (const auto item = std::ranges::find(kItemNames, name, &ItemName::heading);
        item != kItemNames.end()) {
        return {.list = ListOf(item->items), .type = item->type};
    }
    return {};
}

bool NamesAnybody(const Column& column) {
    using enum Field;
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
                hasType = true;
                continue;
            }
            if (column.list && !Trim(text).empty()) {
                CardItem item{column.type, text};
                if (hasType) {
                    ReadType(*column.list, type, item);
                }
                (card_.*column.list->items).push_back(std::move(item));
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
    void TakeField(Field field, const std::string& text) {
        switch (field) {
            case Field::name:
                card_.name = text;
                break;
            case Field::givenName:
                given_ = text;
                break;
            case Field::familyName:
                family_ = text;
                break;
            case Field::nickname:
                card_.nickname = text;
                break;
            case Field::favourite:
                card_.favourite = text == kYes;
                break;
            case Field::groups:
                for (const std::string_view title : SplitAt(text, '\n')) {
                    if (!title.empty()) {
                        card_.groups.emplace_back(title);
                    }
                }
                break;
            case Field::note:
                card_.note = text;
                break;
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
