#include "agent/AgentSession.h"
#include "base/Json.h"
#include "base/Text.h"
#include "cli/BookmarkFormInput.h"
#include "cli/Commands.h"
#include "cli/FormInput.h"
#include "cli/KeptDelete.h"
#include "cli/PhoneChange.h"
#include "pages/bookmarks/BookmarkForm.h"
#include "pages/bookmarks/BookmarkList.h"

namespace quorvi::cli {
namespace {

constexpr std::u8string_view kNoBookmarkId = u8"不是书签的编号";

Json::Value DocumentOf(const BookmarkRow& row) {
    Json::Value item(Json::objectValue);
    item["id"] = row.id;
    item["title"] = JsonText(row.title);
    item["url"] = JsonText(row.url);
    item["visits"] = row.visits;
    item["last_visit"] = JsonText(row.lastVisit);
    item["thumbnail_bytes"] = static_cast<Json::UInt64>(row.thumbnail.Bytes().size());
    return item;
}

std::optional<BookmarkSettings> SettingsOfInput(Output& output) {
    return FormOfInput(ReadBookmarkForm(StandardInput()), output);
}

}  // namespace

Status RunBookmarksList(const Arguments&, const Context& context, Output& output) {
    const auto [outcome, list] = FetchBookmarkList(AgentSession(context.agent));
    const Status status = output.Report(outcome);
    if (status != Status::done) {
        return status;
    }
    Json::Value document(Json::arrayValue);
    Table table{u8"编号", u8"名称", u8"网址", u8"存储状态", u8"计数", u8"上次访问时间"};
    for (const BookmarkRow& row : list.rows) {
        document.append(DocumentOf(row));
        table.AddRow({std::to_string(row.id), row.title, row.url, Ansi(kPhoneBookmarkStore),
                      BookmarkVisitsText(row.visits), row.lastVisit});
    }
    output.Json() ? output.PrintDocument(document) : output.PrintTable(table);
    return Status::done;
}

Status RunBookmarksAdd(const Arguments&, const Context& context, Output& output) {
    const auto settings = SettingsOfInput(output);
    return settings ? SendAndTell(context, AddBookmarkRequest(*settings), "added",
                                  JsonText(settings->title), output)
                    : Status::wrongUsage;
}

Status RunBookmarksUpdate(const Arguments& arguments, const Context& context, Output& output) {
    const auto ids = ReadIds(arguments.operands, kNoBookmarkId, output);
    const auto settings = ids ? SettingsOfInput(output) : std::nullopt;
    return settings ? SendAndTell(context, UpdateBookmarkRequest(ids->front(), *settings),
                                  "updated", ids->front(), output)
                    : Status::wrongUsage;
}

Status RunBookmarksDelete(const Arguments& arguments, const Context& context, Output& output) {
    return DeleteRows(
        arguments, context, kNoBookmarkId, AgentCommand::listBookmarks,
        [](const AgentSession& session) { return FetchBookmarkList(session); }, &BookmarkRow::id,
        &DeleteBookmarksRequest, output);
}

}  // namespace quorvi::cli
