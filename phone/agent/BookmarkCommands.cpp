// The bookmarks: listing, adding, changing, deleting.
#include <fmt/format.h>

#include <array>

#include "phone/agent/AgentData.h"
#include "phone/agent/Commands.h"

namespace quorvi::phone {
namespace {

// Whether there is one, and if so a length of 64 bits and the bytes.
void WritePicture(ReplyWriter& reply, const SharedBytes& picture) {
    reply.UInt32(picture ? 1 : 0);
    if (picture) {
        reply.UInt64(picture->size()).Raw(*picture);
    }
}

void ListBookmarks(Exchange& exchange) {
    for (const Bookmark& bookmark : exchange.data.bookmarks.bookmarks) {
        exchange.reply.UInt64(bookmark.id)
            .Text(bookmark.title)
            .Text(bookmark.url)
            .UInt32(bookmark.visits)
            .UInt64(bookmark.lastVisit);
        WritePicture(exchange.reply, bookmark.favicon);
        WritePicture(exchange.reply, bookmark.thumbnail);
    }
}

// The fields that a new and a changed bookmark have in common.
Bookmark ReadBookmark(RequestReader& request) {
    Bookmark bookmark;
    bookmark.visits = request.UInt32();
    bookmark.title = request.Text();
    bookmark.url = request.Text();
    return bookmark;
}

std::string NoteOf(std::uint64_t id, const Bookmark& bookmark) {
    return fmt::format("bookmark {} \"{}\" {}", id, bookmark.title, bookmark.url);
}

void AddBookmark(Exchange& exchange) {
    exchange.ExpectOneItem();
    exchange.reply.Word(1);
    Bookmark bookmark = ReadBookmark(exchange.request);
    if (!exchange.request.Overran()) {
        const Bookmark& added = exchange.data.bookmarks.Add(std::move(bookmark));
        exchange.note = NoteOf(added.id, added);
    }
}

// Pictures and the last visit stay as they are.
void UpdateBookmark(Exchange& exchange) {
    exchange.ExpectOneItem();
    exchange.reply.Word(1);
    const std::uint32_t id = exchange.request.UInt32();
    Bookmark bookmark = ReadBookmark(exchange.request);
    Bookmark* known = exchange.data.bookmarks.Find(id);
    exchange.note = NoteOf(id, bookmark) + (known ? "" : ", unknown");
    if (known && !exchange.request.Overran()) {
        known->visits = bookmark.visits;
        known->title = std::move(bookmark.title);
        known->url = std::move(bookmark.url);
    }
}

void DeleteBookmarks(Exchange& exchange) {
    exchange.reply.Word(1);
    exchange.note = "bookmarks";
    for (std::uint32_t i = 0; i < exchange.items && !exchange.request.Overran(); ++i) {
        const std::uint32_t id = exchange.request.UInt32();
        exchange.note += fmt::format(" {}", id);
        if (!exchange.request.Overran()) {
            std::erase_if(exchange.data.bookmarks.bookmarks,
                          [&](const Bookmark& bookmark) { return bookmark.id == id; });
        }
    }
}

constexpr std::array kRows{
    AgentCommandRow{AgentCommand::listBookmarks, "listBookmarks", RequestForm::bare, ListBookmarks},
    AgentCommandRow{AgentCommand::addBookmark, "addBookmark", RequestForm::framed, AddBookmark},
    AgentCommandRow{AgentCommand::updateBookmark, "updateBookmark", RequestForm::framed,
                    UpdateBookmark},
    AgentCommandRow{AgentCommand::deleteBookmarks, "deleteBookmarks", RequestForm::framed,
                    DeleteBookmarks},
};

}  // namespace

std::span<const AgentCommandRow> BookmarkCommands() {
    return kRows;
}

}  // namespace quorvi::phone
