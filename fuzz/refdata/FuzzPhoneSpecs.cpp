// Reads any bytes as device.xml: all that it lists, and what is wrong with it.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "refdata/PhoneSpecs.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const quorvi::XmlDocument file(bytes);
    for (std::size_t platform = 0; platform < quorvi::kSpecsPlatforms.size(); ++platform) {
        for (std::size_t choice = 0; choice < 3; ++choice) {
            const auto lists =
                quorvi::ReadSpecs(file, {.platform = platform, .maker = choice, .model = choice});
            if (lists && lists->values.size() > quorvi::kSpecCaptions.size()) {
                std::abort();
            }
        }
    }
    for (const quorvi::SpecsFinding& finding : quorvi::CheckSpecs(bytes)) {
        if (finding.line == 0 || finding.line > size + 1) {
            std::abort();
        }
    }
    return 0;
}
