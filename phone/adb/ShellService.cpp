#include "phone/adb/ShellService.h"

#include "base/ByteText.h"
#include "phone/Shell.h"
#include "phone/adb/Packet.h"

namespace quorvi::phone {
namespace {

constexpr std::string_view kPrompt = "$ ";
constexpr char kEndOfInput = '\x04';

}  // namespace

ShellService::ShellService(Handset& handset, std::string_view command, Sink& sink)
    : handset_(handset), sink_(sink), typed_(command.empty()) {
    if (typed_) {
        sink_.Write(ToBytes(kPrompt));
    } else {
        sink_.Write(ToBytes(RunShell(handset_, command)));
        sink_.Close();
    }
}

void ShellService::OnBytes(std::span<const std::byte> bytes) {
    if (!typed_) {
        return;
    }
    for (const char c : AsText(bytes)) {
        if (c == kEndOfInput) {
            sink_.Close();
            return;
        }
        if (c == '\n' || c == '\r') {
            RunLine();
        } else if (line_.size() < kMaxTypedLine) {
            line_ += c;
            sink_.Write(ToBytes(std::string_view(&c, 1)));
        }
    }
}

void ShellService::RunLine() {
    sink_.Write(ToBytes("\r\n"));
    if (line_ == "exit") {
        sink_.Close();
        return;
    }
    sink_.Write(ToBytes(RunShell(handset_, line_) + std::string(kPrompt)));
    line_.clear();
}

}  // namespace quorvi::phone
