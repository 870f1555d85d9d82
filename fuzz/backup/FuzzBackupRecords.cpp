// The JSON files of a backup that anybody may have made.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "backup/RecordFiles.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvi;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    static_cast<void>(ReadGroupRecords(text));
    static_cast<void>(ReadAlarmRecords(text));
    static_cast<void>(ReadBookmarkRecords(text));
    return 0;
}
