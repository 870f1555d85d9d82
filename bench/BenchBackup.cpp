// What a backup of 10,000 contacts with photos of 20 KB, 50,000 messages and 20,000 calls costs
// beside the bare sessions that it needs, side by side, with nothing done with what they bring.
// Ends with status 1 when it takes longer than it may, or holds more memory than the largest reply
// and 50 MB.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include "agent/AgentSession.h"
#include "backup/Backup.h"
#include "backup/SideBySide.h"
#include "bench/AgentProcess.h"
#include "bench/PeakMemory.h"
#include "bench/PersonalReplies.h"
#include "bench/Verdict.h"

namespace quorvi {
namespace {

constexpr int kContacts = 10'000;
constexpr std::uint32_t kPhotoBytes = 20'000;
constexpr int kConversations = 500;
constexpr int kMessagesEach = 100;
constexpr int kCalls = 20'000;
constexpr double kMostTimes = 2;
constexpr double kMostMemory = 50;  // MB beside the largest reply
constexpr double kMegabyte = 1024 * 1024;

// The agent sees no ids: all contacts have this one.
constexpr std::uint32_t kId = 7;

// A payload, field by field.
class Payload {
  public:
    Payload() { Word(0); }
    Payload& Word(std::uint32_t value) {
        const std::size_t at = bytes_.size();
        bytes_.resize(at + sizeof value);
        PackUInt32(value, bytes_.data() + at);
        return *this;
    }
    Payload& Long(std::uint64_t value) {
        return Word(static_cast<std::uint32_t>(value >> 32u))
            .Word(static_cast<std::uint32_t>(value));
    }
    Payload& Text(std::string_view text) {
        Word(static_cast<std::uint32_t>(text.size()));
        const auto* data = reinterpret_cast<const std::byte*>(text.data());
        bytes_.insert(bytes_.end(), data, data + text.size());
        return *this;
    }
    Payload& Photo(std::uint32_t seed) {
        Word(1).Long(kPhotoBytes);
        for (std::uint32_t i = 0; i < kPhotoBytes; ++i) {
            seed = seed * 1'664'525u + 1'013'904'223u;
            bytes_.push_back(static_cast<std::byte>(seed >> 24u));
        }
        return *this;
    }
    Bytes Take() { return std::move(bytes_); }

  private:
    Bytes bytes_;
};

Bytes ContactsPayload() {
    Payload payload;
    for (std::uint32_t i = 0; i < kContacts; ++i) {
        payload.Long(kId).Long(kId).Text("Contact").Word(0).Text("13812345678").Long(0).Word(0);
        payload.Photo(i);
    }
    return payload.Take();
}

Bytes ContactPayload() {
    Payload payload;
    payload.Long(kId).Word(0).Long(0).Long(0);  // id, favourite, last contact, times contacted
    payload.Word(0).Word(0);                    // photo, structured
    payload.Word(1).Long(1).Word(0).Text("Contact");
    payload.Word(0).Word(0);  // nickname, note
    payload.Word(2).Long(2).Word(2).Text("13812345678").Long(3).Word(3).Text("051988123456");
    payload.Word(0);                                                   // groups
    payload.Word(1).Long(4).Word(1).Text("contact@example.com");       // e-mails
    payload.Word(0).Word(0);                                           // messengers, websites
    payload.Word(1).Long(5).Word(1).Text("18 Orchard Lane, Example");  // addresses
    payload.Word(0);                                                   // organisations
    return payload.Take();
}

Bytes PhonePayload() {
    Payload payload;
    payload.Text("X1").Long(0);
    for (int i = 0; i < 9; ++i) {
        payload.Text("text");
    }
    return payload.Word(0).Word(0).Word(0).Word(0).Text("a").Text("b").Word(0).Take();
}

const AgentProcess& Agent() {
    static const AgentProcess agent([] {
        return AnswerPayloads(
            {{AgentCommand::systemInformation, PhonePayload()},
             {AgentCommand::listContacts, ContactsPayload()},
             {AgentCommand::readContact, ContactPayload()},
             {AgentCommand::listConversations, ConversationsPayloadOf(kConversations)},
             {AgentCommand::readConversation, MessagesPayloadOf(kMessagesEach)},
             {AgentCommand::listCalls, CallsPayloadOf(kCalls)}});
    });
    return agent;
}

std::size_t Bare(const Bytes& request) {
    return AgentSession(Agent().Port()).RunPayload(request).buffer.Received();
}

std::size_t BareSideBySide(int count, const Bytes& request) {
    const StopSignal stop;
    SideBySide<std::size_t> sessions(
        static_cast<std::size_t>(count), kMostSideBySide,
        [request](std::size_t) { return Bare(request); },
        [](std::size_t received) { return received == 0; });
    std::size_t received = 0;
    while (const auto bytes = sessions.Next(stop)) {
        received += *bytes;
    }
    return received;
}

Bytes IdRequest(AgentCommand command) {
    return RequestBuilder(command).BeginItem().AddUInt32(kId).Take();
}

void BareSessions(benchmark::State& state) {
    for (auto _ : state) {
        Bare(BareRequest(AgentCommand::systemInformation));
        benchmark::DoNotOptimize(Bare(BareRequest(AgentCommand::listContacts)));
        benchmark::DoNotOptimize(BareSideBySide(kContacts, IdRequest(AgentCommand::readContact)));
        benchmark::DoNotOptimize(Bare(BareRequest(AgentCommand::listConversations)));
        benchmark::DoNotOptimize(
            BareSideBySide(kConversations, IdRequest(AgentCommand::readConversation)));
        benchmark::DoNotOptimize(Bare(BareRequest(AgentCommand::listCalls)));
    }
}
BENCHMARK(BareSessions)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void WholeBackup(benchmark::State& state) {
    const std::filesystem::path target =
        std::filesystem::temp_directory_path() / ("quorvi-bench-" + std::to_string(getpid()));
    const std::size_t largest = Bare(BareRequest(AgentCommand::listContacts));
    for (auto _ : state) {
        const std::size_t before = ResidentMemory();
        ResetPeakMemory();
        const BackupResult result = RunBackup(
            Agent().Port(),
            {.target = target,
             .kinds = {BackupKind::contacts, BackupKind::messages, BackupKind::calls},
             .now = std::time(nullptr)},
            [](const BackupProgress&) {}, StopSignal());
        state.counters["memory"] =
            (static_cast<double>(PeakMemory() - before) - static_cast<double>(largest)) / kMegabyte;
        state.PauseTiming();
        if (result.end != BackupEnd::whole || result.manifest.skippedCount > 0) {
            state.SkipWithError("the backup is not whole");
        }
        std::filesystem::remove_all(target);
        state.ResumeTiming();
    }
}
BENCHMARK(WholeBackup)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void Judge(const Figures& figures, Verdict& verdict) {
    verdict.AtMost("times the bare sessions",
                   figures.Time("WholeBackup") / figures.Time("BareSessions"), kMostTimes);
    verdict.AtMost("MB beside the largest reply", figures.MostOf("WholeBackup", "memory"),
                   kMostMemory);
    Verdict::Tell("backup, ms", figures.Time("WholeBackup"));
}

}  // namespace
}  // namespace quorvi

int main(int count, char** words) {
    quorvi::Agent();  // forked before there are threads
    return quorvi::RunAndJudge(count, words, 3, quorvi::Judge);
}
