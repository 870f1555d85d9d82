// Lets a server send any bytes to who follows its list of phones, and any list go through what the
// program makes of it.
//
// Input: the bytes of the stream. They are fed whole and, beside that, one by one.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <utility>
#include <vector>

#include "link/PhonePresence.h"
#include "link/TrackedDevices.h"

namespace {

using quorvi::TrackedDevices;

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

std::vector<TrackedDevices> ReadInPieces(std::string_view bytes, std::size_t piece) {
    quorvi::TrackReader reader;
    std::vector<TrackedDevices> lists;
    while (!bytes.empty()) {
        reader.Feed(bytes.substr(0, piece));
        bytes.remove_prefix(std::min(piece, bytes.size()));
        while (auto list = reader.Take()) {
            Require(list->size() <= quorvi::kMostTrackedDevices);
            lists.push_back(std::move(*list));
        }
    }
    return lists;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::vector<TrackedDevices> lists = ReadInPieces(bytes, bytes.size() + 1);
    Require(lists == ReadInPieces(bytes, 1));

    quorvi::PhonePresence presence;
    presence.OnLinkStarted();
    presence.OnSearched(quorvi::FindDeviceResult::noDevice);
    int there = 0;  // phones whose arrival was told and whose removal was not
    for (std::size_t i = 0; i < lists.size(); ++i) {
        for (const quorvi::PresenceEvent event : presence.OnDevices(lists[i])) {
            there += event == quorvi::PresenceEvent::arrival;
            there -= event == quorvi::PresenceEvent::cableRemoval ||
                     event == quorvi::PresenceEvent::wirelessRemoval;
        }
        if (i == 0) {
            there += static_cast<int>(quorvi::kMostTrackedDevices);  // told of without an arrival
        }
        Require(there >= 0);
        static_cast<void>(quorvi::TroubleOf(lists[i]));
    }
    return 0;
}
