// One picture of the phone's screen, as its pixels came.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "base/os/MappedMemory.h"
#include "pages/screen/FrameHeader.h"

namespace quorvi {

// The bytes of a frame. The memory grows with those that arrive, not with the size that the phone
// claims. Who shows or saves the picture shares it: see ScreenFrame.
//
// The memory of one whole frame that has gone is kept for the next of its size: a screen is read
// again and again, and having memory mapped anew takes longer than reading the pixels. Any thread.
class FrameBytes {
  public:
    // Room for `size` bytes, of which none has come. Not valid (Size() 0) where the address space
    // cannot hold them.
    explicit FrameBytes(std::uint32_t size);
    ~FrameBytes();
    FrameBytes(const FrameBytes&) = delete;
    FrameBytes& operator=(const FrameBytes&) = delete;

    [[nodiscard]] std::size_t Size() const { return memory_.Bytes().size(); }
    [[nodiscard]] std::size_t Received() const { return received_; }
    [[nodiscard]] std::span<const std::byte> Bytes() const { return memory_.Bytes(); }

    // Room behind what has been received; Commit counts bytes written there.
    [[nodiscard]] std::span<std::byte> Room() { return memory_.Writable().subspan(received_); }
    void Commit(std::size_t count) { received_ += count; }

    // Exchanges bytes 0 and 2 of every four that have been received. False, with nothing changed,
    // where their count is no multiple of 4.
    [[nodiscard]] bool SwapRedBlue();

  private:
    MappedMemory memory_;
    std::size_t received_ = 0;
};

// The picture: a value whose copies share the bytes, which are whole and never change. Any thread.
struct ScreenFrame {
    int width = 0;  // pixels
    int height = 0;
    PixelLayout layout = PixelLayout::bgrx32;
    std::shared_ptr<const FrameBytes> bytes;  // Stride() * height of them

    // Bytes from one line to the next.
    [[nodiscard]] std::size_t Stride() const {
        return std::size_t{BytesPerPixel(layout)} * static_cast<std::size_t>(width);
    }
    // The bytes of a line, from 0 at the top.
    [[nodiscard]] std::span<const std::byte> Line(int y) const {
        return bytes->Bytes().subspan(static_cast<std::size_t>(y) * Stride(), Stride());
    }
};

}  // namespace quorvi
