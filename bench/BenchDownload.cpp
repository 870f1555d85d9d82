// What a download of the engine's costs beside one of curl's, from a server on this machine to its
// disk, in time and in memory. Ends with status 1 when the engine costs more than it may.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "bench/PeakMemory.h"
#include "bench/Verdict.h"
#include "download/HttpDownloader.h"
#include "tests/support/SiteServer.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

constexpr int kRepetitions = 7;
constexpr double kMostTime = 1.0;       // times that of curl
constexpr double kMostHalfTime = 0.55;  // times that of curl for the whole
constexpr double kMostMemory = 20;      // MB

constexpr std::uintmax_t kFileBytes = 1 << 30;
// Of a run that only looks whether all still runs; see .ci/benchmarks.
constexpr std::uintmax_t kShortFileBytes = 16 << 20;
constexpr std::chrono::minutes kPatience{5};

constexpr const char* kLocations = "location /apk/ { alias FILES/; sendfile on; tcp_nopush on; }";

const SiteServer* site = nullptr;
const TemporaryFolder* folder = nullptr;
std::uintmax_t fileBytes = kFileBytes;

std::string Url() {
    return site->Root() + "apk/com.example.large.apk";
}
std::filesystem::path Target() {
    return folder->Path() / "com.example.large.apk";
}
std::filesystem::path Part() {
    return folder->Path() / "com.example.large.tmp";
}

bool TargetIsWhole() {
    std::error_code missing;
    return std::filesystem::file_size(Target(), missing) == fileBytes && !missing;
}

void RemoveFiles() {
    std::filesystem::remove(Target());
    std::filesystem::remove(Part());
}

void PutHalf() {
    const std::vector<char> block(1 << 20);
    std::ofstream part(Part(), std::ios::binary);
    for (std::uintmax_t left = fileBytes / 2; left > 0; left -= block.size()) {
        part.write(block.data(), static_cast<std::streamsize>(block.size()));
    }
}

// Hears whether a run came to its end.
class EndSink : public IDownloadSink {
  public:
    void OnDownloadEvent(DownloadEvent event, std::int32_t, std::int32_t) override {
        if (event != DownloadEvent::progress) {
            ended_ = true;
            ended_.notify_one();
        }
    }
    void Wait() { ended_.wait(false); }

  private:
    std::atomic<bool> ended_ = false;
};

void RunEngine() {
    const auto sink = std::make_shared<EndSink>();
    CHttpDownloader engine;
    engine.SetSink(sink);
    engine.SetJob(Url(), Target());
    engine.Start();
    sink->Wait();
    // The move comes behind the event.
    while (!engine.IsIdle()) {
        std::this_thread::yield();
    }
}

// Downloads under the clock, from what `prepare` has put there; notes the most memory that the
// whole process held.
template <typename Prepare, typename Download>
void Measure(benchmark::State& state, Prepare prepare, Download download) {
    std::size_t most = 0;
    for (auto _ : state) {
        state.PauseTiming();
        RemoveFiles();
        prepare();
        ResetPeakMemory();
        state.ResumeTiming();
        download();
        state.PauseTiming();
        most = std::max(most, PeakMemory());
        if (!TargetIsWhole()) {
            state.SkipWithError("the file did not come whole");
            return;
        }
        state.ResumeTiming();
    }
    state.counters["peak_mb"] = static_cast<double>(most) / (1 << 20);
}

void Curl(benchmark::State& state) {
    Measure(
        state, [] {},
        [] {
            static_cast<void>(
                e2e::RunProgram({"curl", "-s", "-o", Target(), Url()}, {}, kPatience));
        });
}
void Engine(benchmark::State& state) {
    Measure(
        state, [] {}, RunEngine);
}
void EngineFromTheHalf(benchmark::State& state) {
    Measure(state, PutHalf, RunEngine);
}
BENCHMARK(Curl)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Engine)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(EngineFromTheHalf)->UseRealTime()->Unit(benchmark::kMillisecond);

void Judge(const Figures& figures, Verdict& verdict) {
    const double curl = figures.Time("Curl");
    verdict.AtMost("engine / curl, time", figures.Time("Engine") / curl, kMostTime);
    verdict.AtMost("engine from the half / curl, time", figures.Time("EngineFromTheHalf") / curl,
                   kMostHalfTime);
    verdict.AtMost("engine, memory of the process in MB", figures.MostOf("Engine", "peak_mb"),
                   kMostMemory);
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    using namespace quorvi;
    if (IsShortRun(count, words)) {
        fileBytes = kShortFileBytes;
    }
    const SiteServer server(kLocations);
    const TemporaryFolder place;
    site = &server;
    folder = &place;
    server.Serve("com.example.large.apk", "");
    std::filesystem::resize_file(server.Files() / "com.example.large.apk", fileBytes);
    return RunAndJudge(count, words, kRepetitions, Judge);
}
