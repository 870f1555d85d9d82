// quorvictl: the suite's logic on the command line.
#include <chrono>
#include <string>
#include <variant>
#include <vector>

#include "agent/Wire.h"
#include "base/CodePageChoice.h"
#include "base/Deployment.h"
#include "base/Places.h"
#include "base/SettingsFile.h"
#include "base/Text.h"
#include "base/Version.h"
#include "cli/CommandLine.h"
#include "cli/CommandTable.h"
#include "cli/Output.h"
#include "log/EventLog.h"

namespace quorvi::cli {
namespace {

// A command, between its start and its end in the log.
Status Run(const Call& call) {
    const auto start = std::chrono::steady_clock::now();
    StartLog("quorvictl", ThePlaces().LogFile());
    LogEvent("start", {{"version", LogValue::Version(ProductVersion())}});
    Output output(call.json);
    const Context context{.agent = AgentPort,
                          .attribution = MakeNumberAttribution(),
                          .deployment = TheDeployment(),
                          .tasks = ThePlaces().TaskDatabase()};
    const Status status = call.command->run(call.arguments, context, output);
    LogEvent("end", {{"status", LogValue::Count(static_cast<int>(status))},
                     {"ms", LogValue::Since(start)}});
    FlushLog();
    return status;
}

Status Run(const std::vector<std::string>& words) {
    SetCodePage(ChosenCodePage(SettingsFile(), TheDeployment().codePage));
    const auto line = ReadCommandLine(words, AllCommands());
    if (const auto* call = std::get_if<Call>(&line)) {
        return Run(*call);
    }
    Output output(false);
    if (const auto* error = std::get_if<UsageError>(&line)) {
        output.Complain(error->text);
        return Status::wrongUsage;
    }
    output.PrintLine(std::holds_alternative<HelpWanted>(line)
                         ? HelpText()
                         : "quorvictl " + std::string(ProductVersion()));
    return Status::done;
}

}  // namespace
}  // namespace quorvi::cli

int main(int count, char** words) {
    const int first = count > 0 ? 1 : 0;
    return static_cast<int>(quorvi::cli::Run({words + first, words + count}));
}
