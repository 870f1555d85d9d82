// What the simulated phone reads of a package that was pushed to it.
#include <cstdint>
#include <cstdlib>
#include <span>

#include "phone/PackageManifest.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
    const auto manifest = quorvi::phone::ReadPackageManifest(std::as_bytes(std::span(input, size)));
    if (manifest && (manifest->package.empty() || manifest->package.size() > size)) {
        std::abort();
    }
    return 0;
}
