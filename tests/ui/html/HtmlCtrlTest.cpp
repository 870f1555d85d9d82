#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QProcessEnvironment>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWebEngineView>
#include <algorithm>
#include <csignal>
#include <numeric>
#include <thread>

#include "base/Text.h"
#include "tests/support/OwnPlaces.h"
#include "tests/ui/html/HtmlCtrlFixture.h"
#include "ui/kit/QtText.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

// The names of the environment's variables, and those that stood before the first view was made.
QStringList VariableNames() {
    return QProcessEnvironment::systemEnvironment().keys();
}
QStringList namesBeforeAnyView;

// Counts the events of a kind that reach a widget, and notes the last key.
class EventsOf : public QObject {
  public:
    EventsOf(QWidget& widget, QEvent::Type type) : type_(type) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == type_) {
            ++seen;
            key = type_ == QEvent::KeyPress ? static_cast<QKeyEvent*>(event)->key() : 0;
        }
        return false;
    }

    int seen = 0;
    int key = 0;

  private:
    QEvent::Type type_;
};

TEST_F(HtmlCtrl, BrowserIsMadeAtTheFirstShow) {
    CHtmlCtrlFix& view = Show();
    view.LoadFromResource(kDashboardTemplate);
    EXPECT_EQ(view.Browser(), nullptr);
    view.show();
    EXPECT_NE(view.Browser(), nullptr);
}

TEST_F(HtmlCtrl, EachTemplateHasItsElementsAndItsContentPolicy) {
    const std::pair<int, QStringList> templates[] = {
        {kDashboardTemplate, {QStringLiteral("manufacturer"), QStringLiteral("info_ul")}},
        {kConversationsTemplate, {QStringLiteral("sms_ul")}},
        {kConversationTemplate, {QStringLiteral("conversation_list")}},
        {kUnreachableTemplate, {}},
        {kContactTemplate, {QStringLiteral("block")}},
    };
    for (const auto& [number, ids] : templates) {
        QFile file(TemplateUrl(number).toString().mid(3));  // without "qrc"
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << number;
        const QByteArray text = file.readAll();
        for (const QString& id : ids) {
            EXPECT_EQ(text.count("id=\"" + id.toUtf8() + "\""), 1) << number;
        }
        EXPECT_TRUE(text.contains(
            "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
            "img-src qrc: data:; style-src 'unsafe-inline' qrc:; form-action 'none'; "
            "base-uri 'none'\">"))
            << number;
        EXPECT_FALSE(text.contains("<script")) << number;
    }
}

TEST_F(HtmlCtrl, DashboardSaysNotConnectedBeforeTheFirstRefresh) {
    CHtmlCtrlFix& view = Show();
    QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
    view.LoadFromResource(kDashboardTemplate);
    view.show();
    ASSERT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
    EXPECT_EQ(InnerHtml(QStringLiteral("manufacturer")), ToQString(u8"未连接"));
    // The pictures and the style sheet beside the template are there.
    EXPECT_GT(Ask(QStringLiteral("document.querySelector('.phone').naturalWidth")).toInt(), 0);
    EXPECT_EQ(Ask(QStringLiteral("getComputedStyle(document.body).backgroundColor")).toString(),
              QStringLiteral("rgb(252, 249, 253)"));
}

TEST_F(HtmlCtrl, UnknownResourceNumberShowsNothingNew) {
    CHtmlCtrlFix& view = ShowBlock();
    view.SetInnerHtml("block", HtmlFragment(u8"here"));
    view.LoadFromResource(1);
    EXPECT_EQ(InnerHtml(QStringLiteral("block")), QStringLiteral("here"));
    EXPECT_EQ(view.Browser()->url(), BlankTemplateUrl());
}

TEST_F(HtmlCtrl, WhatIsSetBeforeTheDocumentStandsIsSetWhenItDoes) {
    CHtmlCtrlFix& view = Show();
    QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
    view.LoadFromResource(kContactTemplate);
    view.SetInnerHtml("block", HtmlFragment(u8"hidden"));
    view.show();
    view.SetInnerHtml("block", HtmlFragment(u8"loading"));
    ASSERT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
    EXPECT_EQ(InnerHtml(QStringLiteral("block")), QStringLiteral("loading"));
}

