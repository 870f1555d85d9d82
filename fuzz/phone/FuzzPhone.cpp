// What the simulated phone takes from an adb server and from whoever asks its agent: messages of
// the transport, the file transfer, a command line, a request of the agent.
//
// Input: one byte that chooses among the four; its bytes, fed in two pieces.
#include <cstdint>
#include <cstdlib>

#include "base/ByteText.h"
#include "phone/Shell.h"
#include "phone/adb/Packet.h"
#include "phone/adb/SyncService.h"
#include "phone/agent/AgentData.h"
#include "phone/agent/Commands.h"
#include "phone/agent/Frame.h"

namespace {

using namespace quorvi;
using namespace quorvi::phone;

constexpr int kAskedBeforeRefill = 1000;

class DeafSink : public Sink {
  public:
    using Sink::Write;
    void Write(SharedBytes) override {}
    void Close() override {}
    void Abort() override {}
    void DropTransport() override {}
};

void ReadPackets(std::span<const std::byte> bytes) {
    PacketReader reader;
    reader.SetVersion(bytes.size() % 2 == 0 ? kVersionWithChecksum : kVersionWithoutChecksum);
    for (const auto piece : {bytes.first(bytes.size() / 2), bytes.subspan(bytes.size() / 2)}) {
        reader.Feed(piece);
        while (const auto packet = reader.Take()) {
            if (packet->payload.size() > kMaxPayload) {
                std::abort();
            }
        }
    }
}

void TransferFiles(std::span<const std::byte> bytes) {
    Handset handset(DeliveredProfile(0));
    DeafSink sink;
    SyncService service(handset, sink);
    service.OnBytes(bytes.first(bytes.size() / 2));
    service.OnBytes(bytes.subspan(bytes.size() / 2));
}

void RunCommandLine(std::span<const std::byte> bytes) {
    Handset handset(DeliveredProfile(0));
    static_cast<void>(RunShell(handset, AsText(bytes)));
}

void AskAgent(std::span<const std::byte> bytes) {
    // Changes stay for the inputs that follow, as on a phone, for a while.
    static Handset handset(DeliveredProfile(0));
    static AgentData data(handset);
    static int asked = 0;
    if (++asked % kAskedBeforeRefill == 0) {
        data.Fill({});
    }
    if (bytes.size() < sizeof(std::uint32_t)) {
        return;
    }
    const AgentCommandRow* row = FindCommand(ReadUInt32(bytes.data()));
    const auto length = row ? LengthOf(row->form, bytes) : std::nullopt;
    if (length && length->deviation.empty() && bytes.size() >= length->bytes) {
        static_cast<void>(quorvi::phone::RunCommand(*row, data, bytes.first(length->bytes)));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const auto bytes = std::as_bytes(std::span(input + 1, size - 1));
    constexpr void (*kReaders[])(std::span<const std::byte>) = {ReadPackets, TransferFiles,
                                                                RunCommandLine, AskAgent};
    kReaders[input[0] % std::size(kReaders)](bytes);
    return 0;
}
