// An open file descriptor, closed with the object.
#pragma once

#include <unistd.h>

#include <utility>

namespace quorvi {

class FileDescriptor {
  public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
    ~FileDescriptor() { Close(); }
    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor_(std::exchange(other.descriptor_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        if (this != &other) {
            Close();
            descriptor_ = std::exchange(other.descriptor_, -1);
        }
        return *this;
    }

    [[nodiscard]] bool IsOpen() const { return descriptor_ >= 0; }
    [[nodiscard]] int Get() const { return descriptor_; }

    // Gives it away, open.
    [[nodiscard]] int Release() { return std::exchange(descriptor_, -1); }
    void Close() {
        if (IsOpen()) {
            close(Release());
        }
    }

  private:
    int descriptor_ = -1;
};

}  // namespace quorvi
