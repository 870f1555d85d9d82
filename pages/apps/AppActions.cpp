#include "pages/apps/AppActions.h"

namespace quorvi {
namespace {

// Words in front of the name: the command, the count, the length, the name's length.
constexpr std::uint32_t kRunHeaderBytes = 16;

}  // namespace

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
