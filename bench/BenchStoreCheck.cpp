// What the site's answers to a list of 1,000 applications cost: from the end of their parse on the
// worker until the rows that they change are painted again. Ends with status 1 when it is more than
// it may be.
#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>
#include <string>
#include <utility>

#include "bench/Verdict.h"
#include "bench/WindowTurns.h"
#include "pages/apps/AppListCtrl.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRows = 1'000;
constexpr int kRepetitions = 15;
constexpr double kMostMilliseconds = 50;
constexpr QSize kListSize(760, 426);

AppList Applications() {
    AppList list;
    for (int i = 0; i < kRows; ++i) {
        AppRecord& row = list.rows.emplace_back();
        row.name = "app " + std::to_string(i);
        row.package = "com.example.n" + std::to_string(i);
        row.version = "1." + std::to_string(i);
    }
    return list;
}

// The site's reply.
std::string Reply() {
    std::string reply = "[";
    for (int i = 0; i < kRows; ++i) {
        const std::string number = std::to_string(i);
        reply.append(i == 0 ? "" : ",")
            .append(R"({"pkg":"com.example.n)" + number + R"(","level":")")
            .append(std::to_string(i % 6) + R"(","id":")" + number)
            .append(R"(","category":"工具","description":"离线英汉双解，带真人发音"})");
    }
    return reply + "]";
}

struct Parsed {
    StoreAnswers answers;
    Clock::time_point at;
};

void Repaint(benchmark::State& state) {
    AppListCtrl list;
    list.resize(kListSize);
    list.show();
    const std::string reply = Reply();
    for (auto _ : state) {
        list.Show(Applications());
        list.viewport()->repaint();
        bool painted = false;
        std::chrono::duration<double> took{};
        RunWindowUntil([&] { return painted; },
                       [&] {
                           RunJob(
                               &list,
                               [&reply] {
                                   Parsed parsed{ParseStoreAnswers(reply), {}};
                                   parsed.at = Clock::now();
                                   return parsed;
                               },
                               [&](Parsed&& parsed) {
                                   list.Merge(parsed.answers);
                                   list.viewport()->repaint();
                                   took = Clock::now() - parsed.at;
                                   painted = true;
                               });
                       });
        if (list.At(kRows - 1).store.storeId != kRows - 1) {
            state.SkipWithError("the answers did not come into the rows");
            return;
        }
        state.SetIterationTime(took.count());
    }
}

BENCHMARK(Repaint)->UseManualTime()->Unit(benchmark::kMillisecond);

void Judge(const Figures& figures, Verdict& verdict) {
    verdict.AtMost("1,000 answers, from the parse to the repaint, ms", figures.Time("Repaint"),
                   kMostMilliseconds);
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    const auto application = quorvi::MakeApplication(count, words);
    return quorvi::RunAndJudge(count, words, quorvi::kRepetitions, quorvi::Judge);
}
