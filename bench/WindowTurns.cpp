#include "bench/WindowTurns.h"

#include <QEventLoop>
#include <QStandardPaths>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "ui/kit/ApplyLook.h"

namespace quorvi {
namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr std::chrono::milliseconds kBeat{1};
constexpr std::chrono::minutes kPatience{1};

double ThreadMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

// Takes the time between two turns of the thread's events.
class Beats {
  public:
    void Beat() {
        const Clock::time_point now = Clock::now();
        const double computed = ThreadMilliseconds();
        const double away = Milliseconds(now - last_).count();
        if (away > absence_.longest) {
            absence_ = {away, computed - lastComputed_};
        }
        last_ = now;
        lastComputed_ = computed;
    }
    [[nodiscard]] Absence Longest() const { return absence_; }

  private:
    Clock::time_point last_ = Clock::now();
    double lastComputed_ = ThreadMilliseconds();
    Absence absence_;
};

}  // namespace

std::unique_ptr<QApplication> MakeApplication(int& count, char** words) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QStandardPaths::setTestModeEnabled(true);
    auto application = std::make_unique<QApplication>(count, words);
    ApplyLook(*application);
    return application;
}

Absence RunWindowUntil(const std::function<bool()>& met, const std::function<void()>& what) {
    const Clock::time_point end = Clock::now() + kPatience;
    Beats beats;
    if (what) {
        what();
    }
    QEventLoop loop;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        beats.Beat();
        if (met()) {
            loop.quit();
        } else if (Clock::now() > end) {
            std::fprintf(stderr, "what the window was to come to did not come\n");
            std::_Exit(1);
        }
    });
    timer.start(kBeat);
    loop.exec();
    return beats.Longest();
}

Absence RunWindowFor(std::chrono::milliseconds time, const std::function<void()>& what) {
    const Clock::time_point end = Clock::now() + time;
    return RunWindowUntil([end] { return Clock::now() >= end; }, what);
}

}  // namespace quorvi
