#include "backup/BackupReader.h"

#include <utility>
#include <vector>

#include "backup/Sha256.h"
#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::size_t kPieceBytes = 256 * 1024;

// At most one byte more than a manifest may have, so that a longer one is known.
std::optional<std::string> ReadManifestText(BackupSource& source, std::string& why) {
    const auto entry = source.Open(std::string(kManifestName), why);
    if (!entry) {
        why = Ansi(u8"不是备份，或者备份没有做完: ") + why;
        return std::nullopt;
    }
    std::string text(kMostManifestBytes + 1, '\0');
    std::size_t length = 0;
    while (length < text.size()) {
        const std::ptrdiff_t count = entry->Read({text.data() + length, text.size() - length});
        if (count < 0) {
            why = Ansi(u8"备份的清单读不出来");
            return std::nullopt;
        }
        if (count == 0) {
            break;
        }
        length += static_cast<std::size_t>(count);
    }
    text.resize(length);
    return text;
}

}  // namespace

BackupReader::BackupReader(std::unique_ptr<BackupSource> source, Manifest manifest)
    : source_(std::move(source)), manifest_(std::move(manifest)) {}

OpenedBackup BackupReader::Open(const std::filesystem::path& path) {
    OpenedBackup opened;
    std::error_code failed;
    const bool isFolder = std::filesystem::is_directory(path, failed);
    if (!isFolder && !std::filesystem::is_regular_file(path, failed)) {
        opened.why = Ansi(u8"没有这个备份");
        return opened;
    }
    auto source = isFolder ? OpenFolderSource(path, opened.why) : OpenZipSource(path, opened.why);
    const auto text = source ? ReadManifestText(*source, opened.why) : std::nullopt;
    if (!text) {
        return opened;
    }
    ManifestRead read = ReadManifest(*text);
    opened.why = read.manifest ? source->Refuse(*read.manifest) : read.why;
    if (opened.why.empty()) {
        opened.reader.reset(new BackupReader(std::move(source), *std::move(read.manifest)));
    }
    return opened;
}

std::string BackupReader::Stream(const BackedUpFile& file, const Take& take) const {
    std::string why;
    const auto entry = source_->Open(file.name, why);
    if (!entry) {
        return why;
    }
    std::vector<char> room(kPieceBytes);
    Sha256 sum;
    std::uint64_t length = 0;
    for (;;) {
        const std::ptrdiff_t count = entry->Read(room);
        if (count < 0) {
            return ToAnsi(file.name) + Ansi(u8": 读取出错，文件可能坏了");
        }
        if (count == 0) {
            break;
        }
        const std::string_view piece(room.data(), static_cast<std::size_t>(count));
        length += piece.size();
        if (length > file.bytes) {
            return ToAnsi(file.name) + Ansi(u8": 长度和清单里的不同");
        }
        sum.Add(piece);
        if (!take(piece)) {
            return ToAnsi(file.name) + Ansi(u8": 没有读完");
        }
    }
    if (length != file.bytes) {
        return ToAnsi(file.name) + Ansi(u8": 长度和清单里的不同");
    }
    if (sum.Hex() != file.sha256) {
        return ToAnsi(file.name) + Ansi(u8": 内容和清单里的校验值不同，文件被改动过或者坏了");
    }
    return {};
}

std::optional<std::string> BackupReader::ReadWhole(const BackedUpFile& file, std::size_t most,
                                                   std::string& why) const {
    if (file.bytes > most) {
        why = ToAnsi(file.name) + Ansi(u8": 太大，不读取");
        return std::nullopt;
    }
    std::string bytes;
    why = Stream(file, [&](std::string_view piece) {
        bytes += piece;
        return true;
    });
    return why.empty() ? std::optional(std::move(bytes)) : std::nullopt;
}

std::string BackupReader::Verify(const StopSignal& stop) const {
    for (const BackedUpKind& kind : manifest_.kinds) {
        for (const BackedUpFile& file : kind.files) {
            const std::string why =
                Stream(file, [&](std::string_view) { return !stop.IsStopped(); });
            if (stop.IsStopped() || !why.empty()) {
                return stop.IsStopped() ? std::string() : why;
            }
        }
    }
    return {};
}

}  // namespace quorvi
