// What the auto-start page costs with 20,000 records: beside a bare recv loop over the same bytes,
// in time until the tree is painted, and in how long the window's thread is away from its events
// while the tree is filled, unfolded, scrolled, folded and filled again. Ends with status 1 when it
// costs more than it may. On a busy machine `chrt --rr 1` in front gives figures as of a quiet one.
#include <benchmark/benchmark.h>

#include <QScrollBar>
#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

#include "agent/StartEvents.h"
#include "bench/AgentProcess.h"
#include "bench/BareReceive.h"
#include "bench/Verdict.h"
#include "bench/WindowTurns.h"
#include "pages/autostart/AutoStartPage.h"
#include "tests/pages/autostart/AutoStartReplies.h"
#include "tests/support/FakeHost.h"
#include "tests/support/TestServices.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/SkinTree.h"

namespace quorvi {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::uint32_t kRecords = 20'000;
constexpr int kRepetitions = 9;
constexpr int kTree = 1184;
constexpr QSize kPageSize(760, 462);
constexpr milliseconds kSettle{200};

constexpr double kMostTimesBare = 1.5;  // of the bare loop, and on top of it
constexpr double kMostOnTop = 300;      // milliseconds
constexpr double kMostAway = 50;        // milliseconds, of the window's thread

const AgentProcess* agent = nullptr;

AgentProcess::Answer Replies() {
    std::vector<ListedStart> starts;
    for (std::uint32_t i = 0; i < kRecords; ++i) {
        // Neighbours in the reply belong to events far apart.
        starts.push_back({.event = static_cast<std::uint32_t>(i * 53ULL % kStartEvents),
                          .name = "应用 " + std::to_string(i + 1),
                          .package = "com.example.made.up.n" + std::to_string(i + 1)});
    }
    return AnswerPayloads({{AgentCommand::listAutoStart, AutoStartPayload(starts).Get()}});
}

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void Note(benchmark::State& state, const std::string& what, const Absence& absence) {
    state.counters[what + "_away"] = absence.longest;
    state.counters[what + "_computed"] = absence.computed;
}

void BareLoop(benchmark::State& state) {
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        BareReceive(agent->Port(), AgentCommand::listAutoStart);
        state.SetIterationTime(SecondsSince(start));
    }
}

void AutoStartPage(benchmark::State& state) {
    for (auto _ : state) {
        FakeHost host;
        TestServices services;
        CAutoStartPage page(host, services.At(agent->Port()));
        page.resize(kPageSize);
        page.show();
        RunWindowFor(kSettle);
        auto& tree = *FindControl<SkinTreeView>(&page, kTree);
        const auto stands = [&] {
            return tree.Redraw() && tree.model()->rowCount() == static_cast<int>(kStartEvents);
        };
        const Clock::time_point start = Clock::now();
        Note(state, "fill", RunWindowUntil(stands, [&] { page.Load(); }));
        tree.viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
        Note(state, "settle", RunWindowFor(kSettle));
        Note(state, "unfold", RunWindowFor(kSettle, [&] { page.ExpandAll(); }));
        Note(state, "scroll", RunWindowFor(kSettle, [&] {
                 tree.verticalScrollBar()->setValue(tree.verticalScrollBar()->maximum());
             }));
        Note(state, "fold", RunWindowFor(kSettle, [&] { page.CollapseAll(); }));
        page.ExpandAll();
        RunWindowFor(kSettle);
        Note(state, "refill", RunWindowUntil(stands, [&] { page.Load(); }));
    }
}

void Judge(const Figures& figures, Verdict& verdict) {
    const double bare = figures.Time("BareLoop");
    const double page = figures.Time("AutoStartPage");
    Verdict::Tell("bare loop, ms", bare);
    verdict.AtMost("20,000 records on the screen, ms", page, kMostTimesBare * bare + kMostOnTop);
    for (const std::string what : {"fill", "settle", "unfold", "scroll", "fold", "refill"}) {
        verdict.AtMost((what + ": away, ms").c_str(),
                       figures.Counter("AutoStartPage", what + "_away"), kMostAway);
        Verdict::Tell("  of it computing", figures.Counter("AutoStartPage", what + "_computed"));
    }
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    const quorvi::AgentProcess agent(quorvi::Replies);
    quorvi::agent = &agent;
    const auto application = quorvi::MakeApplication(count, words);
    quorvi::RegisterTimed("BareLoop", quorvi::BareLoop);
    quorvi::RegisterTimed("AutoStartPage", quorvi::AutoStartPage);
    return quorvi::RunAndJudge(count, words, quorvi::kRepetitions, quorvi::Judge);
}
