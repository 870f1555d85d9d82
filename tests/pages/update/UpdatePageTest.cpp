// Page 4, driven by control number, with a real server as its site.
#include <fmt/format.h>

#include <QAbstractButton>
#include <QLabel>
#include <optional>

#include "base/Version.h"
#include "pages/update/UpdatePage.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/LoopbackPort.h"
#include "tests/support/PageTest.h"
#include "tests/support/SiteServer.h"
#include "ui/kit/SkinLabels.h"
#include "ui/list/SkinListCtrl.h"

namespace quorvi {
namespace {

constexpr std::string_view kNews =
    "<root><item type='version'><v>1.2</v><a>2011-06</a></item>"
    "<item type='detail'><add>first</add><fix>second</fix></item></root>";

class UpdatePageTest : public PageTest {
  protected:
    void OpenAt(const std::string& root) {
        services_.deployment.siteRoot = root;
        page_ = std::make_unique<UpdatePage>(host_, services_.At(UnusedPort()));
        page_->resize(760, 462);
        page_->show();
    }
    // At the server, which has this file.
    void Open(std::string_view news) {
        site_.Serve("update.xml", news);
        OpenAt(site_.Root());
    }
    void Check() {
        Button().click();
        Settle();
    }
    template <typename T = QLabel>
    [[nodiscard]] T& Control(int number) {
        return *FindControl<T>(page_.get(), number);
    }
    [[nodiscard]] QAbstractButton& Button() { return Control<QAbstractButton>(1082); }
    [[nodiscard]] CSkinListCtrl& List() { return Control<CSkinListCtrl>(1081); }
    [[nodiscard]] QStringList Rows() {
        QStringList rows;
        for (int row = 0; row < List().RowCount(); ++row) {
            rows.append(List().CellAt(row, 0).icon + u'|' + List().CellAt(row, 1).text + u'|' +
                        List().CellAt(row, 2).text);
        }
        return rows;
    }
    // What the open message box says; it is closed then.
    [[nodiscard]] QString TakeMessage() {
        SkinDialog* box = OpenDialog(0);
        if (box == nullptr) {
            return {};
        }
        const QString text = FindControl<QLabel>(box, 65535)->text();
        PressIn(0, 1);
        Settle();
        return text;
    }

    SiteServer site_;
    std::unique_ptr<UpdatePage> page_;
};

TEST_F(UpdatePageTest, ShowsTheRunningVersionAndKnowsOfNoOther) {
    Open(kNews);
    EXPECT_EQ(page_->objectName(), QStringLiteral("dialog 394"));
    EXPECT_EQ(Control(1343).text().toStdString(), ProductVersion());
    EXPECT_EQ(Control(1342).text(), ToQString(u8"未知"));
    EXPECT_EQ(Control(1032).text(), QString());
    EXPECT_EQ(Control<CSkinProgress>(1083).value(), 0);
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_EQ(List().Column(1).caption, u8"更新类型");
    EXPECT_EQ(List().Column(2).caption, u8"详细内容");
}

TEST_F(UpdatePageTest, ACheckShowsTheNewestVersionAndWhatHasChanged) {
    Open(kNews);
    Check();
    EXPECT_EQ(Control(1342).text(), QStringLiteral("1.2"));
    EXPECT_EQ(Control(1032).text(), QStringLiteral("1.2"));
    EXPECT_EQ(Control<CSkinProgress>(1083).value(), 10);
    EXPECT_EQ(Control<CSkinProgress>(1083).maximum(), 10);
    EXPECT_EQ(Rows().join(u'\n'), ToQString(u8"row-data|手机参数|2011-06\n"
                                            u8"row-added|新增功能|first\n"
                                            u8"row-fixed|漏洞修复|second"));
}

TEST_F(UpdatePageTest, TwoPressesInARowGiveTheSameList) {
    Open(kNews);
    Check();
    const QStringList first = Rows();
    Check();
    EXPECT_EQ(Rows(), first);
    EXPECT_EQ(site_.Requests(2).size(), 2U);
}

TEST_F(UpdatePageTest, APressDuringACheckIsIgnored) {
    Open(kNews);
    Button().click();
    EXPECT_FALSE(Button().isEnabled());
    Button().click();
    Settle();
    EXPECT_TRUE(Button().isEnabled());
    EXPECT_EQ(site_.Requests(1).size(), 1U);
}

TEST_F(UpdatePageTest, WithTheNewestVersionItLooksAsEver) {
    Open(fmt::format("<root><item type='version'><v>{}</v></item></root>", ProductVersion()));
    Check();
    EXPECT_EQ(Control(1342).text(), Control(1343).text());
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_TRUE(TakeMessage().isEmpty());
    EXPECT_TRUE(Button().isEnabled());
}

TEST_F(UpdatePageTest, ABrokenFileIsToldAndItsRowsUpToThereStay) {
    Open("<root><item type='detail'><add>first</add></item><item><add>x</add></item></root>");
    Check();
    EXPECT_EQ(TakeMessage(), ToQString(u8"xml文件存在问题"));
    EXPECT_EQ(Rows(), QStringList(ToQString(u8"row-added|新增功能|first")));
    EXPECT_EQ(Control<CSkinProgress>(1083).value(), 0);
    EXPECT_EQ(Control(1342).text(), ToQString(u8"未知"));
}

TEST_F(UpdatePageTest, ASiteThatIsNotThereIsToldAndTheNextCheckWorks) {
    OpenAt(site_.Root());
    Check();
    EXPECT_EQ(TakeMessage(), ToQString(u8"xml文件存在问题"));
    EXPECT_EQ(List().State(), ListState::failed);
    site_.Serve("update.xml", kNews);
    Check();
    EXPECT_TRUE(TakeMessage().isEmpty());
    EXPECT_EQ(List().State(), ListState::idle);
    EXPECT_EQ(List().RowCount(), 3);
}

TEST_F(UpdatePageTest, TheKeyboardIsAtTheButtonAgainBehindACheck) {
    Open(kNews);
    ASSERT_TRUE(QTest::qWaitForWindowActive(page_.get(), kPatience));
    Button().setFocus();
    Check();
    EXPECT_TRUE(Button().hasFocus());
}

TEST_F(UpdatePageTest, WhatTheSiteSaysIsNoMarkup) {
    Open("<root><item type='version'><v>&lt;b&gt;2&lt;/b&gt;</v></item></root>");
    Check();
    EXPECT_EQ(Control(1342).text(), QStringLiteral("<b>2</b>"));
    EXPECT_EQ(Control(1342).textFormat(), Qt::PlainText);
    EXPECT_EQ(Control(1032).textFormat(), Qt::PlainText);
}

TEST_F(UpdatePageTest, MayGoWhileTheSiteDoesNotAnswer) {
    std::optional<TcpSocket> silent = ListenOn(0);  // where nobody takes the connection up
    OpenAt(fmt::format("http://127.0.0.1:{}/", PortOf(*silent)));
    Button().click();
    EXPECT_EQ(List().State(), ListState::loading);
    page_.reset();
    silent.reset();
    Settle();
}

}  // namespace
}  // namespace quorvi
