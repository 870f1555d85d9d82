// The guide, and the key that opens it.
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>

#include "tests/app/window/MainDlgFixture.h"
#include "tests/support/BuildPlaces.h"
#include "tests/support/OpenedAddresses.h"
#include "tests/support/TemporaryFolder.h"
#include "ui/page/OpenGuide.h"

namespace quorvi {
namespace {

class Guide : public MainDlgTest {
  protected:
    OpenedAddresses opened_{{QStringLiteral("file")}};
};

TEST_F(Guide, F1OpensTheFileThatIsDelivered) {
    MakeWindow();
    QTest::keyClick(&*window_, Qt::Key_F1);
    ASSERT_TRUE(WaitFor([this] { return !opened_.taken.isEmpty(); }));
    const QFileInfo file(QUrl(opened_.taken.front()).toLocalFile());
    EXPECT_EQ(file.fileName(), QStringLiteral("guide.html"));
    EXPECT_TRUE(file.isFile());
    EXPECT_EQ(opened_.taken.size(), 1);
    EXPECT_EQ(StatusText(), ToQString(u8"就绪"));
}

TEST_F(Guide, F1OpensItFromTheSearchBoxToo) {
    MakeWindow();
    auto* search = window_->findChild<QLineEdit*>();
    ASSERT_NE(search, nullptr);
    QTest::keyClick(search, Qt::Key_F1);
    EXPECT_TRUE(WaitFor([this] { return !opened_.taken.isEmpty(); }));
}

TEST_F(Guide, AGuideThatIsNotThereIsTold) {
    const TemporaryFolder folder;
    Places places;
    places.program = folder.Path() / "quorvi";
    bool failed = false;
    QObject context;
    OpenGuide(
        &context, [&failed] { failed = true; }, places);
    EXPECT_TRUE(WaitFor([&failed] { return failed; }));
    EXPECT_TRUE(opened_.taken.isEmpty());
}

QString Contents(const char* file) {
    QFile opened(QStringLiteral(QUORVI_SOURCE_DIR "/") + QLatin1StringView(file));
    EXPECT_TRUE(opened.open(QIODevice::ReadOnly)) << file;
    return QString::fromUtf8(opened.readAll());
}

TEST(GuideText, QuotesThePhonesWindowAsItIs) {
    const QString guide = Contents("Data/guide.html");
    const QString phone = Contents("android/res/values-zh/strings.xml");
    for (const auto* said : {u8"是您的电脑吗？", u8"停止", u8"去允许", u8"允许电脑更改手机设置"}) {
        const QString words = ToQString(said);
        EXPECT_TRUE(guide.contains(ToQString(u8"“%1”").arg(words))) << words.toStdString();
        EXPECT_TRUE(phone.contains(words)) << words.toStdString();
    }
}

}  // namespace
}  // namespace quorvi
