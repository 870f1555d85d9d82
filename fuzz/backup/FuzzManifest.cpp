// The manifest of a backup that anybody may have made: whatever is read of it is within its bounds,
// and reads back the same.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "backup/Manifest.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvi;
    const ManifestRead read = ReadManifest({reinterpret_cast<const char*>(data), size});
    if (!read.manifest) {
        return read.why.empty() ? (std::abort(), 1) : 0;
    }
    std::size_t files = 0;
    for (const BackedUpKind& kind : read.manifest->kinds) {
        for (const BackedUpFile& file : kind.files) {
            ++files;
            if (!IsBackupFileName(file.name) || file.name.find('/') != std::string::npos ||
                file.name.find("..") != std::string::npos) {
                std::abort();
            }
        }
    }
    const ManifestRead again = ReadManifest(WriteManifest(*read.manifest));
    if (files > kMostBackupFiles || (again.manifest && *again.manifest != *read.manifest)) {
        std::abort();
    }
    return 0;
}
