// What reading a large payload by AgentSession costs beside a bare recv loop into one buffer of its
// size, in time and in memory. Ends with status 1 when the session costs more than it may.
#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "agent/AgentSession.h"
#include "bench/PeakMemory.h"

namespace quorvi {
namespace {

constexpr std::uint32_t kPayloadBytes = 200'000'000;
constexpr int kRepetitions = 15;
constexpr double kMostTime = 1.3;    // times that of the bare loop
constexpr double kMostMemory = 1.1;  // times that of the bare loop

// Answers every connection with the same payload, out of one small block.
class Sender {
  public:
    Sender() : listener_(::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* raw = reinterpret_cast<sockaddr*>(&address);
        if (bind(listener_.Descriptor(), raw, size) != 0 ||
            listen(listener_.Descriptor(), 1) != 0 ||
            getsockname(listener_.Descriptor(), raw, &size) != 0) {
            std::perror("bench_agent");
            std::exit(1);
        }
        port_ = ntohs(address.sin_port);
        std::thread([this] { Serve(); }).detach();
    }

    [[nodiscard]] std::uint16_t Port() const { return port_; }

  private:
    [[noreturn]] void Serve() const {
        const std::vector<std::byte> block(1 << 20, std::byte{0x5A});
        for (;;) {
            const TcpSocket socket(accept(listener_.Descriptor(), nullptr, nullptr));
            std::array<std::byte, 4> word{};
            static_cast<void>(socket.ReceiveAll(word));
            PackUInt32(kPayloadBytes, word.data());
            socket.Send(word);
            for (std::size_t left = kPayloadBytes; left > 0;) {
                const std::size_t count = std::min(left, block.size());
                if (socket.Send(std::span(block).first(count)) < 0) {
                    break;
                }
                left -= count;
            }
        }
    }

    TcpSocket listener_;
    std::uint16_t port_ = 0;
};

const Sender& TheSender() {
    static const Sender sender;
    return sender;
}

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

std::size_t ReadBare(std::uint16_t port) {
    const TcpSocket socket = TcpSocket::Connect(port);
    socket.Send(BareRequest(AgentCommand::listContacts));
    std::array<std::byte, 4> word{};
    static_cast<void>(socket.ReceiveAll(word));
    const std::size_t length = ReadUInt32(word.data());
    // Not cleared: the loop alone is what is measured.
    const auto buffer = std::make_unique_for_overwrite<std::byte[]>(length);
    std::size_t received = 0;
    while (received < length) {
        const std::ptrdiff_t count = socket.Receive({buffer.get() + received, length - received});
        if (count < 1) {
            break;
        }
        received += static_cast<std::size_t>(count);
    }
    benchmark::DoNotOptimize(buffer.get());
    return received;
}

std::size_t ReadBySession(std::uint16_t port) {
    const PayloadReply reply =
        AgentSession(port).RunPayload(BareRequest(AgentCommand::listContacts));
    benchmark::DoNotOptimize(reply.buffer.Data());
    return reply.buffer.Received();
}

void BareLoop(benchmark::State& state) {
    Measure(state, [] { return ReadBare(TheSender().Port()); });
}
void Session(benchmark::State& state) {
    Measure(state, [] { return ReadBySession(TheSender().Port()); });
}
BENCHMARK(BareLoop)->UseRealTime()->Unit(benchmark::kMillisecond)->Repetitions(kRepetitions);
BENCHMARK(Session)->UseRealTime()->Unit(benchmark::kMillisecond)->Repetitions(kRepetitions);

// The median of a benchmark's repetitions.
struct Figures {
    double milliseconds = 0;
    double peakBytes = 0;
};

// Shows what the console shows, and keeps the medians.
class KeepingReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median") {
                figures_[run.run_name.function_name] = {run.GetAdjustedRealTime(),
                                                        run.counters.at("peak_bytes").value};
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    [[nodiscard]] const Figures& Of(const std::string& name) { return figures_[name]; }

  private:
    std::map<std::string, Figures> figures_;
};

// True when the session stays within what it may cost. False, too, when one of the two did not run.
bool Compare(KeepingReporter& reporter) {
    const Figures bare = reporter.Of("BareLoop");
    const Figures session = reporter.Of("Session");
    const double time = session.milliseconds / bare.milliseconds;
    const double memory = session.peakBytes / bare.peakBytes;
    std::printf("\nSession / BareLoop: time %.3f, at most %.1f; peak memory %.3f, at most %.1f\n",
                time, kMostTime, memory, kMostMemory);
    return time <= kMostTime && memory <= kMostMemory;
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    // The two take turns, so that what else the machine does falls on both.
    std::vector<char*> arguments(words, words + count);
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    arguments.insert(arguments.begin() + 1, interleave.data());
    int given = static_cast<int>(arguments.size());
    benchmark::Initialize(&given, arguments.data());
    quorvi::KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return quorvi::Compare(reporter) ? 0 : 1;
}
