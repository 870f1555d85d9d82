// What the list of 1,000 applications with icons of 20 KB costs, from the connect to its rows,
// beside a bare recv loop over the same bytes. Ends with status 1 when it costs more than it may.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

#include "agent/AgentSession.h"
#include "bench/AgentProcess.h"
#include "bench/BareReceive.h"
#include "bench/Verdict.h"
#include "pages/apps/AppList.h"
#include "tests/pages/apps/AppReplies.h"

namespace quorvi {
namespace {

constexpr std::size_t kRows = 1'000;
constexpr std::size_t kIconBytes = 20'000;
constexpr int kRepetitions = 15;
constexpr double kMostTime = 1.5;  // times that of the bare loop

Bytes Applications() {
    std::vector<ListedApp> apps;
    for (std::size_t i = 0; i < kRows; ++i) {
        apps.push_back({.name = "应用 " + std::to_string(i),
                        .package = "com.example.n" + std::to_string(i),
                        .size = 4'096 * (i % 9'000 + 1),
                        .icon = std::string(kIconBytes, static_cast<char>(i)),
                        .installed = 1'320'000'000'000 + i * 60'000});
    }
    return AppsPayload(apps).Get();
}

const AgentProcess* agent = nullptr;

AgentProcess::Answer Replies() {
    return AnswerPayloads({{AgentCommand::listApplications, Applications()}});
}

void BareLoop(benchmark::State& state) {
    for (auto _ : state) {
        BareReceive(agent->Port(), AgentCommand::listApplications);
    }
}

void Rows(benchmark::State& state) {
    for (auto _ : state) {
        const AppListReply reply = FetchAppList(AgentSession(agent->Port()));
        if (reply.list.rows.size() != kRows) {
            state.SkipWithError("the list did not come whole");
            return;
        }
    }
}

BENCHMARK(BareLoop)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Rows)->UseRealTime()->Unit(benchmark::kMillisecond);

void Judge(const Figures& figures, Verdict& verdict) {
    const double bare = figures.Time("BareLoop");
    Verdict::Tell("1,000 applications, the bare loop, ms", bare);
    verdict.AtMost("1,000 applications, rows / bare loop", figures.Time("Rows") / bare, kMostTime);
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    const quorvi::AgentProcess agent(quorvi::Replies);
    quorvi::agent = &agent;
    return quorvi::RunAndJudge(count, words, quorvi::kRepetitions, quorvi::Judge);
}
