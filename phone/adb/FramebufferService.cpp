#include "phone/adb/FramebufferService.h"

#include <algorithm>
#include <utility>

namespace quorvi::phone {

FramebufferService::FramebufferService(Screen& screen, Sink& sink)
    : form_(screen.Form()), picture_(screen.Shown()), sink_(sink), waits_(form_.waits) {
    Send(picture_.header);
    if (!waits_) {
        SendPixels();
    }
}

void FramebufferService::OnBytes(std::span<const std::byte> bytes) {
    if (!bytes.empty() && std::exchange(waits_, false)) {
        SendPixels();
    }
}

void FramebufferService::SendPixels() {
    Send(picture_.pixels);
    const bool cut = form_.fault == ScreenFault::cut;
    const bool hangs = form_.fault == ScreenFault::hang;
    if (cut || (form_.ends && !hangs)) {
        sink_.Close();
    }
}

void FramebufferService::Send(const SharedBytes& bytes) {
    const bool breaks = form_.fault == ScreenFault::cut || form_.fault == ScreenFault::hang;
    const std::size_t left =
        breaks ? form_.number - std::min<std::size_t>(sent_, form_.number) : bytes->size();
    if (left >= bytes->size()) {
        sink_.Write(bytes);
        sent_ += bytes->size();
    } else {
        sink_.Write(Bytes(bytes->begin(), bytes->begin() + static_cast<std::ptrdiff_t>(left)));
        sent_ = form_.number;
    }
}

}  // namespace quorvi::phone
