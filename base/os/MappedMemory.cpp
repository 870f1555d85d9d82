#include "base/os/MappedMemory.h"

#include <sys/mman.h>

namespace quorvi {
namespace {

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
    return MappedMemory(
        Map(length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1));
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
