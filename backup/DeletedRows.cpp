#include "backup/DeletedRows.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "backup/BackupReader.h"
#include "backup/BackupTexts.h"
#include "backup/ContactMatch.h"
#include "backup/MessageFile.h"
#include "backup/RestoreContent.h"
#include "base/Format.h"
#include "base/Json.h"
#include "base/Text.h"
#include "pages/alarms/AlarmList.h"

namespace quorvi {
namespace {

constexpr std::int64_t kSecondsOfADay = std::int64_t{24} * 60 * 60;
// So many are named.
constexpr std::size_t kMostNamed = 2;
// A deletion of more is not read for the sake of two names.
constexpr std::uint32_t kMostRead = 1000;
// Nor are messages of more bytes.
constexpr std::size_t kMostMessageBytes = 4 * 1024 * 1024;

constexpr std::array<BackupKind, 4> kCanGoBack{BackupKind::groups, BackupKind::contacts,
                                               BackupKind::alarms, BackupKind::bookmarks};

bool CanGoBack(BackupKind kind) {
    return std::ranges::find(kCanGoBack, kind) != kCanGoBack.end();
}

// Names of the first ones of a kind; none where they can't be read.
std::vector<std::string> NamesOf(const KeptDeletion& deletion, const BackedUpKind& kind) {
    std::vector<std::string> names;
    if (!CanGoBack(kind.kind) || kind.count > kMostRead) {
        return names;
    }
    const OpenedBackup opened = BackupReader::Open(deletion.backup);
    std::string why;
    const auto content = opened.reader
                             ? ReadRestoreContent(*opened.reader, std::array{kind.kind}, why)
                             : std::nullopt;
    if (!content) {
        return names;
    }
    const auto add = [&](std::string name) {
        if (names.size() < kMostNamed && !name.empty()) {
            names.push_back(std::move(name));
        }
    };
    for (const std::string& title : content->groups) {
        add(ToAnsi(title));
    }
    for (const ContactCard& card : content->cards) {
        add(ToAnsi(CalledOnPhone(card)));
    }
    for (const AlarmSettings& alarm : content->alarms) {
        add(alarm.label + (alarm.label.empty() ? "" : " ") +
            AlarmTimeText(alarm.hour, alarm.minute));
    }
    for (const BookmarkSettings& bookmark : content->bookmarks) {
        add(bookmark.title.empty() ? bookmark.url : bookmark.title);
    }
    return names;
}

// With whom the deleted conversations were held, by name or else number; none where that can't be
// read.
std::vector<std::string> PartiesOf(const KeptDeletion& deletion, const BackedUpKind& kind) {
    std::vector<std::string> parties;
    const auto file = std::ranges::find(kind.files, kMessageRecords, &BackedUpFile::name);
    const OpenedBackup opened = BackupReader::Open(deletion.backup);
    if (file == kind.files.end() || !opened.reader) {
        return parties;
    }
    std::string why;
    const auto text = opened.reader->ReadWhole(*file, kMostMessageBytes, why);
    const auto conversations = text ? ParseJson(*text) : std::nullopt;
    if (!conversations || !conversations->isArray()) {
        return parties;
    }
    for (const Json::Value& conversation : *conversations) {
        const std::string name = TextMember(conversation, "name");
        parties.push_back(name.empty() ? TextMember(conversation, "number") : name);
    }
    std::erase(parties, std::string());
    return parties;
}

std::string Joined(std::span<const std::string> names) {
    std::string joined;
    for (const std::string& name : names) {
        joined += (joined.empty() ? std::string() : Ansi(u8"、")) + name;
    }
    return joined;
}

// Counted are messages, and named conversations.
std::string WhatOfMessages(const KeptDeletion& deletion, const BackedUpKind& kind) {
    const std::string count = GroupedDigits(kind.count);
    const std::vector<std::string> parties = PartiesOf(deletion, kind);
    if (parties.empty()) {
        return count + Ansi(u8" 项");
    }
    const std::string named =
        Joined(std::span(parties).first(std::min(parties.size(), kMostNamed)));
    return fmt::format(fmt::runtime(parties.size() > kMostNamed ? Ansi(u8"{} 等（{} 条）")
                                                                : Ansi(u8"{}（{} 条）")),
                       named, count);
}

std::string WhatOf(const KeptDeletion& deletion, const BackedUpKind& kind) {
    if (kind.kind == BackupKind::messages) {
        return WhatOfMessages(deletion, kind);
    }
    const std::vector<std::string> names = NamesOf(deletion, kind);
    const std::string count = GroupedDigits(kind.count);
    if (names.empty()) {
        return count + Ansi(u8" 项");
    }
    const std::string named = Joined(names);
    return kind.count > names.size()
               ? fmt::format(fmt::runtime(Ansi(u8"{} 等 {} 项")), named, count)
               : named;
}

// A day that has begun counts, but for the last.
std::string LeftText(std::int64_t made, std::int64_t now) {
    const std::int64_t left = made + kKeptSeconds - now;
    return left < kSecondsOfADay
               ? Ansi(u8"不到 1 天")
               : std::to_string((left + kSecondsOfADay - 1) / kSecondsOfADay) + Ansi(u8" 天");
}

}  // namespace

std::vector<DeletedRow> DeletedRowsOf(const std::vector<KeptDeletion>& kept, std::int64_t now) {
    std::vector<DeletedRow> rows;
    for (const KeptDeletion& deletion : kept) {
        const Manifest& manifest = deletion.manifest;
        if (manifest.kinds.empty()) {
            continue;
        }
        // Of a group its members are kept as well, behind it.
        const BackedUpKind& kind = manifest.kinds.front();
        rows.push_back({deletion.backup, FormatUnixTime(manifest.made), NameOf(kind.kind),
                        WhatOf(deletion, kind), LeftText(manifest.made, now),
                        CanGoBack(kind.kind)});
    }
    return rows;
}

}  // namespace quorvi
