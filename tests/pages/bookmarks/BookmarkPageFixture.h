// The bookmark page with an agent that knows some bookmarks, and a desktop that only notes what it
// is to open.
#pragma once

#include <QLineEdit>

#include "pages/bookmarks/BookmarkPage.h"
#include "tests/pages/bookmarks/BookmarkReplies.h"
#include "tests/support/EditorPageTest.h"
#include "tests/support/KeptDeletes.h"
#include "tests/support/OpenedAddresses.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {

class BookmarkPage : public EditorPageTest<CBookmarkPage, AgentCommand::listBookmarks,
                                           CBookmarkListCtrl, 1074, 553> {
  protected:
    static constexpr int kOpenColumn = 5;

    const std::vector<ListedBookmark> three_{
        {.id = 0x500000007},
        {.id = 8, .title = "词典", .url = "http://dict.example/", .visits = 0, .lastVisit = 0},
        {.id = 9, .title = "", .url = "https://untitled.example/"},
    };

    void SetUp() override {
        agent_.AnswerPayload(AgentCommand::listBookmarks, ListBytes());
        agent_.AnswerAcknowledged(AgentCommand::addBookmark);
        agent_.AnswerAcknowledged(AgentCommand::updateBookmark);
        agent_.AnswerAcknowledged(AgentCommand::deleteBookmarks);
    }

    using EditorPageTest::OpenLoaded;
    CBookmarkPage& OpenLoaded(const std::vector<ListedBookmark>& bookmarks) {
        return EditorPageTest::OpenLoaded(BookmarksPayload(bookmarks));
    }

    // What the phone lists.
    [[nodiscard]] Bytes ListBytes() const { return BookmarksPayload(three_).Get(); }

    KeptDeletes kept_;
    QLineEdit& Title() { return *FindControl<QLineEdit>(Editor(), 1257); }
    std::optional<std::uint32_t> Selected() { return host_.selection.Id(PageSelection::kBookmark); }

    OpenedAddresses opened_{{QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("ftp"),
                             QStringLiteral("file"), QStringLiteral("javascript"),
                             QStringLiteral("data"), QStringLiteral("qvh"), QStringLiteral("x")}};
};

}  // namespace quorvi
