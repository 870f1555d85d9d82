#include "base/os/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>

namespace quorvi {

FileLock::FileLock(const std::filesystem::path& file, Wait wait)
    : file_(open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR)) {
    const int how = wait == Wait::always ? LOCK_EX : LOCK_EX | LOCK_NB;
    int locked = -1;
    do {
        locked = file_.IsOpen() ? flock(file_.Get(), how) : 0;
    } while (locked != 0 && errno == EINTR);
    if (locked != 0) {
        busy_ = errno == EWOULDBLOCK;
        file_.Close();
    }
}

bool IsStillNamed(const FileDescriptor& file, const std::filesystem::path& path) {
    struct stat own {};
    struct stat named {};
    return fstat(file.Get(), &own) == 0 && lstat(path.c_str(), &named) == 0 &&
           own.st_dev == named.st_dev && own.st_ino == named.st_ino;
}

}  // namespace quorvi
