#include "phone/InstalledApps.h"

#include <fmt/format.h>

#include "base/Utf8.h"
#include "phone/agent/AppIcons.h"
#include "phone/agent/Applications.h"
#include "phone/agent/HostileTexts.h"
#include "phone/agent/LocalTime.h"
#include "phone/agent/Photos.h"

namespace quorvi::phone {
namespace {

constexpr std::uint64_t kKilobyte = 1024;

}  // namespace

std::string PackageFilePath(const InstalledApp& app) {
    return app.system ? fmt::format("/system/app/{}.apk", app.package)
                      : fmt::format("/data/app/{}-1.apk", app.package);
}

InstalledApp AppFromFile(std::string package, std::uint64_t size) {
    InstalledApp app;
    app.name = package;
    app.version = "1.0";
    app.size = size;
    app.installed = MillisecondsNow();
    app.icon = AppIcon(package);
    app.package = std::move(package);
    return app;
}

std::vector<InstalledApp> DeliveredApps() {
    std::vector<InstalledApp> apps;
    for (const Application& one : DeliveredApplications()) {
        apps.push_back({std::string(one.package), Utf8(one.name), std::string(one.version),
                        one.kilobytes * kKilobyte,
                        one.installed.empty() ? 0 : LocalMilliseconds(one.installed),
                        one.hasIcon ? AppIcon(one.package) : nullptr, one.system});
    }
    return apps;
}

std::vector<InstalledApp> LargeApps(std::uint32_t count, std::uint32_t iconBytes) {
    const std::uint64_t first = LocalMilliseconds("2011-01-01 08:00:00");
    constexpr std::uint64_t kHour = 3'600'000;
    std::vector<InstalledApp> apps;
    apps.reserve(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        apps.push_back({fmt::format("com.example.made.up.n{}", i + 1),
                        Utf8(u8"应用 ") + std::to_string(i + 1),
                        fmt::format("{}.{}.{}", i % 7 + 1, i % 10, i % 3),
                        (i * 71ull % 60'000 + 12) * kKilobyte, first + i * kHour,
                        iconBytes == 0 ? nullptr : Share(PaddedPhoto(iconBytes, i)), i % 5 == 0});
    }
    return apps;
}

std::vector<InstalledApp> HostileApps() {
    std::vector<InstalledApp> apps;
    for (const std::string& harm : HostileTexts()) {
        apps.push_back({"com.example.harm", harm, "1.0", 1, 1, nullptr});
        apps.push_back({harm, "harm", "1.0", 1, 1, nullptr});
        apps.push_back({"com.example.version", "harm", harm, 1, 1, nullptr});
    }
    // What a command line would take for more than a name.
    for (const char* harm :
         {"", "-k", "com.example.chat; reboot", "com.example.chat com.android.mms", "$(reboot)",
          "com.example.chat\nreboot", "com.example.chat|reboot"}) {
        apps.push_back({harm, "harm", "1.0", 1, 1, nullptr});
    }
    apps.push_back({"com.example.numbers", "numbers", "", UINT64_MAX, UINT64_MAX,
                    Share(HeaderOnlyPng(60'000, 60'000))});
    apps.push_back(
        {"com.example.memory", "memory", "", 1ULL << 32, 0, Share(PaddedPhoto(300'000, 1))});
    return apps;
}

}  // namespace quorvi::phone
