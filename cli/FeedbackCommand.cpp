#include <optional>

#include "agent/AgentSession.h"
#include "base/Json.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "online/DeviceIdentity.h"
#include "online/Feedback.h"

namespace quorvi::cli {
namespace {

std::string TextOf(const Arguments& arguments, std::string_view option) {
    return ToAnsi(arguments.Option(option).value_or(std::string()));
}

std::optional<FeedbackPlatform> PlatformOf(const Arguments& arguments) {
    const std::string name = arguments.Option("--platform").value_or("android");
    if (name == "android") {
        return FeedbackPlatform::android;
    }
    return name == "ophone" ? std::optional(FeedbackPlatform::ophone) : std::nullopt;
}

Status StatusOf(FeedbackOutcome outcome) {
    if (outcome == FeedbackOutcome::received) {
        return Status::done;
    }
    return WasSent(outcome) ? Status::noLink : Status::wrongUsage;
}

}  // namespace

Status RunFeedback(const Arguments& arguments, const Context& context, Output& output) {
    const auto platform = PlatformOf(arguments);
    if (!platform) {
        output.Complain(Ansi(u8"--platform 的值应为 android 或 ophone"));
        return Status::wrongUsage;
    }
    // Without a phone its agent has no version, which is no hindrance.
    DeviceIdentity identity;
    ReadDeviceIdentity(AgentSession(context.agent), identity);
    const FeedbackOutcome outcome = SendFeedback(context.deployment,
                                                 {.platform = *platform,
                                                  .model = TextOf(arguments, "--model"),
                                                  .firmware = TextOf(arguments, "--firmware"),
                                                  .content = TextOf(arguments, "--content"),
                                                  .email = TextOf(arguments, "--email"),
                                                  .qq = TextOf(arguments, "--qq")},
                                                 identity.client, context.limits);
    const std::string text = FeedbackText(outcome);
    if (output.Json()) {
        Json::Value document;
        document["received"] = outcome == FeedbackOutcome::received;
        document["text"] = JsonText(text);
        output.PrintDocument(document);
    } else if (outcome == FeedbackOutcome::received) {
        output.PrintLine(text);
    } else {
        output.Complain(text);
    }
    return StatusOf(outcome);
}

}  // namespace quorvi::cli
