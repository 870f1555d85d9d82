// The applications: the list, starting one.
#include <fmt/format.h>

#include <array>

#include "phone/agent/AgentData.h"
#include "phone/agent/Commands.h"

namespace quorvi::phone {
namespace {

constexpr std::uint32_t kReserved = 0;

// What the agent acknowledges a start with.
constexpr std::uint32_t kDone = 1;
constexpr std::uint32_t kRefused = 0;

void ListOne(const InstalledApp& app, ReplyWriter& reply) {
    reply.UInt32(kReserved)
        .Text(app.name)
        .Text(app.package)
        .Text(app.version)
        .UInt32(app.system ? 1 : 0)
        .UInt64(app.size)
        .UInt64(app.icon ? app.icon->size() : 0);
    if (app.icon) {
        reply.Raw(*app.icon);
    }
    reply.Text(PackageFilePath(app)).UInt32(kReserved).UInt64(app.installed);
}

// The agent leaves itself out: who removed it in this list would lose the list. Where nothing is
// left, it says so by a record whose name is absent.
void ListApplications(Exchange& exchange) {
    for (const InstalledApp& app : exchange.data.handset.Apps()) {
        if (app.package != kAgentPackage) {
            ListOne(app, exchange.reply);
        }
    }
    for (const InstalledApp& app : exchange.data.claimedApps) {
        ListOne(app, exchange.reply);
    }
    if (exchange.reply.IsEmpty()) {
        exchange.reply.UInt32(kReserved).AbsentText();
    }
}

// A package that is not installed is no deviation: it may have gone since it was listed.
void RunApplication(Exchange& exchange) {
    exchange.ExpectOneItem();
    exchange.reply.Word(kRefused);
    const std::string package = exchange.request.Text();
    if (exchange.request.Overran()) {
        return;
    }
    const InstalledApp* app = exchange.data.handset.FindApp(package);
    if (!app) {
        exchange.note = fmt::format("not installed: {}", package);
        return;
    }
    exchange.data.processes.Start(*app);
    exchange.note = fmt::format("started {}", package);
    exchange.reply.Word(kDone);
}

constexpr std::array kRows{
    AgentCommandRow{AgentCommand::listApplications, "listApplications", RequestForm::bare,
                    ListApplications},
    AgentCommandRow{AgentCommand::runApplication, "runApplication", RequestForm::runApplication,
                    RunApplication},
};

}  // namespace

std::span<const AgentCommandRow> AppCommands() {
    return kRows;
}

}  // namespace quorvi::phone
