#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "agent/AgentSession.h"
#include "base/Format.h"
#include "base/Json.h"
#include "base/PackageName.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/PhoneChange.h"
#include "cli/SerialOption.h"
#include "link/AdbCapture.h"
#include "link/AdbCommand.h"
#include "online/ServiceRequest.h"
#include "pages/apps/AppActions.h"
#include "pages/apps/AppList.h"
#include "pages/apps/StoreCheck.h"
#include "pages/apps/UninstallOutcome.h"

namespace quorvi::cli {
namespace {

// False, and a complaint, when one is no package's name: nothing is sent then.
bool AreAllPackageNames(std::span<const std::string> operands, Output& output) {
    for (const std::string& operand : operands) {
        if (!IsPackageName(operand)) {
            output.Complain(ToAnsi(operand) + Ansi(u8": 不是应用的包名"));
            return false;
        }
    }
    return true;
}

Json::Value DocumentOf(const AppRecord& row) {
    Json::Value item(Json::objectValue);
    item["name"] = JsonText(row.name);
    item["package"] = JsonText(row.package);
    item["version"] = JsonText(row.version);
    item["size"] = Json::Value::UInt64{row.size};
    item["installed"] = JsonText(InstalledText(row.installed));
    item["icon_bytes"] = Json::Value::UInt64{row.icon.Bytes().size()};
    item["rating"] = row.store.rating;
    item["store_id"] = row.store.storeId;
    item["category"] = JsonText(row.store.category);
    item["description"] = JsonText(row.store.description);
    return item;
}

// Merges into the rows what the site says of them. An empty list is nothing to ask about.
void CheckStore(const Context& context, std::vector<AppRecord>& rows, Output& output) {
    if (rows.empty()) {
        return;
    }
    DeviceIdentity identity;
    ReadDeviceIdentity(AgentSession(context.agent), identity);
    std::vector<std::string> packages;
    packages.reserve(rows.size());
    for (const AppRecord& row : rows) {
        packages.push_back(row.package);
    }
    const StoreAnswers answers =
        ParseStoreAnswers(AskService(context.deployment, kStoreCheckService,
                                     StoreCheckDocument(identity, packages), context.limits));
    if (answers.empty()) {
        output.Complain(Ansi(u8"网站没有给出应用的评级和分类，请稍后再试"));
    }
    MergeStoreAnswers(answers, rows);
}

// What became of one uninstall.
struct Uninstall {
    UninstallOutcome outcome = UninstallOutcome::noAdb;
    std::string said;  // by adb, UTF-8
};

// Whether the phone has the package; true as well where adb cannot tell.
bool MayBeInstalled(const std::optional<std::string>& serial, const std::string& package) {
    const AdbCapture path = RunAdbCapture(PackagePathCommand(LinkEnvironment(), serial, package));
    return path.outcome != RunOutcome::started || !Trim(path.text).empty();
}

Uninstall UninstallOne(const std::optional<std::string>& serial, const std::string& package) {
    const AdbCapture run = RunAdbCapture(UninstallCommand(LinkEnvironment(), serial, package));
    if (run.outcome != RunOutcome::started) {
        return {};
    }
    Uninstall done{ParseUninstall(run.text), std::string(Trim(run.text))};
    // Most phones give no reason when they do not have the package.
    if (done.outcome == UninstallOutcome::refused && !MayBeInstalled(serial, package)) {
        done.outcome = UninstallOutcome::notInstalled;
    }
    return done;
}

std::string ReasonOf(const Uninstall& uninstall) {
    return uninstall.outcome == UninstallOutcome::notInstalled
               ? Ansi(u8"手机上没有这个应用")
               : UninstallReason(uninstall.outcome, uninstall.said);
}

Status StatusOf(UninstallOutcome outcome) {
    switch (outcome) {
        case UninstallOutcome::done:
            return Status::done;
        case UninstallOutcome::notInstalled:
            return Status::notFound;
        default:
            return Status::noLink;
    }
}

}  // namespace

Status RunAppsList(const Arguments& arguments, const Context& context, Output& output) {
    AppListReply reply = FetchAppList(AgentSession(context.agent));
    const Status status = output.Report(reply.outcome);
    if (status != Status::done) {
        return status;
    }
    std::vector<AppRecord>& rows = reply.list.rows;
    if (arguments.Has("--site")) {
        CheckStore(context, rows, output);
    }
    Json::Value document(Json::arrayValue);
    Table table{u8"应用名称", u8"包名", u8"版本", u8"大小", u8"安装日期", u8"分类", u8"评级"};
    for (const AppRecord& row : rows) {
        document.append(DocumentOf(row));
        table.AddRow({row.name, row.package, row.version, FormatByteSize(row.size),
                      InstalledText(row.installed), row.store.category,
                      std::to_string(row.store.rating)});
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
    return Status::done;
}

Status RunAppsRun(const Arguments& arguments, const Context& context, Output& output) {
    if (!AreAllPackageNames(arguments.operands, output)) {
        return Status::wrongUsage;
    }
    const std::string& package = arguments.operands[0];
    return SendAndTell(context, RunApplicationRequest(package), "started", package, output);
}

Status RunAppsUninstall(const Arguments& arguments, const Context&, Output& output) {
    if (!AreAllPackageNames(arguments.operands, output)) {
        return Status::wrongUsage;
    }
    std::optional<std::string> serial = arguments.Option("--serial");
    if (serial) {
        Utf8ToAnsi(*serial);
    }
    if (const Status status = FindPhone(serial, output); status != Status::done) {
        return status;
    }
    Status worst = Status::done;
    Json::Value document(Json::arrayValue);
    for (const std::string& package : arguments.operands) {
        const Uninstall one = UninstallOne(serial, package);
        if (output.Json()) {
            Json::Value item(Json::objectValue);
            item["package"] = package;
            item["uninstalled"] = one.outcome == UninstallOutcome::done;
            item["said"] = JsonText(ToAnsi(one.said));
            document.append(std::move(item));
        } else if (!one.said.empty()) {
            output.PrintLine(package + ": " + ToAnsi(one.said));
        }
        if (const std::string reason = ReasonOf(one); !reason.empty()) {
            output.Complain(std::string(package).append(": ").append(reason));
        }
        worst = std::max(worst, StatusOf(one.outcome));
    }
    if (output.Json()) {
        output.PrintDocument(document);
    }
    return worst;
}

}  // namespace quorvi::cli
