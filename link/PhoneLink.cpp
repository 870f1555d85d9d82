#include "link/PhoneLink.h"

#include <atomic>
#include <chrono>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

#include "agent/AgentSession.h"
#include "base/Text.h"
#include "link/AdbCapture.h"
#include "link/AdbCommand.h"
#include "link/AdbHostClient.h"
#include "link/AdbOutput.h"
#include "link/AdbPipe.h"
#include "link/FindDevice.h"
#include "link/LinkLog.h"
#include "link/LinkText.h"

namespace quorvi {
namespace {

// The time that the adb server needs to see a phone that was just plugged in.
constexpr std::chrono::milliseconds kArrivalDelay{3000};
// The time that the agent needs to come up behind its start command.
constexpr std::chrono::milliseconds kAgentStartDelay{3000};

constexpr std::string_view kAgentActivity = ".Quorvi";

constexpr int kNoAgentConnection = -1;

}  // namespace

// Three threads meet here: who calls ConnectPhone, the link worker, and the reader of the package
// query, on which all that follows the query runs. Each holds the object, so that it lives until
// the last of them is through.
class PhoneLink::Procedure : public std::enable_shared_from_this<Procedure>,
                             private CAdbPipeListener {
  public:
    Procedure(DeviceContext& device, LinkFace& face, Clock& clock, PackageInstaller installer,
              AgentAddress agent, LinkEnvironment environment)
        : device_(device),
          face_(face),
          clock_(clock),
          installer_(std::move(installer)),
          agent_(agent),
          environment_(std::move(environment)) {}

    void ConnectPhone(bool delay);

  private:
    // Counts what of the procedure still runs; the last to end tells the face.
    void Enter() { ++running_; }
    void Leave() {
        if (--running_ == 0) {
            face_.LinkEnded();
        }
    }

    void ShowFailure(FindDeviceResult result) {
        face_.ShowBanner(BannerText(result), BannerState::error);
    }
    void RunWorker(bool delay);
    // CheckAgentPackage in its two halves: whether the query is this worker's to start, and its
    // start.
    [[nodiscard]] bool TakesQuery();
    void StartQuery();
    void OnOutput(std::string_view text, AdbOutputKind kind) override;
    void EndQuery();

    // Of the rest of the procedure: whether the one retry is due.
    enum class Next { nothing, retry };
    [[nodiscard]] Next OnPackageList(std::string_view text);
    [[nodiscard]] Next LinkAgent();
    [[nodiscard]] int AgentVersion() const;
    [[nodiscard]] Next InstallAgent(bool upgrade);

    DeviceContext& device_;
    LinkFace& face_;
    Clock& clock_;
    const PackageInstaller installer_;
    const AgentAddress agent_;
    const LinkEnvironment environment_;

    std::atomic<int> running_{0};
    std::atomic<bool> workerRunning_{false};
    std::atomic<bool> queryRunning_{false};
    std::string queryText_;            // of the one query that runs
    std::shared_ptr<Procedure> held_;  // by the query that runs
    CAdbPipe pipe_{*this};
};

void PhoneLink::Procedure::ConnectPhone(bool delay) {
    if (workerRunning_.exchange(true)) {
        return;
    }
    Enter();
    face_.ShowBanner(Ansi(u8"连接设备中..."), BannerState::working);
    try {
        std::thread([self = shared_from_this(), delay] { self->RunWorker(delay); }).detach();
    } catch (const std::system_error&) {
        workerRunning_ = false;
        ShowFailure(FindDeviceResult::noPipe);
        Leave();
    }
}

void PhoneLink::Procedure::RunWorker(bool delay) {
    if (delay) {
        clock_.SleepFor(kArrivalDelay);
    }
    const bool takesQuery = TakesQuery();
    // The flag falls before the query starts. If it fell after, a worker that is slow to get there
    // would still count as running when the query's reader retries, and the retry would do nothing.
    workerRunning_ = false;
    if (takesQuery) {
        StartQuery();
    }
    Leave();
}

bool PhoneLink::Procedure::TakesQuery() {
    const auto start = std::chrono::steady_clock::now();
    const FindDeviceResult found = FindDevice(
        device_, [this](std::string_view title) { face_.ChooseDevice(title); }, environment_);
    LogSearch(found, start);
    face_.Searched(found);
    if (found != FindDeviceResult::found) {
        ShowFailure(found);
        return false;
    }
    return !queryRunning_.exchange(true);
}

void PhoneLink::Procedure::StartQuery() {
    Enter();
    pipe_.Stop();
    queryText_.clear();
    held_ = shared_from_this();
    if (!pipe_.Start(PackageListCommand(environment_, device_.Serial()))) {
        held_.reset();
        ShowFailure(FindDeviceResult::noAdb);
        EndQuery();
    }
}

void PhoneLink::Procedure::EndQuery() {
    queryRunning_ = false;
    Leave();
}

void PhoneLink::Procedure::OnOutput(std::string_view text, AdbOutputKind kind) {
    if (kind == AdbOutputKind::data) {
        queryText_.append(text);
        return;
    }
    const std::shared_ptr<Procedure> self = std::move(held_);
    if (kind == AdbOutputKind::failed) {
        EndQuery();
        return;
    }
    const Next next = OnPackageList(queryText_);
    // The flag falls before the retry starts, so that the retry's own query finds it down.
    queryRunning_ = false;
    if (next == Next::retry) {
        ConnectPhone(false);
    }
    Leave();
}

PhoneLink::Procedure::Next PhoneLink::Procedure::OnPackageList(std::string_view text) {
    if (!HoldsPackage(text, kAgentPackage)) {
        return InstallAgent(false);
    }
    // Nobody looks whether the start works: if it does not, the agent does not answer later.
    LaunchAdb(StartActivityCommand(environment_, device_.Serial(), kAgentPackage, kAgentActivity));
    return LinkAgent();
}

PhoneLink::Procedure::Next PhoneLink::Procedure::LinkAgent() {
    const bool stands = AdbHostClient(environment_.hostPort)
                            .ForwardAgentPort(device_.Serial(), [this](ForwardEvent event) {
                                if (event != ForwardEvent::standing) {
                                    face_.ShowBanner(BannerText(event), BannerState::error);
                                }
                            });
    LogForward(stands);
    if (!stands) {
        return Next::nothing;
    }
    clock_.SleepFor(kAgentStartDelay);
    const int version = AgentVersion();
    LogAgent(version, version >= kNewestAgentThreshold);
    if (version < 1) {
        face_.ShowBanner(Ansi(u8"【错误】连接手机端失败"), BannerState::error);
        return Next::nothing;
    }
    if (version < kNewestAgentThreshold) {
        return InstallAgent(true);
    }
    face_.ShowBanner(Ansi(u8"连接成功:)"), BannerState::success);
    face_.LinkUp();
    return Next::nothing;
}

// The version; -1 if the connection failed, 0 if it was closed with no reply.
int PhoneLink::Procedure::AgentVersion() const {
    const AcknowledgedReply reply =
        AgentSession(agent_).RunAcknowledged(BareRequest(AgentCommand::agentVersion));
    return reply.outcome == SessionOutcome::connectFailed ? kNoAgentConnection
                                                          : static_cast<int>(reply.word);
}

// Installs the agent over what is there. `upgrade` chooses the text only.
PhoneLink::Procedure::Next PhoneLink::Procedure::InstallAgent(bool upgrade) {
    face_.ShowBanner(Ansi(upgrade ? u8"【提示】正在升级手机端..." : u8"【提示】正在安装手机端..."),
                     BannerState::working);
    const InstallResult result = installer_.Install({device_.Serial(), environment_.packageFile},
                                                    PackageInstaller::Debug::command);
    face_.ShowBanner(BannerText(result),
                     result == InstallResult::success ? BannerState::success : BannerState::error);
    return device_.UseInstallRetry() ? Next::retry : Next::nothing;
}

PhoneLink::PhoneLink(DeviceContext& device, LinkFace& face, Clock& clock,
                     PackageInstaller installer, AgentAddress agent, LinkEnvironment environment)
    : procedure_(std::make_shared<Procedure>(device, face, clock, std::move(installer), agent,
                                             std::move(environment))) {}

PhoneLink::~PhoneLink() = default;

void PhoneLink::ConnectPhone(bool delay) {
    procedure_->ConnectPhone(delay);
}

}  // namespace quorvi
