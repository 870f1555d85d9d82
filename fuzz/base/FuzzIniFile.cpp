// Reads any text as a settings file, and puts any value into it.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/IniFile.h"

namespace {

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    static_cast<void>(quorvi::IniValue(file, "Software/Quorvi/exit_mode"));

    const std::string_view value = file.substr(0, size / 2);
    const std::string alone = quorvi::WithIniValue("", "Software/Quorvi/city", value);
    Require(quorvi::IniValue(alone, "Software/Quorvi/city") == std::string(value));

    // Deleting leaves nothing of the place.
    const std::string without = quorvi::WithoutIniValue(file, "Software/Quorvi/exit_mode");
    Require(without.size() <= size);
    static_cast<void>(quorvi::WithIniValue(file, "Software/Quorvi/exit_mode", "3"));
    return 0;
}
