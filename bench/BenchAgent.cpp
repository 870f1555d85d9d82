// What reading a large payload by AgentSession costs beside a bare recv loop into one buffer of its
// size, in time and in memory. Ends with status 1 when the session costs more than it may.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <span>
#include <vector>

#include "agent/AgentSession.h"
#include "bench/AgentProcess.h"
#include "bench/BareReceive.h"
#include "bench/PeakMemory.h"
#include "bench/Verdict.h"

namespace quorvi {
namespace {

constexpr std::uint32_t kPayloadBytes = 200'000'000;
constexpr int kRepetitions = 15;
constexpr double kMostTime = 1.3;    // times that of the bare loop
constexpr double kMostMemory = 1.1;  // times that of the bare loop

// The same payload to every command, out of one small block.
AgentProcess::Answer LargePayload() {
    return [block = std::vector<std::byte>(1 << 20, std::byte{0x5A})](AgentCommand,
                                                                      const TcpSocket& socket) {
        std::array<std::byte, 4> word{};
        PackUInt32(kPayloadBytes, word.data());
        socket.Send(word);
        for (std::size_t left = kPayloadBytes; left > 0;) {
            const std::size_t count = std::min(left, block.size());
            if (socket.Send(std::span(block).first(count)) < 0) {
                break;
            }
            left -= count;
        }
    };
}

const AgentProcess* agent = nullptr;

// Runs `read` under the clock; notes how far memory rose above where it stood.
template <typename Read>
void Measure(benchmark::State& state, Read read) {
    std::size_t growth = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const std::size_t before = ResidentMemory();
        ResetPeakMemory();
        state.ResumeTiming();
        if (read() != kPayloadBytes) {
            state.SkipWithError("the payload did not come whole");
            return;
        }
        state.PauseTiming();
        growth = std::max(growth, PeakMemory() - before);
        state.ResumeTiming();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * kPayloadBytes);
    state.counters["peak_bytes"] = static_cast<double>(growth);
}

std::size_t ReadBySession(std::uint16_t port) {
    const PayloadReply reply =
        AgentSession(port).RunPayload(BareRequest(AgentCommand::listContacts));
    benchmark::DoNotOptimize(reply.buffer.Data());
    return reply.buffer.Received();
}

void BareLoop(benchmark::State& state) {
    Measure(state, [] { return BareReceive(agent->Port()); });
}
void Session(benchmark::State& state) {
    Measure(state, [] { return ReadBySession(agent->Port()); });
}
BENCHMARK(BareLoop)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Session)->UseRealTime()->Unit(benchmark::kMillisecond);

void Judge(const Figures& figures, Verdict& verdict) {
    verdict.AtMost("session / bare loop, time", figures.Time("Session") / figures.Time("BareLoop"),
                   kMostTime);
    verdict.AtMost(
        "session / bare loop, peak memory",
        figures.Counter("Session", "peak_bytes") / figures.Counter("BareLoop", "peak_bytes"),
        kMostMemory);
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    const quorvi::AgentProcess agent(quorvi::LargePayload);
    quorvi::agent = &agent;
    return quorvi::RunAndJudge(count, words, quorvi::kRepetitions, quorvi::Judge);
}
