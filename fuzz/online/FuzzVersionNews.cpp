// Reads any bytes as the site's update.xml.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "online/VersionNews.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto news = quorvi::ParseVersionNews({reinterpret_cast<const char*>(data), size});
    for (const quorvi::NewsRow& row : news.rows) {
        if (row.caption.empty()) {
            std::abort();
        }
    }
    return 0;
}
