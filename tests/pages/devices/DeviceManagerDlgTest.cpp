// The device manager, driven by control number over a scripted adb.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QTableView>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <memory>

#include "base/ByteText.h"
#include "base/Text.h"
#include "link/WirelessAddress.h"
#include "pages/devices/DeviceManagerDlg.h"
#include "tests/support/AwaitTimer.h"
#include "tests/support/ColumnDriver.h"
#include "tests/support/FakeAdb.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/MemorySettings.h"
#include "tests/support/QtTest.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

namespace fs = std::filesystem;

// Between a phone's answer and the question to the next.
constexpr std::chrono::milliseconds kTimer0{50};

class DeviceManagerDlgTest : public QtTest {
  protected:
    // A run waits as long as the file "hold-list", "hold-one" or "hold-two" is there.
    static constexpr const char* kScript =
        "hold() { while test -e \"$dir/hold-$1\"; do sleep 0.02; done; }\n"
        "case \"$*\" in\n"
        "devices) hold list; cat \"$dir/devices\";;\n"
        "'mdns services') cat \"$dir/services\";;\n"
        "connect*) cat \"$dir/connect\";;\n"
        "pair*) cat \"$dir/pair\";;\n"
        "*one*) hold one; printf '[ro.build.version.sdk]: [10]\\n"
        "[ro.product.manufacturer]: [HTC]\\n[ro.product.model]: [HTC Desire]\\n';;\n"
        "*two*) hold two; printf '[ro.build.version.sdk]: [8]\\n"
        "[ro.product.manufacturer]: [motorola]\\n[ro.product.model]: [M52]\\n';;\n"
        "esac";

    void SetUp() override {
        window_.resize(960, 640);
        window_.show();
        environment_ = adb_.Environment();
        Print("devices", "List of devices attached\none\tdevice\ntwo\tdevice\n\n");
    }
    void TearDown() override {
        delete dialog_;
        for (const char* const name : {"list", "one", "two"}) {
            Release(name);
        }
    }

    void Print(const char* file, const char* text) const {
        std::ofstream(adb_.Directory() / file) << text;
    }
    void Hold(const std::string& name) const {
        std::ofstream(adb_.Directory() / ("hold-" + name)) << "";
    }
    void Release(const std::string& name) const { fs::remove(adb_.Directory() / ("hold-" + name)); }

    void ServerAnswers(std::string_view text) {
        server_ = std::make_unique<LoopbackAgent>(Answer{ToBytes(text), Answer::End::wait});
        environment_.hostPort = server_->Port();
    }
    void Open(const QString& title = {}) {
        dialog_ = new CDeviceManagerDlg(
            device_, [this](const QString& text) { status_.append(text); }, title, &window_,
            environment_, &settings_);
        dialog_->Open([this](int result) { result_ = result; });
    }
    void OpenWithRows(int rows) {
        Open();
        ASSERT_TRUE(Reached([this, rows] { return Rows() == rows && dialog_->Ready(); }));
    }

    template <typename Condition>
    static bool Reached(Condition condition) {
        return QTest::qWaitFor(condition, 15000);
    }
    template <typename Control = QAbstractButton>
    [[nodiscard]] Control* Find(int number) const {
        return FindControl<Control>(dialog_, number);
    }
    // A control that is known by its name.
    template <typename Control>
    [[nodiscard]] Control* Part(const char* name) const {
        return dialog_->findChild<Control*>(QLatin1String(name));
    }
    // Opens with the rows of the network, and waits until adb has told who is there.
    void OpenWireless() {
        OpenWithRows(2);
        Find<QComboBox>(1073)->setCurrentIndex(1);
        ASSERT_TRUE(Reached([] { return RunningJobs() == 0; }));
    }
    [[nodiscard]] QStringList Known() const {
        const auto* const known = Part<QComboBox>("known phones");
        QStringList texts;
        for (int i = 0; i < known->count(); ++i) {
            texts.append(known->itemText(i));
        }
        return texts;
    }
    [[nodiscard]] QTableView* List() const { return Find<QTableView>(1214); }
    [[nodiscard]] int Rows() const { return List()->model()->rowCount(); }
    [[nodiscard]] QString Words(int row, int column) const {
        return List()->model()->index(row, column).data().toString();
    }
    [[nodiscard]] QString State() const { return Find<QLabel>(1220)->text(); }
    [[nodiscard]] int SelectedRow() const {
        const auto rows = List()->selectionModel()->selectedRows();
        return rows.isEmpty() ? -1 : rows.front().row();
    }
    [[nodiscard]] long Runs(const std::string& line) const {
        const auto runs = adb_.Runs();
        return std::count(runs.begin(), runs.end(), line);
    }

