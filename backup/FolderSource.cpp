#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "backup/BackupSource.h"
#include "base/Text.h"
#include "base/os/FileDescriptor.h"

namespace quorvi {
namespace {

class FolderEntry : public BackupEntry {
  public:
    explicit FolderEntry(FileDescriptor file) : file_(std::move(file)) {}

    std::ptrdiff_t Read(std::span<char> room) override {
        ssize_t count = 0;
        do {
            count = read(file_.Get(), room.data(), room.size());
        } while (count < 0 && errno == EINTR);
        return count;
    }

  private:
    FileDescriptor file_;
};

class FolderSource : public BackupSource {
  public:
    explicit FolderSource(FileDescriptor folder) : folder_(std::move(folder)) {}

    std::unique_ptr<BackupEntry> Open(const std::string& name, std::string& why) override {
        // Without a wait: what bears the name may be a pipe.
        FileDescriptor file(openat(folder_.Get(), name.c_str(),
                                   O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
        if (!file.IsOpen()) {
            why = ToAnsi(name) + Ansi(errno == ELOOP    ? u8": 是一个链接，不读取"
                                      : errno == ENOENT ? u8": 备份里缺少这个文件"
                                                        : u8": 无法读取");
            return nullptr;
        }
        struct stat facts {};
        if (fstat(file.Get(), &facts) != 0 || !S_ISREG(facts.st_mode)) {
            why = ToAnsi(name) + Ansi(u8": 不是普通文件，不读取");
            return nullptr;
        }
        return std::make_unique<FolderEntry>(std::move(file));
    }

    // What else lies in the folder is not looked at.
    std::string Refuse(const Manifest& manifest) override {
        for (const BackedUpKind& kind : manifest.kinds) {
            for (const BackedUpFile& file : kind.files) {
                struct stat facts {};
                if (fstatat(folder_.Get(), file.name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0) {
                    return ToAnsi(file.name) + Ansi(u8": 备份里缺少这个文件");
                }
                if (!S_ISREG(facts.st_mode)) {
                    return ToAnsi(file.name) + Ansi(S_ISLNK(facts.st_mode)
                                                        ? u8": 是一个链接，不读取"
                                                        : u8": 不是普通文件，不读取");
                }
                if (static_cast<std::uint64_t>(facts.st_size) != file.bytes) {
                    return ToAnsi(file.name) + Ansi(u8": 长度和清单里的不同");
                }
            }
        }
        return {};
    }

  private:
    FileDescriptor folder_;
};

}  // namespace

std::unique_ptr<BackupSource> OpenFolderSource(const std::filesystem::path& path,
                                               std::string& why) {
    FileDescriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.IsOpen()) {
        why = Ansi(u8"打不开这个文件夹");
        return nullptr;
    }
    return std::make_unique<FolderSource>(std::move(folder));
}

}  // namespace quorvi
