#include "phone/Options.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "base/Text.h"
#include "phone/Control.h"

namespace quorvi::phone {
namespace {

// Most phones that one command line starts.
constexpr unsigned kMaxPhones = 16;

template <typename Number>
[[nodiscard]] bool Parse(const std::string& text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

[[nodiscard]] bool ParseScreen(const std::string& text, Profile& profile) {
    ScreenForm form;
    if (!ReadScreenSize(text, form)) {
        return false;
    }
    profile.screenWidth = form.width;
    profile.screenHeight = form.height;
    profile.screenBits = form.bits;
    return true;
}

struct Parsing {
    CommandLine& line;
    PhoneOptions& phone;  // the one that options are for
};

using Apply = bool (*)(Parsing&, const std::string& value);

struct Option {
    std::string_view name;
    std::string_view value;  // empty: takes none
    Apply apply;
    std::string_view help;
};

template <std::string Profile::*Field>
bool SetProfileText(Parsing& parsing, const std::string& value) {
    parsing.phone.profile.*Field = value;
    return true;
}

bool AddCommand(Parsing& parsing, std::string command) {
    parsing.phone.commands.push_back(std::move(command));
    return true;
}

// All amounts are one command, since it fills the phone anew.
bool AddAmount(Parsing& parsing, std::string_view name, const std::string& value) {
    const std::string amount = fmt::format(" {} {}", name, value);
    for (std::string& command : parsing.phone.commands) {
        if (command.starts_with("data ")) {
            command += amount;
            return true;
        }
    }
    return AddCommand(parsing, "data" + amount);
}

constexpr auto kOptions = std::to_array<Option>({
    {"--phone", "", nullptr, "one more phone; what follows is about it"},
    {"--phones", "N", nullptr, "N phones in all"},
    {"--control", "PORT",
     [](Parsing& p, const std::string& value) {
         return Parse(value, p.line.server.controlPort.emplace());
     },
     "take commands on 127.0.0.1:PORT (0: any free port)"},
    {"--adb-port", "PORT",
     [](Parsing& p, const std::string& value) { return Parse(value, p.phone.adbPort.emplace()); },
     "where the adb server finds the phone (the first free odd port from 5555)"},
    {"--agent-port", "PORT",
     [](Parsing& p, const std::string& value) { return Parse(value, p.phone.agentPort.emplace()); },
     "answer the agent's protocol here too, with no adb in between"},
    {"--old-transport", "",
     [](Parsing& p, const std::string&) { return p.phone.oldTransport = true; },
     "speak to the adb server as phones of 2011 do"},
    {"--no-announce", "",
     [](Parsing& p, const std::string&) {
         p.phone.announce = false;
         return true;
     },
     "do not tell a running adb server that the phone is there"},
    {"--unplugged", "",
     [](Parsing& p, const std::string&) {
         p.phone.plugged = false;
         return true;
     },
     "wait for the command plug"},
    {"--debugging", "WORD",
     [](Parsing& p, const std::string& value) { return AddCommand(p, "debugging " + value); },
     "how it meets an adb server: allowed, asks (its user first) or silent"},
    {"--serial", "TEXT", SetProfileText<&Profile::serial>, "ro.serialno"},
    {"--manufacturer", "TEXT", SetProfileText<&Profile::manufacturer>, "ro.product.manufacturer"},
    {"--brand", "TEXT", SetProfileText<&Profile::brand>, "ro.product.brand"},
    {"--model", "TEXT", SetProfileText<&Profile::model>, "ro.product.model"},
    {"--full-model", "TEXT", SetProfileText<&Profile::fullModel>,
     "the model as the agent names it"},
    {"--android", "TEXT", SetProfileText<&Profile::androidVersion>,
     "Android's version, as in 2.3.4"},
    {"--api-level", "N",
     [](Parsing& p, const std::string& value) { return Parse(value, p.phone.profile.apiLevel); },
     "ro.build.version.sdk"},
    {"--screen", "WxH[xBITS]",
     [](Parsing& p, const std::string& value) { return ParseScreen(value, p.phone.profile); },
     "the screen, of 16, 24 or 32 bits a pixel; of other bits it is sent as of 16"},
    {"--screen-form", "NAME:VALUE[:...]",
     [](Parsing& p, const std::string& value) {
         return AddCommand(p, "screen " + ReplaceAll(value, ":", " "));
     },
     "how it is sent, as in version:2:order:bgr or fault:cut:100"},
    {"--agent-version", "N",
     [](Parsing& p, const std::string& value) { return AddCommand(p, "agent version " + value); },
     "the agent that is installed (20)"},
    {"--no-agent", "",
     [](Parsing& p, const std::string&) { return AddCommand(p, "agent missing"); },
     "no agent is installed"},
    {"--install", "CODE",
     [](Parsing& p, const std::string& value) { return AddCommand(p, "install " + value); },
     "what installing answers, as in INSTALL_FAILED_INSUFFICIENT_STORAGE"},
    {"--fault", "COMMAND:FAULT[:N[:N]]",
     [](Parsing& p, const std::string& value) {
         return AddCommand(p, "fault " + ReplaceAll(value, ":", " "));
     },
     "misbehave from the start, as in 870101:cut:100 or all:close"},
    {"--contacts", "N",
     [](Parsing& p, const std::string& value) { return AddAmount(p, "contacts", value); },
     "N made-up contacts instead of a person's"},
    {"--photo-bytes", "N",
     [](Parsing& p, const std::string& value) { return AddAmount(p, "photo-bytes", value); },
     "a photo of N bytes with each of them, and with each made-up bookmark"},
    {"--conversations", "N",
     [](Parsing& p, const std::string& value) { return AddAmount(p, "conversations", value); },
     "N made-up conversations instead of a person's"},
    {"--messages", "N",
     [](Parsing& p, const std::string& value) { return AddAmount(p, "messages", value); },
     "N messages in the newest of them"},
    {"--calls", "N",
     [](Parsing& p, const std::string& value) { return AddAmount(p, "calls", value); },
     "N made-up calls instead of a person's"},
    {"--alarms", "N",
     [](Parsing& p, const std::string& value) { return AddAmount(p, "alarms", value); },
     "N made-up alarms instead of a person's"},
    {"--bookmarks", "N",
     [](Parsing& p, const std::string& value) { return AddAmount(p, "bookmarks", value); },
     "N made-up bookmarks instead of a person's"},
    {"--auto-starts", "N",
     [](Parsing& p, const std::string& value) { return AddAmount(p, "auto-starts", value); },
     "N made-up applications that start on events instead of a person's"},
    {"--files", "N",
     [](Parsing& p, const std::string& value) { return AddAmount(p, "files", value); },
     "N made-up files in the root instead of a person's"},
    {"--processes", "N",
     [](Parsing& p, const std::string& value) { return AddAmount(p, "processes", value); },
     "N made-up processes instead of a person's"},
    {"--caches", "N",
     [](Parsing& p, const std::string& value) { return AddAmount(p, "caches", value); },
     "N made-up caches of applications instead of a person's"},
    {"--applications", "N",
     [](Parsing& p, const std::string& value) { return AddAmount(p, "applications", value); },
     "N made-up applications instead of a person's"},
    {"--icon-bytes", "N",
     [](Parsing& p, const std::string& value) { return AddAmount(p, "icon-bytes", value); },
     "an icon of N bytes with each made-up process, cache and application"},
    {"--hostile", "", [](Parsing& p, const std::string&) { return AddAmount(p, "hostile", "1"); },
     "add what nobody would enter: markup, megabytes, broken pictures"},
    {"--log", "FILE",
     [](Parsing& p, const std::string& value) {
         p.phone.logFile = value;
         return true;
     },
     "append every request that the agent takes to FILE"},
});

PhoneOptions& AddPhone(CommandLine& line) {
    PhoneOptions phone;
    phone.profile = DeliveredProfile(line.server.phones.size());
    return line.server.phones.emplace_back(std::move(phone));
}

bool SetPhoneCount(CommandLine& line, const std::string& value) {
    unsigned count = 0;
    if (!Parse(value, count) || count < 1 || count > kMaxPhones) {
        return false;
    }
    while (line.server.phones.size() < count) {
        AddPhone(line);
    }
    return true;
}

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& words) {
    CommandLine line;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "--help" || words[i] == "-h") {
            line.help = true;
            return line;
        }
        const auto option = std::find_if(kOptions.begin(), kOptions.end(),
                                         [&](const Option& o) { return o.name == words[i]; });
        if (option == kOptions.end()) {
            line.error = fmt::format("unknown option {}", words[i]);
            return line;
        }
        if (!option->value.empty() && i + 1 == words.size()) {
            line.error = fmt::format("{} needs {}", option->name, option->value);
            return line;
        }
        const std::string value = option->value.empty() ? "" : words[++i];
        bool good = true;
        if (option->name == "--phone") {
            AddPhone(line);
        } else if (option->name == "--phones") {
            good = SetPhoneCount(line, value);
        } else {
            if (line.server.phones.empty()) {
                AddPhone(line);
            }
            Parsing parsing{line, line.server.phones.back()};
            good = option->apply(parsing, value);
        }
        if (!good) {
            line.error = fmt::format("{} cannot be {}", option->name, value);
            return line;
        }
    }
    if (line.server.phones.empty()) {
        AddPhone(line);
    }
    return line;
}

