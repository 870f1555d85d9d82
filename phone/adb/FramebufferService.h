// "framebuffer:": one picture of the screen.
#pragma once

#include "phone/Screen.h"
#include "phone/adb/Service.h"

namespace quorvi::phone {

class FramebufferService : public Service {
  public:
    // The header goes out at once, and with it the pixels, unless the screen's form has them wait
    // for the byte with which clients ask for them. A phone whose form does not end the stream
    // leaves that to the client, so that its byte never meets a closed one.
    FramebufferService(Screen& screen, Sink& sink);
    void OnBytes(std::span<const std::byte> bytes) override;

  private:
    // All that is still to be sent, up to the end that the form lays down.
    void SendPixels();
    // The part of a piece that stands before the byte at which a fault breaks off.
    void Send(const SharedBytes& bytes);

    ScreenForm form_;
    ScreenPicture picture_;
    Sink& sink_;
    std::size_t sent_ = 0;
    bool waits_ = false;
};

}  // namespace quorvi::phone
