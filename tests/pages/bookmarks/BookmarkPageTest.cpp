#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <cstdlib>
#include <ctime>

#include "phone/agent/HostileTexts.h"
#include "tests/pages/bookmarks/BookmarkPageFixture.h"
#include "tests/support/Contrast.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/PictureFiles.h"

namespace quorvi {
namespace {

TEST_F(BookmarkPage, NumbersAreTheControls) {
    CBookmarkPage& page = Open();
    EXPECT_EQ(page.objectName(), QStringLiteral("dialog 376"));
    EXPECT_EQ(CBookmarkPage::kNumbers.loadKey, 7);
    EXPECT_EQ(CBookmarkPage::kNumbers.page, 16);
    EXPECT_NE(FindControl(&page, 1074), nullptr);
    Settle();
    EXPECT_EQ(Loads(), 0u);  // the navigator loads it, not the page itself
}

TEST_F(BookmarkPage, ColumnsAreAsTold) {
    Open();
    const std::vector<std::pair<std::u8string_view, int>> columns{
        {u8"缩略图", 60}, {u8"名称和网址", 246},         {u8"存储状态", 120},
        {u8"计数", 44},   {u8"上次访问时间、间隔", 160}, {u8"立即访问", 66},
        {u8"选择", 44}};
    ASSERT_EQ(List().ColumnCount(), 7);
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(List().Column(i).caption, columns[static_cast<std::size_t>(i)].first);
        EXPECT_EQ(List().Column(i).width, columns[static_cast<std::size_t>(i)].second);
        EXPECT_EQ(List().Column(i).align, i == 4 ? CellAlign::left : CellAlign::centre);
    }
    EXPECT_EQ(List().selectionBehavior(), QAbstractItemView::SelectRows);
}

TEST_F(BookmarkPage, ControlsOfASecondStoreAreThereAndHidden) {
    CBookmarkPage& page = OpenLoaded();
    auto* store = FindControl<QComboBox>(&page, 1073);
    QStringList entries;
    for (int i = 0; i < store->count(); ++i) {
        entries.append(store->itemText(i));
    }
    EXPECT_EQ(entries, (QStringList{ToQString(u8"所有类型"), ToQString(u8"仅手机上的"),
                                    ToQString(u8"仅电脑上的"), ToQString(u8"电脑和手机")}));
    EXPECT_EQ(FindControl<QAbstractButton>(&page, 1075)->text(), ToQString(u8"更新缓存"));
    EXPECT_EQ(FindControl<QAbstractButton>(&page, 1076)->text(), ToQString(u8"同步书签"));
    for (const int number : {1073, 1075, 1076}) {
        EXPECT_TRUE(FindControl(&page, number)->isHidden()) << number;
    }
    const auto labels = page.findChildren<QLabel*>(Qt::FindDirectChildrenOnly);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels[0]->text(), ToQString(u8"显示类型"));
    EXPECT_TRUE(labels[0]->isHidden());
    // The filter filters nothing, and the cache has nothing to update.
    store->setCurrentIndex(2);
    FindControl<QAbstractButton>(&page, 1075)->click();
    Settle();
    EXPECT_EQ(List().RowCount(), 3);
    EXPECT_EQ(agent_.Requests().size(), 1u);
}

TEST_F(BookmarkPage, TheHiddenButtonOfTheSyncOpensItsDialogWhichOnlyEnds) {
    CBookmarkPage& page = Open();
    FindControl<QAbstractButton>(&page, 1076)->click();
    SkinDialog* sync = OpenDialog(554);
    ASSERT_NE(sync, nullptr);
    EXPECT_EQ(sync->windowTitle(), ToQString(u8"同步收藏夹 - Quorvi"));
    auto* manner = FindControl<QComboBox>(sync, 1287);
    ASSERT_EQ(manner->count(), 3);
    EXPECT_EQ(manner->itemText(0), ToQString(u8"电脑同步到手机"));
    EXPECT_EQ(manner->itemText(1), ToQString(u8"手机同步到电脑"));
    EXPECT_EQ(manner->itemText(2), ToQString(u8"电脑和手机双向"));
    EXPECT_EQ(manner->currentIndex(), 0);
    PressIn(554, kOk);
    EXPECT_EQ(OpenDialog(554), sync);
    PressIn(554, kCancel);
    ASSERT_TRUE(WaitFor([] { return OpenDialog(554) == nullptr; }));
    Settle();
    EXPECT_TRUE(agent_.Requests().empty());
}

