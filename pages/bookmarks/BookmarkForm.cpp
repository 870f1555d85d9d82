#include "pages/bookmarks/BookmarkForm.h"

#include "base/Text.h"

namespace quorvi {
namespace {

void AddFields(RequestBuilder& request, const BookmarkSettings& settings) {
    request.AddUInt32(settings.visits).AddText(settings.title).AddText(settings.url);
}

}  // namespace

BookmarkForm FormOf(const BookmarkRow& row) {
    return {row.title, row.url, std::to_string(static_cast<std::int32_t>(row.visits))};
}

BookmarkSettings SettingsOf(const BookmarkForm& form) {
    return {form.title, form.url, static_cast<std::uint32_t>(ToInt(form.visits))};
}

Bytes AddBookmarkRequest(const BookmarkSettings& settings) {
    RequestBuilder request(AgentCommand::addBookmark);
    AddFields(request.BeginItem(), settings);
    return request.Take();
}

Bytes UpdateBookmarkRequest(std::uint32_t id, const BookmarkSettings& settings) {
    RequestBuilder request(AgentCommand::updateBookmark);
    AddFields(request.BeginItem().AddUInt32(id), settings);
    return request.Take();
}

}  // namespace quorvi
