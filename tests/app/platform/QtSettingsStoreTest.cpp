#include <QFile>
#include <QTemporaryDir>

#include "app/platform/QtSettingsStore.h"
#include "base/Text.h"
#include "tests/support/WidgetTest.h"

namespace quorvi {
namespace {

class Settings : public WidgetTest {
  protected:
    QTemporaryDir folder_;
    std::filesystem::path file_ = folder_.filePath(QStringLiteral("settings")).toStdString();
};

TEST_F(Settings, NumbersAndAnsiTextComeBackFromTheFile) {
    {
        QtSettingsStore store(file_);
        EXPECT_TRUE(store.WriteNumber(kSettingsKey, "exit_mode", 3));
        EXPECT_TRUE(store.WriteNumber(kSettingsKey, "cityIndex", 0xFFFFFFFFU));
        EXPECT_TRUE(store.WriteText(kSettingsKey, "city", Ansi(u8"北京, 海淀")));
    }
    const QtSettingsStore store(file_);
    EXPECT_EQ(store.ReadNumber(kSettingsKey, "exit_mode"), 3U);
    EXPECT_EQ(store.ReadNumber(kSettingsKey, "cityIndex"), 0xFFFFFFFFU);
    EXPECT_EQ(store.ReadText(kSettingsKey, "city"), Ansi(u8"北京, 海淀"));
}

TEST_F(Settings, AValueThatIsNotThereIsNothing) {
    const QtSettingsStore store(file_);
    EXPECT_EQ(store.ReadNumber(kSettingsKey, "exit_mode"), std::nullopt);
    EXPECT_EQ(store.ReadText(kSettingsKey, "city"), std::nullopt);
}

TEST_F(Settings, KeysAreFoundInAnyMixOfCase) {
    QtSettingsStore store(file_);
    store.WriteNumber("SOFTWARE\\Quorvi", "exit_mode", 3);
    EXPECT_EQ(store.ReadNumber("Software\\Quorvi", "exit_mode"), 3U);
    store.WriteNumber("Software\\Quorvi", "Exit_Mode", 0);
    EXPECT_EQ(store.ReadNumber("SOFTWARE\\Quorvi", "exit_mode"), 0U);
}

TEST_F(Settings, ATextThatIsNoNumberIsNoNumber) {
    QtSettingsStore store(file_);
    store.WriteText(kSettingsKey, "city", "Aurora");
    EXPECT_EQ(store.ReadNumber(kSettingsKey, "city"), std::nullopt);
}

TEST_F(Settings, DeletingWhatIsNotThereIsNoError) {
    QtSettingsStore store(file_);
    store.Delete(kSettingsKey, "exit_mode");
    store.WriteNumber(kSettingsKey, "exit_mode", 3);
    store.Delete(kSettingsKey, "exit_mode");
    EXPECT_EQ(store.ReadNumber(kSettingsKey, "exit_mode"), std::nullopt);
}

TEST_F(Settings, TheFileCarriesTheKeysAndNamesAsTheyAre) {
    QtSettingsStore store(file_);
    store.WriteNumber(kSettingsKey, "exit_mode", 3);
    store.Flush();
    QFile file(QString::fromStdString(file_.string()));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_TRUE(text.contains("[Software]")) << text.constData();
    EXPECT_TRUE(text.contains("Quorvi\\exit_mode=3")) << text.constData();
}

}  // namespace
}  // namespace quorvi
