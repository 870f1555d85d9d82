// Reads any bytes as what the weather service says.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "online/Weather.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto report = quorvi::ParseWeather({reinterpret_cast<const char*>(data), size});
    if (report) {
        for (const quorvi::WeatherDay& day : report->days) {
            if (day.icon < 0 || day.icon > 11) {
                std::abort();
            }
        }
    }
    return 0;
}
