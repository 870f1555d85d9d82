// The commands that are given to adb, as argument vectors: the program first, then each argument as
// it stands, whatever blanks or quotes are in it. No shell of this computer reads them.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "link/LinkEnvironment.h"

namespace quorvi {

using AdbCommand = std::vector<std::string>;

// adb devices
[[nodiscard]] AdbCommand DevicesCommand(const LinkEnvironment& environment);

// adb version
[[nodiscard]] AdbCommand VersionCommand(const LinkEnvironment& environment);

// adb mdns services
[[nodiscard]] AdbCommand MdnsServicesCommand(const LinkEnvironment& environment);

// adb connect ADDRESS. The address is one that NormalAddress gave, so that it is no option.
[[nodiscard]] AdbCommand ConnectCommand(const LinkEnvironment& environment, std::string address);

// adb pair ADDRESS CODE. The code is six digits.
[[nodiscard]] AdbCommand PairCommand(const LinkEnvironment& environment, std::string address,
                                     std::string code);

// adb forward --list
[[nodiscard]] AdbCommand ForwardListCommand(const LinkEnvironment& environment);

// adb -s SERIAL shell getprop
[[nodiscard]] AdbCommand GetpropCommand(const LinkEnvironment& environment, std::string serial);

// adb -s SERIAL shell pm list package
[[nodiscard]] AdbCommand PackageListCommand(const LinkEnvironment& environment, std::string serial);

// adb -s SERIAL shell am start -n PACKAGE/ACTIVITY
[[nodiscard]] AdbCommand StartActivityCommand(const LinkEnvironment& environment,
                                              std::string serial, std::string_view package,
                                              std::string_view activity);

// adb -s SERIAL install -r FILE
[[nodiscard]] AdbCommand InstallCommand(const LinkEnvironment& environment, std::string serial,
                                        const std::filesystem::path& file);

// adb [-s SERIAL] uninstall PACKAGE; without a serial adb refuses when several phones are attached.
[[nodiscard]] AdbCommand UninstallCommand(const LinkEnvironment& environment,
                                          const std::optional<std::string>& serial,
                                          std::string package);

// adb [-s SERIAL] shell pm path PACKAGE: prints nothing for a package that the phone does not have.
// The phone's shell reads the package: it has the form of a package's name.
[[nodiscard]] AdbCommand PackagePathCommand(const LinkEnvironment& environment,
                                            const std::optional<std::string>& serial,
                                            std::string package);

// The command in one line for a human reader: an argument with a blank in it in double quotes.
[[nodiscard]] std::string CommandLineText(const AdbCommand& command);

}  // namespace quorvi