TEST_F(HtmlCtrl, WorkersSetInTheOrderOfTheirCalls) {
    CHtmlCtrlFix& view = ShowBlock();
    const WatchedDocumentCookie document = view.Document();
    std::thread worker([document] {
        for (int i = 0; i <= 200; ++i) {
            document.SetInnerHtml("block", HtmlFragment().Text(std::to_string(i)));
        }
    });
    worker.join();
    QCoreApplication::processEvents();
    EXPECT_EQ(InnerHtml(QStringLiteral("block")), QStringLiteral("200"));
}

// Neither in the view that is gone nor in the one that has taken its place.
TEST_F(HtmlCtrl, CookieOfAViewThatIsGoneDoesNothing) {
    const WatchedDocumentCookie document = ShowBlock().Document();
    view_.reset();
    ShowBlock().SetInnerHtml("block", HtmlFragment(u8"here"));
    document.SetInnerHtml("block", HtmlFragment(u8"late"));
    WatchedDocumentCookie().SetInnerHtml("block", HtmlFragment(u8"never"));
    bool handled = false;  // behind what the cookies have posted
    PostToWindow(view_.get(), [&] { handled = true; });
    ASSERT_TRUE(WaitFor([&] { return handled; }));
    EXPECT_EQ(InnerHtml(QStringLiteral("block")), QStringLiteral("here"));
}

TEST_F(HtmlCtrl, ElementThatIsNotThereIsPassedOver) {
    CHtmlCtrlFix& view = ShowBlock();
    view.SetInnerHtml("nowhere", HtmlFragment(u8"text"));
    view.SetInnerHtml("block", HtmlFragment(u8"here"));
    EXPECT_EQ(InnerHtml(QStringLiteral("block")), QStringLiteral("here"));
}

TEST_F(HtmlCtrl, TextKeepsItsBytesAndItsMarkup) {
    CHtmlCtrlFix& view = ShowBlock();
    view.SetInnerHtml("block", HtmlFragment(u8"<b>粗体</b> \"'\\ </script> \n"));
    EXPECT_EQ(InnerHtml(QStringLiteral("block")), ToQString(u8"<b>粗体</b> \"'\\  \n"));
    EXPECT_EQ(
        Ask(QStringLiteral("getComputedStyle(document.querySelector('b')).fontWeight")).toString(),
        QStringLiteral("700"));
}

TEST_F(HtmlCtrl, ElementLeftOpenIsClosedByTheParser) {
    CHtmlCtrlFix& view = ShowBlock();
    view.SetInnerHtml("block", HtmlFragment(u8"<div class='p10 summary'><p>x"));
    EXPECT_EQ(InnerHtml(QStringLiteral("block")),
              QStringLiteral("<div class=\"p10 summary\"><p>x</p></div>"));
}

TEST_F(HtmlCtrl, DocumentIsScrolledAfterTheChange) {
    CHtmlCtrlFix& view = ShowBlock();
    const HtmlFragment tall(u8"<div style='height:5000px'></div>");
    view.SetInnerHtml("block", tall, HtmlScroll::end);
    EXPECT_GT(Ask(QStringLiteral("window.scrollY")).toInt(), 4000);
    view.SetInnerHtml("block", tall);
    EXPECT_GT(Ask(QStringLiteral("window.scrollY")).toInt(), 4000);
    view.SetInnerHtml("block", tall, HtmlScroll::top);
    EXPECT_EQ(Ask(QStringLiteral("window.scrollY")).toInt(), 0);
}

TEST_F(HtmlCtrl, TextBeyondTwoMegabytesLoads) {
    CHtmlCtrlFix& view = Show();
    QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
    view.LoadFromText(HtmlFragment(u8"<body><i id=last></i><p>")
                          .Foreign(std::string(3'000'000, 'x'))
                          .Own(u8"</p></body>"));
    view.show();
    ASSERT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
    EXPECT_EQ(Ask(QStringLiteral("document.querySelector('p').innerText.length")).toInt(),
              3'000'000);
}

// Links -------------------------------------------------------------------------------------------

struct LinkForm {
    const char* address;  // as it stands in the document
    std::u8string_view text;
};

void PrintTo(const LinkForm& form, std::ostream* out) {
    *out << form.address;
}

