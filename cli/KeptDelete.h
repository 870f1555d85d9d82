// The deletes of the command line: what goes from the phone is written to the PC first, as the
// window's deletes do it.
#pragma once

#include <json/value.h>

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>
#include <variant>
#include <vector>

#include "backup/KeepAndDelete.h"
#include "backup/PhoneLists.h"
#include "cli/Command.h"
#include "cli/Output.h"
#include "cli/PhoneChange.h"

namespace quorvi::cli {

// With this flag a delete goes to the phone although not all that goes could be kept.
inline constexpr std::string_view kForce = "--force";

// Keeps what `find` gives, sends the request, and tells what was done with --json: {"word": what}.
// Where not all can be kept it complains, and sends nothing without kForce.
[[nodiscard]] Status KeepAndTell(const Arguments& arguments, const Context& context,
                                 const FindGoing& find, const Bytes& request, const char* word,
                                 const Json::Value& what, Output& output);

// A delete by the ids that `arguments` name, of rows that `fetch` lists; `isNot` as ReadIds has it.
// An id that the phone does not list takes nothing with it.
template <typename Row, typename Fetch>
[[nodiscard]] Status DeleteRows(const Arguments& arguments, const Context& context,
                                std::u8string_view isNot, AgentCommand list, Fetch fetch,
                                std::uint32_t Row::*id,
                                Bytes (*request)(std::span<const std::uint32_t> ids),
                                Output& output) {
    const auto ids = ReadIds(arguments.operands, isNot, output);
    if (!ids) {
        return Status::wrongUsage;
    }
    const auto find = [&](AgentAddress agent) {
        Going going = GoingOf(FetchSurely(agent, list, [&] { return fetch(AgentSession(agent)); }));
        std::erase_if(std::get<std::vector<Row>>(going.rows), [&](const Row& row) {
            return std::ranges::find(*ids, row.*id) == ids->end();
        });
        return going;
    };
    return KeepAndTell(arguments, context, find, request(*ids), "deleted", JsonIds(*ids), output);
}

}  // namespace quorvi::cli