    // Whether this process has a child that runs, or has ended and waits to be asked for it.
    static bool AdbRuns() {
        siginfo_t child{};
        return waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) == 0;
    }

    const FakeAdb adb_{kScript};
    LinkEnvironment environment_;
    MemorySettings settings_;
    DeviceContext device_;
    std::unique_ptr<LoopbackAgent> server_;
    QWidget window_;
    QPointer<CDeviceManagerDlg> dialog_;
    QStringList status_;
    int result_ = -1;
};

TEST_F(DeviceManagerDlgTest, ControlsAreFoundByTheirNumbers) {
    Open();
    EXPECT_EQ(dialog_->objectName(), QStringLiteral("dialog 533"));
    EXPECT_EQ(Find(1047)->text(), ToQString(u8"刷新"));
    EXPECT_EQ(Find(1215)->text(), ToQString(u8"连接"));
    EXPECT_EQ(Find(10200)->text(), ToQString(u8"关闭"));
    EXPECT_EQ(Find(1199)->text(), ToQString(u8"使用帮助"));
    ASSERT_EQ(Find<QComboBox>(1073)->count(), 2);
    EXPECT_EQ(Find<QComboBox>(1073)->currentText(), ToQString(u8"USB (数据线)"));
    EXPECT_EQ(Find<QComboBox>(1073)->itemText(1), ToQString(u8"WiFi (无线网络)"));
    EXPECT_FALSE(Part<QLineEdit>("address")->isVisible());
    const QStringList captions{ToQString(u8"品牌信息"), ToQString(u8"硬件信息"),
                               ToQString(u8"系统版本"), ToQString(u8"连接方式")};
    for (int column = 0; column < captions.size(); ++column) {
        EXPECT_EQ(List()->model()->headerData(column, Qt::Horizontal).toString(), captions[column]);
    }
    EXPECT_EQ(List()->columnWidth(0), 104);
    EXPECT_EQ(List()->columnWidth(1), 200);
    EXPECT_EQ(List()->columnWidth(2), 140);
}

TEST_F(DeviceManagerDlgTest, AColumnThatWasDraggedIsAsWideTheNextTime) {
    OpenWithRows(2);
    DragColumn(*List(), 1, 25);
    EXPECT_EQ(List()->columnWidth(1), 225);
    ASSERT_TRUE(Reached(
        [this] { return settings_.ReadText(kSettingsKey, "columns_533_1214").has_value(); }));
    delete dialog_;
    OpenWithRows(2);
    EXPECT_EQ(List()->columnWidth(1), 225);
}

TEST_F(DeviceManagerDlgTest, TitleIsItsOwnUnlessGiven) {
    Open();
    EXPECT_EQ(dialog_->windowTitle(), ToQString(u8"设备管理器 - Quorvi"));
    delete dialog_;
    Open(ToQString(u8"连接管理器 - Quorvi"));
    EXPECT_EQ(dialog_->windowTitle(), ToQString(u8"连接管理器 - Quorvi"));
}

TEST_F(DeviceManagerDlgTest, StateIsUnknownAtFirst) {
    dialog_ = new CDeviceManagerDlg(
        device_, [](const QString&) {}, {}, &window_, environment_);
    EXPECT_EQ(State(), ToQString(u8"未知"));
    EXPECT_TRUE(dialog_->Ready());
}