class PrivateLink : public HtmlCtrl, public testing::WithParamInterface<LinkForm> {};

TEST_P(PrivateLink, IsHandedOnAsText) {
    CHtmlCtrlFix& view = ShowBlock();
    view.SetInnerHtml("block",
                      HtmlFragment(u8"<a href='").Text(GetParam().address).Own(u8"'>link</a>"));
    Click(QStringLiteral("a"));
    ASSERT_TRUE(WaitFor([&] { return !owner_.commands.empty(); }));
    EXPECT_EQ(owner_.commands, std::vector{Ansi(GetParam().text)});
    EXPECT_EQ(view.Browser()->url(), BlankTemplateUrl());
}

INSTANTIATE_TEST_SUITE_P(Forms, PrivateLink,
                         testing::Values(LinkForm{"qvh:refresh", u8"refresh"},
                                         LinkForm{"QVH:Refresh", u8"Refresh"},
                                         LinkForm{"qvh:did=-2147483648", u8"did=-2147483648"},
                                         LinkForm{"qvh:a b/../c?d=1&e", u8"a b/../c?d=1&e"},
                                         LinkForm{"qvh:100%", u8"100%"}, LinkForm{"qvh:", u8""}));

class HtmlKeys : public HtmlCtrl {
  protected:
    // A shown view of two links over a tall ground.
    void ShowLinks() {
        CHtmlCtrlFix& view = ShowBlock();
        view.SetInnerHtml("block", HtmlFragment(u8"<a href='qvh:1'>one</a> <a href='qvh:2'>two</a>"
                                                u8"<div style='height:5000px'></div>"));
        view.activateWindow();
        view.setFocus();
        ASSERT_TRUE(WaitFor([&] { return Ask(QStringLiteral("document.hasFocus()")).toBool(); }));
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(view_->Browser()->focusProxy(), key, modifiers);
    }
    void TabTo(const char* link) {
        Press(Qt::Key_Tab);
        ASSERT_TRUE(WaitFor([&] {
            return Ask(QStringLiteral("document.activeElement?.href")).toString() ==
                   QStringLiteral("qvh:") + QLatin1String(link);
        }));
    }
};

TEST_F(HtmlKeys, EnterOpensTheLinkThatTheTabKeyHasReached) {
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        owner_.commands.clear();
        ShowLinks();
        TabTo("1");
        TabTo("2");
        Press(enter);
        ASSERT_TRUE(WaitFor([&] { return !owner_.commands.empty(); }));
        EXPECT_EQ(owner_.commands, std::vector<std::string>{"2"});
    }
}

TEST_F(HtmlKeys, EnterGoesNoFurtherThanTheView) {
    ShowLinks();
    QWidget window;
    view_->setParent(&window);
    window.show();
    view_->show();
    const EventsOf keys(window, QEvent::KeyPress);
    Press(Qt::Key_Return);
    Press(Qt::Key_F8);  // which nobody takes
    ASSERT_TRUE(WaitFor([&] { return keys.seen > 0; }));
    EXPECT_EQ(keys.seen, 1);
    EXPECT_EQ(keys.key, Qt::Key_F8);
    view_->setParent(nullptr);
}

TEST_F(HtmlKeys, SpaceScrollsAndOpensNoLink) {
    ShowLinks();
    TabTo("1");
    Press(Qt::Key_Space);
    EXPECT_TRUE(WaitFor([&] { return Ask(QStringLiteral("window.scrollY")).toInt() > 100; }));
    EXPECT_TRUE(owner_.commands.empty());
}

