#include "cli/PhoneChange.h"

#include "base/Text.h"
#include "cli/CommandLine.h"

namespace quorvi::cli {

std::optional<std::vector<std::uint32_t>> ReadIds(std::span<const std::string> operands,
                                                  std::u8string_view isNot, Output& output) {
    std::vector<std::uint32_t> ids;
    for (const std::string& operand : operands) {
        const auto id = ReadId(operand);
        if (!id) {
            output.Complain(ToAnsi(operand) + ": " + Ansi(isNot));
            return std::nullopt;
        }
        ids.push_back(*id);
    }
    return ids;
}

std::optional<std::vector<std::string>> ReadPackages(std::span<const std::string> operands,
                                                     Output& output) {
    std::vector<std::string> packages;
    for (const std::string& operand : operands) {
        if (operand.empty() || !FitsCodePage(operand)) {
            output.Complain(ToAnsi(operand) + Ansi(u8": 不是应用的包名"));
            return std::nullopt;
        }
        packages.push_back(ToAnsi(operand));
    }
    return packages;
}

Status SendAndTell(const Context& context, const Bytes& request, const char* word,
                   const Json::Value& what, Output& output) {
    return TellChange(AgentSession(context.agent).RunAcknowledged(request).outcome, word, what,
                      output);
}

Status TellChange(SessionOutcome outcome, const char* word, const Json::Value& what,
                  Output& output) {
    if (outcome == SessionOutcome::noReply) {
        output.Complain(Ansi(u8"手机没有确认，请查看手机上是否已经生效"));
        return Status::noLink;
    }
    const Status status = output.Report(outcome);
    if (status == Status::done && output.Json()) {
        Json::Value document(Json::objectValue);
        document[word] = what;
        output.PrintDocument(document);
    }
    return status;
}

Json::Value JsonIds(std::span<const std::uint32_t> ids) {
    Json::Value values(Json::arrayValue);
    for (const std::uint32_t id : ids) {
        values.append(id);
    }
    return values;
}

}  // namespace quorvi::cli
