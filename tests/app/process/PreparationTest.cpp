#include <QApplication>

#include "app/process/Preparation.h"
#include "base/CodePageChoice.h"
#include "base/SettingsFile.h"
#include "tests/support/QtTest.h"

namespace quorvi {
namespace {

class Preparation : public QtTest {
  protected:
    ~Preparation() override {
        SettingsFile().Delete(kSettingsKey, "code_page");
        SetCodePage(CodePage::gbk);
    }
};

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
