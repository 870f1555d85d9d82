#include "backup/Content.h"

#include <algorithm>

#include "backup/JsonLine.h"
#include "backup/Sha256.h"
#include "base/Json.h"

namespace quorvi {
namespace {

std::string OneLine(const Json::Value& document) {
    return WriteJson(document, JsonForm::oneLine);
}

void AddSorted(std::vector<std::string> texts, JsonLine& line) {
    std::ranges::sort(texts);
    line.BeginArray();
    for (const std::string& text : texts) {
        line.Text(text);
    }
    line.EndArray();
}

}  // namespace

void ContentSum::Add(std::string_view record) {
    records_.push_back(Sha256Hex(record));
}

std::string ContentSum::Hex() {
    std::ranges::sort(records_);
    Sha256 sum;
    for (const std::string& record : records_) {
        sum.Add(record);
    }
    return sum.Hex();
}

std::string ContentOf(const ContactCard& card) {
    const auto record = RecordOf(card);
    if (!record) {
        return {};
    }
    JsonLine line;
    line.BeginArray();
    // The name that it goes by: one without a name gets it when it is restored.
    line.Text(record->name.text);
    line.Flag(card.favourite);
    line.Text(card.nickname);
    line.Text(record->note.text);
    for (const CardList& list : kCardLists) {
        std::vector<std::string> items;
        for (const CardItem& item : card.*list.card) {
            items.push_back(std::to_string(item.type) + " " + item.text);
        }
        AddSorted(std::move(items), line);
    }
    AddSorted(card.groups, line);
    return line.EndArray().Take();
}

std::string ContentOf(const AlarmSettings& alarm) {
    if (!CanBeSent(alarm)) {
        return {};
    }
    Json::Value document(Json::arrayValue);
    document.append(alarm.hour);
    document.append(alarm.minute);
    document.append(alarm.days);
    document.append(alarm.enabled);
    document.append(alarm.vibrate);
    document.append(JsonText(alarm.label));
    document.append(JsonText(alarm.alert));
    return OneLine(document);
}

std::string ContentOf(const BookmarkSettings& bookmark) {
    Json::Value document(Json::arrayValue);
    document.append(JsonText(bookmark.title));
    document.append(JsonText(bookmark.url));
    document.append(bookmark.visits);
    return OneLine(document);
}

AlarmSettings SettingsToRestore(const AlarmRow& row) {
    return {.hour = row.hour,
            .minute = row.minute,
            .days = row.days,
            .enabled = row.enabled,
            .vibrate = row.vibrate,
            .label = row.label,
            .alert = row.alert};
}

BookmarkSettings SettingsToRestore(const BookmarkRow& row) {
    return {row.title, row.url, row.visits};
}

}  // namespace quorvi
