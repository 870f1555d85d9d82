#include "backup/ContactTableHeadings.h"

#include <algorithm>
#include <array>

#include "backup/VCardTypes.h"
#include "base/Text.h"

namespace quorvi {
namespace {

struct FieldName {
    std::string_view heading;  // in lower case
    TableField field;
};
constexpr std::array<FieldName, 27> kFieldNames{{
    {"姓名", TableField::name},
    {"名字", TableField::name},
    {"联系人", TableField::name},
    {"name", TableField::name},
    {"full name", TableField::name},
    {"display name", TableField::name},
    {"file as", TableField::name},
    {"名", TableField::givenName},
    {"first name", TableField::givenName},
    {"given name", TableField::givenName},
    {"middle name", TableField::middleName},
    {"additional name", TableField::middleName},
    {"姓", TableField::familyName},
    {"last name", TableField::familyName},
    {"family name", TableField::familyName},
    {"昵称", TableField::nickname},
    {"nickname", TableField::nickname},
    {"收藏", TableField::favourite},
    {"分组", TableField::groups},
    {"groups", TableField::groups},
    {"categories", TableField::groups},
    {"group membership", TableField::groupsInLine},
    {"labels", TableField::groupsInLine},
    {"备注", TableField::note},
    {"note", TableField::note},
    {"notes", TableField::note},
    {"memo", TableField::note},
}};

struct ItemName {
    std::string_view heading;  // in lower case
    ContactCard::List items;
    std::int32_t type;
};
constexpr std::array<ItemName, 45> kItemNames{{
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
    {"phone - value", &ContactCard::phones, 7},
    {"e-mail - value", &ContactCard::emails, 3},
    {"im - value", &ContactCard::ims, -1},
    {"website - value", &ContactCard::websites, 0},
    {"address - formatted", &ContactCard::addresses, 0},
    {"organization - name", &ContactCard::organisations, 0},
    {"organization name", &ContactCard::organisations, 0},
}};

// Columns that tell the type of the item behind them.
struct TypeName {
    std::string_view heading;  // in lower case
    ContactCard::List items;
};
constexpr std::array<TypeName, 13> kTypeNames{{
    {"phone - type", &ContactCard::phones},
    {"phone - label", &ContactCard::phones},
    {"e-mail - type", &ContactCard::emails},
    {"e-mail - label", &ContactCard::emails},
    {"im - type", &ContactCard::ims},
    {"im - label", &ContactCard::ims},
    {"im - service", &ContactCard::ims},
    {"website - type", &ContactCard::websites},
    {"website - label", &ContactCard::websites},
    {"address - type", &ContactCard::addresses},
    {"address - label", &ContactCard::addresses},
    {"organization - type", &ContactCard::organisations},
    {"organization - label", &ContactCard::organisations},
}};

// Between the values of one cell.
constexpr std::string_view kBetweenValues = " ::: ";
// In front of what a program has made itself, a group, and of what it takes first, a type.
constexpr std::string_view kProgramsOwn = "* ";
constexpr std::string_view kFavourites = "* starred";

bool IsNumber(std::string_view word) {
    return word.find_first_not_of("0123456789") == std::string_view::npos;
}

const VCardList* TypesOf(ContactCard::List items) {
    for (const VCardList* list :
         {&kVCardPhones, &kVCardEmails, &kVCardAddresses, &kVCardOrganisations}) {
        if (list->items == items) {
            return list;
        }
    }
    return nullptr;
}

}  // namespace

std::string PlainHeading(std::string_view heading) {
    const std::size_t end = heading.find_last_not_of("0123456789 ");
    heading = heading.substr(0, end == std::string_view::npos ? heading.size() : end + 1);
    std::string plain;
    for (const std::string_view word : SplitAt(Trim(heading), ' ')) {
        if (!IsNumber(word)) {
            plain.append(plain.empty() ? "" : " ").append(ToLower(word));
        }
    }
    return plain;
}

TableColumn ColumnOfOtherPrograms(std::string_view plainHeading) {
    if (const auto field = std::ranges::find(kFieldNames, plainHeading, &FieldName::heading);
        field != kFieldNames.end()) {
        return {.field = field->field};
    }
    if (const auto type = std::ranges::find(kTypeNames, plainHeading, &TypeName::heading);
        type != kTypeNames.end()) {
        return {.items = type->items, .isType = true};
    }
    if (const auto item = std::ranges::find(kItemNames, plainHeading, &ItemName::heading);
        item != kItemNames.end()) {
        return {.items = item->items, .type = item->type};
    }
    return {};
}

std::optional<std::int32_t> TypeOfOtherPrograms(ContactCard::List items, std::string_view cell) {
    if (cell.starts_with(kProgramsOwn)) {
        cell.remove_prefix(kProgramsOwn.size());
    }
    std::vector<std::string> words;
    std::string joined;
    for (const std::string_view word : SplitAt(cell, ' ')) {
        words.push_back(ToLower(word));
        joined += words.back();
    }
    if (items == &ContactCard::ims) {
        for (const VCardMessenger& messenger : VCardMessengers()) {
            if (HasWord(messenger.schemes, joined)) {
                return messenger.code;
            }
        }
        return std::nullopt;
    }
    const VCardList* types = TypesOf(items);
    const bool known = std::ranges::all_of(words, [](const std::string& word) {
        return word.empty() || HasWord("mobile,home,work,fax,pager,main,other,internet", word);
    });
    return types != nullptr && known ? std::optional(VCardCode(*types, words)) : std::nullopt;
}

std::vector<std::string> ValuesOf(std::string_view cell) {
    std::vector<std::string> values;
    for (;;) {
        const std::size_t end = std::min(cell.find(kBetweenValues), cell.size());
        values.emplace_back(cell.substr(0, end));
        if (end == cell.size()) {
            return values;
        }
        cell.remove_prefix(end + kBetweenValues.size());
    }
}

bool IsGroupOfFavourites(std::string_view title) {
    return title == kFavourites;
}

bool IsGroupOfProgram(std::string_view title) {
    return title.starts_with(kProgramsOwn);
}

}  // namespace quorvi
