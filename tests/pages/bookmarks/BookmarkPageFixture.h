// The bookmark page with an agent that knows some bookmarks, and a desktop that only notes what it
// is to open.
#pragma once

#include <QLineEdit>

#include "pages/bookmarks/BookmarkPage.h"
#include "tests/pages/bookmarks/BookmarkReplies.h"
#include "tests/support/AgentPageTest.h"
#include "tests/support/ControlDriver.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/OpenedAddresses.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {

class BookmarkPage : public AgentPageTest<CBookmarkPage, AgentCommand::listBookmarks> {
  protected:
    // Dialogs that the page opens, and their buttons.
    static constexpr int kEditor = 553;
    static constexpr int kConfirm = 548;
    static constexpr int kNothingChecked = 682;
    static constexpr int kOk = 1215;
    static constexpr int kCancel = 1021;

    static constexpr int kOpenColumn = 5;

    const std::vector<ListedBookmark> three_{
        {.id = 0x500000007},
        {.id = 8, .title = "词典", .url = "http://dict.example/", .visits = 0, .lastVisit = 0},
        {.id = 9, .title = "", .url = "https://untitled.example/"},
    };

    void SetUp() override {
        agent_.AnswerPayload(AgentCommand::listBookmarks, BookmarksPayload(three_).Get());
        agent_.AnswerAcknowledged(AgentCommand::addBookmark);
        agent_.AnswerAcknowledged(AgentCommand::updateBookmark);
        agent_.AnswerAcknowledged(AgentCommand::deleteBookmarks);
    }

    CBookmarkPage& OpenAt(std::uint16_t port) {
        MakeAt(port).show();
        return *page_;
    }
    CBookmarkPage& Open() { return OpenAt(agent_.Port()); }
    CBookmarkPage& OpenLoaded() {
        CBookmarkPage& page = Open();
        page.Load();
        WaitForLoads(1);
        return page;
    }
    CBookmarkPage& OpenLoaded(const std::vector<ListedBookmark>& bookmarks) {
        agent_.AnswerPayload(AgentCommand::listBookmarks, BookmarksPayload(bookmarks).Get());
        return OpenLoaded();
    }

    CBookmarkListCtrl& List() { return *FindControl<CBookmarkListCtrl>(page_.get(), 1074); }
    Cell At(int row, int column) { return List().CellAt(row, column); }
    void Click(int row) { ClickCell(List(), row, 1); }
    void LoadAgain() {
        page_->Load();
        ASSERT_TRUE(WaitFor([&] { return List().State() != ListState::loading; }));
    }
    // Waits for the editor that a command or a click opens.
    SkinDialog* Editor() {
        EXPECT_TRUE(WaitFor([] { return OpenDialog(kEditor) != nullptr; }));
        return OpenDialog(kEditor);
    }
    QLineEdit& Title() { return *FindControl<QLineEdit>(Editor(), 1257); }
    QString State() { return Editor()->findChild<CSkinStateLabel*>()->text(); }
    // Ends the editor, and lets all come to its end that follows.
    void EndBy(int button) {
        PressIn(kEditor, button);
        ASSERT_TRUE(WaitFor([] { return OpenDialog(kEditor) == nullptr; }));
        Settle();
    }
    std::optional<std::uint32_t> Selected() { return host_.selection.Id(PageSelection::kBookmark); }

    OpenedAddresses opened_{{QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("ftp"),
                             QStringLiteral("file"), QStringLiteral("javascript"),
                             QStringLiteral("data"), QStringLiteral("qvh"), QStringLiteral("x")}};
};

}  // namespace quorvi
