#include "site/Options.h"

#include <array>

#include "base/CodePageChoice.h"
#include "base/Json.h"
#include "base/ProgramOptions.h"

namespace quorvi::site {
namespace {

constexpr int kHelpWidth = 20;

constexpr auto kOptions = std::to_array<ProgramOption<CommandLine>>({
    {"--port", "PORT",
     [](CommandLine& line, const std::string& value) {
         return ReadNumber(value, line.server.port);
     },
     "where it listens on 127.0.0.1 (any free port)"},
    {"--rate", "KILOBYTES",
     [](CommandLine& line, const std::string& value) {
         return ReadNumber(value, line.server.kilobytesASecond);
     },
     "so much of a download in a second (all at once)"},
    {"--deployment", "FILE",
     [](CommandLine& line, const std::string& value) {
         line.deployment = value;
         return !value.empty();
     },
     "write a deployment that names this site into FILE"},
});

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& words) {
    CommandLine line;
    ReadOptions(words, kOptions, line);
    return line;
}

std::string HelpText() {
    std::string out =
        "quorvi-site - a sample of the site that the suite asks\n"
        "\n"
        "  quorvi-site [OPTIONS]\n"
        "\n"
        "A store of made-up applications with their packages, the newest version, ratings,\n"
        "feedback and the weather, on one port of 127.0.0.1. The program runs until it is\n"
        "interrupted, and writes a line for each request. To have the suite ask it:\n"
        "\n"
        "  quorvi-site --deployment site.json &\n"
        "  QUORVI_DEPLOYMENT=$PWD/site.json quorvi\n"
        "\n";
    out += OptionsHelp<CommandLine>(kOptions, kHelpWidth);
    return out;
}

std::string DeploymentDocument(const Deployment& deployment) {
    Json::Value document;
    document["site"] = deployment.siteRoot;
    document["store"] = deployment.storeRoot;
    document["download"] = deployment.downloadRoot;
    document["weather"] = deployment.weatherHost;
    document["contact_mail"] = deployment.contactMail;
    document["forum"] = deployment.forumLink;
    document["social"] = deployment.socialLink;
    document["help"] = deployment.helpLink;
    document["code_page"] = std::string(NameOf(deployment.codePage));
    return WriteJson(document, JsonForm::lines) + "\n";
}

}  // namespace quorvi::site
