// What editors and the command line say of texts that are about to be saved.
#pragma once

#include <string_view>

namespace quorvi {

// Of texts that have characters which the code page lacks.
inline constexpr std::u8string_view kCharactersLost = u8"有些字符无法保存，会变成“?”";

}  // namespace quorvi
