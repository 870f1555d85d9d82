#include "phone/agent/Frame.h"

#include <fmt/format.h>

#include <array>

#include "agent/Wire.h"

namespace quorvi::phone {
namespace {

struct Shape {
    RequestForm form;
    std::size_t headerBytes;
    std::optional<std::size_t> totalOffset;  // none: the header is the whole request
    std::optional<std::size_t> countOffset;
};

constexpr std::array<Shape, 5> kShapes{{
    {RequestForm::bare, 4, std::nullopt, std::nullopt},
    {RequestForm::framed, kFrameHeaderBytes, 4, 8},
    {RequestForm::conversation, 8, std::nullopt, std::nullopt},
    {RequestForm::runApplication, 12, 8, 4},
    {RequestForm::clean, 12, 4, 8},
}};

constexpr bool InOrder() {
    for (std::size_t i = 0; i < kShapes.size(); ++i) {
        if (static_cast<std::size_t>(kShapes[i].form) != i) {
            return false;
        }
    }
    return true;
}
static_assert(InOrder(), "the table is indexed by the form");

const Shape& ShapeOf(RequestForm form) {
    return kShapes[static_cast<std::size_t>(form)];
}

}  // namespace

std::optional<FrameLength> LengthOf(RequestForm form, std::span<const std::byte> received) {
    const Shape& shape = ShapeOf(form);
    if (!shape.totalOffset) {
        return FrameLength{shape.headerBytes, {}};
    }
    if (received.size() < shape.headerBytes) {
        return std::nullopt;
    }
    const std::uint32_t total = ReadUInt32(received.data() + *shape.totalOffset);
    if (total < shape.headerBytes) {
        return FrameLength{shape.headerBytes,
                           fmt::format("total {} is less than the {} bytes of the header", total,
                                       shape.headerBytes)};
    }
    if (total > kMaxRequestBytes) {
        return FrameLength{shape.headerBytes, fmt::format("total {} is out of reason", total)};
    }
    return FrameLength{total, {}};
}

std::size_t HeaderBytes(RequestForm form) {
    return form == RequestForm::conversation ? sizeof(std::uint32_t) : ShapeOf(form).headerBytes;
}

std::optional<std::size_t> CountOffset(RequestForm form) {
    return ShapeOf(form).countOffset;
}

}  // namespace quorvi::phone