std::string HelpText() {
    std::string out =
        "quorvi-phone - simulated Android phones behind the real adb\n"
        "\n"
        "  quorvi-phone [OPTIONS] [--phone OPTIONS]...\n"
        "\n"
        "Each phone is an adb daemon on a port of its own, with an agent behind it that holds a\n"
        "person's contacts, messages, calls, alarms and bookmarks. `adb devices` lists it as an\n"
        "emulator by itself when its port is odd and from 5555 to 5585; with another port, `adb\n"
        "connect 127.0.0.1:PORT` does. The program runs until it is interrupted.\n"
        "\n"
        "Options for a phone stand behind its --phone; without one they are for the only phone:\n"
        "\n";
    for (const Option& option : kOptions) {
        out += fmt::format("  {:<32} {}\n", fmt::format("{} {}", option.name, option.value),
                           option.help);
    }
    out +=
        "\n"
        "Commands on the control port, one a line, answered by lines of data and \"ok\", or by\n"
        "\"error: ...\"; \"phone N COMMAND\" is for phone N, from 1:\n"
        "\n";
    out += ControlHelp();
    out +=
        "\n"
        "Faults, each for one command of the agent (870101, or listContacts) or for all; behind\n"
        "each, \"times N\" ends it after N requests:\n"
        "\n"
        "  nodata            there is nothing to return; close\n"
        "  absent            the first string of the reply is absent\n"
        "  close             close without a reply\n"
        "  cut N             close after N bytes, the length word counted\n"
        "  reset [N]         break the stream off after N bytes (a TCP reset on --agent-port)\n"
        "  unplug [N]        pull the cable after N bytes\n"
        "  stall [N]         send N bytes, then nothing until released\n"
        "  trickle [N [MS]]  send N bytes every MS milliseconds (1 every 20)\n"
        "  length L [N]      say L in the length word, send N bytes of the payload, close\n"
        "  string I L        say L in the length word of string I, from 0\n"
        "  word V            answer the four bytes of V and nothing else\n"
        "  delay MS          answer late\n"
        "\n"
        "Packages that the phone takes: the agent's stand-in that lies beside this program\n"
        "(com.quorvi.Quorvi.apk, a text that states a version), and zip archives, which become\n"
        "packages named after their files.\n";
    return out;
}

}  // namespace quorvi::phone
