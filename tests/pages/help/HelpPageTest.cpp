// Page 6, driven by control number, with a real server as its site.
#include <fmt/format.h>

#include <QAbstractButton>
#include <QLabel>
#include <optional>

#include "base/Json.h"
#include "base/os/KernelRelease.h"
#include "pages/help/HelpPage.h"
#include "tests/support/ControlDriver.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/LoopbackPort.h"
#include "tests/support/OpenedAddresses.h"
#include "tests/support/PageTest.h"
#include "tests/support/SiteServer.h"
#include "tests/support/WireBytes.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"

namespace quorvi {
namespace {

const QString kSending = ToQString(u8"正在提交，请稍等...");
const QString kReceived = ToQString(u8"感谢您的支持，反馈信息我们已收到 :)");
const QString kFailed = ToQString(u8"提交失败，请稍后再试 :(");

Bytes Identity() {
    return Framed(WireBytes()
                      .U32(0)           // leading word
                      .U32(20)          // the agent's version
                      .U32(10)          // API level
                      .Text("奎维 Q1")  // model
                      .Get());
}

class HelpPageTest : public PageTest {
  protected:
    void Open(AgentAddress agent = UnusedPort()) {
        services_.deployment.siteRoot = site_.Root();
        page_ = std::make_unique<HelpPage>(host_, services_.At(agent));
        page_->resize(760, 462);
        page_->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(page_.get(), kPatience));
    }
    // With a form that may go, and a site that takes it.
    void OpenFilled() {
        site_.Serve("feedback/feedback.php", "ok");
        Open();
        Edit(1082).setText(QStringLiteral("Q1"));
        Edit(1084).setText(QStringLiteral("2.3"));
        Content().setPlainText(ToQString(u8"很好用的"));
    }
    template <typename T>
    [[nodiscard]] T& Control(int number) {
        return *FindControl<T>(page_.get(), number);
    }
    [[nodiscard]] CSkinEdit& Edit(int number) { return Control<CSkinEdit>(number); }
    [[nodiscard]] SkinTextEdit& Content() { return Control<SkinTextEdit>(1076); }
    [[nodiscard]] QAbstractButton& SendButton() { return Control<QAbstractButton>(1030); }
    [[nodiscard]] QString State() { return Control<CSkinStateLabel>(1109).text(); }
    void Send() {
        SendButton().click();
        Settle();
    }
    void Load() {
        page_->Load();
        Settle();
    }

