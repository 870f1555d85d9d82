// Backs a phone up: reads what the pages read, by the same sessions, and writes it into one folder
// or .zip.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "agent/AgentAddress.h"
#include "backup/Manifest.h"
#include "base/os/StopSignal.h"
#include "refdata/NumberAttribution.h"

namespace quorvi {

struct BackupOrder {
    std::filesystem::path target;  // see BackupWriter
    std::vector<BackupKind> kinds;
    std::int64_t now = 0;         // seconds since 1970
    AttributionOf attribution{};  // of the numbers in it; without one none is told
};

// How far a kind has come. Told on the thread that backs up.
struct BackupProgress {
    BackupKind kind{};
    std::uint32_t done = 0;
    std::uint32_t of = 0;
};

enum class BackupEnd {
    whole,
    stopped,
    linkLost,    // no connection, or one that broke; one more attempt may do
    notWhole,    // the phone's answer ends in the middle
    diskFailed,  // the target, or the disk
};

struct BackupResult {
    BackupEnd end = BackupEnd::whole;
    std::string why;        // of any end but `whole`; ANSI
    bool connected = true;  // with linkLost: false when there was no connection at all
    // What has been read: with `whole`, what the backup holds; else how far it came, and nothing
    // stands under the target's name.
    Manifest manifest;
    BackupProgress reached;  // in the kind that did not end, where one did not
};

// Blocks until the end; a stop ends it at once, whatever a session waits for. On a worker.
[[nodiscard]] BackupResult RunBackup(AgentAddress agent, const BackupOrder& order,
                                     const std::function<void(const BackupProgress&)>& progress,
                                     const StopSignal& stop);

// "联系人 48，闹铃 9": what a manifest counts, for people. ANSI; empty where it counts nothing.
[[nodiscard]] std::string CountsText(const Manifest& manifest);

}  // namespace quorvi
