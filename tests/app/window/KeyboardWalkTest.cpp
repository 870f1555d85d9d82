// A user without a mouse goes through the main window with the suite's own pages.
#include <QApplication>
#include <QLineEdit>
#include <algorithm>
#include <set>

#include "agent/AgentCommand.h"
#include "app/window/CaptionBar.h"
#include "app/window/KeysDlg.h"
#include "app/window/PageFactory.h"
#include "tests/pages/alarms/AlarmReplies.h"
#include "tests/pages/autostart/AutoStartReplies.h"
#include "tests/pages/bookmarks/BookmarkReplies.h"
#include "tests/pages/calls/CallReplies.h"
#include "tests/pages/contacts/ContactReplies.h"
#include "tests/pages/messages/MessageReplies.h"
#include "tests/pages/phoneinfo/SystemInfoReply.h"
#include "tests/pages/phonesettings/PhoneSettingsReplies.h"
#include "tests/support/HtmlDriver.h"
#include "tests/support/MainDoubles.h"
#include "tests/support/ScriptedAgent.h"
#include "tests/support/ScriptedSite.h"
#include "tests/support/WidgetTest.h"
#include "tests/support/WindowDriver.h"
#include "ui/kit/SkinDialog.h"
#include "ui/kit/SkinTree.h"
#include "ui/list/SkinListCtrl.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

// More presses of the Tab key than it takes to go once round a page.
constexpr int kMostStops = 120;

// The element of a page's view that its load fills.
struct Filled {
    int page;
    const char* element;
};
constexpr Filled kFilled[] = {{10, "block"}, {11, "sms_ul"}};

// The pages whose list is searched by Ctrl+F: downloads, contacts, calls, alarms, files, bookmarks,
// applications and processes.
constexpr int kSearched[] = {5, 10, 11, 12, 13, 15, 16, 30, 43, 45};

QString NameOf(const QWidget* widget) {
    return widget == nullptr ? QStringLiteral("nothing")
                             : QStringLiteral("%1 \"%2\" %3")
                                   .arg(QString::fromLatin1(widget->metaObject()->className()),
                                        widget->objectName(), widget->accessibleName());
}

// Where the keys are: in a widget, and in an HTML view on one of its links or on none (-1).
struct Stop {
    QWidget* widget = nullptr;
    int link = -1;
    bool operator==(const Stop&) const = default;
};

class KeyboardWalk : public WidgetTest, protected MainDoubles {
  protected:
    void SetUp() override {
        agent_.AnswerPayload(
            AgentCommand::listContacts,
            ListPayload({{.id = 11, .name = "林远舟"}, {.id = 12, .name = "顾晓棠"}}).Get());
        agent_.AnswerPayload(AgentCommand::readContact, ContactPayload(11, "林远舟").Get());
        agent_.AnswerPayload(AgentCommand::listConversations,
                             ConversationsPayload({{.id = 6}, {.id = 7}}).Get());
        agent_.AnswerPayload(AgentCommand::listCalls, CallsPayload({{}, {.id = 8}}).Get());
        agent_.AnswerPayload(AgentCommand::listAlarms, AlarmsPayload({{}, {.id = 8}}).Get());
        agent_.AnswerPayload(AgentCommand::listBookmarks, BookmarksPayload({{}, {.id = 8}}).Get());
        agent_.AnswerPayload(AgentCommand::systemInformation, WholeSystemInfo().Get());
        agent_.AnswerPayload(AgentCommand::readSettings, SettingsPayload().Get());
        agent_.AnswerPayload(AgentCommand::listAutoStart,
                             AutoStartPayload({{.event = 1}, {.event = 2}}).Get());
        services_.agent = AgentAddress(agent_.Port());
        store_.AnswerPage("<html><a href='/1'>one</a> <a href='qvh:a.apk'>two</a></html>");
        services_.deployment.storeRoot = store_.Root();
        MakeWindowOf(ThePageMakers());
        ShowActive(*window_);
        AwaitPage();
    }

