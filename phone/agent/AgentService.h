// One connection to the agent: takes one request, answers it as the faults allow.
#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "phone/EventLoop.h"
#include "phone/adb/Service.h"
#include "phone/agent/AgentData.h"
#include "phone/agent/Commands.h"
#include "phone/agent/Fault.h"
#include "phone/agent/RequestLog.h"

namespace quorvi::phone {

class AgentService;

// What the connections of one agent share.
struct Agent {
    explicit Agent(Handset& handset) : data(handset) {}

    AgentData data;
    FaultTable faults;
    RequestLog log;
    std::set<AgentService*> connections;

    // Lets stalled replies go on.
    void ReleaseStalled();
};

class AgentService : public Service {
  public:
    AgentService(EventLoop& loop, Agent& agent, Sink& sink);
    ~AgentService() override;

    void OnBytes(std::span<const std::byte> bytes) override;
    void OnDrained() override;
    void OnPeerClosed() override;

    void Release();

  private:
    void TryAnswer();
    void Answer(const AgentCommandRow& row, std::size_t length);
    void Refuse(std::string deviation);
    void Log();
    void Send();
    void SendPiece();
    void End();

    EventLoop& loop_;
    Agent& agent_;
    Sink& sink_;
    Bytes request_;
    LoggedRequest logged_;
    bool answered_ = false;
    bool closed_ = false;
    bool pacing_ = false;
    Delivery delivery_;
    std::size_t sent_ = 0;
    EventLoop::TimerId timer_ = 0;
};

}  // namespace quorvi::phone
