// Packages that are dropped on the window.
#include <QPlainTextEdit>

#include "tests/pages/downloads/DownloadPageFixture.h"

namespace quorvi {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int kMessage = 0;
constexpr int kYes = 1;
constexpr int kNo = 2;
constexpr int kQuote = 3;

class DropInstallTest : public DownloadPageTest {
  protected:
    using DownloadPageTest::DownloadPageTest;

    void Drop(const QStringList& files) {
        page_->OnDropFiles(files);
        Settle();
    }
    [[nodiscard]] QString PathOf(const char* name) const {
        const std::filesystem::path file = disk_.Path() / name;
        std::ofstream(file) << "package";
        return QString::fromStdString(file.native());
    }
    [[nodiscard]] static QString Quoted() {
        return FindControl<QPlainTextEdit>(OpenDialog(kMessage), kQuote)->toPlainText();
    }
    void Answer(int control) {
        PressIn(kMessage, control);
        Settle();
    }
};

TEST_F(DropInstallTest, AsksBeforeItInstalls) {
    Open();
    Drop({PathOf("a.apk"), PathOf("b.APK")});
    ASSERT_NE(OpenDialog(kMessage), nullptr);
    EXPECT_EQ(Quoted(), QStringLiteral("a.apk\nb.APK"));
    Answer(kNo);
    EXPECT_THAT(adb_.Calls(), IsEmpty());
}

TEST_F(DropInstallTest, ThePackageIsInstalledAndNoRowIsMade) {
    Open();
    Drop({PathOf("a.apk")});
    Answer(kYes);
    EXPECT_THAT(adb_.Calls(), ElementsAre(ElementsAre("-s", "HT04", "install", "-r",
                                                      (disk_.Path() / "a.apk").native())));
    EXPECT_EQ(host_.status, ToQString(u8"安装成功：a.apk"));
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_EQ(OpenDialog(kMessage), nullptr);
}

TEST_F(DropInstallTest, SeveralAreInstalledInTheirOrderAndListedAtTheEnd) {
    Open();
    const QString gone = QString::fromStdString((disk_.Path() / "gone.apk").native());
    Drop({PathOf("a.apk"), gone, PathOf("b.apk")});
    Answer(kYes);
    ASSERT_EQ(adb_.Calls().size(), 3u);
    ASSERT_NE(OpenDialog(kMessage), nullptr);
    EXPECT_EQ(Quoted(), ToQString(u8"安装成功：a.apk\n"
                                  u8"【错误】安装失败：gone.apk，请检查手机的连接后重新安装\n"
                                  u8"安装成功：b.apk"));
    Answer(kYes);
}

TEST_F(DropInstallTest, OtherFilesAreNotItsOwn) {
    Open();
    Drop({PathOf("a.zip"), PathOf("b.txt")});
    EXPECT_EQ(OpenDialog(kMessage), nullptr);
}

TEST_F(DropInstallTest, WithoutAPhoneItSaysSo) {
    services_.device.SetSerial("");
    Open();
    Drop({QString::fromStdString((disk_.Path() / "gone.apk").native())});
    Answer(kYes);
    EXPECT_THAT(host_.status.toStdString(), HasSubstr("没有连接手机"));
}

}  // namespace
}  // namespace quorvi
