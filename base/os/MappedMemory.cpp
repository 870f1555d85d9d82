#include "base/os/MappedMemory.h"

#include <sys/mman.h>

namespace quorvi {
namespace {

// Bytes from which on memory comes in large pages, of 2 MB each on most machines.
constexpr std::size_t kLarge = 4 << 20;

std::span<std::byte> Map(std::size_t length, int protection, int flags, int descriptor) {
    if (length == 0) {
        return {};
    }
    void* const start = mmap(nullptr, length, protection, flags, descriptor, 0);
    if (start == MAP_FAILED) {
        return {};
    }
    return {static_cast<std::byte*>(start), length};
}

}  // namespace

MappedMemory MappedMemory::Zeroed(std::size_t length) {
    const auto bytes =
        Map(length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1);
    if (bytes.size() >= kLarge) {
        // A fault for each small page costs more than to receive its bytes. Where the system has no
        // large pages, all stays as it is.
        madvise(bytes.data(), bytes.size(), MADV_HUGEPAGE);
    }
    return MappedMemory(bytes);
}

MappedMemory MappedMemory::OfFile(const FileDescriptor& file, std::size_t length) {
    return MappedMemory(Map(length, PROT_READ, MAP_SHARED, file.Get()));
}

void MappedMemory::Unmap() {
    if (!bytes_.empty()) {
        munmap(bytes_.data(), bytes_.size());
        bytes_ = {};
    }
}

}  // namespace quorvi
