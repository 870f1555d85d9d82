#include "agent/Request.h"

#include <utility>

#include "agent/Wire.h"
#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::size_t kTotalOffset = 4;
constexpr std::size_t kCountOffset = 8;

template <typename Word, typename Pack>
void Append(Bytes& out, Word value, Pack pack) {
    const std::size_t at = out.size();
    out.resize(at + sizeof(Word));
    pack(value, out.data() + at);
}

}  // namespace

Bytes BareRequest(AgentCommand command) {
    Bytes request;
    Append(request, static_cast<std::uint32_t>(command), PackUInt32);
    return request;
}

RequestBuilder::RequestBuilder(AgentCommand command) : frame_(kFrameHeaderBytes) {
    PackUInt32(static_cast<std::uint32_t>(command), frame_.data());
}

RequestBuilder& RequestBuilder::BeginItem() {
    ++items_;
    return *this;
}

RequestBuilder& RequestBuilder::AddUInt32(std::uint32_t value) {
    Append(frame_, value, PackUInt32);
    return *this;
}

RequestBuilder& RequestBuilder::AddUInt64(std::uint64_t value) {
    Append(frame_, value, PackUInt64);
    return *this;
}

RequestBuilder& RequestBuilder::AddText(std::string_view ansi) {
    return AddRawText(ToUtf8(ansi));
}

RequestBuilder& RequestBuilder::AddRawText(std::string_view bytes) {
    AddUInt32(static_cast<std::uint32_t>(bytes.size()));
    return AddBytes(std::as_bytes(std::span(bytes)));
}

RequestBuilder& RequestBuilder::AddBytes(std::span<const std::byte> bytes) {
    frame_.insert(frame_.end(), bytes.begin(), bytes.end());
    return *this;
}

Bytes RequestBuilder::Take() {
    PackUInt32(static_cast<std::uint32_t>(frame_.size()), frame_.data() + kTotalOffset);
    PackUInt32(items_, frame_.data() + kCountOffset);
    return std::move(frame_);
}

Bytes IdsRequest(AgentCommand command, std::span<const std::uint32_t> ids) {
    RequestBuilder request(command);
    for (const std::uint32_t id : ids) {
        request.BeginItem().AddUInt32(id);
    }
    return request.Take();
}

}  // namespace quorvi
