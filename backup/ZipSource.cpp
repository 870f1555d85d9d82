#include <zip.h>

#include <algorithm>
#include <set>

#include "backup/BackupSource.h"
#include "base/Text.h"

namespace quorvi {
namespace {

// No large text of a backup packs better than so; what does was made to keep a machine busy. A
// small one may: a phone may hold a note of a million equal letters.
constexpr zip_uint64_t kMostTimesPacked = 500;
constexpr zip_uint64_t kAlwaysUnpacked = zip_uint64_t{64} * 1024 * 1024;

constexpr int kUnixModeShift = 16;
constexpr zip_uint32_t kFileKind = 0170000;
constexpr zip_uint32_t kPlainFile = 0100000;
constexpr zip_uint32_t kLink = 0120000;

struct CloseEntry {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};
struct CloseArchive {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
using Archive = std::unique_ptr<zip_t, CloseArchive>;

class ZipEntry : public BackupEntry {
  public:
    explicit ZipEntry(zip_file_t* file) : file_(file) {}

    std::ptrdiff_t Read(std::span<char> room) override {
        return static_cast<std::ptrdiff_t>(zip_fread(file_.get(), room.data(), room.size()));
    }

  private:
    std::unique_ptr<zip_file_t, CloseEntry> file_;
};

bool LeadsOutside(std::string_view name) {
    return name.starts_with('/') || name.find('\\') != std::string_view::npos ||
           name.find(':') != std::string_view::npos || name == ".." || name.starts_with("../") ||
           name.find("/../") != std::string_view::npos || name.ends_with("/..");
}

class ZipSource : public BackupSource {
  public:
    explicit ZipSource(Archive archive) : archive_(std::move(archive)) {}

    // Each entry by itself, before any is read. Empty, or why the archive is refused.
    [[nodiscard]] std::string RefuseEntries() {
        const zip_int64_t count = zip_get_num_entries(archive_.get(), 0);
        if (count < 0 || static_cast<zip_uint64_t>(count) > kMostBackupFiles + 1) {
            return Ansi(u8"里面的文件太多，不是备份");
        }
        std::set<std::string> names;
        for (zip_uint64_t index = 0; index < static_cast<zip_uint64_t>(count); ++index) {
            const char* raw = zip_get_name(archive_.get(), index, ZIP_FL_ENC_RAW);
            const std::string name = raw == nullptr ? std::string() : raw;
            if (LeadsOutside(name)) {
                return Ansi(u8"里面有指向备份之外的文件名: ") + ToAnsi(name);
            }
            if (!IsBackupFileName(name)) {
                return Ansi(u8"里面有不属于备份的文件: ") + ToAnsi(name);
            }
            if (!names.insert(name).second) {
                return ToAnsi(name) + Ansi(u8": 有两个同名的文件");
            }
            if (const std::string why = RefuseEntry(index); !why.empty()) {
                return ToAnsi(name) + why;
            }
        }
        return {};
    }

    std::unique_ptr<BackupEntry> Open(const std::string& name, std::string& why) override {
        zip_file_t* file = zip_fopen(archive_.get(), name.c_str(), ZIP_FL_ENC_RAW);
        if (file == nullptr) {
            why = ToAnsi(name) + Ansi(u8": 备份里缺少这个文件，或者读不出来");
            return nullptr;
        }
        return std::make_unique<ZipEntry>(file);
    }

    std::string Refuse(const Manifest& manifest) override {
        zip_int64_t named = 1;  // the manifest
        for (const BackedUpKind& kind : manifest.kinds) {
            for (const BackedUpFile& file : kind.files) {
                zip_stat_t facts;
                if (zip_stat(archive_.get(), file.name.c_str(), ZIP_FL_ENC_RAW, &facts) != 0) {
                    return ToAnsi(file.name) + Ansi(u8": 备份里缺少这个文件");
                }
                if (facts.size != file.bytes) {
                    return ToAnsi(file.name) + Ansi(u8": 长度和清单里的不同");
                }
                ++named;
            }
        }
        return zip_get_num_entries(archive_.get(), 0) == named ? std::string()
                                                               : Ansi(u8"里面有清单没有写的文件");
    }

  private:
    [[nodiscard]] std::string RefuseEntry(zip_uint64_t index) {
        zip_uint8_t system = 0;
        zip_uint32_t attributes = 0;
        if (zip_file_get_external_attributes(archive_.get(), index, 0, &system, &attributes) == 0 &&
            system == ZIP_OPSYS_UNIX) {
            const zip_uint32_t kind = attributes >> kUnixModeShift & kFileKind;
            if (kind == kLink) {
                return Ansi(u8": 是一个链接，不读取");
            }
            if (kind != 0 && kind != kPlainFile) {
                return Ansi(u8": 不是普通文件，不读取");
            }
        }
        zip_stat_t facts;
        if (zip_stat_index(archive_.get(), index, 0, &facts) != 0 ||
            (facts.valid & (ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE)) !=
                (ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE)) {
            return Ansi(u8": 读不出长度");
        }
        if (facts.encryption_method != ZIP_EM_NONE) {
            return Ansi(u8": 有密码，不读取");
        }
        if (facts.comp_method != ZIP_CM_STORE && facts.comp_method != ZIP_CM_DEFLATE) {
            return Ansi(u8": 压缩方式不是备份用的");
        }
        if (facts.size > kMostBackupFileBytes ||
            (facts.size > kAlwaysUnpacked && facts.size / kMostTimesPacked > facts.comp_size)) {
            return Ansi(u8": 展开后大得不像备份，不读取");
        }
        return {};
    }

    Archive archive_;
};

}  // namespace

std::unique_ptr<BackupSource> OpenZipSource(const std::filesystem::path& path, std::string& why) {
    int code = 0;
    Archive archive(zip_open(path.c_str(), ZIP_RDONLY, &code));
    if (!archive) {
        why = Ansi(code == ZIP_ER_NOZIP                          ? u8"不是 zip 文件"
                   : code == ZIP_ER_OPEN || code == ZIP_ER_NOENT ? u8"打不开这个文件"
                                                                 : u8"这个 zip 文件是坏的");
        return nullptr;
    }
    auto source = std::make_unique<ZipSource>(std::move(archive));
    why = source->RefuseEntries();
    if (!why.empty()) {
        return nullptr;
    }
    return source;
}

}  // namespace quorvi
