// The desktop's own little files: launchers (".desktop") and the list of default applications.
// Their text is UTF-8 throughout.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

// The group of a launcher's values.
inline constexpr std::string_view kEntryGroup = "Desktop Entry";

// The words of an `Exec` line that start this program: its path as it is, since some openers of
// desktops take quotes for a part of the name; in double quotes where it holds what the format
// reserves, written so that it stands for itself.
[[nodiscard]] std::string ExecPath(std::string_view program);

// A launcher. Texts as they are; empty ones are left out.
struct DesktopEntry {
    std::string name = {};
    std::string comment = {};
    std::string exec = {};      // ready for the line: see ExecPath
    std::string icon = {};      // a name of the icon theme, or a path
    std::string mimeType = {};  // what it opens, each with ";" behind it
    bool hidden = false;        // not listed in menus

    [[nodiscard]] std::string Text() const;
};

// The value of a key in a group of such a file as it is written there; nothing
// when there is none. The first counts.
[[nodiscard]] std::optional<std::string> EntryValue(std::string_view file, std::string_view group,
                                                    std::string_view key);

// A list of applications in which `desktopId` opens `mimeType` by default, before all others that
// were named for it. All else stays as it is; done twice it changes nothing more.
[[nodiscard]] std::string WithDefaultApplication(std::string_view file, std::string_view mimeType,
                                                 std::string_view desktopId);

}  // namespace quorvi
