#include "base/os/FixedDisks.h"

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>
#include <system_error>

namespace quorvi {
namespace {

constexpr const char* kMountInfo = "/proc/self/mountinfo";
constexpr std::string_view kDevices = "/dev/";
// Block devices that are no disks of their own.
constexpr std::array<std::string_view, 3> kNoDisks{"/dev/loop", "/dev/sr", "/dev/fd"};

// Undoes the list's way to write a blank, a tab, a line feed and a backslash: "\040".
std::string Unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto digit = [&](std::size_t place) {
            return place < text.size() && text[place] >= '0' && text[place] <= '7';
        };
        if (text[i] == '\\' && digit(i + 1) && digit(i + 2) && digit(i + 3)) {
            plain += static_cast<char>(((text[i + 1] - '0') << 6) | ((text[i + 2] - '0') << 3) |
                                       (text[i + 3] - '0'));
            i += 3;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

bool HasOption(std::string_view options, std::string_view option) {
    while (!options.empty()) {
        const std::size_t comma = options.find(',');
        if (options.substr(0, comma) == option) {
            return true;
        }
        options = comma == std::string_view::npos ? std::string_view() : options.substr(comma + 1);
    }
    return false;
}

// Of a partition the disk says it, one folder above.
bool CanBePulledOut(const std::string& device) {
    const std::filesystem::path told = "/sys/dev/block/" + device;
    std::error_code unknown;
    const std::filesystem::path folder = std::filesystem::canonical(told, unknown);
    for (const auto& file : {folder / "removable", folder.parent_path() / "removable"}) {
        std::ifstream stream(file);
        int removable = 0;
        if (stream >> removable) {
            return removable != 0;
        }
    }
    return false;
}

std::uint64_t RoomOf(const std::filesystem::path& folder) {
    struct statvfs room {};
    return statvfs(folder.c_str(), &room) == 0
               ? static_cast<std::uint64_t>(room.f_bavail) * room.f_frsize
               : 0;
}

bool StandOnOneDisk(const std::filesystem::path& one, const std::filesystem::path& other) {
    struct stat first {};
    struct stat second {};
    return stat(one.c_str(), &first) == 0 && stat(other.c_str(), &second) == 0 &&
           first.st_dev == second.st_dev;
}

}  // namespace

std::vector<MountedDisk> ParseMountedDisks(std::string_view mountInfo) {
    std::vector<MountedDisk> disks;
    std::istringstream lines{std::string(mountInfo)};
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string id;
        std::string parent;
        std::string device;
        std::string root;
        std::string mount;
        std::string options;
        words >> id >> parent >> device >> root >> mount >> options;
        // Any number of words up to a lone dash, then the type and the source.
        std::string word;
        while (words >> word && word != "-") {
        }
        std::string type;
        std::string source;
        words >> type >> source;
        const auto begins = [&](std::string_view name) { return source.starts_with(name); };
        if (!words || !begins(kDevices) || std::ranges::any_of(kNoDisks, begins) ||
            HasOption(options, "ro") ||
            std::ranges::find(disks, device, &MountedDisk::device) != disks.end()) {
            continue;
        }
        disks.push_back({.device = device, .mount = Unescaped(mount)});
    }
    return disks;
}

std::vector<FixedDisk> FixedDisks(const std::filesystem::path& home) {
    std::ifstream list(kMountInfo);
    std::ostringstream text;
    text << list.rdbuf();
    std::vector<FixedDisk> disks{{.place = home, .freeBytes = RoomOf(home)}};
    for (const MountedDisk& disk : ParseMountedDisks(text.str())) {
        if (!StandOnOneDisk(disk.mount, home) && !CanBePulledOut(disk.device) &&
            access(disk.mount.c_str(), W_OK | X_OK) == 0) {
            disks.push_back({.place = disk.mount, .freeBytes = RoomOf(disk.mount)});
        }
    }
    std::ranges::sort(disks, {}, &FixedDisk::place);
    return disks;
}

std::optional<std::uint64_t> FreeBytes(const std::filesystem::path& folder) {
    std::error_code unknown;
    std::filesystem::path there = folder;
    while (!there.empty() && !std::filesystem::exists(there, unknown)) {
        const std::filesystem::path above = there.parent_path();
        if (above == there) {
            return std::nullopt;
        }
        there = above;
    }
    return there.empty() ? std::nullopt : std::optional(RoomOf(there));
}

}  // namespace quorvi
