#include "backup/DeletedRows.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

#include "backup/BackupReader.h"
#include "backup/BackupTexts.h"
#include "backup/ContactMatch.h"
#include "backup/RestoreContent.h"
#include "base/Format.h"
#include "base/Text.h"
#include "pages/alarms/AlarmList.h"

namespace quorvi {
namespace {

constexpr std::int64_t kSecondsOfADay = std::int64_t{24} * 60 * 60;
// So many are named.
constexpr std::size_t kMostNamed = 2;
// A deletion of more is not read for the sake of two names.
constexpr std::uint32_t kMostRead = 1000;

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

std::string WhatOf(const KeptDeletion& deletion, const BackedUpKind& kind) {
    const std::vector<std::string> names = NamesOf(deletion, kind);
    const std::string count = GroupedDigits(kind.count);
    if (names.empty()) {
        return count + Ansi(u8" 项");
    }
    std::string named;
    for (const std::string& name : names) {
        named += (named.empty() ? std::string() : Ansi(u8"、")) + name;
    }
    return kind.count > names.size()
               ? fmt::format(fmt::runtime(Ansi(u8"{} 等 {} 项")), named, count)
               : named;
}

std::string LeftText(std::int64_t made, std::int64_t now) {
    const std::int64_t days = (made + kKeptSeconds - now) / kSecondsOfADay;
    return days < 1 ? Ansi(u8"不到 1 天") : std::to_string(days) + Ansi(u8" 天");
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
