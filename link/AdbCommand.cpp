#include "link/AdbCommand.h"

#include <utility>

namespace quorvi {
namespace {

AdbCommand ToPhone(const LinkEnvironment& environment, const std::optional<std::string>& serial) {
    AdbCommand command{environment.adbPath()};
    if (serial) {
        command.insert(command.end(), {"-s", *serial});
    }
    return command;
}

}  // namespace

AdbCommand DevicesCommand(const LinkEnvironment& environment) {
    return {environment.adbPath(), "devices"};
}

AdbCommand VersionCommand(const LinkEnvironment& environment) {
    return {environment.adbPath(), "version"};
}

AdbCommand MdnsServicesCommand(const LinkEnvironment& environment) {
    return {environment.adbPath(), "mdns", "services"};
}

AdbCommand ConnectCommand(const LinkEnvironment& environment, std::string address) {
    return {environment.adbPath(), "connect", std::move(address)};
}

AdbCommand PairCommand(const LinkEnvironment& environment, std::string address, std::string code) {
    return {environment.adbPath(), "pair", std::move(address), std::move(code)};
}

AdbCommand ForwardListCommand(const LinkEnvironment& environment) {
    return {environment.adbPath(), "forward", "--list"};
}

AdbCommand GetpropCommand(const LinkEnvironment& environment, std::string serial) {
    return {environment.adbPath(), "-s", std::move(serial), "shell", "getprop"};
}

AdbCommand PackageListCommand(const LinkEnvironment& environment, std::string serial) {
    return {environment.adbPath(), "-s", std::move(serial), "shell", "pm", "list", "package"};
}

AdbCommand StartActivityCommand(const LinkEnvironment& environment, std::string serial,
                                std::string_view package, std::string_view activity) {
    std::string component(package);
    component.append("/").append(activity);
    return {environment.adbPath(), "-s", std::move(serial), "shell", "am", "start", "-n",
            std::move(component)};
}

AdbCommand InstallCommand(const LinkEnvironment& environment, std::string serial,
                          const std::filesystem::path& file) {
    return {environment.adbPath(), "-s", std::move(serial), "install", "-r", file.native()};
}

AdbCommand UninstallCommand(const LinkEnvironment& environment,
                            const std::optional<std::string>& serial, std::string package) {
    AdbCommand command = ToPhone(environment, serial);
    command.insert(command.end(), {"uninstall", std::move(package)});
    return command;
}

AdbCommand PackagePathCommand(const LinkEnvironment& environment,
                              const std::optional<std::string>& serial, std::string package) {
    AdbCommand command = ToPhone(environment, serial);
    command.insert(command.end(), {"shell", "pm", "path", std::move(package)});
    return command;
}

std::string CommandLineText(const AdbCommand& command) {
    std::string text;
    for (const std::string& argument : command) {
        const char* const quote = argument.find(' ') == std::string::npos ? "" : "\"";
        text.append(text.empty() ? "" : " ").append(quote).append(argument).append(quote);
    }
    return text;
}

}  // namespace quorvi
