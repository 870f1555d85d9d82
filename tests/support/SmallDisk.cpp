#include "tests/support/SmallDisk.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <string>

#include "base/os/FileDescriptor.h"

namespace quorvi {
namespace {

constexpr const char* kFiller = "filler";

// Root may simply do so; anyone else first becomes root of a user namespace.
bool EnterNamespace() {
    if (unshare(CLONE_NEWNS) == 0) {
        return true;
    }
    const std::string user = std::to_string(getuid());
    const std::string group = std::to_string(getgid());
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
        return false;
    }
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << user << " " << user << " 1";
    std::ofstream("/proc/self/gid_map") << group << " " << group << " 1";
    return true;
}

}  // namespace

SmallDisk::SmallDisk(std::size_t bytes) {
    const std::string options = "size=" + std::to_string(bytes);
    mounted_ =
        EnterNamespace() && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
        mount("none", folder_.Path().c_str(), "tmpfs", MS_NOSUID | MS_NODEV, options.c_str()) == 0;
}

SmallDisk::~SmallDisk() {
    if (mounted_) {
        umount2(folder_.Path().c_str(), MNT_DETACH);
    }
}

void SmallDisk::Fill() const {
    const FileDescriptor file(
        open((Path() / kFiller).c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
    const std::array<char, 4096> block{};
    for (std::size_t size = block.size(); size > 0; size /= 2) {
        while (write(file.Get(), block.data(), size) == static_cast<ssize_t>(size)) {
        }
    }
}

void SmallDisk::Empty() const {
    std::error_code ignored;
    std::filesystem::remove(Path() / kFiller, ignored);
}

}  // namespace quorvi
