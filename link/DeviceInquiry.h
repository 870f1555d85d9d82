// Asks one phone after another for its properties, for a list that fills row by row.
#pragma once

#include <functional>
#include <mutex>
#include <string>

#include "link/AdbPipe.h"
#include "link/DeviceList.h"
#include "link/LinkEnvironment.h"

namespace quorvi {

class DeviceInquiry : private CAdbPipeListener {
  public:
    // Hears each phone's row, on the reader's thread. `round` is what Ask was given.
    using Answer = std::function<void(int round, DeviceRow row)>;

    DeviceInquiry(LinkEnvironment environment, Answer answer);

    // Stops any earlier question and asks this phone; false if adb could not be started. What it
    // answers, nothing included, makes a row when adb has ended. Waits for the earlier question's
    // end: on a worker. Calls from several threads wait for one another.
    bool Ask(int round, std::string serial);

  private:
    void OnOutput(std::string_view text, AdbOutputKind kind) override;

    const LinkEnvironment environment_;
    const Answer answer_;
    std::mutex asking_;
    // The round of the question that runs; changed only while none runs.
    int round_ = 0;
    std::string serial_;
    std::string getprop_;
    CAdbPipe pipe_{*this};
};

}  // namespace quorvi