TEST_F(HtmlKeys, DeleteTellsOfTheLinkThatHasTheFocus) {
    ShowLinks();
    Press(Qt::Key_Delete);  // none has it
    Ask(QStringLiteral("0"));
    TabTo("1");
    TabTo("2");
    Press(Qt::Key_Delete, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    ASSERT_TRUE(WaitFor([&] { return !owner_.deletes.empty(); }));
    EXPECT_EQ(owner_.deletes, std::vector<std::string>{"2"});
    EXPECT_TRUE(owner_.commands.empty());
}

TEST_F(HtmlKeys, TheMenuKeyTellsOfTheLinkThatHasTheFocus) {
    ShowLinks();
    TabTo("1");
    TabTo("2");
    OpenMenuOf(*view_, {}, QContextMenuEvent::Keyboard);
    ASSERT_TRUE(WaitFor([&] { return !owner_.menus.empty(); }));
    EXPECT_EQ(owner_.menus, std::vector<std::string>{"2"});
    EXPECT_TRUE(owner_.commands.empty());
}

TEST_F(HtmlKeys, TheRightButtonTellsOfTheLinkUnderThePointerOrOfNone) {
    ShowLinks();
    const QPoint link = MiddleOf(*view_, QStringLiteral("a[href='qvh:2']"));
    OpenMenuOf(*view_, link, QContextMenuEvent::Mouse);
    ASSERT_TRUE(WaitFor([&] { return owner_.menus.size() == 1; }));
    EXPECT_EQ(owner_.menuAt, view_->Browser()->focusProxy()->mapToGlobal(link));
    OpenMenuOf(*view_, QPoint(600, 470), QContextMenuEvent::Mouse);
    ASSERT_TRUE(WaitFor([&] { return owner_.menus.size() == 2; }));
    EXPECT_EQ(owner_.menus, (std::vector<std::string>{"2", ""}));
}

// Where the template names its stops.
TEST_F(HtmlCtrl, TheTabKeyStopsAtTheLinksThatTheTemplateNames) {
    CHtmlCtrlFix& view = Show();
    QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
    view.LoadFromResource(kConversationsTemplate);
    view.SetInnerHtml("sms_ul", HtmlFragment(u8"<li><a href='qvh:1'><img src='w_os.gif'></a>"
                                             u8"<span class=sender><a href='qvh:2'></a></span>"
                                             u8"<a href='qvh:3'>words</a></li>"));
    view.show();
    ASSERT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
    EXPECT_EQ(Ask(QStringLiteral("[...document.querySelectorAll('a')].map(a => [a.tabIndex,"
                                 "a.ariaHidden, a.ariaLabel].join()).join('|')"))
                  .toString(),
              QStringLiteral("-1,true,|0,,words|-1,,"));
}

TEST_F(HtmlCtrl, TheWheelWithCtrlDoesNotReachTheBrowser) {
    for (const HtmlContent content : {HtmlContent::local, HtmlContent::web}) {
        CHtmlCtrlFix& view = Show(content);
        const auto load = [&] {
            QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
            if (content == HtmlContent::web) {
                view.Navigate2(QUrl(server_.Url()));
            } else {
                view.LoadFromResource(kContactTemplate);
            }
            view.show();
            ASSERT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
        };
        load();
        // Sees what the view lets through: with each document the view takes the first look.
        const EventsOf wheels(*view.Browser()->focusProxy(), QEvent::Wheel);
        load();
        const auto turn = [&](Qt::KeyboardModifiers modifiers) {
            const QPointF at(view.rect().center());
            QWheelEvent wheel(at, view.mapToGlobal(at), {}, {0, -120}, Qt::NoButton, modifiers,
                              Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(view.Browser()->focusProxy(), &wheel);
        };
        turn(Qt::ControlModifier);
        EXPECT_EQ(wheels.seen, 0);
        turn(Qt::NoModifier);
        EXPECT_EQ(wheels.seen, 1);
    }
}

TEST_F(HtmlCtrl, LinkWhoseSchemeOnlyBeginsWithTheLettersDoesNothing) {
    CHtmlCtrlFix& view = ShowBlock();
    view.SetInnerHtml(
        "block",
        HtmlFragment(u8"<a id=hit href='qvhx:refresh'>x</a> <a id=next href='qvh:1'>y</a>"));
    Click(QStringLiteral("#hit"));
    ClickUntilHeard(QStringLiteral("#next"));
    EXPECT_EQ(std::ranges::count(owner_.commands, "1"), std::ssize(owner_.commands));
    EXPECT_EQ(view.Browser()->url(), BlankTemplateUrl());
}

TEST_F(HtmlCtrl, LinkToABlankPageDoesNotLastingWipeTheView) {
    CHtmlCtrlFix& view = Show();
    QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
    view.LoadFromResource(kContactTemplate);
    view.SetInnerHtml("block", HtmlFragment(u8"<a href='about:blank'>link</a><i>kept</i>"));
    view.show();
    ASSERT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
    QSignalSpy moved(view.Browser(), &QWebEngineView::urlChanged);
    Click(QStringLiteral("a"));
    ASSERT_TRUE(WaitFor([&] { return moved.count() >= 2; }));
    EXPECT_EQ(view.Browser()->url(), TemplateUrl(kContactTemplate));
    EXPECT_TRUE(WaitFor([&] {
        return Ask(QStringLiteral("document.querySelector('i')?.innerText")).toString() ==
               QStringLiteral("kept");
    }));
    EXPECT_EQ(loaded.count(), 1);
}

TEST_F(HtmlCtrl, DocumentComesBackWhenItsRendererIsKilled) {
    CHtmlCtrlFix& view = ShowBlock();
    view.SetInnerHtml("block", HtmlFragment(u8"<i>kept</i>"));
    Ask(QStringLiteral("0"));
    const auto renderer = static_cast<pid_t>(view.Browser()->page()->renderProcessPid());
    ASSERT_GT(renderer, 0);
    QSignalSpy gone(view.Browser()->page(), &QWebEnginePage::renderProcessTerminated);
    QSignalSpy loaded(view.Browser()->page(), &QWebEnginePage::loadFinished);
    kill(renderer, SIGKILL);
    ASSERT_TRUE(WaitFor([&] { return gone.count() == 1; }));
    ASSERT_TRUE(WaitFor([&] { return loaded.count() >= 1; }));
    EXPECT_EQ(InnerHtml(QStringLiteral("block")), QStringLiteral("<i>kept</i>"));
}

// ---- some of an element's children -------------------------------------------------------------

// Fifty items with a link each, and more than a view can hold.
HtmlFragment Items() {
    HtmlFragment items;
    for (int i = 0; i < 50; ++i) {
        items.Own(u8"<p style='height:100px'>").Text(std::to_string(i));
        items.Own(u8" <a href='qvh:x'>link</a></p>");
    }
    return items;
}

class HtmlChildren : public HtmlCtrl {
  protected:
    void SetUp() override {
        ShowBlock();
        view_->SetInnerHtml("block", Items());
    }
    QString Shown() {
        return Ask(QStringLiteral("[...document.querySelectorAll('#block p')]"
                                  ".map(e => parseInt(e.innerText)).join(' ')"))
            .toString();
    }
    QString All() {
        QStringList all;
        for (int i = 0; i < 50; ++i) {
            all.append(QString::number(i));
        }
        return all.join(u' ');
    }
};

TEST_F(HtmlChildren, OnlyThoseThatAreNamedAreShown) {
    view_->ShowChildren("block", std::vector<int>{2, 7, 49});
    EXPECT_EQ(Shown(), QStringLiteral("2 7 49"));
    view_->ShowChildren("block", std::vector<int>{7, 8, 50});  // there is no 50
    EXPECT_TRUE(WaitFor([&] { return Shown() == QStringLiteral("7 8"); }));
    view_->ShowChildren("block", std::vector<int>{});
    EXPECT_TRUE(WaitFor([&] { return Shown().isEmpty(); }));
    view_->ShowChildren("block", std::nullopt);
    EXPECT_TRUE(WaitFor([&] { return Shown() == All(); }));
}

TEST_F(HtmlChildren, ThoseThatAreNamedAreSeenAtTheirEndWhereThatIsAskedFor) {
    std::vector<int> most(40);
    std::iota(most.begin(), most.end(), 3);
    view_->ShowChildren("block", most, HtmlScroll::end);
    EXPECT_TRUE(WaitFor([&] {
        return Ask(QStringLiteral("scrollY > 0 && scrollY + innerHeight >= "
                                  "document.documentElement.scrollHeight - 1"))
            .toBool();
    }));
    view_->ShowChildren("block", std::nullopt);
    EXPECT_TRUE(WaitFor([&] { return Shown() == All(); }));
    EXPECT_EQ(Ask(QStringLiteral("scrollY")).toInt(), 0);
}

TEST_F(HtmlChildren, AllOfThemAreShownAsTheyWereBefore) {
    Ask(
        QStringLiteral("scrollTo(0, 1234); document.querySelectorAll('a')[2].focus("
                       "{preventScroll: true})"));
    view_->ShowChildren("block", std::vector<int>{7});
    EXPECT_TRUE(WaitFor([&] { return Shown() == QStringLiteral("7"); }));
    EXPECT_EQ(Ask(QStringLiteral("scrollY")).toInt(), 0);
    view_->ShowChildren("block", std::nullopt);
    EXPECT_TRUE(WaitFor([&] { return Shown() == All(); }));
    EXPECT_EQ(Ask(QStringLiteral("scrollY")).toInt(), 1234);
    EXPECT_TRUE(Ask(QStringLiteral("document.activeElement === document.querySelectorAll('a')[2]"))
                    .toBool());
}

TEST_F(HtmlChildren, ToldFasterThanItCanShowItLeavesOutWhatIsBetween) {
    Ask(
        QStringLiteral("globalThis.changes = 0; new MutationObserver(() => ++changes)"
                       ".observe(document.getElementById('block'), {childList: true})"));
    for (int i = 0; i < 40; ++i) {
        view_->ShowChildren("block", std::vector<int>{i});
    }
    EXPECT_TRUE(WaitFor([&] { return Shown() == QStringLiteral("39"); }));
    EXPECT_EQ(Ask(QStringLiteral("changes")).toInt(), 2);
}

TEST_F(HtmlChildren, WhatIsSetAnewIsShownWhole) {
    view_->ShowChildren("block", std::vector<int>{7});
    view_->SetInnerHtml("block", HtmlFragment(u8"<p>3</p><p>4</p>"));
    EXPECT_EQ(Shown(), QStringLiteral("3 4"));
    view_->ShowChildren("block", std::vector<int>{1});
    EXPECT_TRUE(WaitFor([&] { return Shown() == QStringLiteral("4"); }));
    view_->ShowChildren("block", std::nullopt);
    EXPECT_TRUE(WaitFor([&] { return Shown() == QStringLiteral("3 4"); }));
}

TEST_F(HtmlChildren, AreNarrowedInADocumentThatComesBack) {
    view_->ShowChildren("block", std::vector<int>{7});
    const auto renderer = static_cast<pid_t>(view_->Browser()->page()->renderProcessPid());
    ASSERT_GT(renderer, 0);
    const QSignalSpy loaded(view_->Browser()->page(), &QWebEnginePage::loadFinished);
    kill(renderer, SIGKILL);
    ASSERT_TRUE(WaitFor([&] { return loaded.count() >= 1; }));
    EXPECT_EQ(Shown(), QStringLiteral("7"));
    view_->ShowChildren("block", std::nullopt);
    EXPECT_TRUE(WaitFor([&] { return Shown() == All(); }));
}

TEST_F(HtmlCtrl, LocalViewsShareOneRenderer) {
    CHtmlCtrlFix& first = ShowBlock();
    CHtmlCtrlFix second(1361, HtmlContent::local, owner_, nullptr);
    QSignalSpy loaded(&second, &CHtmlCtrlBase::documentLoaded);
    second.LoadFromResource(kConversationsTemplate);
    second.show();
    ASSERT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
    EXPECT_EQ(first.Browser()->page()->renderProcessPid(),
              second.Browser()->page()->renderProcessPid());
}

// Other threads start programs with it by then.
TEST_F(HtmlCtrl, TheFirstViewAddsNothingToTheEnvironment) {
    ShowBlock();
    EXPECT_EQ(VariableNames(), namesBeforeAnyView);
}

TEST_F(HtmlCtrl, TakesThePlaceOfAStaticControl) {
    QWidget page;
    auto* place = new QWidget(&page);
    place->setObjectName(QStringLiteral("1370"));
    place->setGeometry(8, 9, 100, 80);
    CHtmlCtrlFix* view = CHtmlCtrlFix::CreateFromStatic(1370, page, owner_);
    EXPECT_EQ(view->geometry(), QRect(8, 9, 100, 80));
    EXPECT_EQ(page.findChildren<QWidget*>(QStringLiteral("1370")), QList<QWidget*>{view});
    EXPECT_FALSE(view->isHidden());
}

}  // namespace
}  // namespace quorvi

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const quorvi::OwnPlaces places;
    quorvi::PrepareHtmlViews();
    const QApplication application(argc, argv);
    quorvi::namesBeforeAnyView = quorvi::VariableNames();
    return RUN_ALL_TESTS();
}
