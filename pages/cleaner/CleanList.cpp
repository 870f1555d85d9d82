#include "pages/cleaner/CleanList.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/Format.h"
#include "base/Text.h"
#include "pages/kit/ReplyPicture.h"

namespace quorvi {
namespace {

constexpr std::u8string_view kPeriod = u8"随时";  // of an application's cache
constexpr std::u8string_view kRisk = u8"无";      // of all that there is
constexpr std::u8string_view kNoSize = u8"N/A";

CleanList WithFixedRows(CleanList applications = {}) {
    std::vector<CleanItem> rows = FixedCleanRows();
    rows.reserve(rows.size() + applications.rows.size());
    std::ranges::move(applications.rows, std::back_inserter(rows));
    return {std::move(rows), std::move(applications.marked)};
}

}  // namespace

std::vector<CleanItem> FixedCleanRows() {
    std::vector<CleanItem> rows;
    rows.reserve(kFixedCleanRows);
    for (const FixedCleanItem& item : kFixedCleanItems) {
        rows.push_back(
            {.name = Ansi(item.name), .description = Ansi(item.explanation), .fixed = &item});
    }
    return rows;
}

CleanList ParseCleanList(const SharedReply& reply) {
    return WithFixedRows(ReadRun<CleanItem>(*reply, [&](ReplyCursor& cursor, CleanItem& row) {
        row.cache = cursor.TakeUInt64();
        auto name = cursor.TakeText();
        if (!name) {
            return RecordEnd::mark;
        }
        row.name = std::move(*name);
        row.description = cursor.TakeTextOrEmpty();
        if (cursor.IsCut()) {
            return RecordEnd::cut;  // what is cleaned by it would be some other cache
        }
        row.icon = TakePicture(cursor, reply);
        return cursor.Overran() ? RecordEnd::cut : RecordEnd::whole;
    }));
}

CleanListReply FetchCleanList(const AgentSession& session, const AgentSession::Progress& progress) {
    CleanListReply read = FetchList<CleanItem>(
        session, BareRequest(AgentCommand::scanForCleaning), progress,
        [](ReplyBuffer&& reply) { return ParseCleanList(ShareReply(std::move(reply))); });
    if (!HasPayload(read.outcome)) {
        read.list = WithFixedRows();
    }
    return read;
}

std::string CleanPeriodText(const CleanItem& item) {
    return Ansi(item.fixed != nullptr ? item.fixed->period : kPeriod);
}

std::string CleanRiskText(const CleanItem& /*item*/) {
    return Ansi(kRisk);
}

std::string CleanSizeText(const CleanItem& item) {
    return item.fixed != nullptr ? Ansi(kNoSize) : FormatByteSize(item.cache);
}

Bytes CleanRequest(const FixedCleanFlags& fixed, std::span<const std::string> packages) {
    RequestBuilder request(AgentCommand::clean);
    for (const bool flag : fixed) {
        request.AddBytes({{flag ? std::byte{1} : std::byte{0}}});
    }
    for (const std::string& package : packages) {
        request.BeginItem().AddRawText(package);
    }
    return request.Take();
}

}  // namespace quorvi
