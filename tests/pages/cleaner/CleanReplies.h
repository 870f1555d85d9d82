// Replies of a phone that looked for caches.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/WireBytes.h"

namespace quorvi {

struct ListedCache {
    std::uint64_t bytes = 13'317'000;
    std::string name = "小区天气";
    std::string package = "com.example.weather";
    std::string icon = "icon";
};

inline WireBytes CachesPayload(const std::vector<ListedCache>& caches) {
    WireBytes bytes;
    bytes.U32(0);  // leading word
    for (const ListedCache& cache : caches) {
        bytes
            .U64(cache.bytes)        // of the cache
            .Text(cache.name)        // name of the application
            .Text(cache.package)     // name of its package
            .U64(cache.icon.size())  // bytes of the icon
            .Raw(cache.icon);        // icon file
    }
    return bytes;
}

}  // namespace quorvi
