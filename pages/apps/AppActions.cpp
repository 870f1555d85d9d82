#include "pages/apps/AppActions.h"

#include <algorithm>

namespace quorvi {
namespace {

// Words in front of the name: the command, the count, the length, the name's length.
constexpr std::uint32_t kRunHeaderBytes = 16;

bool IsPackageCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '.';
}

}  // namespace

bool IsPackageName(std::string_view name) {
    return !name.empty() && std::ranges::all_of(name, &IsPackageCharacter);
}

Bytes RunApplicationRequest(std::string_view package) {
    const auto length = static_cast<std::uint32_t>(package.size());
    Bytes request(kRunHeaderBytes);
    PackUInt32(static_cast<std::uint32_t>(AgentCommand::runApplication), request.data());
    PackUInt32(1, request.data() + 4);
    PackUInt32(length + kRunHeaderBytes, request.data() + 8);
    PackUInt32(length, request.data() + 12);
    const auto name = std::as_bytes(std::span(package));
    request.insert(request.end(), name.begin(), name.end());
    return request;
}

}  // namespace quorvi
