// Brings the link to a phone up: find it, put the agent on it, start it, forward its port, ask its
// version.
#pragma once

#include <memory>

#include "base/Clock.h"
#include "link/DeviceContext.h"
#include "link/LinkFace.h"

namespace quorvi {

class PhoneLink {
  public:
    // All three outlive the process's link threads: a worker may still run when the window is gone.
    PhoneLink(DeviceContext& device, LinkFace& face, Clock& clock);
    ~PhoneLink();

    // Starts the procedure on its own threads and returns at once; does nothing while a link worker
    // runs. `delay`: wait 3000 ms first, as after a USB arrival. Any thread.
    void ConnectPhone(bool delay);

  private:
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace quorvi
