// The applications on the phone as command 870802 lists them.
#pragma once

#include <cstdint>
#include <string>

#include "agent/AgentSession.h"
#include "agent/Reply.h"
#include "base/Text.h"
#include "pages/kit/ListReply.h"

namespace quorvi {

// The rating of a package that the site has said nothing of.
inline constexpr std::int32_t kUsualRating = 3;
inline constexpr std::int32_t kNoStoreId = -1;

// What the site says of a package. Texts are ANSI.
struct StoreFacts {
    std::int32_t rating = kUsualRating;  // as the site gives it; 0 to 5 are known
    std::int32_t storeId = kNoStoreId;
    std::string category = Ansi(u8"未知");
    std::string description = "N/A";

    bool operator==(const StoreFacts&) const = default;
};

inline constexpr std::int32_t kNewest = 1;

// One row; texts are ANSI.
struct AppRecord {
    std::string name;
    std::string package;  // what every action names it by
    std::string version;
    std::uint32_t extraValue = 0;  // read by nothing; its meaning is not known
    std::uint64_t size = 0;        // bytes; FormatByteSize shows their lower 32 bits alone
    std::uint64_t installed = 0;   // milliseconds since 1970; 0: never
    // An image file as the phone sent it, in any format; without one the default picture shows.
    ReplyBytes icon;
    std::int32_t status = kNewest;  // what the hint says of its version; no other is ever given
    StoreFacts store;
};

// Ended by the mark in a name.
using AppList = ReadList<AppRecord>;
using AppListReply = ListReply<AppRecord>;

// Reads the run of records. A record with a length that points outside the reply ends the run and
// is dropped; so is one whose package was cut, by which another application would be removed. Any
// thread.
[[nodiscard]] AppList ParseAppList(const SharedReply& reply);

// One session that reads the list. Its reader takes NoDataMark for a length, and goes on receiving
// until the connection ends: kept on purpose, agents that have nothing to list send AbsentMark
// instead (AppListFetch.TakesTheMarkOfNoDataForALength). Any thread.
[[nodiscard]] AppListReply FetchAppList(const AgentSession& session,
                                        const AgentSession::Progress& progress = {});

// Whether the hint of such a status stands out in green; it is black for 0, 2 and 3.
[[nodiscard]] constexpr bool IsGreenStatus(std::int32_t status) {
    return status == kNewest || status > 3;
}

// Local time, or 从未 for 0. ANSI.
[[nodiscard]] std::string InstalledText(std::uint64_t milliseconds);

}  // namespace quorvi
