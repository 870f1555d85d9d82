// What a user sends to whoever helps when something does not work: one .zip of plain texts, which
// its user sees before it is written. Nothing in it comes from the phone but the state that adb
// reports of it.
//
//   const Report report = CollectReport({});
//   show(ReportPreview(report));
//   const ReportSaved saved = SaveReport(report, file, ExistingFile::refuses);
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "backup/ZipWriter.h"
#include "base/Places.h"
#include "link/LinkEnvironment.h"

namespace quorvi {

// A file of the report.
struct ReportFile {
    std::string name;         // in the .zip, ASCII
    std::u8string_view what;  // what it tells, in a few words
    std::string text;         // ANSI; stands in the .zip as UTF-8
};

// The name of the log in the report; all others are facts, a few lines each.
inline constexpr std::string_view kReportLog = "quorvi.log";

struct Report {
    std::vector<ReportFile> files;
};

// Where a report comes from.
struct ReportSource {
    std::filesystem::path log = ThePlaces().LogFile();
    Environment environment = TheEnvironment();
    LinkEnvironment link = {};
    std::vector<ReportFile> further = {};  // facts that only the caller knows
};

// Gathers everything. Blocks while adb answers and the disk is read: on a worker.
[[nodiscard]] Report CollectReport(const ReportSource& source);

// What the report holds, a line a file: "adb.txt: adb 和手机的状态，84 字节". ANSI.
[[nodiscard]] std::string ReportList(const Report& report);

// The list, and below it what the files say: the facts in full, of the log the last lines. ANSI.
[[nodiscard]] std::string ReportPreview(const Report& report);

struct ReportSaved {
    bool saved = false;
    std::string why{};  // it was not, and what can be done. ANSI
};

// Writes the .zip: whole or not at all. Blocks as long as the disk does.
[[nodiscard]] ReportSaved SaveReport(const Report& report, const std::filesystem::path& file,
                                     ExistingFile existing);

}  // namespace quorvi