TEST_F(DeviceManagerDlgTest, OpeningFillsTheListRowByRow) {
    device_.SetSerial("two");
    Hold("list");
    Open();
    EXPECT_FALSE(dialog_->Ready());
    EXPECT_EQ(State(), ToQString(u8"获取设备信息中,请稍等..."));
    Hold("two");
    Release("list");
    ASSERT_TRUE(Reached([this] { return Rows() == 1; }));
    EXPECT_TRUE(dialog_->Ready());
    EXPECT_EQ(State(), QStringLiteral("two"));
    EXPECT_EQ(SelectedRow(), 0);
    Release("two");
    ASSERT_TRUE(Reached([this] { return Rows() == 2; }));
    EXPECT_EQ(SelectedRow(), 0);

    EXPECT_TRUE(Words(0, 1).startsWith(QStringLiteral("HTC [ HTC Desire ]")));
    EXPECT_TRUE(Words(0, 2).contains(QStringLiteral("API Level 10")));
    EXPECT_TRUE(Words(0, 2).contains(QStringLiteral("Android 2.3.X")));
    EXPECT_EQ(Words(0, 3), ToQString(u8"USB 数据线"));
    EXPECT_TRUE(Words(1, 1).startsWith(ToQString(u8"摩托罗拉 [ M52 ]")));
    EXPECT_TRUE(Words(1, 2).contains(QStringLiteral("API Level 8")));
}

TEST_F(DeviceManagerDlgTest, ListGetsTheFocusBehindARefresh) {
    window_.activateWindow();
    Open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_));
    EXPECT_TRUE(Reached([this] { return List()->hasFocus(); }));
}

TEST_F(DeviceManagerDlgTest, RefreshDuringARefreshIsIgnored) {
    Hold("list");
    Open();
    Find(1047)->click();
    QMetaObject::invokeMethod(Find(1047), "clicked", Q_ARG(bool, false));
    Release("list");
    ASSERT_TRUE(Reached([this] { return Rows() == 2; }));
    EXPECT_EQ(Runs("devices"), 1);
}

TEST_F(DeviceManagerDlgTest, RefreshReadsTheListAgain) {
    OpenWithRows(2);
    Print("devices", "List of devices attached\ntwo\tdevice\n\n");
    Find(1047)->click();
    EXPECT_EQ(Rows(), 0);
    ASSERT_TRUE(Reached([this] { return Rows() == 1; }));
    AwaitTimer(2 * kTimer0);
    ASSERT_TRUE(Reached([] { return RunningJobs() == 0; }));
    EXPECT_EQ(Rows(), 1);
    EXPECT_TRUE(Words(0, 1).startsWith(ToQString(u8"摩托罗拉")));
}

TEST_F(DeviceManagerDlgTest, AnswerToAnEarlierRefreshIsDropped) {
    Hold("two");
    Open();
    ASSERT_TRUE(Reached([this] { return Runs("-s two shell getprop") == 1; }));
    Print("devices", "List of devices attached\none\tdevice\n\n");
    Find(1047)->click();
    Release("two");
    ASSERT_TRUE(Reached([this] { return Rows() == 1 && dialog_->Ready(); }));
    // The answer has come when its adb has ended; what it posts comes before the timer.
    ASSERT_TRUE(Reached([] { return !AdbRuns(); }));
    AwaitTimer(2 * kTimer0);
    ASSERT_TRUE(Reached([] { return RunningJobs() == 0; }));
    EXPECT_EQ(Rows(), 1);
    EXPECT_TRUE(Words(0, 1).startsWith(QStringLiteral("HTC")));
}

TEST_F(DeviceManagerDlgTest, NoPhoneLeavesTheListEmpty) {
    Print("devices", "List of devices attached\n\n");
    Open();
    ASSERT_TRUE(Reached([this] { return dialog_->Ready(); }));
    EXPECT_EQ(Rows(), 0);
    EXPECT_EQ(State(), QString());
    Find(1215)->click();                   // nothing is selected: nothing happens
    EXPECT_TRUE(Find(1215)->isEnabled());  // a try would disable it
    EXPECT_EQ(RunningJobs(), 0);
    EXPECT_EQ(result_, -1);
    EXPECT_TRUE(status_.isEmpty());
}

TEST_F(DeviceManagerDlgTest, MissingAdbLeavesTheListFailed) {
    environment_.adbPath = [] { return std::string("/nonexistent/adb"); };
    Open();
    ASSERT_TRUE(Reached([this] { return dialog_->Ready(); }));
    EXPECT_EQ(Rows(), 0);
}

TEST_F(DeviceManagerDlgTest, PhoneThatVanishedHasARowWithoutBrand) {
    Print("devices", "List of devices attached\nthree\tdevice\n\n");
    OpenWithRows(1);
    EXPECT_TRUE(Words(0, 1).startsWith(QStringLiteral(" [  ]")));
    EXPECT_TRUE(Words(0, 2).contains(QStringLiteral("API Level 0")));
    EXPECT_TRUE(Words(0, 2).contains(ToQString(u8"未知版本")));
}

