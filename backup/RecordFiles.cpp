#include "backup/RecordFiles.h"

#include "base/Json.h"
#include "base/Text.h"

namespace quorvi {
namespace {

// Takes the members of one record; false from Good when one was missing or of another kind.
class Members {
  public:
    explicit Members(const Json::Value& record) : record_(record), good_(record.isObject()) {}

    std::string Text(const char* name) { return ToAnsi(Utf8(name)); }
    std::string Utf8(const char* name) {
        const Json::Value& value = Member(name);
        good_ = good_ && value.isString();
        return good_ ? value.asString() : std::string();
    }
    std::uint32_t Number(const char* name) {
        const Json::Value& value = Member(name);
        good_ = good_ && value.isUInt();
        return good_ ? value.asUInt() : 0;
    }
    bool Flag(const char* name) {
        const Json::Value& value = Member(name);
        good_ = good_ && value.isBool();
        return good_ && value.asBool();
    }
    [[nodiscard]] bool Good() const { return good_; }

  private:
    const Json::Value& Member(const char* name) {
        return good_ ? record_[name] : Json::Value::nullSingleton();
    }

    const Json::Value& record_;
    bool good_;
};

template <typename Row, typename Take>
std::optional<std::vector<Row>> ReadRecords(std::string_view utf8, Take take) {
    const auto document = ParseJson(utf8);
    if (!document || !document->isArray()) {
        return std::nullopt;
    }
    std::vector<Row> rows;
    for (const Json::Value& record : *document) {
        Members members(record);
        rows.push_back(take(members));
        if (!members.Good()) {
            return std::nullopt;
        }
    }
    return rows;
}

}  // namespace

Json::Value RecordDocument(const ContactGroup& group) {
    Json::Value record(Json::objectValue);
    record["title"] = JsonText(group.title);
    record["account"] = JsonText(group.account);
    record["visible"] = group.visible;
    return record;
}

Json::Value RecordDocument(const AlarmRow& row) {
    Json::Value record(Json::objectValue);
    record["hour"] = row.hour;
    record["minute"] = row.minute;
    record["days"] = row.days;
    record["enabled"] = row.enabled;
    record["vibrate"] = row.vibrate;
    record["label"] = JsonText(row.label);
    record["alert"] = JsonText(row.alert);
    record["tone"] = JsonText(row.tone);
    record["alert_time"] = static_cast<Json::UInt64>(row.alertTime);
    return record;
}

Json::Value RecordDocument(const BookmarkRow& row) {
    Json::Value record(Json::objectValue);
    record["title"] = JsonText(row.title);
    record["url"] = JsonText(row.url);
    record["visits"] = row.visits;
    record["last_visit"] = JsonText(row.lastVisit);
    return record;
}

Json::Value RecordDocument(const AppRecord& row) {
    Json::Value record(Json::objectValue);
    record["name"] = JsonText(row.name);
    record["package"] = JsonText(row.package);
    record["version"] = JsonText(row.version);
    record["bytes"] = static_cast<Json::UInt64>(row.size);
    record["installed"] = JsonText(InstalledText(row.installed));
    return record;
}

Json::Value RecordDocument(const SystemInfo& info) {
    Json::Value record(Json::objectValue);
    for (const SystemInfoRow& row : SystemInfoTable(info)) {
        record[ToUtf8(row.caption)] = JsonText(std::string(TrimRight(row.text)));
    }
    return record;
}

std::string RecordLine(const Json::Value& record, bool first) {
    return (first ? "\n" : ",\n") + WriteJson(record, JsonForm::oneLine);
}

std::optional<std::vector<ContactGroup>> ReadGroupRecords(std::string_view utf8) {
    return ReadRecords<ContactGroup>(utf8, [](Members& members) {
        ContactGroup group;
        group.titleCame = members.Utf8("title");
        group.title = ToAnsi(group.titleCame);
        group.account = members.Text("account");
        group.visible = members.Flag("visible");
        return group;
    });
}

std::optional<std::vector<AlarmRow>> ReadAlarmRecords(std::string_view utf8) {
    return ReadRecords<AlarmRow>(utf8, [](Members& members) {
        AlarmRow row;
        row.hour = members.Number("hour");
        row.minute = members.Number("minute");
        row.days = members.Number("days");
        row.enabled = members.Flag("enabled");
        row.vibrate = members.Flag("vibrate");
        row.label = members.Text("label");
        row.alert = members.Text("alert");
        return row;
    });
}

std::optional<std::vector<BookmarkRow>> ReadBookmarkRecords(std::string_view utf8) {
    return ReadRecords<BookmarkRow>(utf8, [](Members& members) {
        BookmarkRow row;
        row.title = members.Text("title");
        row.url = members.Text("url");
        row.visits = members.Number("visits");
        return row;
    });
}

}  // namespace quorvi