    // Until all that the page has begun is there.
    void AwaitPage() {
        ASSERT_TRUE(WaitFor([&] {
            Settle();
            const auto views = Views();
            return RunningJobs() == 0 && std::ranges::all_of(views, [](const CHtmlCtrlBase* view) {
                       return view->Browser() != nullptr && !view->Browser()->url().isEmpty() &&
                              !view->Browser()->page()->isLoading();
                   });
        }));
        for (const auto& [page, element] : kFilled) {
            ASSERT_TRUE(
                window_->MainPage() != page || WaitFor([&, element = element] {
                    return !InnerHtml(*Views().constFirst(), QLatin1StringView(element)).isEmpty();
                }));
        }
    }
    [[nodiscard]] QList<CHtmlCtrlBase*> Views() const {
        return window_->ShownPage()->findChildren<CHtmlCtrlBase*>();
    }
    // The view in which the keys are, or null.
    [[nodiscard]] CHtmlCtrlBase* ViewOf(const QWidget* widget) const {
        const auto views = Views();
        const auto view = std::ranges::find_if(
            views, [&](const CHtmlCtrlBase* each) { return each->isAncestorOf(widget); });
        return view == views.end() ? nullptr : *view;
    }
    // What the Tab key can reach in the view of a page.
    static QString Links() {
        return QStringLiteral(
            "[...document.querySelectorAll('a[href],[tabindex]')]"
            ".filter(e => e.tabIndex >= 0 && e.getClientRects().length > 0)");
    }
    [[nodiscard]] Stop Here() const {
        QWidget* widget = QApplication::focusWidget();
        const CHtmlCtrlBase* view = widget == nullptr ? nullptr : ViewOf(widget);
        if (view == nullptr) {
            return {widget};
        }
        return {
            widget,
            AskHtml(*view, Links() + QStringLiteral(".indexOf(document.activeElement)")).toInt()};
    }
    [[nodiscard]] static int LinksIn(const CHtmlCtrlBase& view) {
        return AskHtml(view, Links() + QStringLiteral(".length")).toInt();
    }
    // Presses the Tab key; where it has led to. A view that has links is entered at one of them,
    // and left from one of them.
    Stop Tab(Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const Stop before = Here();
        QTest::keyClick(before.widget, modifiers == Qt::NoModifier ? Qt::Key_Tab : Qt::Key_Backtab,
                        modifiers);
        Stop now = before;
        EXPECT_TRUE(WaitFor([&] {
            now = Here();
            const CHtmlCtrlBase* view = ViewOf(now.widget);
            return now != before && (view == nullptr || now.link >= 0 || LinksIn(*view) == 0);
        })) << "no way on from "
            << NameOf(before.widget).toStdString();
        return now;
    }
    // Goes back until the keys are on a widget.
    void BackTo(QWidget& target) {
        for (int press = 0; press < kMostStops && QApplication::focusWidget() != &target; ++press) {
            Tab(Qt::ShiftModifier);
            if (HasFailure()) {
                return;
            }
        }
        ASSERT_EQ(QApplication::focusWidget(), &target);
    }
    // Changes the page by an arrow key in the tabs or the navigation.
    void Turn(QWidget& strip, Qt::Key key, int page) {
        ASSERT_NO_FATAL_FAILURE(BackTo(strip));
        QTest::keyClick(&strip, key);
        ASSERT_TRUE(WaitFor([&] { return window_->MainPage() == page; })) << page;
        AwaitPage();
    }

    // Each widget of the window on which the Tab key is to stop.
    [[nodiscard]] std::set<QWidget*> ControlsToReach() const {
        std::set<QWidget*> controls;
        const auto all = window_->findChildren<QWidget*>();
        for (QWidget* control : all) {
            if ((control->focusPolicy() & Qt::TabFocus) != 0 && control->isVisible() &&
                control->isEnabled() && control->focusProxy() == nullptr &&
                (ViewOf(control) == nullptr || ViewOf(control) == control)) {
                controls.insert(control);
            }
        }
        return controls;
    }
    // Goes once round the window by the Tab key, and expects to meet every control of it and every
    // link of its views.
    void GoRound() {
        const Stop start =
            Tab();  // where it began no Tab key may lead, on a page that is a picture
        std::set<QWidget*> controls = ControlsToReach();
        std::map<CHtmlCtrlBase*, std::set<int>> links;
        for (CHtmlCtrlBase* view : Views()) {
            for (int link = 0; link < LinksIn(*view); ++link) {
                links[view].insert(link);
            }
        }
        Stop now = start;
        int presses = 0;
        do {
            now = Tab();
            controls.erase(now.widget);
            if (CHtmlCtrlBase* view = ViewOf(now.widget)) {
                controls.erase(view);
                links[view].erase(now.link);
            }
        } while (now != start && ++presses < kMostStops && !HasFailure());
        EXPECT_EQ(now, start) << "the Tab key does not come round";
        for (const QWidget* control : controls) {
            ADD_FAILURE() << "not reached: " << NameOf(control).toStdString();
        }
        for (const auto& [view, left] : links) {
            EXPECT_TRUE(left.empty()) << left.size() << " links not reached";
        }
    }
    // What going about may not change.
    struct World {
        std::size_t requests;
        std::vector<std::string> steps;
        int page;
        std::size_t settings;
        std::vector<std::string> desktop;
        std::size_t windows;
        QString status;
        bool operator==(const World&) const = default;
    };
    [[nodiscard]] World TheWorld() {
        const auto windows = QApplication::topLevelWidgets();
        return {agent_.Requests().size(),
                steps_,
                window_->MainPage(),
                settings_.numbers.size() + settings_.texts.size(),
                desktop_->Asked(),
                static_cast<std::size_t>(std::ranges::count_if(windows, &QWidget::isVisible)),
                StatusOf(*window_)};
    }
    // The focus is in the page: on its list or in its view, where it has one.
    void ExpectFocusInPage() {
        QWidget* focus = QApplication::focusWidget();
        ASSERT_NE(focus, nullptr);
        Page* page = window_->ShownPage();
        if (const auto* list = page->findChild<CSkinListCtrl*>()) {
            EXPECT_EQ(focus, list) << NameOf(focus).toStdString();
        } else if (!Views().isEmpty()) {
            EXPECT_EQ(ViewOf(focus), Views().constFirst()) << NameOf(focus).toStdString();
        } else {
            EXPECT_TRUE(focus == page || page->isAncestorOf(focus)) << NameOf(focus).toStdString();
        }
    }

