#include "report/Report.h"

#include <algorithm>
#include <utility>

#include "backup/BackupWriter.h"
#include "base/Format.h"
#include "base/Text.h"
#include "log/EventLog.h"
#include "report/AdbFacts.h"
#include "report/SystemFacts.h"

namespace quorvi {
namespace {

// Lines of the log that the preview shows.
constexpr std::size_t kPreviewLines = 20;

// What else has got into the file, a part of a line or a foreign text, does not leave this
// computer.
std::string LogLinesOf(std::string_view text) {
    std::string lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::string_view line = text.substr(0, end);
        if (end != std::string_view::npos && IsLogLine(line)) {
            lines.append(line).append("\n");
        }
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

// The last lines of a text, each with its line feed.
std::string_view LastLines(std::string_view text, std::size_t count) {
    std::size_t begin = text.size();
    while (begin > 0 && count > 0) {
        const std::size_t before = begin < 2 ? std::string_view::npos : text.rfind('\n', begin - 2);
        begin = before == std::string_view::npos ? 0 : before + 1;
        --count;
    }
    return text.substr(begin);
}

}  // namespace

Report CollectReport(const ReportSource& source) {
    FlushLog();
    Report report;
    report.files.push_back(
        {"versions.txt", u8"软件和系统的版本", SystemFactsText(source.environment)});
    report.files.push_back(
        {"adb.txt", u8"adb 和手机的状态，序列号只留头尾", AdbFactsText(AskAdb(source.link))});
    report.files.insert(report.files.end(), source.further.begin(), source.further.end());
    report.files.push_back({std::string(kReportLog),
                            u8"运行日志，只有状态、结果和用时，没有姓名、号码和短信内容",
                            LogLinesOf(LogFile(source.log).Read())});
    return report;
}

std::string ReportList(const Report& report) {
    std::string list;
    for (const ReportFile& file : report.files) {
        list += file.name + ": " + Ansi(file.what) + Ansi(u8"，") +
                FormatByteSize(ToUtf8(file.text).size()) + "\n";
    }
    return list;
}

std::string ReportPreview(const Report& report) {
    std::string preview = ReportList(report);
    for (const ReportFile& file : report.files) {
        const bool isLog = file.name == kReportLog;
        preview += "\n" + file.name + (isLog ? Ansi(u8" 的最后几行") : "") + "\n";
        preview += isLog ? LastLines(file.text, kPreviewLines) : std::string_view(file.text);
    }
    return preview;
}

ReportSaved SaveReport(const Report& report, const std::filesystem::path& file,
                       ExistingFile existing) {
    std::vector<std::string> texts;
    texts.reserve(report.files.size());
    std::vector<ZipText> packed;
    for (const ReportFile& one : report.files) {
        texts.push_back(ToUtf8(one.text));
        packed.push_back({one.name, texts.back()});
    }
    const std::error_code failed = WriteZip(file, packed, existing);
    return failed ? ReportSaved{false, DiskErrorText(failed)} : ReportSaved{true};
}

}  // namespace quorvi
