#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

#include "base/Clock.h"
#include "base/Json.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/SerialOption.h"
#include "link/DeviceContext.h"
#include "link/LinkFace.h"
#include "link/PhoneLink.h"

namespace quorvi::cli {
namespace {

// The face of the link procedure on the command line: a line for each change of the banner.
class LinkLines final : public LinkFace {
  public:
    LinkLines(DeviceContext& device, std::optional<std::string> serial, Output& output)
        : device_(device), serial_(std::move(serial)), output_(output) {}

    void ShowBanner(std::string text, BannerState state) override {
        const std::lock_guard lock(mutex_);
        if (text == text_ && state == state_) {
            return;
        }
        text_ = std::move(text);
        state_ = state;
        if (!output_.Json()) {
            output_.PrintLine(text_);
            return;
        }
        Json::Value line;
        line["state"] = static_cast<int>(state_);
        line["text"] = JsonText(text_);
        output_.PrintJsonLine(line);
    }

    void ChooseDevice(std::string_view) override {
        if (serial_) {
            device_.SetSerial(*serial_);
        } else {
            output_.Complain(Ansi(u8"有多个设备，请用 --serial 选择"));
        }
    }

    void LinkUp() override {
        const std::lock_guard lock(mutex_);
        stands_ = true;
    }

    void LinkEnded() override {
        const std::lock_guard lock(mutex_);
        ended_ = true;
        changed_.notify_all();
    }

    // Waits until the procedure has ended. True when the link stands: a green last banner alone may
    // be that of an installation behind which nothing was linked.
    bool WaitForEnd() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return ended_; });
        return stands_;
    }

  private:
    DeviceContext& device_;
    const std::optional<std::string> serial_;
    Output& output_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::string text_;
    BannerState state_ = BannerState::working;
    bool stands_ = false;
    bool ended_ = false;
};

}  // namespace

Status RunLink(const Arguments& arguments, const Context& context, Output& output) {
    std::optional<std::string> serial = arguments.Option("--serial");
    if (serial) {
        Utf8ToAnsi(*serial);
        if (const Status status = FindSerial(*serial, output); status != Status::done) {
            return status;
        }
    }
    // Never deleted: the link's threads use them until the process ends, and nobody waits for these
    // threads.
    static auto& device = *new DeviceContext;
    static auto& face = *new LinkLines(device, std::move(serial), output);
    static auto& link =
        *new PhoneLink(device, face, SystemClock(), PackageInstaller(), context.agent);
    link.ConnectPhone(false);
    return face.WaitForEnd() ? Status::done : Status::noLink;
}

}  // namespace quorvi::cli