TEST_F(DeviceManagerDlgTest, ConnectLinksTheSelectedPhoneAndEnds) {
    ServerAnswers("OKAY");
    OpenWithRows(2);
    List()->selectRow(1);
    Find(1215)->click();
    EXPECT_EQ(device_.Serial(), "two");
    EXPECT_FALSE(Find(1215)->isEnabled());  // while the exchange runs
    ASSERT_TRUE(Reached([this] { return result_ != -1; }));
    EXPECT_EQ(result_, QDialog::Accepted);
    EXPECT_EQ(status_, QStringList{ToQString(u8"连接协议成功")});
}

TEST_F(DeviceManagerDlgTest, TwoPhonesWithTheSameSerialBothWork) {
    ServerAnswers("OKAY");
    Print("devices", "List of devices attached\none\tdevice\none\tdevice\n\n");
    OpenWithRows(2);
    List()->selectRow(1);
    Find(1215)->click();
    ASSERT_TRUE(Reached([this] { return result_ == QDialog::Accepted; }));
    EXPECT_EQ(device_.Serial(), "one");
}

TEST_F(DeviceManagerDlgTest, FailedTryFromTheReadyStateEndsTheDialogToo) {
    ServerAnswers("FAIL");
    OpenWithRows(2);
    Find(1215)->click();
    ASSERT_TRUE(Reached([this] { return result_ != -1; }));
    EXPECT_EQ(result_, QDialog::Rejected);
    EXPECT_EQ(status_, QStringList{ToQString(u8"【错误】连接协议失败")});
    EXPECT_EQ(device_.Serial(), "one");
}

TEST_F(DeviceManagerDlgTest, FailedTryDuringARefreshLeavesTheDialogOpen) {
    server_ = std::make_unique<LoopbackAgent>(
        Answer{Word(0), Answer::End::wait, 1, std::chrono::milliseconds(100)});
    environment_.hostPort = server_->Port();
    OpenWithRows(2);
    Find(1215)->click();
    // The server is slow; meanwhile a refresh begins.
    Hold("list");
    Find(1047)->setEnabled(true);
    Find(1047)->click();
    ASSERT_FALSE(dialog_->Ready());
    ASSERT_TRUE(Reached([this] { return !status_.isEmpty(); }));
    ASSERT_TRUE(Reached([this] { return Find(1215)->isEnabled(); }));
    EXPECT_EQ(result_, -1);
    EXPECT_TRUE(dialog_->isVisible());
}

TEST_F(DeviceManagerDlgTest, CloseEndsWithoutAChoice) {
    OpenWithRows(2);
    Find(10200)->click();
    EXPECT_EQ(result_, QDialog::Rejected);
    EXPECT_EQ(device_.Serial(), "");
}

TEST_F(DeviceManagerDlgTest, HelpDoesNothing) {
    OpenWithRows(2);
    ASSERT_TRUE(Reached([] { return RunningJobs() == 0; }));
    Find(1199)->click();
    QCoreApplication::processEvents();
    EXPECT_EQ(RunningJobs(), 0);
    EXPECT_EQ(result_, -1);
    EXPECT_TRUE(dialog_->isVisible());
}

// And the question that it asked is ended with it.
TEST_F(DeviceManagerDlgTest, DialogMayGoWhileAPhoneNeverAnswers) {
    Hold("one");
    Open();
    ASSERT_TRUE(Reached([this] { return Runs("-s one shell getprop") == 1; }));
    EXPECT_TRUE(AdbRuns());
    Find(10200)->click();
    ASSERT_TRUE(Reached([this] { return dialog_.isNull(); }));
    EXPECT_TRUE(Reached([] { return !AdbRuns(); }));
}

TEST_F(DeviceManagerDlgTest, DialogMayGoWhileAdbNeverEnds) {
    Hold("list");
    Open();
    ASSERT_TRUE(Reached([this] { return Runs("devices") == 1; }));
    Find(10200)->click();
    ASSERT_TRUE(Reached([this] { return dialog_.isNull(); }));
    Release("list");
    // The worker ends, and what it found is told to nobody: no phone is asked.
    ASSERT_TRUE(Reached([] { return RunningJobs() == 0; }));
    EXPECT_EQ(Runs("-s one shell getprop"), 0);
}

// ---- phones in the network ---------------------------------------------------------------------

