#include "refdata/PhoneDb.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <utility>

#include "base/Places.h"
#include "base/os/FileDescriptor.h"
#include "refdata/PhoneDbFormat.h"

namespace quorvi {
namespace {

constexpr std::array<std::uint16_t, kLastRegionId + 1> kRegionCodes = {
#include "refdata/data/RegionCodes.inc"
};

bool WriteAll(int descriptor, std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const ::ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written <= 0) {
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

// Puts the whole resource at `path` at once, so that nobody ever maps half of it, and gives the
// file open: another instance may have replaced it by its own before it is opened by name.
FileDescriptor Extract(const std::filesystem::path& path, std::span<const std::byte> resource) {
    std::string draft = path.string() + ".XXXXXX";
    FileDescriptor file(::mkostemp(draft.data(), O_CLOEXEC));
    if (file.IsOpen() && WriteAll(file.Get(), resource) &&
        ::rename(draft.c_str(), path.c_str()) == 0) {
        return file;
    }
    if (file.IsOpen()) {
        ::unlink(draft.c_str());
    }
    return FileDescriptor();
}

// What stands there, or an empty file if nothing does.
FileDescriptor OpenExisting(const std::filesystem::path& path) {
    constexpr int kRead = O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;
    // Without O_CREAT first: the system refuses it for another user's file in a shared directory.
    FileDescriptor file(::open(path.c_str(), kRead));
    return file.IsOpen()
               ? std::move(file)
               : FileDescriptor(::open(path.c_str(), kRead | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR));
}

std::vector<std::byte> ReadDatabase(const std::filesystem::path& path) {
    std::vector<std::byte> bytes(kPhoneDbSize);
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return bytes;
}

}  // namespace

int AreaCodeOfRegion(int regionId) {
    return regionId >= 0 && regionId <= kLastRegionId
               ? kRegionCodes[static_cast<std::size_t>(regionId)]
               : 0;
}

CPhoneDb::CPhoneDb(const Places& places) {
    const std::filesystem::path beside = places.Beside(kPhoneDbName);
    std::error_code unknown;
    if (std::filesystem::exists(beside, unknown)) {
        ownResource_ = ReadDatabase(beside);
        Open(places.temporary, ownResource_);
    } else {
        Open(places.temporary, PhoneDbResource());
    }
}

CPhoneDb::CPhoneDb(const std::filesystem::path& directory, std::vector<std::byte> resource)
    : ownResource_(std::move(resource)) {
    Open(directory, ownResource_);
}

CPhoneDb::CPhoneDb(const std::filesystem::path& directory, std::span<const std::byte> resource) {
    Open(directory, resource);
}

CPhoneDb::CPhoneDb(CPhoneDb&& other) noexcept
    : ownResource_(std::move(other.ownResource_)),
      mapping_(std::move(other.mapping_)),
      entries_(std::exchange(other.entries_, {})) {}

CPhoneDb& CPhoneDb::operator=(CPhoneDb&& other) noexcept {
    if (this != &other) {
        ownResource_ = std::move(other.ownResource_);
        mapping_ = std::move(other.mapping_);
        entries_ = std::exchange(other.entries_, {});
    }
    return *this;
}

void CPhoneDb::Open(const std::filesystem::path& directory, std::span<const std::byte> resource) {
    const std::filesystem::path path = directory / kPhoneDbName;
    FileDescriptor file;
    if (resource.empty()) {
        ::unlink(path.c_str());
    } else {
        file = Extract(path, resource);
    }
    if (!file.IsOpen()) {
        file = OpenExisting(path);
    }
    struct stat status {};
    if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0) {
        return;
    }
    if (!S_ISREG(status.st_mode) || status.st_uid != ::geteuid()) {
        // Its owner could fill the file with anything, or make it shorter while it is mapped here,
        // which would end this program at the next look-up.
        entries_ = resource;
        return;
    }
    const std::size_t size = std::min(static_cast<std::size_t>(status.st_size), kPhoneDbSize);
    mapping_ = MappedMemory::OfFile(file, size);
    entries_ = mapping_.Bytes();
}

int CPhoneDb::LookupAreaCode(int prefix) const {
    if (prefix < kFirstPrefix || prefix > kLastPrefix) {
        return 0;
    }
    const std::size_t at = static_cast<std::size_t>(prefix - kFirstPrefix) * kPhoneDbEntry;
    if (at + kPhoneDbEntry > entries_.size()) {
        return 0;
    }
    return AreaCodeOfRegion(std::to_integer<int>(entries_[at]) |
                            std::to_integer<int>(entries_[at + 1]) << 8);
}

}  // namespace quorvi
