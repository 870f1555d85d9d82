// Replies of a phone on which applications are installed.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/WireBytes.h"

namespace quorvi {

struct ListedApp {
    std::string name = "星图天气";
    std::string package = "com.example.xingtu";
    std::string version = "2.3";
    std::uint32_t extra = 7;
    std::uint64_t size = 1'363'148;
    std::string icon = "icon";
    std::uint64_t installed = 1'320'000'000'000;
};

inline WireBytes AppsPayload(const std::vector<ListedApp>& apps) {
    WireBytes bytes;
    bytes.U32(0);  // leading word
    for (const ListedApp& app : apps) {
        bytes
            .U32(0)                // skipped
            .Text(app.name)        // name
            .Text(app.package)     // name of its package
            .Text(app.version)     // version
            .U32(app.extra)        // read by nothing
            .U64(app.size)         // bytes
            .U64(app.icon.size())  // bytes of the icon
            .Raw(app.icon)         // icon file
            .Text("skipped")       // skipped
            .U32(0)                // skipped
            .U64(app.installed);   // milliseconds since 1970
    }
    return bytes;
}

}  // namespace quorvi
