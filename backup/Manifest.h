// What a backup says of itself: the file manifest.json, which is written last and without which no
// other file of it is read.
#pragma once

#include <json/value.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

enum class BackupKind {
    contacts,
    groups,
    messages,
    calls,
    alarms,
    bookmarks,
    phone,
    applications,
};

struct BackupKindName {
    BackupKind kind;
    std::string_view word;    // in the manifest and on the command line
    std::u8string_view name;  // for people
};

// In the order in which they are backed up, and groups in front of the contacts in them when they
// are restored.
inline constexpr std::array<BackupKindName, 8> kBackupKinds{{
    {BackupKind::groups, "groups", u8"联系人分组"},
    {BackupKind::contacts, "contacts", u8"联系人"},
    {BackupKind::alarms, "alarms", u8"闹铃"},
    {BackupKind::bookmarks, "bookmarks", u8"书签"},
    {BackupKind::messages, "messages", u8"短信"},
    {BackupKind::calls, "calls", u8"通话记录"},
    {BackupKind::phone, "phone", u8"手机信息"},
    {BackupKind::applications, "applications", u8"应用列表"},
}};

[[nodiscard]] std::string_view WordOf(BackupKind kind);
// ANSI.
[[nodiscard]] std::string NameOf(BackupKind kind);
[[nodiscard]] std::optional<BackupKind> BackupKindOf(std::string_view word);

inline constexpr std::string_view kManifestName = "manifest.json";
// What is read at most.
inline constexpr std::size_t kMostManifestBytes = 1024 * 1024;
inline constexpr std::size_t kMostBackupFiles = 64;
inline constexpr std::uint64_t kMostBackupFileBytes = std::uint64_t{16} * 1024 * 1024 * 1024;
// Of what was skipped, so many are named; all are counted.
inline constexpr std::size_t kMostSkippedNamed = 1000;

struct BackedUpFile {
    std::string name;  // lower-case letters, digits, "-" and "."; no folder
    std::uint64_t bytes = 0;
    std::string sha256;  // 64 hexadecimal digits

    bool operator==(const BackedUpFile&) const = default;
};

struct BackedUpKind {
    BackupKind kind{};
    std::uint32_t count = 0;
    // The SHA-256 of what a restore can bring back, whatever its order on the phone: two phones
    // that hold the same give the same. Empty for a kind that is not restored.
    std::string content;
    std::vector<BackedUpFile> files;

    bool operator==(const BackedUpKind&) const = default;
};

// What the phone has and the backup has not. ANSI.
struct SkippedItem {
    BackupKind kind{};
    std::string what;
    std::string why;

    bool operator==(const SkippedItem&) const = default;
};

struct Manifest {
    std::string phone;      // its model, ANSI; empty where it did not tell
    std::int64_t made = 0;  // seconds since 1970
    std::vector<BackedUpKind> kinds;
    std::uint32_t skippedCount = 0;
    std::vector<SkippedItem> skipped;  // the first kMostSkippedNamed

    [[nodiscard]] const BackedUpKind* Find(BackupKind kind) const;
    bool operator==(const Manifest&) const = default;
};

// A row {kind, what, why} an item, as the manifest and the command line show them.
[[nodiscard]] Json::Value SkippedDocument(const std::vector<SkippedItem>& items);

// UTF-8.
[[nodiscard]] std::string WriteManifest(const Manifest& manifest);

// Either the manifest, or why it is refused, in ANSI: no JSON, another form, a name that leads out
// of the backup or is there twice, a sum that is none, too many files.
struct ManifestRead {
    std::optional<Manifest> manifest;
    std::string why;
};
[[nodiscard]] ManifestRead ReadManifest(std::string_view utf8);

// Whether a file of a backup may be called so.
[[nodiscard]] bool IsBackupFileName(std::string_view name);

}  // namespace quorvi
