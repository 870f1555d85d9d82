#include "refdata/PhoneDb.h"

#include <fcntl.h>
#include <sys/mman.h>
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
#include "refdata/PhoneDbFormat.h"

namespace quorvi {
namespace {

constexpr std::array<std::uint16_t, kLastRegionId + 1> kRegionCodes = {
#include "refdata/data/RegionCodes.inc"
};

class Descriptor {
  public:
    explicit Descriptor(int value) : value_(value) {}
    ~Descriptor() {
        if (value_ >= 0) {
            ::close(value_);
        }
    }
    Descriptor(Descriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }

    [[nodiscard]] bool IsOpen() const { return value_ >= 0; }
    [[nodiscard]] int Value() const { return value_; }

  private:
    int value_;
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
Descriptor Extract(const std::filesystem::path& path, std::span<const std::byte> resource) {
    std::string draft = path.string() + ".XXXXXX";
    Descriptor file(::mkostemp(draft.data(), O_CLOEXEC));
    if (file.IsOpen() && WriteAll(file.Value(), resource) &&
        ::rename(draft.c_str(), path.c_str()) == 0) {
        return file;
    }
    if (file.IsOpen()) {
        ::unlink(draft.c_str());
    }
    return Descriptor(-1);
}

// What stands there, or an empty file if nothing does.
Descriptor OpenExisting(const std::filesystem::path& path) {
    constexpr int kRead = O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;
    // Without O_CREAT first: the system refuses it for another user's file in a shared directory.
    Descriptor file(::open(path.c_str(), kRead));
    return file.IsOpen()
               ? std::move(file)
               : Descriptor(::open(path.c_str(), kRead | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR));
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

CPhoneDb::~CPhoneDb() {
    Unmap();
}

CPhoneDb::CPhoneDb(CPhoneDb&& other) noexcept
    : ownResource_(std::move(other.ownResource_)),
      mapping_(std::exchange(other.mapping_, {})),
      entries_(std::exchange(other.entries_, {})) {}

CPhoneDb& CPhoneDb::operator=(CPhoneDb&& other) noexcept {
    if (this != &other) {
        Unmap();
        ownResource_ = std::move(other.ownResource_);
        mapping_ = std::exchange(other.mapping_, {});
        entries_ = std::exchange(other.entries_, {});
    }
    return *this;
}

void CPhoneDb::Open(const std::filesystem::path& directory, std::span<const std::byte> resource) {
    const std::filesystem::path path = directory / kPhoneDbName;
    Descriptor file(-1);
    if (resource.empty()) {
        ::unlink(path.c_str());
    } else {
        file = Extract(path, resource);
    }
    if (!file.IsOpen()) {
        file = OpenExisting(path);
    }
    struct stat status {};
    if (!file.IsOpen() || ::fstat(file.Value(), &status) != 0) {
        return;
    }
    if (!S_ISREG(status.st_mode) || status.st_uid != ::geteuid()) {
        // Another user owns the file and could write anything into it, or shorten it while it is
        // mapped,
        // which would end this process at its next look-up.
        entries_ = resource;
        return;
    }
    const std::size_t size = std::min(static_cast<std::size_t>(status.st_size), kPhoneDbSize);
    if (size == 0) {
        return;
    }
    void* start = ::mmap(nullptr, size, PROT_READ, MAP_SHARED, file.Value(), 0);
    if (start != MAP_FAILED) {
        mapping_ = {static_cast<const std::byte*>(start), size};
        entries_ = mapping_;
    }
}

void CPhoneDb::Unmap() {
    if (!mapping_.empty()) {
        ::munmap(const_cast<std::byte*>(mapping_.data()), mapping_.size());
    }
    mapping_ = {};
    entries_ = {};
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
