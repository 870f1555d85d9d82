// Requests, byte for byte as they are sent.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "agent/AgentCommand.h"
#include "agent/Wire.h"

namespace quorvi {

// The four bytes of a command that takes no arguments.
[[nodiscard]] Bytes BareRequest(AgentCommand command);

// A framed request whose items are ids, one an item.
[[nodiscard]] Bytes IdsRequest(AgentCommand command, std::span<const std::uint32_t> ids);

// Builds a framed request: code, total length, item count, items. Works out total and count.
//
//   RequestBuilder request(AgentCommand::renameGroup);
//   request.BeginItem().AddUInt32(id).AddText(title);
//   session.RunAcknowledged(request.Take());
class RequestBuilder {
  public:
    explicit RequestBuilder(AgentCommand command);

    // Counts one more item; its fields follow. A command on a single object has one item.
    RequestBuilder& BeginItem();

    RequestBuilder& AddUInt32(std::uint32_t value);
    RequestBuilder& AddUInt64(std::uint64_t value);
    // A string field: the length after the conversion from ANSI to UTF-8, then the bytes.
    RequestBuilder& AddText(std::string_view ansi);
    // A string field whose bytes go out as they are.
    RequestBuilder& AddRawText(std::string_view bytes);
    RequestBuilder& AddBytes(std::span<const std::byte> bytes);

    // The whole frame. The builder is used up.
    [[nodiscard]] Bytes Take();

  private:
    Bytes frame_;
    std::uint32_t items_ = 0;
};

}  // namespace quorvi
