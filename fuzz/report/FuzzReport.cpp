// What the report reads of others: adb's words, the system's file, and the log's lines.
#include <cstdint>
#include <cstdlib>

#include "log/LogLine.h"
#include "report/AdbFacts.h"
#include "report/SystemFacts.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const quorvi::AdbVersion version = quorvi::ParseAdbVersion(text);
    if (version.protocol.empty() || version.release.empty()) {
        std::abort();
    }
    static_cast<void>(quorvi::FactText(quorvi::ParseOsRelease(text)));
    static_cast<void>(quorvi::IsLogLine(text));
    // Of a serial, whatever it is, at most two characters at each end stay.
    if (quorvi::LogValue::Serial(text).Text().size() > 6) {
        std::abort();
    }
    return 0;
}
