#include "agent/AgentSession.h"
#include "base/Json.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/PhoneChange.h"
#include "pages/cleaner/CleanList.h"

namespace quorvi::cli {
namespace {

Json::Value DocumentOf(const CleanItem& row) {
    Json::Value item(Json::objectValue);
    item["name"] = JsonText(row.name);
    item["description"] = JsonText(row.description);
    item["period"] = JsonText(CleanPeriodText(row));
    item["risk"] = JsonText(CleanRiskText(row));
    item["size"] = JsonText(CleanSizeText(row));
    return item;
}

}  // namespace

Status RunCleanerScan(const Arguments&, const Context& context, Output& output) {
    const auto [outcome, list] = FetchCleanList(AgentSession(context.agent));
    const Status status = output.Report(outcome);
    if (status != Status::done) {
        return status;
    }
    Json::Value document(Json::arrayValue);
    Table table{u8"清理项目", u8"说明", u8"推荐周期", u8"风险提示", u8"数量或大小"};
    for (const CleanItem& row : list.rows) {
        document.append(DocumentOf(row));
        table.AddRow({row.name, row.description, CleanPeriodText(row), CleanRiskText(row),
                      CleanSizeText(row)});
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
    return Status::done;
}

Status RunCleanerClean(const Arguments& arguments, const Context& context, Output& output) {
    FixedCleanFlags fixed{};
    Json::Value cleaned(Json::arrayValue);
    for (std::size_t i = 0; i < fixed.size(); ++i) {
        const std::string_view option = kFixedCleanItems[i].option;
        fixed[i] = arguments.Has("--" + std::string(option));
        if (fixed[i]) {
            cleaned.append(std::string(option));
        }
    }
    const auto packages = ReadPackages(arguments.operands, output);
    if (!packages) {
        return Status::wrongUsage;
    }
    for (const std::string& operand : arguments.operands) {
        cleaned.append(operand);
    }
    return SendAndTell(context, CleanRequest(fixed, *packages), "cleaned", cleaned, output);
}

}  // namespace quorvi::cli
