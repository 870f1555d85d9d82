// "framebuffer:": one picture of the screen.
#pragma once

#include "phone/Screen.h"
#include "phone/adb/Service.h"

namespace quorvi::phone {

class FramebufferService : public Service {
  public:
    // The picture goes out at once: a phone of that time does not wait for the byte with which
    // some clients ask for the pixels. The client ends the stream, so that its byte never meets a
    // closed one.
    FramebufferService(const Profile& profile, Sink& sink) { sink.Write(DrawFramebuffer(profile)); }
    void OnBytes(std::span<const std::byte>) override {}
};

}  // namespace quorvi::phone
