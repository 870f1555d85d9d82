#include "base/os/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>

namespace quorvi {

FileLock::FileLock(const std::filesystem::path& file)
    : file_(open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR)) {
    int locked = -1;
    do {
        locked = file_.IsOpen() ? flock(file_.Get(), LOCK_EX) : 0;
    } while (locked != 0 && errno == EINTR);
    if (locked != 0) {
        file_.Close();
    }
}

}  // namespace quorvi
