// The main window's life: start, tray, USB events, keys, end.
#include <QDropEvent>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QToolTip>

#include "app/platform/BalloonCard.h"
#include "app/window/MainDlg.h"
#include "tests/app/window/MainDlgFixture.h"
#include "tests/support/AwaitTimer.h"
#include "ui/kit/SkinDialog.h"
#include "ui/kit/SkinLabels.h"

namespace quorvi {
namespace {

const QString kTitle = ToQString(u8"奎维掌上工坊");
constexpr std::chrono::milliseconds kTimer1{50};

// Counts the keys that reach a widget.
class KeysOf : public QObject {
  public:
    int pressed = 0;

    explicit KeysOf(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        pressed += event->type() == QEvent::KeyPress ? 1 : 0;
        return false;
    }
};

class MainWindow : public MainDlgTest {
  protected:
    void TrayMouseMessage(int number) { Send(Message::tray, 0, number); }
    [[nodiscard]] const BalloonCard* Card() const { return window_->findChild<BalloonCard*>(); }
};

TEST_F(MainWindow, StartsTheLinkWithoutDelayAfterTheUsbWatch) {
    MakeWindow();
    EXPECT_EQ(steps_, (std::vector<std::string>{"watch", "connect"}));
}

TEST_F(MainWindow, TheTipNamesTheSiteAndTheWelcomeShowsIt) {
    MakeWindow();
    const QString tip = ToQString(u8"奎维掌上工坊[http://www.quorvi.example/]");
    EXPECT_EQ(tray_.tips, std::vector{tip});
    EXPECT_EQ(tray_.balloons, (std::vector{Balloon{ToQString(u8"欢迎使用"), tip}}));
}

TEST_F(MainWindow, IsFrameless960By640WithItsTitle) {
    MakeWindow();
    EXPECT_EQ(window_->contentsRect().size(), QSize(960, 640));
    EXPECT_TRUE(window_->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(window_->windowTitle(), kTitle);
    EXPECT_EQ(window_->objectName(), QStringLiteral("dialog 102"));
    EXPECT_EQ(StatusText(), ToQString(u8"就绪"));
}

TEST_F(MainWindow, CaptionButtonsHaveTheirToolTips) {
    MakeWindow();
    EXPECT_EQ(Find(10200).toolTip(), ToQString(u8"关闭"));
    EXPECT_EQ(Find(10201).toolTip(), ToQString(u8"最小化"));
    EXPECT_EQ(Find(10202).toolTip(), ToQString(u8"最大化"));
}

// ---- start hidden ------------------------------------------------------------------------------

TEST_F(MainWindow, AHiddenStartShowsNoWindow) {
    MakeWindow(true);
    EXPECT_FALSE(window_->isVisible());
    EXPECT_EQ(steps_.back(), "connect");
}

TEST_F(MainWindow, AfterAHiddenStartASecondStartShowsTheWindowForAnInstantOnly) {
    MakeWindow(true);
    instance_.show();
    EXPECT_TRUE(window_->isVisible());
    Settle();
    EXPECT_FALSE(window_->isVisible());
    EXPECT_TRUE(window_->StartHidden());
}

TEST_F(MainWindow, ASecondStartShowsAMinimisedWindow) {
    MakeWindow();
    window_->showMinimized();
    instance_.show();
    Settle();
    EXPECT_TRUE(window_->isVisible());
    EXPECT_FALSE(window_->isMinimized());
}

TEST_F(MainWindow, ASecondStartWhileADialogIsOpenOnlyShowsTheMainWindow) {
    MakeWindow();
    SkinDialog dialog(533, QStringLiteral("dialog"), window_.get());
    dialog.QDialog::open();
    window_->hide();
    instance_.show();
    Settle();
    EXPECT_TRUE(window_->isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
    dialog.close();
}

TEST_F(MainWindow, TheTraysLeftButtonShowsAHiddenStartForGood) {
    for (const int mouse : {513, 515}) {
        MakeWindow(true);
        TrayMouseMessage(mouse);
        EXPECT_TRUE(window_->isVisible());
        EXPECT_FALSE(window_->StartHidden());
    }
}

TEST_F(MainWindow, AClickOnANoticeOfTheDesktopShowsAHiddenStart) {
    tray_.available = false;
    MakeWindow(true);
    notifier_.clicked();
    Settle();
    EXPECT_TRUE(window_->isVisible());
    EXPECT_FALSE(window_->StartHidden());
}

// ---- tray --------------------------------------------------------------------------------------

TEST_F(MainWindow, OtherMouseMessagesOfTheTrayDoNothing) {
    MakeWindow(true);
    for (const int mouse : {512, 514, 517, 519, 0}) {
        TrayMouseMessage(mouse);
        EXPECT_FALSE(window_->isVisible());
    }
}

TEST_F(MainWindow, TheTraysRightButtonPopsTheMenuUp) {
    MakeWindow();
    TrayMouseMessage(516);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QStringList captions;
    const auto actions = menu->actions();
    for (const QAction* action : actions) {
        captions.append(action->text());
    }
    EXPECT_EQ(captions, (QStringList{ToQString(u8"显示控制中心"), ToQString(u8"当前下载任务"),
                                     ToQString(u8"Quorvi 设置"), ToQString(u8"退出 Quorvi")}));
    actions[1]->trigger();
    menu->close();
    Settle();
    EXPECT_EQ(window_->MainPage(), 5);
}

TEST_F(MainWindow, TrayCommandsShowTheWindowOnTheirPages) {
    struct Case {
        TrayCommand command;
        int page;
    };
    for (const Case& row : {Case{TrayCommand::showWindow, 0}, Case{TrayCommand::showDownloads, 5},
                            Case{TrayCommand::showSettings, 3}}) {
        MakeWindow(true);
        tray_.events.command(row.command);
        Settle();
        EXPECT_TRUE(window_->isVisible());
        EXPECT_FALSE(window_->StartHidden());
        EXPECT_EQ(window_->MainPage(), row.page);
    }
}

TEST_F(MainWindow, TheTraysExitEndsTheProcess) {
    MakeWindow();
    tray_.events.command(TrayCommand::exit);
    EXPECT_EQ(ended_, 1);
}

TEST_F(MainWindow, ATrayThatComesBackGetsTheIconAndTheWelcomeAgain) {
    MakeWindow();
    tray_.balloons.clear();
    tray_.events.recreated();
    EXPECT_EQ(tray_.tips.back(), ToQString(u8"Quorvi 奎维掌上工坊"));
    ASSERT_EQ(tray_.balloons.size(), 1U);
    EXPECT_EQ(tray_.balloons[0].title, ToQString(u8"欢迎使用"));
}

// ---- balloons ----------------------------------------------------------------------------------

TEST_F(MainWindow, WithoutATrayABalloonIsANoticeOfTheDesktop) {
    tray_.available = false;
    MakeWindow();
    EXPECT_EQ(notifier_.notices.size(), 1U);
    EXPECT_EQ(Card(), nullptr);
}

TEST_F(MainWindow, WithoutTrayAndDesktopABalloonStandsInTheWindow) {
    tray_.available = false;
    notifier_.available = false;
    MakeWindow();
    window_->ShowBalloon(kTitle, QStringLiteral("text"));
    ASSERT_NE(Card(), nullptr);
    EXPECT_TRUE(Card()->isVisible());
    EXPECT_EQ(Card()->Title(), kTitle);
    EXPECT_EQ(Card()->Text(), QStringLiteral("text"));
    EXPECT_TRUE(window_->rect().intersects(Card()->geometry()));
}

// ---- USB and link ------------------------------------------------------------------------------

TEST_F(MainWindow, AnArrivalShowsABalloonAndConnectsWithTheDelay) {
    MakeWindow();
    tray_.balloons.clear();
    steps_.clear();
    window_->Link().OnUsbArrival();
    EXPECT_EQ(tray_.balloons,
              (std::vector{Balloon{kTitle, ToQString(u8"检测到Android设备，正在尝试连接...")}}));
    EXPECT_EQ(steps_, std::vector<std::string>{"connect later"});
}

TEST_F(MainWindow, ARemovalChangesTheBannerAndNothingElse) {
    MakeWindow();
    device_.SetSerial("AU20110618S2");
    Send(Message::goToPage, 1, 10);
    window_->Link().ShowBanner(ToQString(u8"连接成功:)"), BannerState::success);
    tray_.balloons.clear();
    steps_.clear();
    window_->Link().OnUsbRemoval();
    EXPECT_EQ(BannerText(), ToQString(u8"【提示】检测到一个设备断开"));
    EXPECT_EQ(window_->Link().Banner(), BannerState::working);
    EXPECT_EQ(tray_.balloons,
              (std::vector{Balloon{kTitle, ToQString(u8"Android设备已经断开USB连接")}}));
    EXPECT_EQ(sounds_.played, std::vector{Sound::removal});
    EXPECT_EQ(device_.Serial(), "AU20110618S2");
    EXPECT_TRUE(steps_.empty());
    EXPECT_EQ(Probe(10).loads, 1);
    EXPECT_EQ(window_->MainPage(), 10);
}

TEST_F(MainWindow, ALinkThatStandsPlaysItsSoundAndRefreshesTheDashboardOnce) {
    MakeWindow();
    window_->Link().LinkUp();
    EXPECT_EQ(sounds_.played, std::vector{Sound::linkUp});
    EXPECT_EQ(Probe(0).loads, 0);
    EXPECT_TRUE(WaitFor([&] { return Probe(0).loads == 1; }));
    AwaitTimer(3 * kTimer1);
    EXPECT_EQ(Probe(0).loads, 1);
}

TEST_F(MainWindow, AnotherPhoneDoesNotReloadPagesThatWereVisited) {
    MakeWindow();
    Send(Message::goToPage, 1, 10);
    window_->Link().OnUsbRemoval();
    window_->Link().OnUsbArrival();
    window_->Link().LinkUp();
    ASSERT_TRUE(WaitFor([&] { return Probe(0).loads == 1; }));
    Send(Message::goToPage, 1, 11);
    Send(Message::goToPage, 1, 10);
    EXPECT_EQ(Probe(10).loads, 1);
}

TEST_F(MainWindow, APhoneThatOnlyAdbSeesArrivesAndGoesAsOneOnACableDoes) {
    MakeWindow();
    window_->Link().OnDevices({});
    tray_.balloons.clear();
    steps_.clear();
    window_->Link().OnDevices({{"emulator-5554", DeviceState::ready}});
    EXPECT_EQ(tray_.balloons,
              (std::vector{Balloon{kTitle, ToQString(u8"检测到Android设备，正在尝试连接...")}}));
    EXPECT_EQ(steps_, std::vector<std::string>{"connect later"});
    tray_.balloons.clear();
    window_->Link().OnDevices({});
    EXPECT_EQ(BannerText(), ToQString(u8"【提示】检测到一个设备断开"));
    EXPECT_EQ(tray_.balloons,
              (std::vector{Balloon{kTitle, ToQString(u8"Android设备已经断开USB连接")}}));
    EXPECT_EQ(sounds_.played, std::vector{Sound::removal});
}

TEST_F(MainWindow, APhoneInTheNetworkGoesWithASentenceOfItsOwn) {
    MakeWindow();
    window_->Link().OnDevices({{"192.168.1.23:5555", DeviceState::ready}});
    tray_.balloons.clear();
    window_->Link().OnDevices({});
    EXPECT_EQ(tray_.balloons,
              (std::vector{Balloon{kTitle, ToQString(u8"Android设备已经断开无线连接")}}));
}

TEST_F(MainWindow, AnArrivalThatBothTellShowsOneBalloon) {
    MakeWindow();
    window_->Link().OnDevices({});
    tray_.balloons.clear();
    steps_.clear();
    window_->Link().OnUsb({UsbEvent::Kind::arrival, "/sys/devices/1-1", "HT04CPL00123"});
    window_->Link().OnDevices({{"HT04CPL00123", DeviceState::ready}});
    EXPECT_EQ(tray_.balloons.size(), 1U);
    EXPECT_EQ(steps_, std::vector<std::string>{"connect later"});
}

TEST_F(MainWindow, WhatAPhoneWaitsForStandsInTheBannersToolTip) {
    MakeWindow();
    window_->Link().OnDevices({{"HT04CPL00123", DeviceState::unauthorized}});
    EXPECT_EQ(services_.linkTrouble.Get(), LinkTrouble::unauthorized);
    auto* banner = window_->findChild<QLabel*>(QStringLiteral("banner"));
    EXPECT_EQ(banner->accessibleDescription(), ToQString(u8"手机在等您允许“USB 调试”"));
    QHelpEvent help(QEvent::ToolTip, banner->rect().center(),
                    banner->mapToGlobal(banner->rect().center()));
    QApplication::sendEvent(banner, &help);
    EXPECT_TRUE(QToolTip::text().contains(ToQString(u8"手机在等您允许“USB 调试”")));
    QToolTip::hideText();
    window_->Link().OnDevices({{"HT04CPL00123", DeviceState::ready}});
    EXPECT_EQ(banner->accessibleDescription(), QString());
    EXPECT_EQ(services_.linkTrouble.Get(), LinkTrouble::none);
}

TEST_F(MainWindow, TheLinkIsBroughtUpOnceThePhoneAllowsIt) {
    MakeWindow();
    window_->Link().Searched(FindDeviceResult::noDevice);
    window_->Link().LinkEnded();
    window_->Link().OnDevices({{"HT04CPL00123", DeviceState::unauthorized}});
    tray_.balloons.clear();
    steps_.clear();
    window_->Link().OnDevices({{"HT04CPL00123", DeviceState::ready}});
    EXPECT_EQ(steps_, std::vector<std::string>{"connect"});
    EXPECT_TRUE(tray_.balloons.empty());
}

// ---- caption and keys --------------------------------------------------------------------------

TEST_F(MainWindow, TheCloseButtonEndsTheProcessWhateverExitModeSays) {
    MakeWindow();
    settings_.WriteNumber(kSettingsKey, "exit_mode", 0);
    Click(10200);
    EXPECT_EQ(ended_, 1);
    EXPECT_EQ(tray_.removed, 1);
    EXPECT_FALSE(instance_.show);
}

TEST_F(MainWindow, ClosingTheWindowEndsTheProcessOnce) {
    MakeWindow();
    window_->close();
    window_->close();
    EXPECT_EQ(ended_, 1);
}

TEST_F(MainWindow, TheMaximiseButtonDoesNothingAtAll) {
    MakeWindow();
    Click(10202);
    EXPECT_FALSE(window_->isMaximized());
    EXPECT_EQ(window_->contentsRect().size(), QSize(960, 640));
}

TEST_F(MainWindow, TheMinimiseButtonMinimises) {
    MakeWindow();
    Click(10201);
    EXPECT_TRUE(window_->isMinimized());
}

TEST_F(MainWindow, TheDeviceManagerButtonRunsItsDialog) {
    MakeWindow();
    steps_.clear();
    Click(1051);
    EXPECT_EQ(steps_, std::vector<std::string>{"devices:"});
}

TEST_F(MainWindow, TheDownloadButtonGoesToTheTasks) {
    MakeWindow();
    Click(1052);
    EXPECT_EQ(window_->MainPage(), 5);
}

TEST_F(MainWindow, EscapeAndEnterAreSwallowed) {
    MakeWindow();
    const KeysOf keys(Find(10200));
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(&Find(10200), key);
    }
    EXPECT_EQ(keys.pressed, 0);
    QTest::keyClick(&Find(10200), Qt::Key_A);
    EXPECT_EQ(keys.pressed, 1);
}

TEST_F(MainWindow, ADialogOverTheWindowGetsItsEscape) {
    MakeWindow();
    SkinDialog dialog(533, QStringLiteral("dialog"), window_.get());
    dialog.QDialog::open();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(MainWindow, EnterReachesTheSearchBox) {
    MakeWindow();
    auto* search = window_->findChild<QLineEdit*>(QStringLiteral("search"));
    search->setText(QStringLiteral("map"));
    QTest::keyClick(search, Qt::Key_Return);
    Settle();
    EXPECT_EQ(window_->MainPage(), 20);
}

TEST_F(MainWindow, EscapeDoesNotReachTheSearchBox) {
    MakeWindow();
    auto* search = window_->findChild<QLineEdit*>(QStringLiteral("search"));
    const KeysOf keys(*search);
    QTest::keyClick(search, Qt::Key_Escape);
    EXPECT_EQ(keys.pressed, 0);
}

class DraggedWindow : public CMainDlg {
  public:
    using CMainDlg::CMainDlg;
    int moves = 0;

  protected:
    bool StartSystemMove() override {
        ++moves;
        return true;
    }
};

TEST_F(MainWindow, TheUpperFiftyPixelsDragTheWindow) {
    auto& window = MakeWindow<DraggedWindow>();
    auto* caption = window.findChild<QWidget*>(QStringLiteral("caption"));
    QTest::mouseClick(caption, Qt::LeftButton, {}, QPoint(300, 49));
    EXPECT_EQ(window.moves, 1);
    QTest::mouseClick(caption, Qt::RightButton, {}, QPoint(300, 10));
    EXPECT_EQ(window.moves, 1);
}

TEST_F(MainWindow, AControlOfTheCaptionHoldsThePointer) {
    auto& window = MakeWindow<DraggedWindow>();
    for (const int control : {10202, 1051}) {
        QTest::mousePress(&Find(control), Qt::LeftButton);
        QTest::mouseRelease(&Find(control), Qt::LeftButton, {}, QPoint(-9, -9));  // no click
    }
    EXPECT_EQ(window.moves, 0);
}

TEST_F(MainWindow, BelowTheStripNothingDrags) {
    auto& window = MakeWindow<DraggedWindow>();
    QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(300, 51));
    QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(700, 70));
    EXPECT_EQ(window.moves, 0);
}

TEST_F(MainWindow, DroppedFilesGoToTheFilePageAndTheDownloadPage) {
    MakeWindow();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/a b.apk")),
                  QUrl(QStringLiteral("http://www.quorvi.example/"))});
    QDragEnterEvent enter(QPoint(400, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window_.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(400, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window_.get(), &drop);
    EXPECT_EQ(Probe(15).drops, QStringList{QStringLiteral("/tmp/a b.apk")});
    EXPECT_EQ(Probe(5).drops, QStringList{QStringLiteral("/tmp/a b.apk")});
    EXPECT_EQ(window_->MainPage(), 0);
}

TEST_F(MainWindow, AStatusThatSpeaksOfAnErrorIsShownAsOne) {
    MakeWindow();
    const auto& label = Find<CSkinStateLabel>(1366);
    for (const QString& error : {ToQString(u8"【X】连接错误"), ToQString(u8"【错误】没有数据")}) {
        window_->SetStatus(error);
        EXPECT_EQ(StatusText(), error);
        EXPECT_EQ(label.State(), CSkinStateLabel::kRed);
        window_->SetStatus(ToQString(u8"就绪"));
        EXPECT_EQ(label.State(), CSkinStateLabel::kBlue);
    }
}

TEST_F(MainWindow, AStatusIsTakenBackWhereItStillStands) {
    MakeWindow();
    const QString error = ToQString(u8"【X】连接错误");
    window_->SetStatus(error);
    window_->TakeBackStatus(ToQString(u8"【错误】没有数据"));
    EXPECT_EQ(StatusText(), error);
    window_->TakeBackStatus(error);
    EXPECT_EQ(StatusText(), ToQString(u8"就绪"));
    EXPECT_EQ(Find<CSkinStateLabel>(1366).State(), CSkinStateLabel::kBlue);
}

TEST_F(MainWindow, ControlsHaveAccessibleNames) {
    MakeWindow();
    Send(Message::goToPage, 1, 10);
    for (const int control : {1013, 1014, 1015, 1050, 1051, 1052, 10200, 10201, 10202}) {
        EXPECT_FALSE(Find(control).accessibleName().isEmpty()) << control;
    }
}

}  // namespace
}  // namespace quorvi
