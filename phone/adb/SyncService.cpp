#include "phone/adb/SyncService.h"

#include <algorithm>
#include <charconv>

#include "base/ByteText.h"
#include "phone/adb/Packet.h"

namespace quorvi::phone {
namespace {

constexpr std::uint32_t kStat = FourLetters("STAT");
constexpr std::uint32_t kList = FourLetters("LIST");
constexpr std::uint32_t kSend = FourLetters("SEND");
constexpr std::uint32_t kRecv = FourLetters("RECV");
constexpr std::uint32_t kQuit = FourLetters("QUIT");
constexpr std::uint32_t kData = FourLetters("DATA");
constexpr std::uint32_t kDone = FourLetters("DONE");
constexpr std::uint32_t kFail = FourLetters("FAIL");
constexpr std::uint32_t kEntry = FourLetters("DENT");

constexpr std::size_t kHeaderBytes = 8;
constexpr std::uint32_t kDirectoryMode = 040755;
constexpr std::uint32_t kRegularFile = 0100000;
constexpr std::uint32_t kPermissionBits = 0777;

Bytes Words(std::initializer_list<std::uint32_t> words) {
    Bytes out;
    for (const std::uint32_t word : words) {
        AppendLittleEndian(out, word);
    }
    return out;
}

void AppendEntry(Bytes& out, const StoredFile& file, std::string_view name) {
    AppendLittleEndian(out, kEntry);
    AppendLittleEndian(out, file.mode);
    AppendLittleEndian(out, static_cast<std::uint32_t>(file.bytes.size()));
    AppendLittleEndian(out, file.modified);
    AppendLittleEndian(out, static_cast<std::uint32_t>(name.size()));
    const Bytes text = ToBytes(name);
    out.insert(out.end(), text.begin(), text.end());
}

}  // namespace

void SyncService::OnBytes(std::span<const std::byte> bytes) {
    if (step_ == Step::over) {
        return;
    }
    pending_.insert(pending_.end(), bytes.begin(), bytes.end());
    bool more = true;
    while (more && step_ != Step::over) {
        more = step_ == Step::file ? TakeFilePiece() : TakeRequest();
    }
}

void SyncService::Drop(std::size_t count) {
    pending_.erase(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(count));
}

bool SyncService::TakeRequest() {
    if (pending_.size() < kHeaderBytes) {
        return false;
    }
    const std::uint32_t id = ReadLittleEndian(pending_.data());
    const std::uint32_t length = ReadLittleEndian(pending_.data() + 4);
    if (id == kQuit) {
        step_ = Step::over;
        sink_.Close();
        return false;
    }
    if (length > kMaxSyncName) {
        Fail("name too long");
        return false;
    }
    if (pending_.size() < kHeaderBytes + length) {
        return false;
    }
    const std::string name(AsText(std::span(pending_).subspan(kHeaderBytes, length)));
    Drop(kHeaderBytes + length);
    Answer(id, name);
    return true;
}

void SyncService::Answer(std::uint32_t id, std::string_view name) {
    if (id == kStat) {
        Stat(std::string(name));
    } else if (id == kList) {
        List(std::string(name));
    } else if (id == kRecv) {
        Receive(std::string(name));
    } else if (id == kSend) {
        BeginSend(name);
    } else {
        Fail("unknown command");
    }
}

void SyncService::Stat(const std::string& path) {
    if (const StoredFile* file = handset_.FindFile(path)) {
        sink_.Write(Words(
            {kStat, file->mode, static_cast<std::uint32_t>(file->bytes.size()), file->modified}));
    } else {
        sink_.Write(Words({kStat, handset_.IsDirectory(path) ? kDirectoryMode : 0, 0, 0}));
    }
}

void SyncService::List(const std::string& path) {
    const std::string folder = path.ends_with("/") ? path : path + "/";
    Bytes out;
    for (const auto& [name, file] : handset_.Files()) {
        if (name.starts_with(folder) && name.find('/', folder.size()) == std::string::npos) {
            AppendEntry(out, file, std::string_view(name).substr(folder.size()));
        }
    }
    const Bytes end = Words({kDone, 0, 0, 0, 0});
    out.insert(out.end(), end.begin(), end.end());
    sink_.Write(std::move(out));
}

void SyncService::Receive(const std::string& path) {
    const StoredFile* file = handset_.FindFile(path);
    if (!file) {
        Fail("No such file or directory");
        return;
    }
    Bytes out;
    for (std::size_t at = 0; at < file->bytes.size(); at += kMaxSyncPiece) {
        const auto piece =
            std::span(file->bytes).subspan(at, std::min(kMaxSyncPiece, file->bytes.size() - at));
        AppendLittleEndian(out, kData);
        AppendLittleEndian(out, static_cast<std::uint32_t>(piece.size()));
        out.insert(out.end(), piece.begin(), piece.end());
    }
    AppendLittleEndian(out, kDone);
    AppendLittleEndian(out, 0);
    sink_.Write(std::move(out));
}

// "PATH,MODE", the mode in decimal digits.
void SyncService::BeginSend(std::string_view nameAndMode) {
    const std::size_t comma = nameAndMode.rfind(',');
    std::uint32_t mode = 0644;
    if (comma != std::string_view::npos) {
        const std::string_view digits = nameAndMode.substr(comma + 1);
        std::from_chars(digits.data(), digits.data() + digits.size(), mode);
    }
    path_ = nameAndMode.substr(0, comma);
    file_ = {kRegularFile | (mode & kPermissionBits), 0, {}};
    step_ = Step::file;
}

bool SyncService::TakeFilePiece() {
    if (pending_.size() < kHeaderBytes) {
        return false;
    }
    const std::uint32_t id = ReadLittleEndian(pending_.data());
    const std::uint32_t word = ReadLittleEndian(pending_.data() + 4);
    if (id == kDone) {
        Drop(kHeaderBytes);
        EndSend(word);
        return true;
    }
    if (id != kData || word > kMaxSyncPiece) {
        Fail("invalid data message");
        return false;
    }
    if (pending_.size() < kHeaderBytes + word) {
        return false;
    }
    if (file_.bytes.size() + word > kMaxStoredBytes) {
        Fail("No space left on device");
        return false;
    }
    const auto piece = std::span(pending_).subspan(kHeaderBytes, word);
    file_.bytes.insert(file_.bytes.end(), piece.begin(), piece.end());
    Drop(kHeaderBytes + word);
    return true;
}

void SyncService::EndSend(std::uint32_t modified) {
    file_.modified = modified;
    // A push into a folder names the file inside it already.
    if (handset_.IsDirectory(path_) && !handset_.FindFile(path_)) {
        Fail("Is a directory");
        return;
    }
    if (!handset_.PutFile(path_, std::move(file_))) {
        Fail("No space left on device");
        return;
    }
    file_ = {};
    step_ = Step::request;
    sink_.Write(Words({kOkay, 0}));
}

void SyncService::Fail(std::string_view why) {
    Bytes out = Words({kFail, static_cast<std::uint32_t>(why.size())});
    const Bytes text = ToBytes(why);
    out.insert(out.end(), text.begin(), text.end());
    sink_.Write(std::move(out));
    sink_.Close();
    step_ = Step::over;
    pending_.clear();
}

}  // namespace quorvi::phone
