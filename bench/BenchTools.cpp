// What the pages of the task manager and of the cleaner cost with 5,000 rows that have icons of
// 10 KB, beside a bare recv loop over the same bytes: the time until the rows are painted, and how
// long the window's thread is away meanwhile. Ends with status 1 when a page costs more than it
// may. On a busy machine `chrt --rr 1` in front gives figures as of a quiet one.
#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QImage>
#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/AgentProcess.h"
#include "bench/BareReceive.h"
#include "bench/Verdict.h"
#include "bench/WindowTurns.h"
#include "pages/cleaner/CleanerPage.h"
#include "pages/tasks/TaskPage.h"
#include "tests/pages/cleaner/CleanReplies.h"
#include "tests/pages/tasks/TaskReplies.h"
#include "tests/support/FakeHost.h"
#include "tests/support/TestServices.h"

namespace quorvi {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRows = 5'000;
constexpr std::size_t kIconBytes = 10'000;
constexpr int kRepetitions = 9;
constexpr double kMostTime = 1.5;  // times that of the bare loop
constexpr double kMostMore = 300;  // milliseconds on top of that
constexpr double kMostAway = 50;   // milliseconds of the window's thread
constexpr QSize kPageSize(760, 462);
constexpr std::chrono::milliseconds kSettle{200};

// A PNG that fills the icon's bytes, no two neighbours alike.
std::string Icon(int index) {
    QImage image(48, 48, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(index * 7 % 360, 160, 200));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    std::string icon = bytes.toStdString();
    icon.resize(kIconBytes, '\0');
    return icon;
}

Bytes Processes() {
    std::vector<ListedProcess> processes;
    for (int i = 0; i < kRows; ++i) {
        const auto n = static_cast<std::uint32_t>(i);
        processes.push_back({.memory = 4'096ULL * (n % 9'000 + 1),
                             .cpu = n % 12,
                             .pid = 1'000 + n,
                             .system = n % 3,
                             .name = "应用 " + std::to_string(i),
                             .package = "com.example.n" + std::to_string(i),
                             .icon = Icon(i)});
    }
    return ProcessesPayload(processes).Get();
}

Bytes Caches() {
    std::vector<ListedCache> caches;
    for (int i = 0; i < kRows; ++i) {
        caches.push_back({.bytes = 4'096ULL * static_cast<std::uint64_t>(i % 9'000 + 1),
                          .name = "应用 " + std::to_string(i),
                          .package = "com.example.n" + std::to_string(i),
                          .icon = Icon(i)});
    }
    return CachesPayload(caches).Get();
}

const AgentProcess* agent = nullptr;

AgentProcess::Answer Replies() {
    return AnswerPayloads(
        {{AgentCommand::listProcesses, Processes()}, {AgentCommand::scanForCleaning, Caches()}});
}

template <AgentCommand kCommand>
void BareLoop(benchmark::State& state) {
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        BareReceive(agent->Port(), kCommand);
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
}

// From the press of the refresh button until the rows are painted.
template <typename P, typename List>
void Load(benchmark::State& state) {
    for (auto _ : state) {
        FakeHost host;
        TestServices services;
        P page(host, services.At(agent->Port()));
        page.resize(kPageSize);
        page.show();
        RunWindowFor(kSettle);
        auto& list = *page.template findChild<List*>();
        const Clock::time_point start = Clock::now();
        const Absence filling = RunWindowUntil(
            [&] { return list.RowCount() >= kRows && list.Redraw(); }, [&] { page.Load(); });
        list.viewport()->repaint();
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
        const Absence after = RunWindowFor(kSettle);
        const Absence& longest = after.longest > filling.longest ? after : filling;
        state.counters["away"] = longest.longest;
        state.counters["computed"] = longest.computed;
    }
}

void Judge(const Figures& figures, Verdict& verdict) {
    const auto beside = [&](const char* page, const char* bare, const std::string& what) {
        const double loop = figures.Time(bare);
        verdict.AtMost((what + " on the screen, ms").c_str(), figures.Time(page),
                       kMostTime * loop + kMostMore);
        Verdict::Tell("  the bare loop, ms", loop);
        verdict.AtMost((what + ": away, ms").c_str(), figures.Counter(page, "away"), kMostAway);
        Verdict::Tell("  of it computing", figures.Counter(page, "computed"));
    };
    beside("TaskPage", "BareProcesses", "5,000 processes");
    beside("CleanerPage", "BareCaches", "5,000 caches");
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    using namespace quorvi;
    const AgentProcess process(&Replies);
    agent = &process;
    const auto application = MakeApplication(count, words);
    RegisterTimed("BareProcesses", &BareLoop<AgentCommand::listProcesses>);
    RegisterTimed("TaskPage", &Load<CTaskPage, TaskListCtrl>);
    RegisterTimed("BareCaches", &BareLoop<AgentCommand::scanForCleaning>);
    RegisterTimed("CleanerPage", &Load<CCleanerPage, CleanListCtrl>);
    return RunAndJudge(count, words, kRepetitions, Judge);
}
