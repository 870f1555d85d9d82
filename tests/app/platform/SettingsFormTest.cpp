// The settings file is the one that the toolkit's own class writes: what either writes the other
// reads.
#include <QSettings>
#include <QTemporaryDir>

#include "base/SettingsFile.h"
#include "base/Text.h"
#include "tests/support/WidgetTest.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

// Texts that the form writes in a way of its own.
const std::u8string_view kTexts[] = {
    u8"",
    u8"Aurora",
    u8"北京, 海淀",
    u8"/home/u/下载",
    u8" blank at both ends ",
    u8"a;b=c",
    u8"\"quoted\" and \\ and 'x'",
    u8"line\nline\r\n\ttab",
    u8"\x01"
    u8"f and \x1f",
    u8"@Invalid()",
    u8"@",
    u8"100 %",
    u8"𠀀",
};

class SettingsForm : public WidgetTest {
  protected:
    static std::string NameOf(std::size_t i) { return "name" + std::to_string(i); }
    static QString PlaceOf(std::size_t i) {
        return QStringLiteral("Software/Quorvi/") + QString::fromStdString(NameOf(i));
    }
    [[nodiscard]] QString File() const { return folder_.filePath(QStringLiteral("Quorvi.ini")); }
    [[nodiscard]] SettingsFile Store() const { return SettingsFile(File().toStdString()); }

    QTemporaryDir folder_;

    // All of Unicode comes through the file.
    void SetUp() override { SetCodePage(CodePage::gb18030); }
    void TearDown() override { SetCodePage(CodePage::gbk); }
};

TEST_F(SettingsForm, WhatTheToolkitWroteIsRead) {
    {
        QSettings written(File(), QSettings::IniFormat);
        for (std::size_t i = 0; i < std::size(kTexts); ++i) {
            written.setValue(PlaceOf(i), ToQString(kTexts[i]));
        }
        written.setValue(QStringLiteral("Software/Quorvi/exit_mode"), 3U);
        written.setValue(QStringLiteral("Software/Quorvi/奎 维/x"), QStringLiteral("y"));
    }
    const SettingsFile store = Store();
    for (std::size_t i = 0; i < std::size(kTexts); ++i) {
        EXPECT_EQ(store.ReadText(kSettingsKey, NameOf(i)), Ansi(kTexts[i])) << i;
    }
    EXPECT_EQ(store.ReadNumber(kSettingsKey, "exit_mode"), 3U);
    EXPECT_EQ(store.ReadText(Ansi(u8"Software\\Quorvi\\奎 维"), "x"), "y");
}

TEST_F(SettingsForm, WhatIsWrittenTheToolkitReads) {
    SettingsFile store = Store();
    for (std::size_t i = 0; i < std::size(kTexts); ++i) {
        ASSERT_TRUE(store.WriteText(kSettingsKey, NameOf(i), Ansi(kTexts[i])));
    }
    ASSERT_TRUE(store.WriteNumber(kSettingsKey, "exit_mode", 0xFFFFFFFFU));
    ASSERT_TRUE(store.WriteText(Ansi(u8"Software\\Quorvi\\奎 维"), "x", "y"));
    const QSettings read(File(), QSettings::IniFormat);
    for (std::size_t i = 0; i < std::size(kTexts); ++i) {
        EXPECT_EQ(read.value(PlaceOf(i)).toString(), ToQString(kTexts[i])) << i;
    }
    EXPECT_EQ(read.value(QStringLiteral("Software/Quorvi/exit_mode")).toUInt(), 0xFFFFFFFFU);
    EXPECT_EQ(read.value(QStringLiteral("Software/Quorvi/奎 维/x")).toString(),
              QStringLiteral("y"));
    EXPECT_EQ(read.status(), QSettings::NoError);
}

TEST_F(SettingsForm, ValuesThatOthersKeepInTheFileStay) {
    {
        QSettings written(File(), QSettings::IniFormat);
        written.setValue(QStringLiteral("window"), QSize(3, 4));
        written.setValue(QStringLiteral("Software/Quorvi/city"), QStringLiteral("北京"));
        written.setValue(QStringLiteral("Other/list"),
                         QStringList{QStringLiteral("a"), QStringLiteral("b, c")});
    }
    SettingsFile store = Store();
    ASSERT_TRUE(store.WriteNumber(kSettingsKey, "exit_mode", 3));
    store.Delete(kSettingsKey, "city");
    const QSettings read(File(), QSettings::IniFormat);
    EXPECT_EQ(read.value(QStringLiteral("window")).toSize(), QSize(3, 4));
    EXPECT_EQ(read.value(QStringLiteral("Other/list")).toStringList().size(), 2);
    EXPECT_FALSE(read.contains(QStringLiteral("Software/Quorvi/city")));
    EXPECT_EQ(read.value(QStringLiteral("Software/Quorvi/exit_mode")).toUInt(), 3U);
}

TEST_F(SettingsForm, TheUsersOwnFileIsTheToolkits) {
    const QSettings users(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Quorvi"),
                          QStringLiteral("Quorvi"));
    // Whatever folder the environment names, the rest of the way is the same.
    EXPECT_TRUE(users.fileName().endsWith(QString::fromStdString(
        ThePlaces().SettingsFile().lexically_relative(ThePlaces().config).string())));
}

}  // namespace
}  // namespace quorvi