TEST_F(DeviceManagerDlgTest, TheSecondKindShowsItsRowsAndTheListKeepsItsHeight) {
    OpenWithRows(2);
    const int height = dialog_->height();
    const int list = List()->height();
    Find<QComboBox>(1073)->setCurrentIndex(1);
    EXPECT_TRUE(Part<QLineEdit>("address")->isVisible());
    EXPECT_TRUE(Reached([&] { return List()->height() == list; }));
    EXPECT_GT(dialog_->height(), height);
    Find<QComboBox>(1073)->setCurrentIndex(0);
    EXPECT_FALSE(Part<QLineEdit>("address")->isVisible());
    EXPECT_EQ(dialog_->height(), height);
    ASSERT_TRUE(Reached([] { return RunningJobs() == 0; }));
}

TEST_F(DeviceManagerDlgTest, PhonesNearbyAndRememberedOnesAreOffered) {
    Print("services",
          "adb-HT04\t_adb-tls-connect._tcp\t10.0.0.2:41234\n"
          "adb-R58\t_adb-tls-pairing._tcp\t10.0.0.3:37123\n"
          "evil\t_adb._tcp\t--help\n");
    RememberAddress(settings_, "10.0.0.4:5555");
    OpenWireless();
    EXPECT_EQ(Known(), (QStringList{ToQString(u8"附近：adb-HT04"), ToQString(u8"等待配对：adb-R58"),
                                    ToQString(u8"连接过：10.0.0.4:5555")}));
    EXPECT_EQ(Part<QLineEdit>("address")->text(), QStringLiteral("10.0.0.2:41234"));
    auto* const known = Part<QComboBox>("known phones");
    known->setCurrentIndex(2);
    Q_EMIT known->activated(2);
    EXPECT_EQ(Part<QLineEdit>("address")->text(), QStringLiteral("10.0.0.4:5555"));
}

TEST_F(DeviceManagerDlgTest, AnAddressThatIsConnectedIsRememberedMarkedAndSelected) {
    Print("connect", "connected to 10.0.0.9:5555\n");
    OpenWireless();
    EXPECT_EQ(Known(), QStringList{ToQString(u8"没有找到附近的手机")});
    Print("devices", "List of devices attached\none\tdevice\n10.0.0.9:5555\tdevice\n\n");
    Part<QLineEdit>("address")->setText(QStringLiteral(" 10.0.0.9 "));
    Part<QAbstractButton>("connect address")->click();
    EXPECT_FALSE(Part<QLineEdit>("address")->isEnabled());  // while adb runs
    ASSERT_TRUE(Reached([this] { return Rows() == 2 && SelectedRow() == 1; }));
    EXPECT_EQ(Words(1, 3), ToQString(u8"WiFi 无线网络"));
    EXPECT_EQ(Words(0, 3), ToQString(u8"USB 数据线"));
    EXPECT_EQ(Runs("connect 10.0.0.9:5555"), 1);
    EXPECT_EQ(status_, QStringList{ToQString(u8"无线连接成功")});
    EXPECT_EQ(RememberedAddresses(settings_), std::vector<std::string>{"10.0.0.9:5555"});
    EXPECT_TRUE(Part<QLineEdit>("address")->isEnabled());
    ASSERT_TRUE(Reached([] { return RunningJobs() == 0; }));
}

TEST_F(DeviceManagerDlgTest, AnAddressWhereNobodyAnswersIsNotRemembered) {
    Print("connect", "failed to connect to '10.0.0.9:5555': Connection refused\n");
    OpenWireless();
    Part<QLineEdit>("address")->setText(QStringLiteral("10.0.0.9"));
    Part<QAbstractButton>("connect address")->click();
    ASSERT_TRUE(Reached([this] { return !status_.isEmpty(); }));
    EXPECT_TRUE(status_.back().startsWith(ToQString(u8"【错误】连不上这个地址")));
    EXPECT_EQ(State(), status_.back());
    EXPECT_TRUE(RememberedAddresses(settings_).empty());
    EXPECT_EQ(result_, -1);
}

TEST_F(DeviceManagerDlgTest, WhatIsNoAddressIsSaidSoAndAdbIsNotRun) {
    OpenWireless();
    for (const char* typed : {"", "--help", "-s one", "$(reboot)"}) {
        Part<QLineEdit>("address")->setText(QLatin1String(typed));
        Part<QAbstractButton>("connect address")->click();
        EXPECT_TRUE(State().startsWith(ToQString(u8"【错误】地址不对"))) << typed;
        EXPECT_EQ(RunningJobs(), 0);
    }
}

