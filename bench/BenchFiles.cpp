// What the file page costs with 10,000 files in a folder: beside a bare recv loop over the same
// bytes, in time until the rows are painted, and in how long the window's thread is away from its
// events while the list is filled, scrolled past icons that were not seen yet, and filled again.
// Ends with status 1 when it costs more than it may. On a busy machine `chrt --rr 1` in front gives
// figures as of a quiet one.
#include <benchmark/benchmark.h>

#include <QScrollBar>
#include <array>
#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "bench/AgentProcess.h"
#include "bench/BareReceive.h"
#include "bench/Verdict.h"
#include "bench/WindowTurns.h"
#include "pages/files/FilePage.h"
#include "tests/pages/files/FileReplies.h"
#include "tests/support/FakeHost.h"
#include "tests/support/TestServices.h"

namespace quorvi {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int kFiles = 10'000;
constexpr int kRepetitions = 9;
constexpr int kScrollSteps = 20;
constexpr QSize kPageSize(760, 462);
constexpr milliseconds kSettle{200};

constexpr double kMostTimesBare = 1.5;  // of the bare loop, and on top of it
constexpr double kMostOnTop = 300;      // milliseconds
constexpr double kMostAway = 50;        // milliseconds, of the window's thread

constexpr std::array<std::string_view, 15> kExtensions{".jpg", ".png", ".mp3", ".txt",    ".apk",
                                                       ".zip", ".pdf", "",     ".3gp",    ".doc",
                                                       ".xls", ".ogg", ".htm", ".tar.gz", ".q"};

const AgentProcess* agent = nullptr;

AgentProcess::Answer Replies() {
    std::vector<ListedFile> files;
    for (std::size_t i = 0; i < kFiles; ++i) {
        // Now and then an extension of its own.
        const std::string extension = i % 50 == 0
                                          ? ".x" + std::to_string(i)
                                          : std::string(kExtensions[i % kExtensions.size()]);
        files.push_back({.path = "/sdcard/DCIM/Camera/照片_" + std::to_string(i + 1) + extension,
                         .kind = i % 20 == 0 ? 1u : 0u,
                         .size = i * 4'099,
                         .readable = i % 7 == 0 ? 0u : 1u});
    }
    return AnswerPayloads(
        {{AgentCommand::listFileRoots, FilesPayload("/sdcard/DCIM", files).Get()}});
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
        BareReceive(agent->Port(), AgentCommand::listFileRoots);
        state.SetIterationTime(SecondsSince(start));
    }
}

void FilePage(benchmark::State& state) {
    for (auto _ : state) {
        FakeHost host;
        TestServices services;
        CFilePage page(host, services.At(agent->Port()));
        page.resize(kPageSize);
        page.show();
        RunWindowFor(kSettle);
        auto& list = *page.findChild<CFileListCtrl*>();
        const auto stands = [&] { return list.Redraw() && list.RowCount() == kFiles; };
        const Clock::time_point start = Clock::now();
        Note(state, "fill", RunWindowUntil(stands, [&] { page.Load(); }));
        list.viewport()->repaint();
        state.SetIterationTime(SecondsSince(start));
        Note(state, "settle", RunWindowFor(kSettle));
        Absence scroll;
        for (int step = 1; step <= kScrollSteps; ++step) {
            QScrollBar* bar = list.verticalScrollBar();
            const Absence one = RunWindowFor(
                milliseconds(20), [&] { bar->setValue(bar->maximum() / kScrollSteps * step); });
            scroll = scroll.longest < one.longest ? one : scroll;
        }
        Note(state, "scroll", scroll);
        Note(state, "refill", RunWindowUntil(stands, [&] { page.Load(); }));
    }
}

void Judge(const Figures& figures, Verdict& verdict) {
    const double bare = figures.Time("BareLoop");
    Verdict::Tell("bare loop, ms", bare);
    verdict.AtMost("10,000 files on the screen, ms", figures.Time("FilePage"),
                   kMostTimesBare * bare + kMostOnTop);
    for (const std::string what : {"fill", "settle", "scroll", "refill"}) {
        verdict.AtMost((what + ": away, ms").c_str(), figures.Counter("FilePage", what + "_away"),
                       kMostAway);
        Verdict::Tell("  of it computing", figures.Counter("FilePage", what + "_computed"));
    }
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    const quorvi::AgentProcess agent(quorvi::Replies);
    quorvi::agent = &agent;
    const auto application = quorvi::MakeApplication(count, words);
    quorvi::RegisterTimed("BareLoop", quorvi::BareLoop);
    quorvi::RegisterTimed("FilePage", quorvi::FilePage);
    return quorvi::RunAndJudge(count, words, quorvi::kRepetitions, quorvi::Judge);
}
