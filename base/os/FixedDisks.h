// The disks that belong to this computer, and how much room each of them has.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

// A disk on which the user may write.
struct FixedDisk {
    std::filesystem::path place;  // the uppermost folder in which the user may make others
    std::uint64_t freeBytes = 0;  // that the user may fill
};

// Where a file system of a disk hangs in the tree of folders.
struct MountedDisk {
    std::string device;  // "8:1": its numbers, by which the system tells of it
    std::filesystem::path mount;
    bool operator==(const MountedDisk&) const = default;
};

// The disks of the system's list of mounts (/proc/self/mountinfo), each once, in the order of the
// list. Left out is what is no block device, holds packages or pictures of disks (loop devices), is
// an optical drive, or may only be read.
[[nodiscard]] std::vector<MountedDisk> ParseMountedDisks(std::string_view mountInfo);

// The disks that are built in, in the order of their paths: not the ones that can be pulled out.
// The one on which `home` lies always counts, whatever it is, and its place is `home`; of any other
// one the place is where it is mounted, and where the user may not write there it does not count.
// Looks at the disk: on a worker.
[[nodiscard]] std::vector<FixedDisk> FixedDisks(const std::filesystem::path& home);

// The bytes that the user may still fill where `folder` is, or will be once it is made; nothing
// where not even its beginning exists. Looks at the disk: on a worker.
[[nodiscard]] std::optional<std::uint64_t> FreeBytes(const std::filesystem::path& folder);

}  // namespace quorvi
