#include "phone/agent/AgentService.h"

#include <fmt/format.h>

#include <algorithm>

#include "agent/Wire.h"
#include "base/Hex.h"
#include "phone/agent/Frame.h"

namespace quorvi::phone {
namespace {

// Bytes of a request that the log shows.
constexpr std::size_t kLoggedBytes = 512;

std::string Hex(std::span<const std::byte> bytes) {
    const std::string text = HexOf(bytes.first(std::min(bytes.size(), kLoggedBytes)));
    return bytes.size() > kLoggedBytes ? text + "..." : text;
}

}  // namespace

void Agent::ReleaseStalled() {
    for (AgentService* connection : connections) {
        connection->Release();
    }
}

AgentService::AgentService(EventLoop& loop, Agent& agent, Sink& sink)
    : loop_(loop), agent_(agent), sink_(sink) {
    agent_.connections.insert(this);
}

AgentService::~AgentService() {
    loop_.Cancel(timer_);
    agent_.connections.erase(this);
}

void AgentService::OnBytes(std::span<const std::byte> bytes) {
    if (answered_) {
        logged_ = {0, "unasked", bytes.size(), Hex(bytes), {}, {"bytes behind the one request"}};
        agent_.log.Add(std::move(logged_));
        return;
    }
    request_.insert(request_.end(), bytes.begin(), bytes.end());
    TryAnswer();
}

void AgentService::TryAnswer() {
    if (request_.size() < sizeof(std::uint32_t)) {
        return;
    }
    logged_.code = ReadUInt32(request_.data());
    const AgentCommandRow* row = FindCommand(logged_.code);
    if (!row) {
        logged_.name = "unknown";
        Refuse("no command has this code");
        return;
    }
    logged_.name = row->name;
    const auto length = LengthOf(row->form, request_);
    if (!length) {
        return;
    }
    if (!length->deviation.empty()) {
        Refuse(length->deviation);
    } else if (request_.size() >= length->bytes) {
        Answer(*row, length->bytes);
    }
}

void AgentService::Answer(const AgentCommandRow& row, std::size_t length) {
    answered_ = true;
    Outcome outcome = RunCommand(row, agent_.data, std::span(request_).first(length));
    logged_.note = std::move(outcome.note);
    logged_.deviations = std::move(outcome.deviations);
    if (request_.size() > length) {
        logged_.deviations.push_back(
            fmt::format("{} bytes behind the frame of {}", request_.size() - length, length));
    }
    const auto fault = agent_.faults.Meet(logged_.code);
    if (fault) {
        logged_.note += (logged_.note.empty() ? "" : ", ") + ("fault " + Describe(*fault));
    }
    Log();
    delivery_ = Deliver(std::move(outcome.reply), fault);
    if (delivery_.delay.count() > 0) {
        timer_ = loop_.After(delivery_.delay, [this] { Send(); });
    } else {
        Send();
    }
}

void AgentService::Refuse(std::string deviation) {
    answered_ = true;
    logged_.deviations.push_back(std::move(deviation));
    Log();
    sink_.Close();
}

void AgentService::Log() {
    logged_.bytes = request_.size();
    logged_.hex = Hex(request_);
    agent_.log.Add(std::move(logged_));
    logged_ = {};
    request_ = {};
}

void AgentService::Send() {
    if (delivery_.bytes.empty()) {
        End();
    } else if (delivery_.pieceBytes > 0) {
        SendPiece();
    } else {
        sink_.Write(Share(std::move(delivery_.bytes)));
    }
}

void AgentService::SendPiece() {
    const auto first = delivery_.bytes.begin() + static_cast<std::ptrdiff_t>(sent_);
    const std::size_t count = std::min(delivery_.pieceBytes, delivery_.bytes.size() - sent_);
    sent_ += count;
    pacing_ = sent_ < delivery_.bytes.size();
    if (pacing_) {
        timer_ = loop_.After(delivery_.pace, [this] { SendPiece(); });
    }
    sink_.Write(Bytes(first, first + static_cast<std::ptrdiff_t>(count)));
}

void AgentService::OnDrained() {
    if (answered_ && !pacing_) {
        End();
    }
}

void AgentService::End() {
    switch (delivery_.ending) {
        case Ending::keepOpen:
            break;  // the client closes it
        case Ending::close:
            sink_.Close();
            break;
        case Ending::reset:
            sink_.Abort();
            break;
        case Ending::unplug:
            sink_.DropTransport();
            break;
    }
}

void AgentService::Release() {
    if (!closed_ && !delivery_.held.empty()) {
        sink_.Write(Share(std::move(delivery_.held)));
        delivery_.held = {};
    }
}

void AgentService::OnPeerClosed() {
    closed_ = true;
    loop_.Cancel(timer_);
    if (!answered_) {
        logged_.name = logged_.name.empty() ? "none" : logged_.name;
        logged_.deviations.push_back(
            request_.empty()
                ? "closed without a request"
                : fmt::format("closed after {} bytes of the request", request_.size()));
        answered_ = true;
        Log();
    }
}

}  // namespace quorvi::phone
