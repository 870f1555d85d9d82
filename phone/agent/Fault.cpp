#include "phone/agent/Fault.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "agent/Wire.h"

namespace quorvi::phone {
namespace {

constexpr std::size_t kWordBytes = 4;

// Each fault's word, and how many numbers it takes at most and at least.
struct FaultName {
    FaultKind kind;
    std::string_view name;
    std::size_t most;
    std::size_t least;
};

constexpr std::array<FaultName, 12> kNames{{
    {FaultKind::noData, "nodata", 0, 0},
    {FaultKind::absentFirst, "absent", 0, 0},
    {FaultKind::close, "close", 0, 0},
    {FaultKind::cut, "cut", 1, 1},
    {FaultKind::reset, "reset", 1, 0},
    {FaultKind::unplug, "unplug", 1, 0},
    {FaultKind::stall, "stall", 1, 0},
    {FaultKind::trickle, "trickle", 2, 0},
    {FaultKind::length, "length", 2, 1},
    {FaultKind::string, "string", 2, 2},
    {FaultKind::word, "word", 1, 1},
    {FaultKind::delay, "delay", 1, 1},
}};

// The trickle of a fault that gives no numbers: one byte every 20 ms.
constexpr std::uint64_t kTrickleBytes = 1;
constexpr std::uint64_t kTricklePace = 20;

std::optional<std::uint64_t> ParseNumber(std::string_view text) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return number;
}

void CutTo(Bytes& bytes, std::uint64_t count) {
    bytes.resize(std::min<std::uint64_t>(bytes.size(), count));
}

Bytes OneWord(std::uint64_t value) {
    Bytes bytes(kWordBytes);
    PackUInt32(static_cast<std::uint32_t>(value), bytes.data());
    return bytes;
}

// Takes the first string's bytes out, the absent mark standing for its length.
void MakeFirstAbsent(AgentReply& reply) {
    if (reply.strings.empty()) {
        return;
    }
    const auto [offset, length] = reply.strings.front();
    const auto first = reply.bytes.begin() + static_cast<std::ptrdiff_t>(offset + kWordBytes);
    reply.bytes.erase(first, first + length);
    PackUInt32(AbsentMark, reply.bytes.data() + offset);
    PackUInt32(static_cast<std::uint32_t>(reply.bytes.size() - kWordBytes), reply.bytes.data());
}

void Apply(const Fault& fault, AgentReply& reply, Delivery& delivery) {
    Bytes& bytes = reply.bytes;
    switch (fault.kind) {
        case FaultKind::noData:
            bytes = OneWord(NoDataMark);
            // For who takes the mark for a length, the end of the connection is that of the reply.
            delivery.ending = Ending::close;
            break;
        case FaultKind::absentFirst:
            MakeFirstAbsent(reply);
            break;
        case FaultKind::close:
            bytes.clear();
            delivery.ending = Ending::close;
            break;
        case FaultKind::cut:
            CutTo(bytes, fault.a);
            delivery.ending = Ending::close;
            break;
        case FaultKind::reset:
            CutTo(bytes, fault.a);
            delivery.ending = Ending::reset;
            break;
        case FaultKind::unplug:
            CutTo(bytes, fault.a);
            delivery.ending = Ending::unplug;
            break;
        case FaultKind::stall: {
            const auto shown = std::min<std::uint64_t>(bytes.size(), fault.a);
            delivery.held.assign(bytes.begin() + static_cast<std::ptrdiff_t>(shown), bytes.end());
            CutTo(bytes, shown);
            break;
        }
        case FaultKind::trickle:
            delivery.pieceBytes = fault.a;
            delivery.pace = std::chrono::milliseconds(fault.b);
            break;
        case FaultKind::length:
            bytes.resize(std::max(bytes.size(), kWordBytes));
            PackUInt32(static_cast<std::uint32_t>(fault.a), bytes.data());
            CutTo(bytes, std::min<std::uint64_t>(fault.b, bytes.size()) + kWordBytes);
            delivery.ending = Ending::close;
            break;
        case FaultKind::string:
            if (fault.a < reply.strings.size()) {
                PackUInt32(static_cast<std::uint32_t>(fault.b),
                           bytes.data() + reply.strings[fault.a].offset);
            }
            break;
        case FaultKind::word:
            bytes = OneWord(fault.a);
            break;
        case FaultKind::delay:
            delivery.delay = std::chrono::milliseconds(fault.a);
            break;
    }
}

}  // namespace

std::optional<Fault> ParseFault(const std::vector<std::string>& words) {
    if (words.empty()) {
        return std::nullopt;
    }
    const auto name = std::find_if(kNames.begin(), kNames.end(),
                                   [&](const FaultName& row) { return row.name == words[0]; });
    if (name == kNames.end()) {
        return std::nullopt;
    }
    Fault fault{name->kind, 0, 0, std::nullopt};
    if (fault.kind == FaultKind::trickle) {
        fault.a = kTrickleBytes;
        fault.b = kTricklePace;
    } else if (fault.kind == FaultKind::length) {
        fault.b = UINT64_MAX;
    }
    std::size_t numbers = words.size() - 1;
    if (words.size() > 2 && words[words.size() - 2] == "times") {
        const auto times = ParseNumber(words.back());
        if (!times || *times == 0) {
            return std::nullopt;
        }
        fault.times = static_cast<std::uint32_t>(*times);
        numbers -= 2;
    }
    if (numbers < name->least || numbers > name->most) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < numbers; ++i) {
        const auto number = ParseNumber(words[i + 1]);
        if (!number) {
            return std::nullopt;
        }
        (i == 0 ? fault.a : fault.b) = *number;
    }
    if (fault.kind == FaultKind::trickle && fault.a == 0) {
        return std::nullopt;
    }
    return fault;
}

std::string Describe(const Fault& fault) {
    const auto name = std::find_if(kNames.begin(), kNames.end(),
                                   [&](const FaultName& row) { return row.kind == fault.kind; });
    std::string text(name->name);
    if (name->most > 0) {
        text += fmt::format(" {}", fault.a);
    }
    if (name->most > 1 && fault.b != UINT64_MAX) {
        text += fmt::format(" {}", fault.b);
    }
    if (fault.times) {
        text += fmt::format(" times {}", *fault.times);
    }
    return text;
}

void FaultTable::Set(std::uint32_t code, std::optional<Fault> fault) {
    if (fault) {
        faults_[code] = *fault;
    } else {
        faults_.erase(code);
    }
}

std::optional<Fault> FaultTable::Meet(std::uint32_t code) {
    auto found = faults_.find(code);
    if (found == faults_.end()) {
        found = faults_.find(0);
    }
    if (found == faults_.end()) {
        return std::nullopt;
    }
    const Fault fault = found->second;
    if (found->second.times && --*found->second.times == 0) {
        faults_.erase(found);
    }
    return fault;
}

Delivery Deliver(AgentReply reply, const std::optional<Fault>& fault) {
    Delivery delivery;
    if (reply.bytes.empty()) {
        delivery.ending = Ending::close;
    }
    if (fault) {
        Apply(*fault, reply, delivery);
    }
    delivery.bytes = std::move(reply.bytes);
    return delivery;
}

}  // namespace quorvi::phone