TEST_F(BookmarkPage, LoadShowsEachBookmarkInItsRowInTheOrderOfTheAgent) {
    setenv("TZ", "Asia/Shanghai", 1);
    tzset();
    OpenLoaded();
    ASSERT_EQ(List().RowCount(), 3);
    EXPECT_EQ(At(0, 1).text, ToQString(u8"天气"));
    EXPECT_EQ(At(0, 1).second, QStringLiteral("http://weather.example/"));
    EXPECT_EQ(At(0, 3).text, ToQString(u8"3 次"));
    EXPECT_EQ(At(0, 4).text, QStringLiteral("2011-06-18 09:42:10"));
    EXPECT_EQ(At(0, 5).icon, QStringLiteral("open-external"));
    EXPECT_EQ(At(0, 5).text, QString());
    EXPECT_EQ(At(2, 1).text, QString());
    for (int row = 0; row < 3; ++row) {
        EXPECT_EQ(At(row, 2).text, ToQString(u8"仅手机上的"));
    }
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().CurrentRow(), -1);
    EXPECT_TRUE(host_.statuses.isEmpty());
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(BookmarkPage, ABookmarkWithoutAVisitShowsZeroAndNever) {
    OpenLoaded();
    EXPECT_EQ(At(1, 3).text, ToQString(u8"0 次"));
    EXPECT_EQ(At(1, 4).text, ToQString(u8"从未"));
}

TEST_F(BookmarkPage, TheThumbnailIsShownAndTheFaviconDropped) {
    const std::string picture = Png(8, 8, 0xFF00FF00);
    OpenLoaded({{.favicon = "no picture", .thumbnail = picture},
                {.id = 8, .favicon = picture},
                {.id = 9, .thumbnail = "no picture"}});
    page_->grab();
    EXPECT_EQ(List().PictureAt(0).bytes, picture);
    EXPECT_EQ(List().PictureAt(1).bytes, "");
    EXPECT_EQ(List().PictureAt(1).plate, u"file-web");
    EXPECT_EQ(At(2, 1).text, ToQString(u8"天气"));
}

TEST_F(BookmarkPage, TextsReadOnEveryGroundOfARow) {
    OpenLoaded();
    ExpectReadableRows(List());
}

TEST_F(BookmarkPage, InAWideWindowTheNamesTakeWhatIsLeft) {
    OpenLoaded();
    const int before = List().columnWidth(1);
    page_->resize(page_->width() + 400, page_->height());
    EXPECT_EQ(List().columnWidth(1), before + 400);
    EXPECT_EQ(List().columnWidth(6), 44);
}

TEST_F(BookmarkPage, CountsItsRowsAndTicks) {
    OpenLoaded();
    List().SetTicked(1, true);
    EXPECT_TRUE(WaitFor([&] { return page_->CountLine() == ToQString(u8"共 3 项 · 已选 1 项"); }));
}

TEST_F(BookmarkPage, WhileItLoadsTheListIsClearedWithoutRedrawAndARefreshIsDropped) {
    CBookmarkPage& page = OpenLoaded();
    List().SetTicked(0, true);
    agent_.Hold(AgentCommand::listBookmarks);
    page.OnCommand(CBookmarkPage::commandRefresh);
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::loading);
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kRunning; }));
    page.OnCommand(CBookmarkPage::commandRefresh);
    agent_.Release();
    WaitForLoads(2);
    EXPECT_TRUE(List().Redraw());
    EXPECT_TRUE(List().TickedRows().empty());
    Settle();
    EXPECT_EQ(Loads(), 2u);
}

TEST_F(BookmarkPage, ConnectFailureIsToldAndRedrawGoesOn) {
    OpenAt(UnusedPort()).Load();
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::failed);
}

// Replies that end the worker early.
class BookmarkPageEarlyEnd : public BookmarkPage,
                             public testing::WithParamInterface<ScriptedAgent::Reply> {};

TEST_P(BookmarkPageEarlyEnd, LeavesRedrawOffUntilALaterLoadGetsFurther) {
    OpenLoaded();
    agent_.Answer(AgentCommand::listBookmarks, GetParam());
    LoadAgain();
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_EQ(Key(), PageLoadState::kEnded);
    EXPECT_TRUE(host_.statuses.isEmpty());
    agent_.AnswerPayload(AgentCommand::listBookmarks, BookmarksPayload(three_).Get());
    LoadAgain();
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 3);
}

INSTANTIATE_TEST_SUITE_P(
    NoData_Closed_Broken, BookmarkPageEarlyEnd,
    testing::Values(ScriptedAgent::Reply{Word(NoDataMark)}, ScriptedAgent::Reply{Bytes{}},
                    ScriptedAgent::Reply{Join({Word(100), Word(0)}), ScriptedAgent::End::reset}));

TEST_F(BookmarkPage, AnAbsentTitleLeavesAnEmptyRowAndNoRedraw) {
    WireBytes bytes = BookmarksPayload({{}});
    bytes.U64(8).Absent();  // a bookmark whose title is absent
    agent_.AnswerPayload(AgentCommand::listBookmarks, bytes.Get());
    OpenLoaded();
    ASSERT_EQ(List().RowCount(), 2);
    EXPECT_FALSE(List().Redraw());
    for (int column = 0; column < 6; ++column) {
        EXPECT_EQ(At(1, column).text + At(1, column).second + At(1, column).icon, QString());
    }
    // Nothing of it can be changed, opened or deleted.
    List().SelectRow(1);
    EXPECT_EQ(Selected(), std::nullopt);
    List().SetTicked(1, true);
    page_->OnCommand(CBookmarkPage::commandDelete);
    EXPECT_NE(OpenDialog(kNothingChecked), nullptr);
    PressIn(kNothingChecked, kOk);
}

