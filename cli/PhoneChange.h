// What the commands that name records by id, and change them on the phone, have in common.
#pragma once

#include <json/value.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "agent/AgentSession.h"
#include "agent/Request.h"
#include "cli/Command.h"
#include "cli/Output.h"

namespace quorvi::cli {

// The ids of operands; nothing, and a complaint that ends in `isNot` ("不是联系人的编号"), when one
// is no id.
[[nodiscard]] std::optional<std::vector<std::uint32_t>> ReadIds(
    std::span<const std::string> operands, std::u8string_view isNot, Output& output);

// The packages that operands name, in ANSI; nothing, and a complaint, when one is no package's
// name.
[[nodiscard]] std::optional<std::vector<std::string>> ReadPackages(
    std::span<const std::string> operands, Output& output);

// Sends a request, of whose acknowledgement only this is looked at, that it comes: complains, and
// gives noLink, when there is no link or no acknowledgement. Tells what was done with --json:
// {"word": what}.
[[nodiscard]] Status SendAndTell(const Context& context, const Bytes& request, const char* word,
                                 const Json::Value& what, Output& output);

// The same of an exchange that has ended so.
[[nodiscard]] Status TellChange(SessionOutcome outcome, const char* word, const Json::Value& what,
                                Output& output);

[[nodiscard]] Json::Value JsonIds(std::span<const std::uint32_t> ids);

}  // namespace quorvi::cli
