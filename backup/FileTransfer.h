// What exports and imports of one kind of records have in common.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "agent/AgentSession.h"
#include "base/os/StopSignal.h"
#include "pages/kit/ListReply.h"

namespace quorvi {

// The kinds of records that are exported by themselves.
enum class FileKind { contacts, messages, calls, bookmarks };

// By the ending of its name, whether records of a kind can be written into a file, or read from it.
[[nodiscard]] bool CanExportTo(FileKind kind, std::string_view fileName);
[[nodiscard]] bool CanImportFrom(FileKind kind, std::string_view fileName);

// The endings that are known, for people: "vcf、csv". UTF-8.
[[nodiscard]] std::string_view ExportEndings(FileKind kind);
[[nodiscard]] std::string_view ImportEndings(FileKind kind);

// "3 个联系人". ANSI.
[[nodiscard]] std::string CountedRecords(FileKind kind, std::size_t count);

enum class TransferEnd {
    whole,
    stopped,
    linkLost,    // no connection, or one that broke; `outcome` says how
    notWhole,    // the phone's answer ended in the middle
    fileFailed,  // the file could not be read or written
};

// What did not go over, or not all of it. ANSI.
struct SkippedRecord {
    std::string what;
    std::string why;

    bool operator==(const SkippedRecord&) const = default;
};

// So many skipped records are listed; the others are counted.
inline constexpr std::size_t kMostListedSkips = 1000;

struct SkippedRecords {
    std::vector<SkippedRecord> list;
    std::size_t count = 0;

    void Add(std::string what, std::u8string_view why);
};

struct TransferStatus {
    TransferEnd end = TransferEnd::whole;
    SessionOutcome outcome = SessionOutcome::complete;
    // Of any end but `whole`, what happened and what can be done. ANSI.
    std::string why{};
};

// Statuses of a session that failed, and of one whose answer ended in the middle.
[[nodiscard]] TransferStatus LinkLost(SessionOutcome outcome);
[[nodiscard]] TransferStatus NotWhole();
[[nodiscard]] TransferStatus FileFailed(std::u8string_view why);
[[nodiscard]] TransferStatus Stopped();

// Of a list that was read: only a whole one will do, since half of the records would pass for all.
template <typename Row>
[[nodiscard]] TransferStatus StatusOfList(const ListReply<Row>& reply) {
    switch (reply.outcome) {
        case SessionOutcome::noData:
            return {};
        case SessionOutcome::complete:
            return reply.IsWhole() && !reply.list.cut ? TransferStatus() : NotWhole();
        case SessionOutcome::cut:
            return NotWhole();
        case SessionOutcome::connectFailed:
        case SessionOutcome::noReply:
        case SessionOutcome::receiveFailed:
            break;
    }
    return LinkLost(reply.outcome);
}

// How a transfer is followed and ended. `stop` is looked at between two records.
struct TransferWatch {
    const StopSignal* stop = nullptr;
    // Told after each record, on the thread of the transfer.
    std::function<void(std::size_t done, std::size_t of)> progress{};

    [[nodiscard]] bool IsStopped() const { return stop && stop->IsStopped(); }
    void Tell(std::size_t done, std::size_t of) const {
        if (progress) {
            progress(done, of);
        }
    }
};

}  // namespace quorvi