    // Ctrl+F opens the bar over the page's list, tree or view, where that is searched, with the
    // keys in it, and Escape leads back there.
    void ExpectFind(int page) {
        QTest::keySequence(window_->windowHandle(), QKeySequence::Find);
        auto* field = window_->ShownPage()->findChild<QLineEdit*>(QStringLiteral("find"));
        if (std::ranges::find(kSearched, page) == std::end(kSearched)) {
            EXPECT_EQ(field, nullptr);
            return;
        }
        ASSERT_NE(field, nullptr);
        EXPECT_EQ(QApplication::focusWidget(), field);
        QTest::keyClick(field, Qt::Key_Escape);
        EXPECT_FALSE(field->isVisible());
        const QWidget* focus = QApplication::focusWidget();
        ASSERT_NE(focus, nullptr);
        if (const QWidget* list = window_->ShownPage()->findChild<CSkinListCtrl*>()) {
            EXPECT_EQ(focus, list);
        } else if (const QWidget* tree = window_->ShownPage()->findChild<SkinTreeView*>()) {
            EXPECT_EQ(focus, tree);
        } else {
            EXPECT_TRUE(CHtmlCtrlBase::Holds(*focus)) << NameOf(focus).toStdString();
        }
    }

    ScriptedAgent agent_;
    ScriptedSite store_;
};

TEST_F(KeyboardWalk, LeadsThroughAllPagesToEveryControlAndDoesNothingUnasked) {
    for (const PageRow& row : kPages) {
        SCOPED_TRACE(row.page);
        if (row.page != 0) {
            if (ItemOf(row) == 0) {
                ASSERT_NO_FATAL_FAILURE(Turn(TabsOf(*window_), Qt::Key_Right, row.page));
            } else {
                ASSERT_NO_FATAL_FAILURE(Turn(ItemsOf(*window_), Qt::Key_Down, row.page));
            }
            ExpectFocusInPage();
        }
        const World before = TheWorld();
        GoRound();
        ExpectFind(row.page);
        EXPECT_TRUE(TheWorld() == before);
        if (HasFailure()) {
            return;
        }
    }
    EXPECT_EQ(ended_, 0);
}

TEST_F(KeyboardWalk, F5DoesWhatTheRefreshButtonOfThePageDoes) {
    int refreshed = 0;
    for (const PageRow& row : kPages) {
        const CommandButton& first = row.commands[0];
        if (first.image != "refresh" || row.page == kScreenshotPage.page) {
            continue;  // a capture asks adb, of which this agent hears nothing
        }
        SCOPED_TRACE(row.page);
        window_->Post(Message::goToPage, TabOf(row), row.page);
        ASSERT_TRUE(WaitFor([&] { return window_->MainPage() == row.page; }));
        AwaitPage();
        const auto asked = [&](const auto& press) {
            const std::size_t before = agent_.Requests().size();
            press();
            AwaitPage();
            auto requests = agent_.Requests();
            requests.erase(requests.begin(),
                           requests.begin() + static_cast<std::ptrdiff_t>(before));
            return requests;
        };
        const auto byButton = asked([&] { window_->Post(Message::commandButton, 0, 0); });
        const auto byKey = asked([&] { QTest::keyClick(window_->windowHandle(), Qt::Key_F5); });
        ASSERT_FALSE(byButton.empty());
        EXPECT_NE(std::ranges::find(byKey, byButton.front()), byKey.end());
        ++refreshed;
    }
    EXPECT_EQ(refreshed, 11);
}

TEST_F(KeyboardWalk, AQuestionMarkShowsTheKeysFromAViewToo) {
    for (const int page : {10, 11}) {
        const PageRow& row = *FindPage(page);
        window_->Post(Message::goToPage, TabOf(row), page);
        ASSERT_TRUE(WaitFor([&] { return window_->MainPage() == page; }));
        AwaitPage();
        ShowActive(*window_);
        Views().constFirst()->setFocus();
        QTest::keyClick(window_->windowHandle(), Qt::Key_Question, Qt::ShiftModifier);
        auto* keys = window_->findChild<KeysDlg*>();
        ASSERT_NE(keys, nullptr);
        keys->reject();
        ASSERT_TRUE(WaitFor([&] { return window_->findChild<KeysDlg*>() == nullptr; }));
    }
}

}  // namespace
}  // namespace quorvi
