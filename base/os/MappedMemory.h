// Memory that the system maps, given back with the object.
#pragma once

#include <cstddef>
#include <span>
#include <utility>

#include "base/os/FileDescriptor.h"

namespace quorvi {

class MappedMemory {
  public:
    MappedMemory() = default;
    // `length` bytes of zero, which take no memory until something is written to them, and then
    // that of the page (up to 2 MB) in which it stands. Empty when the address space cannot hold
    // them.
    [[nodiscard]] static MappedMemory Zeroed(std::size_t length);
    // The first `length` bytes of a file, for reading only. The file may be closed and deleted
    // meanwhile, but whoever cuts it shorter makes reading fault. Empty when it cannot be mapped.
    [[nodiscard]] static MappedMemory OfFile(const FileDescriptor& file, std::size_t length);

    ~MappedMemory() { Unmap(); }
    MappedMemory(MappedMemory&& other) noexcept : bytes_(std::exchange(other.bytes_, {})) {}
    MappedMemory& operator=(MappedMemory&& other) noexcept {
        if (this != &other) {
            Unmap();
            bytes_ = std::exchange(other.bytes_, {});
        }
        return *this;
    }

    [[nodiscard]] bool Empty() const { return bytes_.empty(); }
    [[nodiscard]] std::span<const std::byte> Bytes() const { return bytes_; }
    // Of zeroed memory only.
    [[nodiscard]] std::span<std::byte> Writable() { return bytes_; }

  private:
    explicit MappedMemory(std::span<std::byte> bytes) : bytes_(bytes) {}
    void Unmap();

    std::span<std::byte> bytes_;
};

}  // namespace quorvi
