#include "phone/Control.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "phone/Phone.h"
#include "phone/Shell.h"

namespace quorvi::phone {
namespace {

using Words = std::vector<std::string>;

// What a command answers: its lines, or why it was not done.
struct Answer {
    std::vector<std::string> lines;
    std::string error;
};

Answer Error(std::string why) {
    return {{}, std::move(why)};
}

std::optional<std::uint32_t> ParseNumber(const std::string& text) {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return number;
}

// A command's code; zero for "all".
std::optional<std::uint32_t> ParseCommand(const std::string& text) {
    if (text == "all") {
        return 0;
    }
    if (const AgentCommandRow* row = FindCommand(text)) {
        return static_cast<std::uint32_t>(row->command);
    }
    return std::nullopt;
}

Answer RunFault(Phone& phone, const Words& words) {
    if (words.size() < 3) {
        return Error("fault COMMAND|all FAULT [NUMBERS] [times N]");
    }
    const auto code = ParseCommand(words[1]);
    if (!code) {
        return Error(fmt::format("no command {}", words[1]));
    }
    if (words[2] == "none") {
        phone.TheAgent().faults.Set(*code, std::nullopt);
        return {};
    }
    const auto fault = ParseFault({words.begin() + 2, words.end()});
    if (!fault) {
        return Error(fmt::format("no fault {}", words[2]));
    }
    phone.TheAgent().faults.Set(*code, fault);
    return {};
}

Answer RunFaults(Phone& phone, const Words& words) {
    if (words.size() > 1 && words[1] == "clear") {
        phone.TheAgent().faults.Clear();
        return {};
    }
    Answer answer;
    for (const auto& [code, fault] : phone.TheAgent().faults.All()) {
        answer.lines.push_back(
            fmt::format("{} {}", code == 0 ? "all" : std::to_string(code), Describe(fault)));
    }
    return answer;
}

Answer RunAgent(Phone& phone, const Words& words) {
    Handset& handset = phone.TheHandset();
    const std::string verb = words.size() > 1 ? words[1] : "";
    if (verb == "missing") {
        handset.SetAgent(std::nullopt);
    } else if (verb == "version" && words.size() > 2 && ParseNumber(words[2])) {
        const bool ran = handset.AgentRuns();
        handset.SetAgent(ParseNumber(words[2]));
        if (ran) {
            handset.StartAgent();
        }
    } else if (verb == "start") {
        if (!handset.StartAgent()) {
            return Error("the agent is not installed");
        }
    } else if (verb == "stop") {
        handset.StopAgent();
    } else if (verb == "crashes") {
        handset.StopAgent();
        handset.SetAgentCrashes(true);
    } else if (verb == "works") {
        handset.SetAgentCrashes(false);
    } else {
        return Error("agent missing|version N|start|stop|crashes|works");
    }
    return {};
}

struct Amount {
    std::string_view name;
    void (*set)(DataAmounts&, std::uint32_t);
};

constexpr auto kAmounts = std::to_array<Amount>({
    {"contacts", [](DataAmounts& amounts, std::uint32_t n) { amounts.contacts = n; }},
    {"photo-bytes", [](DataAmounts& amounts, std::uint32_t n) { amounts.photoBytes = n; }},
    {"conversations", [](DataAmounts& amounts, std::uint32_t n) { amounts.conversations = n; }},
    {"messages", [](DataAmounts& amounts, std::uint32_t n) { amounts.messages = n; }},
    {"calls", [](DataAmounts& amounts, std::uint32_t n) { amounts.calls = n; }},
    {"alarms", [](DataAmounts& amounts, std::uint32_t n) { amounts.alarms = n; }},
    {"bookmarks", [](DataAmounts& amounts, std::uint32_t n) { amounts.bookmarks = n; }},
    {"auto-starts", [](DataAmounts& amounts, std::uint32_t n) { amounts.autoStarts = n; }},
    {"files", [](DataAmounts& amounts, std::uint32_t n) { amounts.files = n; }},
    {"processes", [](DataAmounts& amounts, std::uint32_t n) { amounts.processes = n; }},
    {"caches", [](DataAmounts& amounts, std::uint32_t n) { amounts.caches = n; }},
    {"applications", [](DataAmounts& amounts, std::uint32_t n) { amounts.applications = n; }},
    {"icon-bytes", [](DataAmounts& amounts, std::uint32_t n) { amounts.iconBytes = n; }},
    {"hostile", [](DataAmounts& amounts, std::uint32_t n) { amounts.hostile = n != 0; }},
});

// "data contacts 10000 photo-bytes 20000"; "data" alone: as delivered.
Answer RunData(Phone& phone, const Words& words) {
    DataAmounts amounts;
    for (std::size_t i = 1; i < words.size(); i += 2) {
        const auto amount = std::find_if(kAmounts.begin(), kAmounts.end(),
                                         [&](const Amount& row) { return row.name == words[i]; });
        const auto number = i + 1 < words.size() ? ParseNumber(words[i + 1]) : std::nullopt;
        if (amount == kAmounts.end() || !number) {
            return Error("data [NAME NUMBER]...");
        }
        amount->set(amounts, *number);
    }
    phone.TheAgent().data.Fill(amounts);
    return {};
}

Answer RunInstall(Phone& phone, const Words& words) {
    if (words.size() != 2) {
        return Error("install real|Success|CODE");
    }
    phone.TheHandset().SetInstallResult(words[1] == "real" ? std::nullopt
                                                           : std::optional(words[1]));
    return {};
}

Answer RunScreen(Phone& phone, const Words& words) {
    ScreenForm form = phone.TheScreen().Form();
    if (words.size() < 2 || !ReadScreenWords({words.begin() + 1, words.end()}, form)) {
        return Error(fmt::format("screen {}", kScreenWords));
    }
    phone.TheScreen().SetForm(form);
    return {};
}

Answer RunLog(Phone& phone, const Words& words) {
    RequestLog& log = phone.TheAgent().log;
    if (words.size() > 1 && words[1] == "clear") {
        log.Clear();
        return {};
    }
    return {log.Lines(), {}};
}

Answer RunDeviations(Phone& phone, const Words&) {
    return {phone.TheAgent().log.Deviations(), {}};
}

Answer RunPlug(Phone& phone, const Words&) {
    return phone.Plug() ? Answer{} : Error(fmt::format("port {} is in use", phone.AdbPort()));
}

Answer RunUnplug(Phone& phone, const Words&) {
    phone.Unplug();
    return {};
}

struct DebuggingWord {
    std::string_view word;
    Debugging debugging;
};

constexpr std::array<DebuggingWord, 3> kDebuggingWords{{
    {"allowed", Debugging::allowed},
    {"asks", Debugging::asks},
    {"silent", Debugging::silent},
}};

Answer RunDebugging(Phone& phone, const Words& words) {
    const auto* const row =
        std::ranges::find(kDebuggingWords, words.size() == 2 ? words[1] : "", &DebuggingWord::word);
    if (row == kDebuggingWords.end()) {
        return Error("debugging allowed|asks|silent");
    }
    phone.SetDebugging(row->debugging);
    return {};
}

Answer RunRelease(Phone& phone, const Words&) {
    phone.TheAgent().ReleaseStalled();
    return {};
}

Answer RunStatus(Phone& phone, const Words&) {
    const Handset& handset = phone.TheHandset();
    const auto version = handset.AgentVersion();
    return {{fmt::format("model {}", handset.Facts().fullModel),
             fmt::format("adb {} port {}", phone.AdbSerial(), phone.AdbPort()),
             fmt::format("agent-port {}", phone.AgentPort()),
             fmt::format("plugged {}", phone.IsPlugged() ? 1 : 0),
             fmt::format("agent {}", version ? std::to_string(*version) : "missing"),
             fmt::format("running {}", handset.AgentRuns() ? 1 : 0),
             fmt::format("starts {}", handset.AgentStarts()),
             fmt::format("streams {}", phone.OpenStreams())},
            {}};
}

struct ControlCommand {
    std::string_view name;
    Answer (*run)(Phone&, const Words&);
    std::string_view help;
};

constexpr std::array<ControlCommand, 13> kCommands{{
    {"status", RunStatus, "status                   what the phone is and does"},
    {"fault", RunFault,
     "fault COMMAND|all FAULT  misbehave at a command, by code or name; \"none\" ends it"},
    {"faults", RunFaults, "faults [clear]           list the faults, or end them all"},
    {"release", RunRelease, "release                  let stalled replies go on"},
    {"agent", RunAgent, "agent missing|version N|start|stop|crashes|works"},
    {"data", RunData,
     "data [NAME NUMBER]...    fill the phone anew: as delivered, or with so many contacts,\n"
     "                           photo-bytes, conversations, messages, calls, alarms,\n"
     "                           bookmarks, auto-starts, files, processes, caches, applications,\n"
     "                           icon-bytes; hostile 1"},
    {"install", RunInstall,
     "install CODE|real        what pm install answers: a failure's code, or what is true"},
    {"screen", RunScreen,
     "screen WORDS             how the frame buffer is sent: size WxH[xBITS], version 1|2,\n"
     "                           order rgb|bgr, waits 0|1 (for the client's byte), ends 0|1 (the\n"
     "                           stream behind the pixels); fault none|refuse, fault size N,\n"
     "                           width N or height N (what the header claims), fault cut N or\n"
     "                           hang N (after N bytes)"},
    {"debugging", RunDebugging,
     "debugging WORD           how it meets an adb server from its next connection on: asks its\n"
     "                           user, is silent, or allowed, which those that wait are too"},
    {"unplug", RunUnplug, "unplug                   pull the cable"},
    {"plug", RunPlug, "plug                     put it in again"},
    {"log", RunLog, "log [clear]              every request that the agent took"},
    {"deviations", RunDeviations,
     "deviations               only those whose frame was not as it should be"},
}};

}  // namespace

std::string Control(Phone& phone, std::string_view line) {
    const Words words = SplitCommand(line);
    if (words.empty()) {
        return std::string(kControlOk);
    }
    const auto found = std::find_if(kCommands.begin(), kCommands.end(),
                                    [&](const auto& row) { return row.name == words[0]; });
    const Answer answer = found == kCommands.end()
                              ? Error(fmt::format("unknown command {}", words[0]))
                              : found->run(phone, words);
    if (!answer.error.empty()) {
        return fmt::format("error: {}\n", answer.error);
    }
    std::string out;
    for (const std::string& each : answer.lines) {
        out += each + "\n";
    }
    return out + std::string(kControlOk);
}

std::string ControlHelp() {
    std::string out;
    for (const ControlCommand& command : kCommands) {
        out += fmt::format("  {}\n", command.help);
    }
    return out;
}

}  // namespace quorvi::phone