TEST_F(BookmarkPage, DeletingWithNothingTickedSaysSo) {
    OpenLoaded().OnCommand(CBookmarkPage::commandDelete);
    EXPECT_NE(OpenDialog(kNothingChecked), nullptr);
    PressIn(kNothingChecked, kOk);
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteBookmarks).empty());
}

TEST_F(BookmarkPage, DeletingTickedBookmarksAsksSendsTheirIdsAndLoadsAgain) {
    CBookmarkPage& page = OpenLoaded();
    List().SetTicked(0, true);
    List().SetTicked(2, true);
    page.OnCommand(CBookmarkPage::commandDelete);
    EXPECT_EQ(FindControl<QLabel>(OpenDialog(kConfirm), 1378)->text(),
              ToQString(u8"您真的要删除选择的【 2 】条浏览器书签项吗？"));
    PressIn(kConfirm, kOk);
    WaitForLoads(2);
    EXPECT_EQ(agent_.Requests(AgentCommand::deleteBookmarks),
              std::vector<Bytes>{Join({Word(870705), Word(20), Word(2), Word(7), Word(9)})});
}

TEST_F(BookmarkPage, AnythingButTheDeleteButtonDeletesNothing) {
    CBookmarkPage& page = OpenLoaded();
    List().SetTicked(0, true);
    page.OnCommand(CBookmarkPage::commandDelete);
    PressIn(kConfirm, kCancel);
    page.OnCommand(CBookmarkPage::commandDelete);
    OpenDialog(kConfirm)->close();
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteBookmarks).empty());
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(BookmarkPage, ADeleteThatFindsNoPhoneIsToldAndTheListIsLoadedAgain) {
    auto phone = std::make_unique<ScriptedAgent>();
    phone->AnswerPayload(AgentCommand::listBookmarks, BookmarksPayload(three_).Get());
    CBookmarkPage& page = OpenAt(phone->Port());
    page.Load();
    ASSERT_TRUE(WaitFor([&] { return List().RowCount() == 3; }));
    phone.reset();
    List().SetTicked(0, true);
    page.OnCommand(CBookmarkPage::commandDelete);
    PressIn(kConfirm, kOk);
    ASSERT_TRUE(WaitFor([&] { return host_.statuses.size() == 2; }));
    EXPECT_EQ(host_.statuses, (QStringList{kConnectError, kConnectError}));
    EXPECT_EQ(List().RowCount(), 0);
}

TEST_F(BookmarkPage, IsDisabledWhileADeleteIsOnItsWay) {
    CBookmarkPage& page = OpenLoaded();
    Click(0);
    List().SetTicked(0, true);
    agent_.Hold(AgentCommand::deleteBookmarks);
    page.OnCommand(CBookmarkPage::commandDelete);
    PressIn(kConfirm, kOk);
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::deleteBookmarks).empty(); }));
    EXPECT_FALSE(page.isEnabled());
    for (const int command : {CBookmarkPage::commandRefresh, CBookmarkPage::commandAdd,
                              CBookmarkPage::commandEdit, CBookmarkPage::commandDelete}) {
        page.OnCommand(command);
    }
    EXPECT_EQ(OpenDialog(kEditor), nullptr);
    EXPECT_EQ(OpenDialog(kConfirm), nullptr);
    agent_.Release();
    WaitForLoads(2);
    EXPECT_TRUE(page.isEnabled());
}

TEST_F(BookmarkPage, HostileTextsAreShownInOneLineAndGoBackAsTheyCame) {
    std::vector<ListedBookmark> bookmarks;
    for (const std::string& text : phone::HostileTexts()) {
        bookmarks.push_back({.id = bookmarks.size(), .title = text, .url = text});
    }
    bookmarks.push_back({.visits = 0xFFFFFFFF, .lastVisit = 0xFFFFFFFFFFFFFFFF});
    CBookmarkPage& page = OpenLoaded(bookmarks);
    ASSERT_EQ(List().RowCount(), static_cast<int>(bookmarks.size()));
    page.grab();
    for (int row = 0; row < List().RowCount(); ++row) {
        EXPECT_FALSE(At(row, 1).text.contains(QLatin1Char('\n'))) << row;
        EXPECT_LT(At(row, 1).text.size(), 10'000) << row;
        const BookmarkSettings expected = SettingsOf(FormOf(List().At(row)));
        const std::uint32_t id = List().At(row).id;
        Click(row);
        page.OnCommand(CBookmarkPage::commandEdit);
        Editor()->grab();
        EndBy(kOk);
        EXPECT_EQ(agent_.Requests(AgentCommand::updateBookmark).back(),
                  UpdateBookmarkRequest(id, expected))
            << row;
    }
}

TEST_F(BookmarkPage, MayGoWhileItsPhoneStalls) {
    GoWhileThePhoneStalls();
}

}  // namespace
}  // namespace quorvi
