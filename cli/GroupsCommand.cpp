#include "agent/AgentSession.h"
#include "base/Json.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/FormInput.h"
#include "cli/KeptDelete.h"
#include "cli/PhoneChange.h"
#include "pages/contacts/ContactGroups.h"

namespace quorvi::cli {
namespace {

constexpr std::u8string_view kNoGroupId = u8"不是分组的编号";

// The title of an operand, ANSI; complains of an empty one, which the window does not send either,
// and warns of characters that the code page lacks, as the window's editor does.
std::string TitleOf(const std::string& operand, Output& output) {
    if (operand.empty()) {
        output.Complain(Ansi(u8"分组的标题不能为空"));
    } else if (!FitsCodePage(operand)) {
        WarnOfLostCharacters(output);
    }
    return ToAnsi(operand);
}

}  // namespace

Status RunGroupsList(const Arguments&, const Context& context, Output& output) {
    const auto [outcome, groups] = FetchContactGroups(AgentSession(context.agent));
    const Status status = output.Report(outcome);
    if (status != Status::done) {
        return status;
    }
    Json::Value document(Json::arrayValue);
    Table table{u8"编号", u8"标题", u8"所属账户", u8"可见"};
    for (const ContactGroup& group : groups.rows) {
        Json::Value item(Json::objectValue);
        item["id"] = group.id;
        item["title"] = JsonText(group.title);
        item["account"] = JsonText(group.account);
        item["visible"] = group.visible;
        document.append(std::move(item));
        table.AddRow({std::to_string(group.id), group.title, group.account,
                      GroupVisibleText(group.visible)});
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
    return Status::done;
}

Status RunGroupsAdd(const Arguments& arguments, const Context& context, Output& output) {
    const std::string title = TitleOf(arguments.operands[0], output);
    return title.empty()
               ? Status::wrongUsage
               : SendAndTell(context, AddGroupRequest(title), "added", JsonText(title), output);
}

Status RunGroupsRename(const Arguments& arguments, const Context& context, Output& output) {
    const auto ids = ReadIds(std::span(arguments.operands).first(1), kNoGroupId, output);
    if (!ids) {
        return Status::wrongUsage;
    }
    const std::string title = TitleOf(arguments.operands[1], output);
    return title.empty() ? Status::wrongUsage
                         : SendAndTell(context, RenameGroupRequest(ids->front(), title), "renamed",
                                       ids->front(), output);
}

Status RunGroupsDelete(const Arguments& arguments, const Context& context, Output& output) {
    return DeleteRows(
        arguments, context, kNoGroupId, AgentCommand::listGroups,
        [](const AgentSession& session) { return FetchContactGroups(session); }, &ContactGroup::id,
        &DeleteGroupsRequest, output);
}

}  // namespace quorvi::cli
