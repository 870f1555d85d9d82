#include <fmt/format.h>

#include "agent/AgentSession.h"
#include "base/Json.h"
#include "base/Text.h"
#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "cli/PhoneChange.h"
#include "pages/phonesettings/PhoneSettings.h"

namespace quorvi::cli {
namespace {

// A value for people: the text of the entry that the page shows; empty where it shows none.
std::string ValueText(const PhoneSettingRow& row, std::uint32_t value) {
    const auto entry = row.isToggle ? std::optional<std::size_t>(IsSettingOn(value) ? 1 : 0)
                                    : EntryShown(row.key, value);
    return entry ? std::string(TrimRight(Ansi(row.entries[*entry].text))) : std::string();
}

// "15000 (15 秒), 30000 (30 秒)": the values that may be written.
std::string Choices(const PhoneSettingRow& row) {
    std::string choices;
    for (const SettingEntry& entry : row.entries) {
        choices += choices.empty() ? "" : ", ";
        choices += fmt::format("{} ({})", entry.value, TrimRight(Ansi(entry.text)));
    }
    return choices;
}

std::string AllNames() {
    std::string names;
    for (const PhoneSettingRow& row : PhoneSettingTable()) {
        names.append(names.empty() ? "" : ", ").append(row.name);
    }
    return names;
}

}  // namespace

Status RunSettingsRead(const Arguments&, const Context& context, Output& output) {
    const auto [outcome, values] = FetchPhoneSettings(AgentSession(context.agent));
    const Status status = output.Report(outcome);
    if (status != Status::done) {
        return status;
    }
    Json::Value document(Json::objectValue);
    Table table{u8"名称", u8"设置", u8"值", u8"显示为"};
    if (values) {
        for (const PhoneSettingRow& row : PhoneSettingTable()) {
            const std::uint32_t value = values->Of(row.key);
            document[std::string(row.name)] = value;
            table.AddRow({std::string(row.name), Ansi(row.caption), std::to_string(value),
                          ValueText(row, value)});
        }
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
    return Status::done;
}

Status RunSettingsWrite(const Arguments& arguments, const Context& context, Output& output) {
    const std::string& name = arguments.operands[0];
    const PhoneSettingRow* row = FindPhoneSetting(name);
    if (!row) {
        output.Complain(ToAnsi(name) + Ansi(u8": 没有这个设置，可以修改的有 ") + AllNames());
        return Status::wrongUsage;
    }
    const auto value = ReadId(arguments.operands[1]);
    if (!value || !CanBeWritten(*row, *value)) {
        output.Complain(ToAnsi(arguments.operands[1]) + ": " + name +
                        Ansi(u8" 不能设为这个值，可以用的有 ") + Choices(*row));
        return Status::wrongUsage;
    }
    Json::Value written(Json::objectValue);
    written[name] = *value;
    return SendAndTell(context, WriteSettingRequest(row->key, *value), "written", written, output);
}

}  // namespace quorvi::cli
