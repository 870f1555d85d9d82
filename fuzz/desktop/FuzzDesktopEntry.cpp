// Reads any bytes as the desktop's own files, which every program of the user may write, and writes
// launchers of any texts.
//
// Input: a name, a line feed, the file.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "desktop/DesktopEntry.h"
#include "desktop/DesktopFolder.h"

namespace {

constexpr std::string_view kType = "x-scheme-handler/quorvi";
constexpr std::string_view kId = "quorvi.desktop";

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

// Named first, and once for all.
void MakeDefault(std::string_view file) {
    const std::string made = quorvi::WithDefaultApplication(file, kType, kId);
    const auto applications = quorvi::EntryValue(made, "Default Applications", kType);
    Require(applications.has_value() && applications->starts_with(kId));
    Require(quorvi::WithDefaultApplication(made, kType, kId) == made);
}

// No text of a launcher can write a second line of it.
void WriteLauncher(std::string_view text) {
    const std::string some(text);
    const quorvi::DesktopEntry entry{.name = some, .comment = some, .exec = quorvi::ExecPath(text)};
    const std::string launcher = entry.Text();
    Require(quorvi::EntryValue(launcher, quorvi::kEntryGroup, "Exec").has_value());
    Require(quorvi::EntryValue(launcher, quorvi::kEntryGroup, "Terminal") == "false");
    Require(!quorvi::EntryValue(launcher, quorvi::kEntryGroup, "NoDisplay"));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t end = input.find('\n');
    const std::string_view name = input.substr(0, end);
    const std::string_view file =
        end == std::string_view::npos ? std::string_view() : input.substr(end + 1);
    static_cast<void>(quorvi::EntryValue(file, quorvi::kEntryGroup, name));
    const auto folder = quorvi::UserDirectory(file, name, "/home/user");
    Require(!folder || folder->is_absolute());
    MakeDefault(file);
    WriteLauncher(input);
    return 0;
}
