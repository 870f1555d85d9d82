#include "desktop/DesktopIntegration.h"

#include <system_error>

#include "base/Text.h"
#include "base/os/SmallFile.h"
#include "desktop/DesktopEntry.h"

namespace quorvi {
namespace {

constexpr std::u8string_view kProgramName = u8"奎维掌上工坊";
constexpr std::string_view kProtocolName = "QuorviProtocol";
constexpr std::string_view kSchemeType = "x-scheme-handler/quorvi";
constexpr std::string_view kAutoRunId = "quorvi.desktop";
constexpr std::string_view kProtocolId = "quorvi-protocol.desktop";
constexpr std::string_view kIconFile = "quorvi.svg";

std::string ProgramName() {
    return {reinterpret_cast<const char*>(kProgramName.data()), kProgramName.size()};
}

}  // namespace

FreedesktopIntegration::FreedesktopIntegration(Places places, std::filesystem::path desktop,
                                               std::string iconSvg)
    : places_(std::move(places)), desktop_(std::move(desktop)), iconSvg_(std::move(iconSvg)) {}

std::filesystem::path FreedesktopIntegration::AutoRunFile() const {
    return places_.config / "autostart" / kAutoRunId;
}

std::filesystem::path FreedesktopIntegration::ShortcutFile() const {
    return desktop_ / (ProgramName() + ".desktop");
}

std::filesystem::path FreedesktopIntegration::ProtocolFile() const {
    return places_.data / "applications" / kProtocolId;
}

std::string FreedesktopIntegration::AutoRunCommand() const {
    return ExecPath(places_.program.native()) + " /hide";
}

std::string FreedesktopIntegration::InstallIcon() const {
    const std::filesystem::path file =
        places_.data / "icons" / "hicolor" / "scalable" / "apps" / kIconFile;
    return ReplaceFile(file, iconSvg_) ? file.native() : std::string();
}

bool FreedesktopIntegration::AutoRuns() const {
    const std::string file = ReadSmallFile(AutoRunFile()).value_or(std::string());
    // The desktop's own settings switch an entry off by one of these.
    const bool off =
        EqualsNoCase(EntryValue(file, kEntryGroup, "Hidden").value_or(""), "true") ||
        EqualsNoCase(EntryValue(file, kEntryGroup, "X-GNOME-Autostart-enabled").value_or(""),
                     "false");
    return !off &&
           EqualsNoCase(EntryValue(file, kEntryGroup, "Exec").value_or(""), AutoRunCommand());
}

void FreedesktopIntegration::SetAutoRun(bool on) {
    if (on) {
        const DesktopEntry entry{
            .name = ProgramName(), .exec = AutoRunCommand(), .icon = InstallIcon()};
        ReplaceFile(AutoRunFile(), entry.Text());
    } else {
        std::error_code ignored;
        std::filesystem::remove(AutoRunFile(), ignored);
    }
}

void FreedesktopIntegration::MakeShortcut() {
    const DesktopEntry entry{
        .name = ProgramName(), .exec = ExecPath(places_.program.native()), .icon = InstallIcon()};
    ReplaceFile(ShortcutFile(), entry.Text(), FileMode::executable);
}

void FreedesktopIntegration::RegisterProtocol() {
    const DesktopEntry entry{.name = ProgramName(),
                             .comment = std::string(kProtocolName),
                             .exec = ExecPath(places_.program.native()) + " %u",
                             .icon = InstallIcon(),
                             .mimeType = std::string(kSchemeType) + ";",
                             .hidden = true};
    if (!ReplaceFile(ProtocolFile(), entry.Text())) {
        return;
    }
    // A list that is there and cannot be read is left alone.
    const std::filesystem::path list = places_.config / "mimeapps.list";
    std::error_code failed;
    const auto text = ReadSmallFile(list);
    if (text || !std::filesystem::exists(list, failed)) {
        ReplaceFile(list, WithDefaultApplication(text.value_or(""), kSchemeType, kProtocolId));
    }
}

}  // namespace quorvi
