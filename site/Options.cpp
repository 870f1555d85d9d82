#include "site/Options.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "base/CodePageChoice.h"
#include "base/Json.h"

namespace quorvi::site {
namespace {

template <typename Number>
[[nodiscard]] bool Parse(const std::string& text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

struct Option {
    std::string_view name;
    std::string_view value;
    bool (*apply)(CommandLine& line, const std::string& value);
    std::string_view help;
};

constexpr std::array<Option, 3> kOptions{{
    {"--port", "PORT",
     [](CommandLine& line, const std::string& value) { return Parse(value, line.server.port); },
     "where it listens on 127.0.0.1 (any free port)"},
    {"--rate", "KILOBYTES",
     [](CommandLine& line, const std::string& value) {
         return Parse(value, line.server.kilobytesASecond);
     },
     "so much of a download in a second (all at once)"},
    {"--deployment", "FILE",
     [](CommandLine& line, const std::string& value) {
         line.deployment = value;
         return !value.empty();
     },
     "write a deployment that names this site into FILE"},
}};

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& words) {
    CommandLine line;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "--help" || words[i] == "-h") {
            line.help = true;
            return line;
        }
        const auto* const option = std::ranges::find(kOptions, words[i], &Option::name);
        if (option == kOptions.end()) {
            line.error = fmt::format("unknown option {}", words[i]);
            return line;
        }
        if (i + 1 == words.size()) {
            line.error = fmt::format("{} needs {}", option->name, option->value);
            return line;
        }
        if (const std::string& value = words[++i]; !option->apply(line, value)) {
            line.error = fmt::format("{} cannot be {}", option->name, value);
            return line;
        }
    }
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
    for (const Option& option : kOptions) {
        out += fmt::format("  {:<20} {}\n", fmt::format("{} {}", option.name, option.value),
                           option.help);
    }
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
