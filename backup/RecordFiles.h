// The JSON files of a backup: one document for each record, all of a file in one array.
#pragma once

#include <json/value.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pages/alarms/AlarmList.h"
#include "pages/apps/AppList.h"
#include "pages/bookmarks/BookmarkList.h"
#include "pages/contacts/ContactGroups.h"
#include "pages/phoneinfo/SystemInfo.h"

namespace quorvi {

[[nodiscard]] Json::Value RecordDocument(const ContactGroup& group);
[[nodiscard]] Json::Value RecordDocument(const AlarmRow& row);
[[nodiscard]] Json::Value RecordDocument(const BookmarkRow& row);
[[nodiscard]] Json::Value RecordDocument(const AppRecord& row);
[[nodiscard]] Json::Value RecordDocument(const SystemInfo& info);

// The pieces of a file, UTF-8, a record a line.
inline constexpr std::string_view kRecordsBegin = "[";
inline constexpr std::string_view kRecordsEnd = "\n]\n";
[[nodiscard]] std::string RecordLine(const Json::Value& record, bool first);

// What is read of such a file at most, in bytes.
inline constexpr std::size_t kMostRecordFileBytes = 64 * 1024 * 1024;

// The records of a file; nothing when it is none, or a record of it is not of this kind.
[[nodiscard]] std::optional<std::vector<ContactGroup>> ReadGroupRecords(std::string_view utf8);
[[nodiscard]] std::optional<std::vector<AlarmRow>> ReadAlarmRecords(std::string_view utf8);
[[nodiscard]] std::optional<std::vector<BookmarkRow>> ReadBookmarkRecords(std::string_view utf8);

}  // namespace quorvi
