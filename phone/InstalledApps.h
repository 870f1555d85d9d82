// The applications that are installed on the phone: adb installs, lists and removes them, and the
// agent lists and starts them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "phone/Channel.h"

namespace quorvi::phone {

// Texts are UTF-8.
struct InstalledApp {
    std::string package;
    std::string name;
    std::string version;
    std::uint64_t size = 0;       // bytes
    std::uint64_t installed = 0;  // milliseconds since 1970; 0: nobody knows when
    SharedBytes icon;             // nothing: it has none
    bool system = false;          // came with the phone; nothing removes it
};

// Where the phone keeps the application's package file.
[[nodiscard]] std::string PackageFilePath(const InstalledApp& app);

// An application that was installed at this moment from a package file of so many bytes, which
// tells nothing but its package.
[[nodiscard]] InstalledApp AppFromFile(std::string package, std::uint64_t size);

// Those of the owner's phone.
[[nodiscard]] std::vector<InstalledApp> DeliveredApps();

// `count` applications with an icon of so many bytes each, or none for 0.
[[nodiscard]] std::vector<InstalledApp> LargeApps(std::uint32_t count, std::uint32_t iconBytes);

// Applications that no phone has: names and packages that mean harm to whoever shows them or hands
// them on to adb, sizes and times beyond what a list shows, icons that are none. An agent that lies
// lists them; adb knows nothing of them.
[[nodiscard]] std::vector<InstalledApp> HostileApps();

}  // namespace quorvi::phone
