#include "base/PackageName.h"

#include <algorithm>

namespace quorvi {
namespace {

bool IsPackageCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '.';
}

}  // namespace

bool IsPackageName(std::string_view name) {
    return !name.empty() && !name.starts_with('.') &&
           std::ranges::all_of(name, &IsPackageCharacter);
}

}  // namespace quorvi
