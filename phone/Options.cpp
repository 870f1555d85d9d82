#include "phone/Options.h"

#include <fmt/format.h>

#include <array>
#include <utility>

#include "base/ProgramOptions.h"
#include "base/Text.h"
#include "phone/Control.h"

namespace quorvi::phone {
namespace {

// Most phones that one command line starts.
constexpr unsigned kMaxPhones = 16;

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

PhoneOptions& AddPhone(CommandLine& line) {
    PhoneOptions phone;
    phone.profile = DeliveredProfile(line.server.phones.size());
    return line.server.phones.emplace_back(std::move(phone));
}

// The one that options are for: the last, or the only one of a line that names none.
PhoneOptions& PhoneOf(CommandLine& line) {
    return line.server.phones.empty() ? AddPhone(line) : line.server.phones.back();
}

bool SetPhoneCount(CommandLine& line, const std::string& value) {
    unsigned count = 0;
    if (!ReadNumber(value, count) || count < 1 || count > kMaxPhones) {
        return false;
    }
    while (line.server.phones.size() < count) {
        AddPhone(line);
    }
    return true;
}

template <std::string Profile::*Field>
bool SetProfileText(CommandLine& line, const std::string& value) {
    PhoneOf(line).profile.*Field = value;
    return true;
}

bool AddCommand(CommandLine& line, std::string command) {
    PhoneOf(line).commands.push_back(std::move(command));
    return true;
}

// All amounts are one command, since it fills the phone anew.
bool AddAmount(CommandLine& line, std::string_view name, const std::string& value) {
    const std::string amount = fmt::format(" {} {}", name, value);
    for (std::string& command : PhoneOf(line).commands) {
        if (command.starts_with("data ")) {
            command += amount;
            return true;
        }
    }
    return AddCommand(line, "data" + amount);
}

constexpr int kHelpWidth = 32;

constexpr auto kOptions = std::to_array<ProgramOption<CommandLine>>({
    {"--phone", "",
     [](CommandLine& line, const std::string&) {
         AddPhone(line);
         return true;
     },
     "one more phone; what follows is about it"},
    {"--phones", "N", SetPhoneCount, "N phones in all"},
    {"--control", "PORT",
     [](CommandLine& line, const std::string& value) {
         return ReadNumber(value, line.server.controlPort.emplace());
     },
     "take commands on 127.0.0.1:PORT (0: any free port)"},
    {"--adb-port", "PORT",
     [](CommandLine& line, const std::string& value) {
         return ReadNumber(value, PhoneOf(line).adbPort.emplace());
     },
     "where the adb server finds the phone (the first free odd port from 5555)"},
    {"--agent-port", "PORT",
     [](CommandLine& line, const std::string& value) {
         return ReadNumber(value, PhoneOf(line).agentPort.emplace());
     },
     "answer the agent's protocol here too, with no adb in between"},
    {"--old-transport", "",
     [](CommandLine& line, const std::string&) { return PhoneOf(line).oldTransport = true; },
     "speak to the adb server as phones of 2011 do"},
    {"--no-announce", "",
     [](CommandLine& line, const std::string&) {
         PhoneOf(line).announce = false;
         return true;
     },
     "do not tell a running adb server that the phone is there"},
    {"--unplugged", "",
     [](CommandLine& line, const std::string&) {
         PhoneOf(line).plugged = false;
         return true;
     },
     "wait for the command plug"},
    {"--debugging", "WORD",
     [](CommandLine& line, const std::string& value) {
         return AddCommand(line, "debugging " + value);
     },
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
     [](CommandLine& line, const std::string& value) {
         return ReadNumber(value, PhoneOf(line).profile.apiLevel);
     },
     "ro.build.version.sdk"},
    {"--screen", "WxH[xBITS]",
     [](CommandLine& line, const std::string& value) {
         return ParseScreen(value, PhoneOf(line).profile);
     },
     "the screen, of 16, 24 or 32 bits a pixel; of other bits it is sent as of 16"},
    {"--screen-form", "NAME:VALUE[:...]",
     [](CommandLine& line, const std::string& value) {
         return AddCommand(line, "screen " + ReplaceAll(value, ":", " "));
     },
     "how it is sent, as in version:2:order:bgr or fault:cut:100"},
    {"--agent-version", "N",
     [](CommandLine& line, const std::string& value) {
         return AddCommand(line, "agent version " + value);
     },
     "the agent that is installed (20)"},
    {"--no-agent", "",
     [](CommandLine& line, const std::string&) { return AddCommand(line, "agent missing"); },
     "no agent is installed"},
    {"--install", "CODE",
     [](CommandLine& line, const std::string& value) {
         return AddCommand(line, "install " + value);
     },
     "what installing answers, as in INSTALL_FAILED_INSUFFICIENT_STORAGE"},
    {"--fault", "COMMAND:FAULT[:N[:N]]",
     [](CommandLine& line, const std::string& value) {
         return AddCommand(line, "fault " + ReplaceAll(value, ":", " "));
     },
     "misbehave from the start, as in 870101:cut:100 or all:close"},
    {"--contacts", "N",
     [](CommandLine& line, const std::string& value) { return AddAmount(line, "contacts", value); },
     "N made-up contacts instead of a person's"},
    {"--photo-bytes", "N",
     [](CommandLine& line, const std::string& value) {
         return AddAmount(line, "photo-bytes", value);
     },
     "a photo of N bytes with each of them, and with each made-up bookmark"},
    {"--conversations", "N",
     [](CommandLine& line, const std::string& value) {
         return AddAmount(line, "conversations", value);
     },
     "N made-up conversations instead of a person's"},
    {"--messages", "N",
     [](CommandLine& line, const std::string& value) { return AddAmount(line, "messages", value); },
     "N messages in the newest of them"},
    {"--calls", "N",
     [](CommandLine& line, const std::string& value) { return AddAmount(line, "calls", value); },
     "N made-up calls instead of a person's"},
    {"--alarms", "N",
     [](CommandLine& line, const std::string& value) { return AddAmount(line, "alarms", value); },
     "N made-up alarms instead of a person's"},
    {"--bookmarks", "N",
     [](CommandLine& line, const std::string& value) {
         return AddAmount(line, "bookmarks", value);
     },
     "N made-up bookmarks instead of a person's"},
    {"--auto-starts", "N",
     [](CommandLine& line, const std::string& value) {
         return AddAmount(line, "auto-starts", value);
     },
     "N made-up applications that start on events instead of a person's"},
    {"--files", "N",
     [](CommandLine& line, const std::string& value) { return AddAmount(line, "files", value); },
     "N made-up files in the root instead of a person's"},
    {"--processes", "N",
     [](CommandLine& line, const std::string& value) {
         return AddAmount(line, "processes", value);
     },
     "N made-up processes instead of a person's"},
    {"--caches", "N",
     [](CommandLine& line, const std::string& value) { return AddAmount(line, "caches", value); },
     "N made-up caches of applications instead of a person's"},
    {"--applications", "N",
     [](CommandLine& line, const std::string& value) {
         return AddAmount(line, "applications", value);
     },
     "N made-up applications instead of a person's"},
    {"--icon-bytes", "N",
     [](CommandLine& line, const std::string& value) {
         return AddAmount(line, "icon-bytes", value);
     },
     "an icon of N bytes with each made-up process, cache and application"},
    {"--hostile", "",
     [](CommandLine& line, const std::string&) {
         return AddAmount(line, "hostile", "1");
     },
     "add what nobody would enter: markup, megabytes, broken pictures"},
    {"--log", "FILE",
     [](CommandLine& line, const std::string& value) {
         PhoneOf(line).logFile = value;
         return true;
     },
     "append every request that the agent takes to FILE"},
});

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& words) {
    CommandLine line;
    ReadOptions(words, kOptions, line);
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
    out += OptionsHelp<CommandLine>(kOptions, kHelpWidth);
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
        "Packages that the phone takes: the agent's that lies beside this program\n"
        "(com.quorvi.Quorvi.apk), in the version of its manifest, and zip archives, which become\n"
        "packages named after their files.\n";
    return out;
}

}  // namespace quorvi::phone
