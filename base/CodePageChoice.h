// The choice of the program's code page by name, as the deployment and the user's settings write
// it.
#pragma once

#include <optional>
#include <string_view>

#include "base/SettingsStore.h"
#include "base/Text.h"

namespace quorvi {

// "gbk" and "gb18030".
[[nodiscard]] std::string_view NameOf(CodePage codePage);
// Without regard to case; nothing for another name.
[[nodiscard]] std::optional<CodePage> CodePageOfName(std::string_view name);

// What the user has chosen; `otherwise` where he has chosen nothing, or nothing that is known. Any
// thread.
[[nodiscard]] CodePage ChosenCodePage(const SettingsStore& settings, CodePage otherwise);
// Keeps the user's choice, which holds from the next start of a program on: text in memory is in
// one code page for as long as a program runs. Any thread.
void ChooseCodePage(SettingsStore& settings, CodePage codePage);

}  // namespace quorvi
