#include <chrono>
#include <optional>
#include <string>

#include "base/Text.h"
#include "base/os/Interrupt.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/QueueLines.h"
#include "cli/SerialOption.h"
#include "cli/Tasks.h"
#include "download/TaskQueue.h"
#include "link/PackageInstaller.h"

namespace quorvi::cli {
namespace {

// How often it is looked whether all is done, and whether another process has left something to do.
constexpr std::chrono::milliseconds kLook{50};
constexpr std::chrono::milliseconds kLookElsewhere{200};

// The phone to install on; empty, and a complaint, when it is not known.
std::string SerialOfPhone(Output& output) {
    const ChosenPhone phone = ChoosePhone();
    if (phone.choice == PhoneChoice::several) {
        output.Complain(Ansi(u8"有多个设备，请用 --serial 选择"));
    }
    return phone.serial;
}

bool HasNext(const TaskStore& store) {
    return store.NextDownloadTaskId() != kNoTask || store.NextInstallTaskId() != kNoTask;
}

}  // namespace

// What has come of a file stays when it is interrupted, and so do the states: the next run goes on
// from there.
Status RunDownloadsRun(const Arguments& arguments, const Context& context, Output& output) {
    std::optional<std::string> serial = arguments.Option("--serial");
    if (serial) {
        Utf8ToAnsi(*serial);
        if (const Status status = FindSerial(*serial, output); status != Status::done) {
            return status;
        }
    }
    const auto store = OpenTasks(context, output);
    if (store == nullptr) {
        return Status::noLink;
    }
    const Interrupt interrupt;
    QueueLines lines(output);
    const TaskQueue queue(store, PackageInstaller(),
                          [&] { return serial ? *serial : SerialOfPhone(output); });
    const Subscription heard = queue.Observe([&](const QueueEvent& event) {
        lines.Hear(event);
        interrupt.Wake();
    });
    bool closed = false;
    bool waits = false;
    queue.StartNext();
    for (;;) {
        if (interrupt.HasCome() && !closed) {
            closed = true;
            output.Complain(Ansi(u8"正在停止，再按一次 Ctrl+C 立即结束"));
            queue.Close();
        }
        if (!queue.IsIdle()) {
            interrupt.WaitFor(kLook);
        } else if (closed) {
            return Status::interrupted;
        } else if (lines.StoreFailed() || !HasNext(*store)) {
            return lines.Worst();
        } else {
            // Another process has put a row there, or is at work on one.
            queue.StartNext();
            if (queue.IsIdle() && HasNext(*store)) {
                if (!waits) {
                    output.Complain(Ansi(u8"另一个程序正在处理下载任务，等它结束后继续"));
                }
                waits = true;
                interrupt.WaitFor(kLookElsewhere);
            }
        }
    }
}

}  // namespace quorvi::cli
