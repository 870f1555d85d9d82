// The navigator, driven by control number.
#include <QAbstractButton>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTabBar>

#include "tests/app/window/MainDlgFixture.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

// Counts how often a widget is painted.
class PaintsOf : public QObject {
  public:
    int painted = 0;

    explicit PaintsOf(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        painted += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

class Navigator : public MainDlgTest {
  protected:
    void SetUp() override { MakeWindow(); }

    [[nodiscard]] QTabBar& Tabs() const { return TabsOf(*window_); }
    [[nodiscard]] QListWidget& Items() const { return ItemsOf(*window_); }
    [[nodiscard]] QLineEdit& Search() const {
        return *window_->findChild<QLineEdit*>(QStringLiteral("search"));
    }
    void ClickTab(int tab) {
        quorvi::ClickTab(*window_, tab);
        Settle();
    }
    void ClickItem(int item) {
        quorvi::ClickItem(*window_, item);
        Settle();
    }
    [[nodiscard]] std::vector<QString> Captions() const {
        std::vector<QString> captions;
        for (const int control : {1013, 1014, 1015, 1050}) {
            const auto& button = Find<QAbstractButton>(control);
            captions.push_back(button.isVisible() ? button.text() : QString());
        }
        return captions;
    }
    void SearchFor(const QString& text) {
        Search().setText(text);
        QTest::keyClick(&Search(), Qt::Key_Return);
        Settle();
    }
};

TEST_F(Navigator, StartsOnPageZero) {
    EXPECT_EQ(window_->MainPage(), 0);
    EXPECT_EQ(VisiblePages(), std::vector{130});
    EXPECT_EQ(Items().currentRow(), 0);
    EXPECT_EQ(Tabs().currentIndex(), 0);
}

TEST_F(Navigator, TheWaveOfTheWelcomeTabLeavesTheItemsAlone) {
    const auto pixel = [this](int y) {
        const QPoint right(Items().viewport()->width() - 2, y);
        return window_->grab().toImage().pixelColor(Items().viewport()->mapTo(&*window_, right));
    };
    const QRect last = Items().visualItemRect(Items().item(Items().count() - 1));
    for (const int height : {look::Metric::windowHeight, look::Metric::windowLeastHeight}) {
        window_->resize(look::Metric::windowWidth, height);
        Settle();
        const QColor ground = pixel(0);
        EXPECT_EQ(pixel(last.center().y()), ground) << height;
        EXPECT_EQ(pixel(last.bottom()), ground) << height;
    }
    window_->resize(look::Metric::windowWidth, look::Metric::windowHeight);
    Settle();
    EXPECT_NE(pixel(Items().viewport()->height() - 2), pixel(0));
}

TEST_F(Navigator, AllPagesAreMadeAtTheStartAndHidden) {
    EXPECT_EQ(window_->findChildren<Page*>().size(), 35);  // 21 and 22 share one; 640 is one more
    EXPECT_EQ(VisiblePages().size(), 1U);
}

TEST_F(Navigator, EachPageIsTheOneThatIsSeen) {
    for (const PageRow& row : kPages) {
        Send(Message::goToPage, TabOf(row), row.page);
        EXPECT_EQ(VisiblePages(), std::vector{row.dialog});
        EXPECT_EQ(Tabs().currentIndex(), TabOf(row));
        EXPECT_EQ(Items().currentRow(), ItemOf(row));
        EXPECT_EQ(Items().currentItem()->text(), ToQString(ItemCaption(row).caption));
    }
}

TEST_F(Navigator, DialogSixHundredFortyIsMadeAndNeverShown) {
    const Page* never = window_->PageOfDialog(640);
    ASSERT_NE(never, nullptr);
    for (const PageRow& row : kPages) {
        Send(Message::goToPage, TabOf(row), row.page);
        EXPECT_FALSE(never->isVisible());
    }
}

TEST_F(Navigator, Pages21And22ShowTheSameWindow) {
    Send(Message::goToPage, 2, 21);
    const Page* first = window_->ShownPage();
    Send(Message::goToPage, 2, 22);
    EXPECT_EQ(window_->ShownPage(), first);
    EXPECT_EQ(Items().currentRow(), 2);
}

TEST_F(Navigator, ATabShowsTheItemLastShownInItAndItemZeroAtFirst) {
    ClickTab(1);
    EXPECT_EQ(window_->MainPage(), 10);
    ClickItem(4);
    EXPECT_EQ(window_->MainPage(), 14);
    ClickTab(4);
    EXPECT_EQ(window_->MainPage(), 40);
    ClickTab(1);
    EXPECT_EQ(window_->MainPage(), 14);
    EXPECT_EQ(Items().currentRow(), 4);
}

TEST_F(Navigator, ComingBackByHandFromAGoToPageReturnsToTheFormerItem) {
    ClickTab(1);
    ClickItem(2);
    Send(Message::goToPage, 0, 5);
    EXPECT_EQ(window_->MainPage(), 5);
    ClickTab(1);
    EXPECT_EQ(window_->MainPage(), 12);
}

TEST_F(Navigator, AClickOnTheSelectedTabGoesBackToItsItem) {
    Send(Message::goToPage, 0, 5);
    EXPECT_EQ(window_->MainPage(), 5);
    ClickTab(0);
    EXPECT_EQ(window_->MainPage(), 0);
}

TEST_F(Navigator, AnUnknownPageShowsNothingNew) {
    Send(Message::goToPage, 2, 20);
    for (const int page : {51, 52, 7, -1}) {
        Send(Message::goToPage, 5, page);
        EXPECT_EQ(window_->MainPage(), 20);
        EXPECT_EQ(VisiblePages(), std::vector{322});
        EXPECT_EQ(Tabs().currentIndex(), 2);
    }
}

TEST_F(Navigator, KeysMoveThroughTabsAndItems) {
    Tabs().setFocus();
    QTest::keyClick(&Tabs(), Qt::Key_Right);
    Settle();
    EXPECT_EQ(window_->MainPage(), 10);
    Items().setFocus();
    QTest::keyClick(&Items(), Qt::Key_Down);
    Settle();
    EXPECT_EQ(window_->MainPage(), 11);
}

TEST_F(Navigator, AssistiveToolsChooseItemsBySelection) {
    const auto row = [&](int item) { return Items().model()->index(item, 0); };
    Items().selectionModel()->select(row(2), QItemSelectionModel::ClearAndSelect);
    Settle();
    EXPECT_EQ(window_->MainPage(), 2);
    Items().selectionModel()->select(row(2), QItemSelectionModel::Toggle);
    Settle();
    EXPECT_EQ(window_->MainPage(), 2);
    EXPECT_TRUE(Items().selectionModel()->isSelected(row(2)));
}

TEST_F(Navigator, APageLoadsAtItsFirstShowAndNeverAgainByItself) {
    Send(Message::goToPage, 1, 10);
    EXPECT_EQ(Probe(10).loads, 1);
    Send(Message::goToPage, 1, 11);
    Send(Message::goToPage, 1, 10);
    EXPECT_EQ(Probe(10).loads, 1);
}

TEST_F(Navigator, APageWhoseKeyIsThereDoesNotLoad) {
    window_->LoadState().Set(9, PageLoadState::kEnded);
    window_->LoadState().Set(8, PageLoadState::kRunning);
    Send(Message::goToPage, 2, 20);
    Send(Message::goToPage, 3, 30);
    EXPECT_EQ(Probe(20).loads, 0);
    EXPECT_EQ(Probe(30).loads, 0);
}

TEST_F(Navigator, APageWithoutAKeyIsNeverLoadedByTheNavigator) {
    Send(Message::goToPage, 0, 4);
    Send(Message::goToPage, 1, 14);
    EXPECT_EQ(Probe(4).loads, 0);
    EXPECT_EQ(Probe(14).loads, 0);
}

TEST_F(Navigator, TheRefreshButtonLoadsWhateverTheLoadStateSays) {
    Send(Message::goToPage, 1, 10);
    Click(1013);
    EXPECT_EQ(Probe(10).loads, 2);
    EXPECT_TRUE(Probe(10).commands.empty());
}

TEST_F(Navigator, OtherButtonsAreThePagesOwn) {
    Send(Message::goToPage, 1, 10);
    Click(1014);
    Click(1015);
    Click(1050);
    EXPECT_EQ(Probe(10).commands, (std::vector{1, 2, 3}));
}

TEST_F(Navigator, MoreActionsOfTheMessagesPageDoesNothing) {
    Send(Message::goToPage, 1, 11);
    EXPECT_TRUE(Find(1015).isVisible());
    Click(1015);
    EXPECT_TRUE(Probe(11).commands.empty());
    EXPECT_EQ(Probe(11).loads, 1);
}

// A page is disabled while a change is on its way to the phone.
TEST_F(Navigator, ADisabledPageHearsOfNoButton) {
    ClickTab(1);
    Probe(10).setEnabled(false);
    const int before = Probe(10).loads;
    Click(1013);
    Click(1050);
    EXPECT_EQ(Probe(10).loads, before);
    EXPECT_TRUE(Probe(10).commands.empty());
    Probe(10).setEnabled(true);
    Click(1013);
    EXPECT_EQ(Probe(10).loads, before + 1);
}

TEST_F(Navigator, ButtonsCarryTheCaptionsOfThePageAndAreHiddenWithoutOne) {
    Send(Message::goToPage, 4, 43);
    EXPECT_EQ(Captions(), (std::vector{ToQString(u8"刷新自启动项"), ToQString(u8"展开全部项"),
                                       ToQString(u8"收起全部项"), QString()}));
    Send(Message::goToPage, 2, 20);
    EXPECT_EQ(Captions(), (std::vector{ToQString(u8"返回上一页"), ToQString(u8"商城主页"),
                                       QString(), QString()}));
    Send(Message::goToPage, 3, 31);
    EXPECT_EQ(Captions(), std::vector<QString>(4));
}

TEST_F(Navigator, APageWithoutButtonsShowsItsHeading) {
    const auto& heading = *window_->findChild<QLabel*>(QStringLiteral("heading"));
    Send(Message::goToPage, 2, 21);
    EXPECT_TRUE(heading.isVisible());
    EXPECT_EQ(heading.text(), ToQString(u8"音乐铃声"));
    Send(Message::goToPage, 1, 10);
    EXPECT_FALSE(heading.isVisible());
}

TEST_F(Navigator, ASearchOfTwoCharactersGoesToTheStore) {
    SearchFor(ToQString(u8"地图"));
    EXPECT_EQ(Probe(20).searches, QStringList{ToQString(u8"地图")});
    EXPECT_EQ(window_->MainPage(), 20);
    EXPECT_EQ(tray_.balloons.size(), 1U);  // the welcome alone
}

TEST_F(Navigator, ASearchOfOneCharacterGoesNowhereButTheBalloonIsShown) {
    for (const QString& text : {ToQString(u8"图"), QStringLiteral("a"), QString()}) {
        tray_.balloons.clear();
        SearchFor(text);
        EXPECT_EQ(window_->MainPage(), 0);
        EXPECT_TRUE(Probe(20).searches.isEmpty());
        ASSERT_EQ(tray_.balloons.size(), 1U);
        EXPECT_EQ(tray_.balloons[0],
                  (Balloon{ToQString(u8"Quorvi软件店搜索"),
                           ToQString(u8"关键字【") + text + ToQString(u8"】过短，请换个长些的")}));
    }
}

TEST_F(Navigator, PageCommandOpensTheDeviceManager) {
    steps_.clear();
    Send(Message::pageCommand, 0);
    EXPECT_EQ(steps_, std::vector<std::string>{"devices:"});
}

TEST_F(Navigator, PageCommandSendsAnItemNumberToTheStorePage) {
    Send(Message::pageCommand, 1, 4711);
    EXPECT_EQ(window_->MainPage(), 20);
    EXPECT_EQ(Probe(20).messages, (std::vector{std::pair{Message::openStoreItem, 4711}}));
}

TEST_F(Navigator, PageCommandStartsACapture) {
    Send(Message::pageCommand, 2);
    EXPECT_EQ(window_->MainPage(), 44);
    EXPECT_EQ(Probe(44).messages, (std::vector{std::pair{Message::startCapture, 0}}));
}

TEST_F(Navigator, PageCommandRefreshesTheDownloadPage) {
    Send(Message::pageCommand, 3);
    EXPECT_EQ(Probe(5).loads, 1);
    EXPECT_EQ(window_->MainPage(), 0);
}

TEST_F(Navigator, PageCommandRepaintsTheContentFrame) {
    auto* content = window_->findChild<QWidget*>(QStringLiteral("content"));
    const PaintsOf paints(*content);
    ASSERT_EQ(paints.painted, 0);
    Send(Message::pageCommand, 4);
    EXPECT_TRUE(WaitFor([&] { return paints.painted > 0; }));
}

TEST_F(Navigator, UnknownPageCommandsChangeNothing) {
    Send(Message::goToPage, 1, 10);
    steps_.clear();
    for (const int command : {5, -1, 1275}) {
        Send(Message::pageCommand, command, 1);
        EXPECT_EQ(window_->MainPage(), 10);
        EXPECT_EQ(VisiblePages(), std::vector{132});
    }
    EXPECT_TRUE(steps_.empty());
    for (const int page : {5, 10, 20, 44}) {
        EXPECT_EQ(Probe(page).loads, page == 10 ? 1 : 0);
        EXPECT_TRUE(Probe(page).messages.empty());
    }
}

TEST_F(Navigator, TheDownloadPagesItemCarriesTheTaskCount) {
    const auto badge = [&](int item) { return Items().item(item)->data(Qt::UserRole + 1).toInt(); };
    services_.taskCount.Set(4);
    ASSERT_TRUE(WaitFor([&] { return badge(5) == 4; }));
    EXPECT_EQ(badge(4), 0);
    ClickTab(1);
    EXPECT_EQ(badge(5), 0);
    ClickTab(0);
    EXPECT_EQ(badge(5), 4);
    services_.taskCount.Set(0);
    EXPECT_TRUE(WaitFor([&] { return badge(5) == 0; }));
}

TEST_F(Navigator, PagesFillTheContentFrameAsTheWindowGrows) {
    EXPECT_EQ(window_->ShownPage()->size(), QSize(760, 462));
    window_->resize(window_->size() + QSize(240, 160));
    Settle();
    EXPECT_EQ(window_->ShownPage()->size(), QSize(1000, 622));
    Send(Message::goToPage, 1, 14);
    EXPECT_EQ(window_->ShownPage()->size(), QSize(1000, 622));
}

}  // namespace
}  // namespace quorvi
