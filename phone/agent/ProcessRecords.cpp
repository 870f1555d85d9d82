#include "phone/agent/ProcessRecords.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "agent/ProcessImportance.h"
#include "base/Utf8.h"
#include "phone/agent/AppIcons.h"
#include "phone/agent/Applications.h"
#include "phone/agent/HostileTexts.h"
#include "phone/agent/Photos.h"

namespace quorvi::phone {
namespace {

constexpr std::uint64_t kKilobyte = 1024;
constexpr std::uint64_t kMegabyte = 1024 * kKilobyte;

constexpr std::uint32_t kForeground = 100;
constexpr std::uint32_t kPerceptible = 130;
constexpr std::uint32_t kVisible = 200;
constexpr std::uint32_t kService = 300;
constexpr std::uint32_t kBackground = 400;
constexpr std::uint32_t kEmpty = 500;
// One that the phone's process manager gives and the table does not know.
constexpr std::uint32_t kHeavyWeight = 170;

struct DeliveredProcess {
    std::string_view package;
    std::uint64_t kilobytes;
    std::uint32_t importance;
    std::uint32_t cpu;
    std::uint32_t pid;
};

// Together with what is free, they fit into the memory that the phone tells of.
constexpr DeliveredProcess kProcesses[] = {
    {"android", 28'236, kForeground, 7, 1068},
    {"com.android.systemui", 10'820, kVisible, 1, 1142},
    {"com.android.phone", 8'304, kForeground, 0, 1155},
    {"com.android.inputmethod.pinyin", 7'716, kVisible, 0, 1149},
    {"com.android.launcher", 15'940, kForeground, 3, 1163},
    {"com.android.settings", 4'488, kBackground, 0, 1180},
    {"com.android.providers.contacts", 4'920, kEmpty, 0, 1201},
    {"com.android.mms", 6'612, kService, 0, 1377},
    {"com.android.alarmclock", 4'108, kEmpty, 0, 1402},
    {"com.android.providers.media", 5'240, kBackground, 0, 1419},
    {"com.android.bluetooth", 3'996, kService, 0, 1450},
    {"com.android.music", 8'352, kPerceptible, 4, 2210},
    {"com.android.browser", 21'404, kBackground, 0, 2388},
    {"com.android.email", 6'728, kService, 0, 2541},
    {"com.example.weather", 9'432, kService, 1, 2603},
    {"com.example.chat", 11'080, kService, 2, 2711},
    // Its second process takes what is pushed to it.
    {"com.example.chat", 6'344, kService, 0, 2726},
    {"com.example.run", 10'576, kHeavyWeight, 5, 2804},
    {"com.example.dictionary", 8'648, kBackground, 0, 2950},
    {"com.example.gomoku", 9'192, kEmpty, 0, 3077},
    {"com.example.ledger", 832, kEmpty, 0, 3121},
};

constexpr std::uint64_t kFreeAtFirst = 148 * kMegabyte;

// What an application takes when it is started.
constexpr std::uint64_t kAtStart = 8'760 * kKilobyte;

}  // namespace

std::size_t ProcessRecords::End(std::string_view package) {
    std::uint64_t freed = freeMemory;
    const std::size_t ended = std::erase_if(running, [&](const Process& process) {
        if (process.package != package) {
            return false;
        }
        freed += std::min<std::uint64_t>(process.memory, UINT32_MAX);
        return true;
    });
    freeMemory = static_cast<std::uint32_t>(std::min<std::uint64_t>(freed, UINT32_MAX));
    return ended;
}

void ProcessRecords::Start(const InstalledApp& app) {
    const auto runs = std::ranges::find(running, app.package, &Process::package);
    if (runs != running.end()) {
        runs->importance = kForeground;
        return;
    }
    const auto memory = std::min<std::uint64_t>(kAtStart, freeMemory);
    freeMemory -= static_cast<std::uint32_t>(memory);
    running.push_back(
        {app.name, app.package, app.system, memory, kForeground, 0, nextPid++, app.icon});
}

ProcessRecords DeliveredProcesses() {
    ProcessRecords records;
    records.freeMemory = kFreeAtFirst;
    for (const DeliveredProcess& one : kProcesses) {
        const Application& application = ApplicationOf(one.package);
        records.running.push_back({Utf8(application.name), std::string(one.package),
                                   application.system, one.kilobytes * kKilobyte, one.importance,
                                   one.cpu, one.pid, AppIcon(one.package)});
    }
    return records;
}

ProcessRecords LargeProcesses(std::uint32_t count, std::uint32_t iconBytes) {
    ProcessRecords records;
    records.freeMemory = kFreeAtFirst;
    records.running.reserve(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        records.running.push_back(
            {Utf8(u8"应用 ") + std::to_string(i + 1), fmt::format("com.example.made.up.n{}", i + 1),
             i % 5 == 0, (i * 37ull % 40'000 + 1) * kKilobyte,
             kProcessImportances[i % kProcessImportances.size()].code, i % 7, 4000 + i,
             iconBytes == 0 ? nullptr : Share(PaddedPhoto(iconBytes, i))});
    }
    return records;
}

void AddHostileProcesses(ProcessRecords& records) {
    for (const std::string& harm : HostileTexts()) {
        records.running.push_back({harm, "com.example.harm", false, 1, 230, 0, 1, nullptr});
        records.running.push_back({"harm", harm, false, 1, kService, 0, 2, nullptr});
    }
    // Numbers beyond what a list shows, icons that are none.
    const auto noPicture = Share(HeaderOnlyPng(60'000, 60'000));
    records.running.push_back({"numbers", "com.example.numbers", true, UINT64_MAX, UINT32_MAX,
                               UINT32_MAX, UINT32_MAX, noPicture});
    records.running.push_back({"memory", "com.example.memory", false, 4096 * kMegabyte + 532,
                               kService, 100, 3, Share(PaddedPhoto(300'000, 1))});
}

}  // namespace quorvi::phone
