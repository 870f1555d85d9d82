#include "backup/PlanRows.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

#include "backup/BackupTexts.h"
#include "base/Text.h"

namespace quorvi {
namespace {

struct ActionTexts {
    RestoreAction action;
    std::u8string_view name;
    std::u8string_view done;
    std::u8string_view why;  // where the plan says no more
};

// In the order of the rows.
constexpr std::array<ActionTexts, 4> kActions{{
    {RestoreAction::impossible, u8"无法写入", u8"无法写入", u8"手机不能写入"},
    {RestoreAction::change, u8"补充", u8"已补充", u8"补上手机里缺少的内容，已有的不改动"},
    {RestoreAction::add, u8"新增", u8"已新增", u8"手机里没有，新建一个"},
    {RestoreAction::there, u8"已存在", u8"已存在", u8"手机里已有，不会改动"},
}};

const ActionTexts& TextsOf(RestoreAction action) {
    return *std::ranges::find(kActions, action, &ActionTexts::action);
}

std::size_t OrderOf(RestoreAction action) {
    return static_cast<std::size_t>(&TextsOf(action) - kActions.data());
}

// Of "短信 12400", which stands for a whole kind, "12,400 项"; of all else, what it is.
std::string WhatOf(const RestoreItem& item) {
    const std::string kind = NameOf(item.kind) + " ";
    if (item.action != RestoreAction::impossible || !item.what.starts_with(kind)) {
        return item.what;
    }
    const std::string_view digits = std::string_view(item.what).substr(kind.size());
    std::uint64_t count = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), count);
    return error == std::errc() && end == digits.data() + digits.size()
               ? GroupedDigits(count) + Ansi(u8" 项")
               : item.what;
}

}  // namespace

std::vector<PlanRow> PlanRowsOf(const RestorePlan& plan) {
    std::vector<PlanRow> rows;
    rows.reserve(plan.items.size());
    std::size_t order = 0;
    for (const RestoreItem& item : plan.items) {
        PlanRow row{item.action, NameOf(item.kind), WhatOf(item), item.why, 0};
        if (row.why.empty()) {
            row.why = Ansi(TextsOf(item.action).why);
        }
        if (item.action == RestoreAction::add || item.action == RestoreAction::change) {
            row.order = order++;
        }
        rows.push_back(std::move(row));
    }
    std::ranges::stable_sort(rows, {}, [](const PlanRow& row) { return OrderOf(row.action); });
    return rows;
}

std::string ActionName(RestoreAction action, bool done) {
    const ActionTexts& texts = TextsOf(action);
    return Ansi(done ? texts.done : texts.name);
}

}  // namespace quorvi
