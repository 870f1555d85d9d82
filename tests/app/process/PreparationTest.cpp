// What every program with the suite's window does before it makes the window.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <memory>

#include "app/process/Preparation.h"
#include "base/CodePageChoice.h"
#include "base/SettingsFile.h"
#include "tests/support/QtTest.h"
#include "ui/kit/SkinFields.h"

namespace quorvi {
namespace {

class Preparation : public QtTest {
  protected:
    ~Preparation() override {
        SettingsFile().Delete(kSettingsKey, "code_page");
        SetCodePage(CodePage::gbk);
    }
    void SetUp() override { PrepareApplication(*qApp); }

    // The words of a menu's items, without the keys that do the same.
    static QStringList Words(QMenu* menu) {
        const std::unique_ptr<QMenu> owned(menu);
        QStringList words;
        for (const QAction* action : menu->actions()) {
            if (!action->isSeparator()) {
                words.append(action->text().section(QLatin1Char('\t'), 0, 0));
            }
        }
        return words;
    }
};

const QStringList kEditMenu{
    QStringLiteral("撤消(&U)"), QStringLiteral("重做(&R)"), QStringLiteral("剪切(&T)"),
    QStringLiteral("复制(&C)"), QStringLiteral("粘贴(&P)"), QStringLiteral("删除"),
    QStringLiteral("全选"),
};

TEST_F(Preparation, TheMenuOfALineIsInChinese) {
    CSkinEdit line;
    EXPECT_EQ(Words(line.createStandardContextMenu()), kEditMenu);
}

TEST_F(Preparation, TheMenuOfATextIsInChinese) {
    SkinTextEdit text;
    EXPECT_EQ(Words(text.createStandardContextMenu()), kEditMenu);
}

// The site's pages can bring up boxes of the browser's.
TEST_F(Preparation, TheBrowsersBoxesAreInChinese) {
    EXPECT_EQ(QCoreApplication::translate("QWebEnginePage", "Select folder to upload"),
              QStringLiteral("选择要上传的文件夹"));
}

TEST_F(Preparation, TheProgramRunsInTheCodePageThatTheUserHasChosen) {
    for (const CodePage codePage : {CodePage::gb18030, CodePage::gbk}) {
        SettingsFile settings;
        ChooseCodePage(settings, codePage);
        PrepareApplication(*qApp);
        EXPECT_EQ(ActiveCodePage(), codePage);
    }
}

}  // namespace
}  // namespace quorvi