TEST_F(DeviceManagerDlgTest, SixDigitsPairAPhoneWhichIsThenOfferedForTheConnection) {
    Print("pair", "Successfully paired to 10.0.0.3:37123 [guid=adb-R58]\n");
    Print("services", "adb-R58\t_adb-tls-pairing._tcp\t10.0.0.3:37123\n");
    OpenWireless();
    Part<QLineEdit>("pairing code")->setText(QStringLiteral("012345"));
    Print("services", "adb-R58\t_adb-tls-connect._tcp\t10.0.0.3:41000\n");
    Part<QAbstractButton>("pair")->click();
    ASSERT_TRUE(Reached(
        [this] { return Part<QLineEdit>("address")->text() == QStringLiteral("10.0.0.3:41000"); }));
    EXPECT_EQ(Runs("pair 10.0.0.3:37123 012345"), 1);
    EXPECT_EQ(status_, QStringList{ToQString(u8"配对成功，可以连接了")});
    EXPECT_EQ(Part<QLineEdit>("pairing code")->text(), QString());
}

TEST_F(DeviceManagerDlgTest, APairingThatCannotBeIsSaidSo) {
    Print("pair", "adb: unknown command pair\n");
    OpenWireless();
    Part<QLineEdit>("address")->setText(QStringLiteral("10.0.0.3:37123"));
    Part<QLineEdit>("pairing code")->setText(QStringLiteral("12345"));
    Part<QAbstractButton>("pair")->click();
    EXPECT_EQ(State(), ToQString(u8"【错误】配对码是六位数字"));
    EXPECT_EQ(RunningJobs(), 0);
    Part<QLineEdit>("pairing code")->setText(QStringLiteral("123456"));
    QTest::keyClick(Part<QLineEdit>("pairing code"), Qt::Key_Return);
    // What to do is in the sentence, which is short enough to stand in the dialog whole.
    const QString told = ToQString(u8"【错误】配对要 31 版以上的 adb，请升级或接数据线");
    ASSERT_TRUE(Reached([&] { return State() == told; }));
    const auto* state = Find<QLabel>(1220);
    EXPECT_LE(state->sizeHint().width(), state->width());
    ASSERT_TRUE(Reached([] { return RunningJobs() == 0; }));
    EXPECT_EQ(Runs("pair 10.0.0.3:37123 123456"), 1);
    EXPECT_EQ(Runs("connect 10.0.0.3:37123"), 0);
}

TEST_F(DeviceManagerDlgTest, DialogMayGoWhileAdbConnects) {
    OpenWireless();
    Part<QLineEdit>("address")->setText(QStringLiteral("10.0.0.9"));
    Part<QAbstractButton>("connect address")->click();
    Find(10200)->click();
    ASSERT_TRUE(Reached([this] { return dialog_.isNull(); }));
    ASSERT_TRUE(Reached([] { return RunningJobs() == 0; }));
}

// Writes the dialog's picture where QUORVI_PICTURES names a directory.
TEST_F(DeviceManagerDlgTest, LooksAsDrawn) {
    device_.SetSerial("one");
    OpenWithRows(2);
    const QPixmap picture = dialog_->grab();
    EXPECT_GE(picture.width(), 632);
    const QString directory = qEnvironmentVariable("QUORVI_PICTURES");
    if (!directory.isEmpty()) {
        EXPECT_TRUE(picture.save(directory + QStringLiteral("/device-manager.png")));
        Find<QComboBox>(1073)->setCurrentIndex(1);
        ASSERT_TRUE(Reached([] { return RunningJobs() == 0; }));
        QCoreApplication::processEvents();
        dialog_->grab().save(directory + QStringLiteral("/device-manager-wireless.png"));
        Print("devices", "List of devices attached\n\n");
        Find(1047)->click();
        dialog_->grab().save(directory + QStringLiteral("/device-manager-loading.png"));
        ASSERT_TRUE(Reached([this] { return dialog_->Ready(); }));
        dialog_->grab().save(directory + QStringLiteral("/device-manager-empty.png"));
    }
}

}  // namespace
}  // namespace quorvi
