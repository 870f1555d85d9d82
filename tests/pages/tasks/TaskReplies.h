// Replies of a phone on which processes run.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/WireBytes.h"

namespace quorvi {

struct ListedProcess {
    std::uint64_t memory = 9'437'184;
    std::uint32_t importance = 300;
    std::uint32_t cpu = 2;
    std::uint32_t pid = 812;
    std::uint32_t system = 0;
    std::string name = "小区天气";
    std::string package = "com.example.weather";
    std::string icon = "icon";
};

inline WireBytes ProcessesPayload(const std::vector<ListedProcess>& processes) {
    WireBytes bytes;
    bytes.U32(0);  // leading word
    for (const ListedProcess& process : processes) {
        bytes
            .U64(process.memory)       // bytes
            .U32(process.importance)   // code
            .U32(process.cpu)          // per cent
            .U32(process.pid)          // process identifier
            .U32(process.system)       // 1: came with the phone
            .Text(process.name)        // name of the application
            .Text(process.package)     // name of its package
            .U64(process.icon.size())  // bytes of the icon
            .Raw(process.icon);        // icon file
    }
    return bytes;
}

}  // namespace quorvi
