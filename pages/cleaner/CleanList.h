// What can be cleaned on the phone: what the program itself knows of, the caches of applications as
// command 871601 lists them, and their cleaning.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "agent/AgentSession.h"
#include "agent/FixedCleanItems.h"
#include "agent/Reply.h"
#include "agent/Request.h"
#include "pages/kit/ListReply.h"

namespace quorvi {

// One row; texts are ANSI.
struct CleanItem {
    std::string name;
    // Of an application the name of its package, by which it is cleaned; of a fixed item its
    // explanation.
    std::string description;
    std::uint64_t cache = 0;                // bytes; FormatByteSize shows their lower 32 bits alone
    const FixedCleanItem* fixed = nullptr;  // none: an application
    // An image file as the phone sent it, in any format; a fixed item has none.
    ReplyBytes icon{};
};

// Ended by the mark in a name. The fixed items stand in front, in the order of their table.
using CleanList = ReadList<CleanItem>;
using CleanListReply = ListReply<CleanItem>;

// How many rows stand in front of those of applications.
inline constexpr std::size_t kFixedCleanRows = kFixedCleanItems.size();

// The rows of the fixed items.
[[nodiscard]] std::vector<CleanItem> FixedCleanRows();

// Reads the run of records behind the fixed items. A record with a length that points outside the
// reply ends the run and is dropped; so is one whose package was cut, by which another cache would
// be cleaned. Any thread.
[[nodiscard]] CleanList ParseCleanList(const SharedReply& reply);

// One session that has the phone look for caches, which takes it some seconds. The fixed items are
// there however it ends. Any thread.
[[nodiscard]] CleanListReply FetchCleanList(const AgentSession& session,
                                            const AgentSession::Progress& progress = {});

// How often cleaning is recommended, what is said of its risk, and how large it is: "12.7 MB", or
// "N/A" of a fixed item. ANSI.
[[nodiscard]] std::string CleanPeriodText(const CleanItem& item);
[[nodiscard]] std::string CleanRiskText(const CleanItem& item);
[[nodiscard]] std::string CleanSizeText(const CleanItem& item);

// The request of command 871602: a byte of 1 or 0 for each fixed item stands between the count and
// the names. The names go out as they stand, without the way to UTF-8 that all other texts take:
// kept on purpose, agents have always been sent these bytes
// (CleanRequests.NamesAreSentAsTheyStand). With nothing to clean it is sent all the same.
[[nodiscard]] Bytes CleanRequest(const FixedCleanFlags& fixed,
                                 std::span<const std::string> packages);

}  // namespace quorvi
