// Brings the link to a phone up: find it, put the agent on it, start it, forward its port, ask its
// version.
//
//   PhoneLink link(device, face, SystemClock(), installer, AgentPort);
//   link.ConnectPhone(false);   // the face hears banners, LinkUp and, at last, LinkEnded
#pragma once

#include <memory>
#include <string_view>

#include "agent/AgentAddress.h"
#include "base/Clock.h"
#include "link/DeviceContext.h"
#include "link/LinkEnvironment.h"
#include "link/LinkFace.h"
#include "link/PackageInstaller.h"

namespace quorvi {

// An agent of a lower version is replaced. The number is the whole of the compatibility rule.
inline constexpr int kNewestAgentThreshold = 20;

inline constexpr std::string_view kAgentPackage = "com.quorvi.Quorvi";

class PhoneLink {
  public:
    // Device, face and clock outlive the process's link threads: a worker may still run when the
    // window is gone. `agent`: whose version is asked. The environment differs in tests only.
    PhoneLink(DeviceContext& device, LinkFace& face, Clock& clock, PackageInstaller installer,
              AgentAddress agent, LinkEnvironment environment = {});
    // Waits for nothing; what runs ends by itself.
    ~PhoneLink();
    PhoneLink(const PhoneLink&) = delete;
    PhoneLink& operator=(const PhoneLink&) = delete;

    // Starts the procedure on its own threads and returns at once; does nothing while a link worker
    // runs. `delay`: wait 3000 ms first, as after a USB arrival. Any thread.
    void ConnectPhone(bool delay);

  private:
    class Procedure;
    std::shared_ptr<Procedure> procedure_;
};

}  // namespace quorvi
