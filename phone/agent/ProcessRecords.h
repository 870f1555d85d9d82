// The processes that run on the phone, and the memory that they leave.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "phone/InstalledApps.h"

namespace quorvi::phone {

struct Process {
    std::string name;  // of its application
    std::string package;
    bool system = false;           // its application came with the phone
    std::uint64_t memory = 0;      // bytes
    std::uint32_t importance = 0;  // see agent/ProcessImportance.h
    std::uint32_t cpu = 0;         // per cent
    std::uint32_t pid = 0;
    SharedBytes icon;  // nothing: it has none
};

// The first process that is started from the PC; those that run already have smaller numbers, but
// for made-up ones, of which there may be any number.
inline constexpr std::uint32_t kFirstStartedPid = 20'000;

class ProcessRecords {
  public:
    std::vector<Process> running;
    std::uint32_t freeMemory = 0;  // bytes
    std::uint32_t nextPid = kFirstStartedPid;

    // Ends all processes of the package: their memory is free then. How many there were.
    std::size_t End(std::string_view package);
    // Brings the package's process to the front, or makes one, with its place in the memory.
    void Start(const InstalledApp& app);
};

// What runs on the owner's phone.
[[nodiscard]] ProcessRecords DeliveredProcesses();

// `count` processes with an icon of so many bytes each, or none for 0.
[[nodiscard]] ProcessRecords LargeProcesses(std::uint32_t count, std::uint32_t iconBytes);

// Processes whose names, numbers and icons mean harm to whoever shows them.
void AddHostileProcesses(ProcessRecords& records);

}  // namespace quorvi::phone
