#include "phone/agent/Commands.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "agent/Wire.h"
#include "phone/agent/Frame.h"

namespace quorvi::phone {
namespace {

// Commands that the agent knows of and does not answer yet.
constexpr std::array kSilentCommands{
    CommandRow{AgentCommand::listAlarms, "listAlarms", RequestForm::bare},
    CommandRow{AgentCommand::addAlarm, "addAlarm", RequestForm::framed},
    CommandRow{AgentCommand::updateAlarm, "updateAlarm", RequestForm::framed},
    CommandRow{AgentCommand::deleteAlarms, "deleteAlarms", RequestForm::framed},
    CommandRow{AgentCommand::listFileRoots, "listFileRoots", RequestForm::bare},
    CommandRow{AgentCommand::listDirectory, "listDirectory", RequestForm::framed},
    CommandRow{AgentCommand::listBookmarks, "listBookmarks", RequestForm::bare},
    CommandRow{AgentCommand::addBookmark, "addBookmark", RequestForm::framed},
    CommandRow{AgentCommand::updateBookmark, "updateBookmark", RequestForm::framed},
    CommandRow{AgentCommand::deleteBookmarks, "deleteBookmarks", RequestForm::framed},
    CommandRow{AgentCommand::listApplications, "listApplications", RequestForm::bare},
    CommandRow{AgentCommand::runApplication, "runApplication", RequestForm::runApplication},
    CommandRow{AgentCommand::readSettings, "readSettings", RequestForm::bare},
    CommandRow{AgentCommand::writeSetting, "writeSetting", RequestForm::framed},
    CommandRow{AgentCommand::scanForCleaning, "scanForCleaning", RequestForm::bare},
    CommandRow{AgentCommand::clean, "clean", RequestForm::clean},
    CommandRow{AgentCommand::listAutoStart, "listAutoStart", RequestForm::bare},
    CommandRow{AgentCommand::listProcesses, "listProcesses", RequestForm::bare},
    CommandRow{AgentCommand::endProcesses, "endProcesses", RequestForm::framed},
    CommandRow{AgentCommand::freeMemory, "freeMemory", RequestForm::bare},
};

const std::vector<CommandRow>& AllCommands() {
    static const std::vector<CommandRow> rows = [] {
        std::vector<CommandRow> all;
        for (const auto group :
             {PhoneCommands(), ContactCommands(), GroupCommands(), MessageCommands(),
              CallCommands(), std::span<const CommandRow>(kSilentCommands)}) {
            all.insert(all.end(), group.begin(), group.end());
        }
        return all;
    }();
    return rows;
}

template <typename Test>
const CommandRow* FindWhere(Test test) {
    const auto found = std::find_if(AllCommands().begin(), AllCommands().end(), test);
    return found == AllCommands().end() ? nullptr : &*found;
}

}  // namespace

const CommandRow* FindCommand(std::uint32_t code) {
    return FindWhere(
        [&](const CommandRow& row) { return static_cast<std::uint32_t>(row.command) == code; });
}

const CommandRow* FindCommand(std::string_view nameOrCode) {
    return FindWhere([&](const CommandRow& row) {
        return row.name == nameOrCode ||
               std::to_string(static_cast<std::uint32_t>(row.command)) == nameOrCode;
    });
}

Outcome RunCommand(const CommandRow& row, AgentData& data, std::span<const std::byte> request) {
    RequestReader reader(request.subspan(std::min(HeaderBytes(row.form), request.size())));
    ReplyWriter writer;
    Exchange exchange{data, reader, 0, writer, {}, {}};
    if (const auto offset = CountOffset(row.form)) {
        exchange.items = ReadUInt32(request.data() + *offset);
    }
    if (!row.handler) {
        return {};
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
