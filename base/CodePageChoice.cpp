#include "base/CodePageChoice.h"

#include <algorithm>
#include <array>

namespace quorvi {
namespace {

struct NamedCodePage {
    std::string_view name;
    CodePage codePage;
};
constexpr std::array<NamedCodePage, 2> kCodePages{{
    {"gbk", CodePage::gbk},
    {"gb18030", CodePage::gb18030},
}};

constexpr std::string_view kSetting = "code_page";

}  // namespace

std::string_view NameOf(CodePage codePage) {
    return std::ranges::find(kCodePages, codePage, &NamedCodePage::codePage)->name;
}

std::optional<CodePage> CodePageOfName(std::string_view name) {
    const auto* const found = std::ranges::find_if(
        kCodePages, [&](const NamedCodePage& row) { return EqualsNoCase(row.name, name); });
    return found == kCodePages.end() ? std::nullopt : std::optional(found->codePage);
}

CodePage ChosenCodePage(const SettingsStore& settings, CodePage otherwise) {
    return CodePageOfName(settings.ReadText(kSettingsKey, kSetting).value_or(""))
        .value_or(otherwise);
}

void ChooseCodePage(SettingsStore& settings, CodePage codePage) {
    settings.WriteText(kSettingsKey, kSetting, NameOf(codePage));
}

}  // namespace quorvi
