// Where the keys go when the page changes.
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "app/window/PlaceholderPage.h"
#include "tests/app/window/MainDlgFixture.h"
#include "tests/support/SampleList.h"

namespace quorvi {
namespace {

constexpr int kListPage = 10;    // a button, and a list behind it
constexpr int kFormPage = 11;    // a box that is disabled, one that is hidden, and two more
constexpr int kPicturePage = 4;  // nothing that takes keys
constexpr int kUnbuilt = 13;     // has no maker

class ListPage : public ProbePage {
  public:
    using ProbePage::ProbePage;
    QPushButton* button = new QPushButton(this);
    SampleListCtrl* list = new SampleListCtrl(this);
};

class FormPage : public ProbePage {
  public:
    using ProbePage::ProbePage;
    QCheckBox* disabled = new QCheckBox(this);
    QCheckBox* hidden = new QCheckBox(this);
    QCheckBox* first = new QCheckBox(this);
    QCheckBox* second = new QCheckBox(this);
};

template <typename P>
MakePage MakerOf(const PageRow& row, void (*change)(P&)) {
    return [&row, change](PageHost& host, const Services&, QWidget* parent) {
        auto* page = new P(host, row.dialog, parent);
        page->loadKey = row.loadKey;
        change(*page);
        return page;
    };
}

class PageFocus : public MainDlgTest {
  protected:
    void SetUp() override {
        PageMakers makers = ProbePages();
        const PageRow& list = *FindPage(kListPage);
        const PageRow& form = *FindPage(kFormPage);
        makers[list.dialog] = MakerOf<ListPage>(list, [](ListPage&) {});
        makers[form.dialog] = MakerOf<FormPage>(form, [](FormPage& page) {
            page.disabled->setEnabled(false);
            page.hidden->hide();
        });
        makers.erase(FindPage(kUnbuilt)->dialog);
        MakeWindowOf(std::move(makers));
        ShowActive(*window_);
        Settle();
    }

    [[nodiscard]] ListPage& TheListPage() const { return dynamic_cast<ListPage&>(Probe(10)); }
    [[nodiscard]] FormPage& TheFormPage() const { return dynamic_cast<FormPage&>(Probe(11)); }
    [[nodiscard]] QLineEdit& Search() const {
        return *window_->findChild<QLineEdit*>(QStringLiteral("search"));
    }
    void GoTo(int page) { Send(Message::goToPage, page / 10, page); }
    static void Press(QWidget& control, Qt::Key key) {
        QTest::keyClick(&control, key);
        Settle();
    }
    // What the desktop sends while a key is held.
    static void Repeat(QWidget& control, Qt::Key key) {
        QKeyEvent repeat(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(&control, &repeat);
        Settle();
    }
    static void Wheel(QWidget& control, int turn) {
        const QPointF at = control.rect().center();
        QWheelEvent wheel(at, control.mapToGlobal(at), QPoint(), QPoint(0, turn), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&control, &wheel);
        Settle();
    }
};

TEST_F(PageFocus, TheWindowStartsWithItsTabs) {
    EXPECT_EQ(QApplication::focusWidget(), &TabsOf(*window_));
}

TEST_F(PageFocus, IsOnTheListAfterAClickOnATab) {
    Search().setFocus();
    ClickTab(*window_, 1);
    Settle();
    EXPECT_EQ(QApplication::focusWidget(), TheListPage().list);
}

TEST_F(PageFocus, IsOnTheFirstControlThatTakesItAfterAClickOnAnItem) {
    ClickTab(*window_, 1);
    Settle();
    ClickItem(*window_, 1);
    Settle();
    EXPECT_EQ(QApplication::focusWidget(), TheFormPage().first);
}

TEST_F(PageFocus, IsInThePageAfterAnArrowKey) {
    TabsOf(*window_).setFocus();
    Press(TabsOf(*window_), Qt::Key_Right);
    EXPECT_EQ(QApplication::focusWidget(), TheListPage().list);
    ItemsOf(*window_).setFocus();
    Press(ItemsOf(*window_), Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), TheFormPage().first);
}

TEST_F(PageFocus, IsInThePageThatASearchLeadsTo) {
    Search().setFocus();
    Search().setText(QStringLiteral("map"));
    Press(Search(), Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), &Probe(20));
}

TEST_F(PageFocus, IsOnThePageItselfWhereNothingElseTakesIt) {
    GoTo(kListPage);
    GoTo(kPicturePage);
    EXPECT_EQ(QApplication::focusWidget(), &Probe(kPicturePage));
    GoTo(21);
    EXPECT_EQ(QApplication::focusWidget(), window_->ShownPage());
}

TEST_F(PageFocus, NeverPassesThroughTheSearchBox) {
    GoTo(kListPage);
    TheListPage().list->setFocus();
    bool searched = false;
    const auto watch =
        QObject::connect(qApp, &QApplication::focusChanged,
                         [&](QWidget*, QWidget* now) { searched = searched || now == &Search(); });
    for (const PageRow& row : kPages) {
        Send(Message::goToPage, TabOf(row), row.page);
    }
    QObject::disconnect(watch);
    EXPECT_FALSE(searched);
}

TEST_F(PageFocus, StaysWithTheWindowWhileAChangeOfThePageIsOnItsWay) {
    TheListPage().setEnabled(false);
    GoTo(kListPage);
    EXPECT_EQ(QApplication::focusWidget(), window_.get());
}

TEST_F(PageFocus, AKeyThatIsHeldDoesNothingInThePageThatItLedTo) {
    TheListPage().list->SetRecords(SampleRecords(5));
    TabsOf(*window_).setFocus();
    Press(TabsOf(*window_), Qt::Key_Right);
    SampleListCtrl& list = *TheListPage().list;
    list.SelectRow(0);
    Repeat(list, Qt::Key_Down);
    EXPECT_EQ(list.CurrentRow(), 0);
    Press(list, Qt::Key_Down);
    EXPECT_EQ(list.CurrentRow(), 1);
    Repeat(list, Qt::Key_Down);
    EXPECT_EQ(list.CurrentRow(), 2);
}

TEST_F(PageFocus, TheWheelTurnsNoTab) {
    for (const int turn : {-120, 120, -120}) {
        Wheel(TabsOf(*window_), turn);
        EXPECT_EQ(window_->MainPage(), 0);
        EXPECT_EQ(TabsOf(*window_).currentIndex(), 0);
    }
    EXPECT_FALSE(window_->LoadState().Contains(FindPage(kListPage)->loadKey));
}

TEST_F(PageFocus, APageThatIsNotBuiltHasItsHeadingAndNoCommands) {
    GoTo(kUnbuilt);
    ASSERT_NE(dynamic_cast<PlaceholderPage*>(window_->ShownPage()), nullptr);
    for (const int control : CommandRow::kButtons) {
        EXPECT_FALSE(Find(control).isVisible()) << control;
    }
    const auto& heading = *window_->findChild<QLabel*>(QStringLiteral("heading"));
    EXPECT_TRUE(heading.isVisible());
    EXPECT_EQ(heading.text(), ToQString(u8"闹铃管理"));
    GoTo(kListPage);
    EXPECT_TRUE(Find(CommandRow::kButtons[3]).isVisible());
    EXPECT_FALSE(heading.isVisible());
}

}  // namespace
}  // namespace quorvi