    SiteServer site_;
    std::unique_ptr<HelpPage> page_;
};

TEST_F(HelpPageTest, HasItsFormAndLinks) {
    Open();
    EXPECT_EQ(page_->objectName(), QStringLiteral("dialog 268"));
    EXPECT_EQ(Control<CSkinCombo>(1004).itemText(0), ToQString(u8"Android (谷歌)"));
    EXPECT_EQ(Control<CSkinCombo>(1004).itemText(1), ToQString(u8"Ophone (中移动)"));
    EXPECT_EQ(Control<CSkinCombo>(1004).currentIndex(), 0);
    EXPECT_EQ(SendButton().text(), ToQString(u8"发送反馈"));
    EXPECT_EQ(Edit(1082).accessibleName(), ToQString(u8"涉及机型 (必填)"));
    EXPECT_EQ(Content().accessibleName(), ToQString(u8"反馈内容 (必填)"));
}

TEST_F(HelpPageTest, TheLoadFillsInWhatThePhoneSaysOfItself) {
    LoopbackAgent agent({.bytes = Identity()});
    Open(agent.Port());
    Load();
    EXPECT_EQ(Edit(1082).text(), ToQString(u8"奎维 Q1"));
    EXPECT_EQ(Edit(1084).text(), QStringLiteral("Android 2.3.3"));
    EXPECT_EQ(host_.loadState.Value(0), PageLoadState::kEnded);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(HelpPageTest, TheLoadLeavesWhatTheUserHasTyped) {
    LoopbackAgent agent({.bytes = Identity()});
    Open(agent.Port());
    Edit(1084).setText(QStringLiteral("mine"));
    Load();
    EXPECT_EQ(Edit(1082).text(), ToQString(u8"奎维 Q1"));
    EXPECT_EQ(Edit(1084).text(), QStringLiteral("mine"));
}

TEST_F(HelpPageTest, AnAgentThatIsNotThereIsToldAndTheBoxesStay) {
    Open();
    Load();
    EXPECT_EQ(host_.status, kConnectError);
    EXPECT_EQ(Edit(1082).text(), QString());
    EXPECT_EQ(Edit(1084).text(), QString());
}

TEST_F(HelpPageTest, AnAgentWithoutDataLeavesTheBoxes) {
    LoopbackAgent agent({.bytes = Word(NoDataMark)});
    Open(agent.Port());
    Load();
    EXPECT_EQ(Edit(1082).text(), QString());
    EXPECT_EQ(Edit(1084).text(), QString());
}

TEST_F(HelpPageTest, AFormGoesToTheSiteWithTheAgentsVersion) {
    LoopbackAgent agent({.bytes = Identity()});
    site_.Serve("feedback/feedback.php", "ok");
    Open(agent.Port());
    Load();
    Control<CSkinCombo>(1004).setCurrentIndex(1);
    Content().setPlainText(ToQString(u8"第一行\n第二行"));
    Edit(1080).setText(QStringLiteral("one@quorvi.example"));
    Edit(1081).setText(QStringLiteral("10001"));
    Send();
    EXPECT_EQ(State(), kReceived);
    std::string body = site_.Requests(1).at(0).body;
    ASSERT_TRUE(body.starts_with("feedback={") && body.ends_with("&"));
    const auto sent = ParseJson(std::string_view(body).substr(9, body.size() - 10));
    ASSERT_TRUE(sent.has_value());
    EXPECT_EQ((*sent)["Client"].asInt(), 20);
    EXPECT_EQ((*sent)["Platform"].asString(), "Ophone");
    EXPECT_EQ((*sent)["Model"].asString(), "奎维 Q1");
    EXPECT_EQ((*sent)["Rom"].asString(), "Android 2.3.3");
    EXPECT_EQ((*sent)["Content"].asString(), "第一行\n第二行");
    EXPECT_EQ((*sent)["Email"].asString(), "one@quorvi.example");
    EXPECT_EQ((*sent)["QQ"].asString(), "10001");
    EXPECT_EQ((*sent)["Pc"].asInt(), KernelReleaseNumber());
}

TEST_F(HelpPageTest, WithoutAnAgentTheVersionIsZero) {
    OpenFilled();
    Send();
    EXPECT_NE(site_.Requests(1).at(0).body.find("\"Client\" : 0"), std::string::npos);
}

TEST_F(HelpPageTest, SaysWhatIsMissingOneAfterTheOther) {
    site_.Serve("feedback/feedback.php", "ok");
    Open();
    Send();
    EXPECT_EQ(State(), ToQString(u8"您的反馈内容过少"));
    Content().setPlainText(QStringLiteral("four"));
    Send();
    EXPECT_EQ(State(), ToQString(u8"请输入有效的固件版本"));
    Edit(1084).setText(QStringLiteral("22"));
    Send();
    EXPECT_EQ(State(), ToQString(u8"请输入有效的机型"));
    Edit(1082).setText(QStringLiteral("Q1"));
    Send();
    EXPECT_EQ(State(), kReceived);
    EXPECT_EQ(site_.Requests(1).size(), 1U);
}

TEST_F(HelpPageTest, SaysThatAFormIsOnItsWayAndTakesNoOtherMeanwhile) {
    OpenFilled();
    SendButton().click();
    EXPECT_EQ(State(), kSending);
    EXPECT_FALSE(SendButton().isEnabled());
    SendButton().click();
    Settle();
    EXPECT_EQ(State(), kReceived);
    EXPECT_EQ(site_.Requests(1).size(), 1U);
}

TEST_F(HelpPageTest, BehindFiveFormsTheButtonDoesNothing) {
    OpenFilled();
    for (int i = 0; i < 5; ++i) {
        Send();
    }
    EXPECT_EQ(site_.Requests(5).size(), 5U);
    Content().setPlainText(QString());
    Send();
    EXPECT_EQ(State(), kReceived);
    EXPECT_EQ(site_.Requests(5).size(), 5U);
}

TEST_F(HelpPageTest, ARefusedFormDoesNotCount) {
    OpenFilled();
    Content().setPlainText(QString());
    for (int i = 0; i < 6; ++i) {
        Send();
    }
    Content().setPlainText(QStringLiteral("four"));
    Send();
    EXPECT_EQ(State(), kReceived);
}

TEST_F(HelpPageTest, AFormThatDidNotGetThereCounts) {
    Open();  // the site has no such page
    Edit(1082).setText(QStringLiteral("Q1"));
    Edit(1084).setText(QStringLiteral("2.3"));
    Content().setPlainText(QStringLiteral("four"));
    for (int i = 0; i < 5; ++i) {
        Send();
        EXPECT_EQ(State(), kFailed);
    }
    site_.Serve("feedback/feedback.php", "ok");
    Send();
    EXPECT_EQ(State(), kFailed);
    EXPECT_EQ(site_.Requests(5).size(), 5U);
}

TEST_F(HelpPageTest, AFormGoesOnWhileAnotherPageIsShown) {
    OpenFilled();
    SendButton().click();
    page_->hide();
    Settle();
    EXPECT_EQ(State(), kReceived);
    EXPECT_EQ(Content().toPlainText(), ToQString(u8"很好用的"));
}

TEST_F(HelpPageTest, MayGoWhileTheSiteDoesNotAnswer) {
    std::optional<TcpSocket> silent = ListenOn(0);  // where nobody takes the connection up
    OpenFilled();
    services_.deployment.siteRoot = fmt::format("http://127.0.0.1:{}/", PortOf(*silent));
    page_ = std::make_unique<HelpPage>(host_, services_.At(UnusedPort()));
    Content().setPlainText(QStringLiteral("four"));
    Edit(1082).setText(QStringLiteral("Q1"));
    Edit(1084).setText(QStringLiteral("2.3"));
    SendButton().click();
    page_.reset();
    silent.reset();
    Settle();
}

// Keeps the keys that its child leaves.
class KeyKeeper : public QWidget {
  public:
    QList<int> keys;

  protected:
    void keyPressEvent(QKeyEvent* event) override { keys.append(event->key()); }
};

TEST_F(HelpPageTest, EnterAndEscapeGoNoFurther) {
    OpenFilled();
    KeyKeeper window;
    page_->setParent(&window);
    page_->show();
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window, kPatience));
    for (QWidget* field : std::initializer_list<QWidget*>{
             &Edit(1082), &Edit(1080), &Control<CSkinCombo>(1004), &SendButton()}) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
            QTest::keyClick(field, key);
        }
    }
    Settle();
    EXPECT_TRUE(window.keys.isEmpty());
    EXPECT_EQ(State(), QString());
    page_->setParent(nullptr);
}

TEST_F(HelpPageTest, EnterInTheTextMakesALine) {
    Open();
    Content().setFocus();
    QTest::keyClick(&Content(), Qt::Key_A);
    QTest::keyClick(&Content(), Qt::Key_Return);
    QTest::keyClick(&Content(), Qt::Key_B);
    EXPECT_EQ(Content().toPlainText(), QStringLiteral("a\nb"));
}

TEST_F(HelpPageTest, TheLinksOpenWhereTheDeploymentSays) {
    OpenedAddresses opened({QStringLiteral("http"), QStringLiteral("mailto")});
    services_.deployment.contactMail = "mailto:we@quorvi.example";
    Open();
    for (const int link : {1087, 1088, 1340, 1221}) {
        ClickOn(Control<QWidget>(link));
    }
    EXPECT_EQ(opened.taken.join(u'|'),
              QStringLiteral("mailto:we@quorvi.example|http://bbs.quorvi.example/|"
                             "http://social.quorvi.example/quorvi|http://help.quorvi.example/"));
}

}  // namespace
}  // namespace quorvi
