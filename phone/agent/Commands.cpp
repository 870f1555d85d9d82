#include "phone/agent/Commands.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "agent/Wire.h"
#include "phone/agent/Frame.h"

namespace quorvi::phone {
namespace {

const std::vector<AgentCommandRow>& AllCommands() {
    static const std::vector<AgentCommandRow> rows = [] {
        std::vector<AgentCommandRow> all;
        for (const auto group :
             {PhoneCommands(), ContactCommands(), GroupCommands(), MessageCommands(),
              CallCommands(), AlarmCommands(), BookmarkCommands(), SettingCommands(),
              AutoStartCommands(), ProcessCommands(), FileCommands(), CleanCommands(),
              AppCommands()}) {
            all.insert(all.end(), group.begin(), group.end());
        }
        return all;
    }();
    return rows;
}

template <typename Test>
const AgentCommandRow* FindWhere(Test test) {
    const auto found = std::find_if(AllCommands().begin(), AllCommands().end(), test);
    return found == AllCommands().end() ? nullptr : &*found;
}

}  // namespace

const AgentCommandRow* FindCommand(std::uint32_t code) {
    return FindWhere([&](const AgentCommandRow& row) {
        return static_cast<std::uint32_t>(row.command) == code;
    });
}

const AgentCommandRow* FindCommand(std::string_view nameOrCode) {
    return FindWhere([&](const AgentCommandRow& row) {
        return row.name == nameOrCode ||
               std::to_string(static_cast<std::uint32_t>(row.command)) == nameOrCode;
    });
}

Outcome RunCommand(const AgentCommandRow& row, AgentData& data,
                   std::span<const std::byte> request) {
    RequestReader reader(request.subspan(std::min(HeaderBytes(row.form), request.size())));
    ReplyWriter writer;
    Exchange exchange{data, reader, 0, writer, {}, {}};
    if (const auto offset = CountOffset(row.form)) {
        exchange.items = ReadUInt32(request.data() + *offset);
    }
    row.handler(exchange);
    if (reader.Overran()) {
        exchange.deviations.push_back(
            fmt::format("the frame ends before the fields of its {} items do", exchange.items));
    } else if (reader.Left() > 0) {
        exchange.deviations.push_back(
            fmt::format("{} bytes are left behind the last field", reader.Left()));
    }
    return {writer.Take(), std::move(exchange.deviations), std::move(exchange.note)};
}

}  // namespace quorvi::phone
