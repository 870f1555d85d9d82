#include "phone/Shell.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "base/ByteText.h"
#include "base/Text.h"
#include "phone/adb/Packet.h"

namespace quorvi::phone {
namespace {

using Words = std::vector<std::string>;

std::string GetProp(Handset& handset, const Words& words) {
    const auto properties = PropertiesOf(handset.Facts());
    std::string out;
    if (words.size() == 1) {
        for (const auto& [key, value] : properties) {
            out += fmt::format("[{}]: [{}]\n", key, value);
        }
        return out;
    }
    for (const auto& [key, value] : properties) {
        if (key == words[1]) {
            out = value;
        }
    }
    if (out.empty() && words.size() > 2) {
        out = words[2];
    }
    return out + "\n";
}

std::string PmList(Handset& handset, const Words& words) {
    // "package" is the short form that phones of all ages take for "packages".
    if (words.size() < 3 || !std::string_view("packages").starts_with(words[2])) {
        return "Error: unknown list type\n";
    }
    const bool withPaths = std::find(words.begin(), words.end(), "-f") != words.end();
    const std::string filter =
        words.size() > 3 && !words.back().starts_with("-") ? words.back() : "";
    std::string out;
    for (const InstalledApp& app : handset.Apps()) {
        if (app.package.find(filter) != std::string::npos) {
            out += withPaths ? fmt::format("package:{}={}\n", PackageFilePath(app), app.package)
                             : fmt::format("package:{}\n", app.package);
        }
    }
    return out;
}

std::string PmInstall(Handset& handset, const Words& words) {
    const bool replace = std::find(words.begin(), words.end(), "-r") != words.end();
    if (words.size() < 3 || words.back().starts_with("-")) {
        return "Error: no package specified\n";
    }
    return fmt::format("\tpkg: {}\n{}\n", words.back(), handset.Install(words.back(), replace));
}

std::string PmPath(Handset& handset, const Words& words) {
    const InstalledApp* app = words.size() > 2 ? handset.FindApp(words[2]) : nullptr;
    return app ? fmt::format("package:{}\n", PackageFilePath(*app)) : "";
}

std::string Pm(Handset& handset, const Words& words) {
    const std::string verb = words.size() > 1 ? words[1] : "";
    if (verb == "list") {
        return PmList(handset, words);
    }
    if (verb == "install") {
        return PmInstall(handset, words);
    }
    if (verb == "uninstall" && words.size() > 2) {
        return handset.Uninstall(words.back()) ? "Success\n" : "Failure\n";
    }
    if (verb == "path") {
        return PmPath(handset, words);
    }
    return "Error: unknown command '" + verb + "'\n";
}

// am start -n PACKAGE/ACTIVITY
std::string Am(Handset& handset, const Words& words) {
    const auto option = std::find(words.begin(), words.end(), "-n");
    if (words.size() < 2 || words[1] != "start" || option == words.end() ||
        option + 1 == words.end()) {
        return "usage: am start -n <COMPONENT>\n";
    }
    const std::string& component = *(option + 1);
    const std::string package = component.substr(0, component.find('/'));
    std::string started = fmt::format("Starting: Intent {{ cmp={} }}\n", component);
    const bool isAgent = component == fmt::format("{}/{}", kAgentPackage, kAgentActivity) ||
                         component == fmt::format("{0}/{0}{1}", kAgentPackage, kAgentActivity);
    if (!handset.FindApp(package) || (package == kAgentPackage && !isAgent)) {
        return started + fmt::format("Error type 3\nError: Activity class {{{}}} does not exist.\n",
                                     component);
    }
    if (isAgent) {
        handset.StartAgent();
    }
    return started;
}

std::string Rm(Handset& handset, const Words& words) {
    std::string out;
    bool force = false;
    for (std::size_t i = 1; i < words.size(); ++i) {
        if (words[i].starts_with("-")) {
            force = force || words[i].find('f') != std::string::npos;
        } else if (!handset.RemoveFile(words[i]) && !force) {
            out += fmt::format("rm failed for {}, No such file or directory\n", words[i]);
        }
    }
    return out;
}

std::string Ls(Handset& handset, const Words& words) {
    const std::string path = words.size() > 1 ? words.back() : "/";
    if (handset.FindFile(path)) {
        return path + "\n";
    }
    if (!handset.IsDirectory(path)) {
        return path + ": No such file or directory\n";
    }
    const std::string folder = path.ends_with("/") ? path : path + "/";
    std::string out;
    std::string last;
    for (const auto& [name, file] : handset.Files()) {
        if (name.starts_with(folder)) {
            const std::string entry =
                name.substr(folder.size(), name.find('/', folder.size()) - folder.size());
            if (entry != last) {
                out += entry + "\n";
                last = entry;
            }
        }
    }
    return out;
}

std::string Cat(Handset& handset, const Words& words) {
    std::string out;
    for (std::size_t i = 1; i < words.size(); ++i) {
        const StoredFile* file = handset.FindFile(words[i]);
        out += file ? std::string(AsText(file->bytes)) : words[i] + ": No such file or directory\n";
    }
    return out;
}

std::string Echo(Handset&, const Words& words) {
    std::string out;
    for (std::size_t i = 1; i < words.size(); ++i) {
        out += (i > 1 ? " " : "") + words[i];
    }
    return out + "\n";
}

struct ShellCommand {
    std::string_view name;
    std::string (*run)(Handset&, const Words&);
};

constexpr std::array<ShellCommand, 7> kCommands{{
    {"getprop", GetProp},
    {"pm", Pm},
    {"am", Am},
    {"rm", Rm},
    {"ls", Ls},
    {"cat", Cat},
    {"echo", Echo},
}};

}  // namespace

std::vector<std::string> SplitCommand(std::string_view command) {
    Words words;
    std::string word;
    bool inWord = false;
    char quote = 0;
    for (std::size_t i = 0; i < command.size(); ++i) {
        const char c = command[i];
        if (quote != 0 && c == quote) {
            quote = 0;
        } else if (quote == 0 && (c == '\'' || c == '"')) {
            quote = c;
            inWord = true;
        } else if (quote != '\'' && c == '\\' && i + 1 < command.size()) {
            word += command[++i];
            inWord = true;
        } else if (quote == 0 && (c == ' ' || c == '\t')) {
            if (inWord) {
                words.push_back(std::move(word));
                word.clear();
            }
            inWord = false;
        } else {
            word += c;
            inWord = true;
        }
    }
    if (inWord) {
        words.push_back(std::move(word));
    }
    return words;
}

std::string RunShell(Handset& handset, std::string_view command) {
    Words words = SplitCommand(command);
    // Where input and output go is the same for all commands here.
    std::erase_if(words, [](const std::string& word) {
        return word.starts_with("<") || word.starts_with(">");
    });
    if (words.empty()) {
        return {};
    }
    for (const ShellCommand& known : kCommands) {
        if (known.name == words[0]) {
            return ReplaceAll(known.run(handset, words), "\n", "\r\n");
        }
    }
    return words[0] + ": not found\r\n";
}

}  // namespace quorvi::phone
