#include "pages/screen/ScreenFrame.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <utility>

namespace quorvi {
namespace {

// The memory that waits for the next frame.
class Spare {
  public:
    [[nodiscard]] MappedMemory Take(std::size_t size) {
        const std::lock_guard lock(mutex_);
        if (memory_.Bytes().size() != size) {
            return {};
        }
        return std::move(memory_);
    }
    void Keep(MappedMemory memory) {
        const std::lock_guard lock(mutex_);
        memory_ = std::move(memory);
    }

  private:
    std::mutex mutex_;
    MappedMemory memory_;
};

// Never deleted: a frame may go when the process ends.
Spare& TheSpare() {
    static auto& spare = *new Spare;
    return spare;
}

}  // namespace

FrameBytes::FrameBytes(std::uint32_t size) : memory_(TheSpare().Take(size)) {
    if (memory_.Empty()) {
        memory_ = MappedMemory::Zeroed(size);
    }
}

FrameBytes::~FrameBytes() {
    if (!memory_.Empty() && received_ == Size()) {
        TheSpare().Keep(std::move(memory_));
    }
}

bool FrameBytes::SwapRedBlue() {
    constexpr std::size_t kStep = 4;
    if (received_ % kStep != 0) {
        return false;
    }
    std::byte* const bytes = memory_.Writable().data();
    for (std::size_t at = 0; at < received_; at += kStep) {
        // A whole pixel at a time, which compilers make eight at a time of. The exchanged bytes are
        // the outer and the middle one of three, in either order of a word's bytes.
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, bytes + at, kStep);
        if constexpr (std::endian::native == std::endian::little) {
            pixel = (pixel & 0xFF00FF00U) | (pixel >> 16 & 0xFFU) | (pixel & 0xFFU) << 16;
        } else {
            pixel = (pixel & 0x00FF00FFU) | (pixel >> 16 & 0xFF00U) | (pixel & 0xFF00U) << 16;
        }
        std::memcpy(bytes + at, &pixel, kStep);
    }
    return true;
}

}  // namespace quorvi
