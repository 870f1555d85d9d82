// The dialog in which a file is chosen to be read.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QImage>
#include <QLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <fstream>

#include "tests/support/Contrast.h"
#include "tests/support/FileDialogDriver.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/WidgetTest.h"
#include "ui/kit/FileDialogs.h"
#include "ui/kit/QtText.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

class AskOpenFileTest : public WidgetTest {
  protected:
    void SetUp() override {
        std::ofstream(folder_.Path() / "there.vcf") << "BEGIN:VCARD";
        window_.show();
        AskOpenFile(window_,
                    {.title = ToQString(u8"导入联系人"),
                     .filters = {ToQString(u8"通讯录 (*.vcf *.csv)")},
                     .folder = QString::fromStdString(folder_.Path().native())},
                    [this](const QString& path) { chosen_.append(path); });
    }
    void TearDown() override {
        CloseFileDialog();
        look::SetTheme(look::Theme::light);
        Settle();
    }
    [[nodiscard]] QString PathOf(const char* name) const {
        return QString::fromStdString((folder_.Path() / name).native());
    }

    TemporaryFolder folder_;
    QWidget window_;
    QStringList chosen_;
};

TEST_F(AskOpenFileTest, OpensWithItsTitleFilterAndFolder) {
    const QFileDialog& dialog = *OpenFileDialog();
    EXPECT_EQ(dialog.windowTitle(), ToQString(u8"导入联系人"));
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
    EXPECT_EQ(dialog.selectedNameFilter(), ToQString(u8"通讯录 (*.vcf *.csv)"));
    EXPECT_EQ(dialog.directory().path(), QString::fromStdString(folder_.Path().native()));
    EXPECT_TRUE(dialog.isModal());
}

TEST_F(AskOpenFileTest, GivesTheWholePathOfTheFile) {
    AnswerFileDialog(QStringLiteral("there.vcf"));
    EXPECT_EQ(chosen_, QStringList(PathOf("there.vcf")));
}

TEST_F(AskOpenFileTest, TakesNoFileThatIsNotThere) {
    int said = 0;
    // The dialog says so in a box of its own, and waits for that.
    QTimer::singleShot(0, &window_, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        ++said;
        box->close();
    });
    AnswerFileDialog(QStringLiteral("missing.vcf"));
    EXPECT_EQ(said, 1);
    EXPECT_TRUE(chosen_.isEmpty());
    EXPECT_NE(OpenFileDialog(), nullptr);
}

TEST_F(AskOpenFileTest, ItsPartsStandOffItsEdge) {
    const QMargins margins = OpenFileDialog()->layout()->contentsMargins();
    constexpr int padding = look::Metric::dialogPadding;
    EXPECT_EQ(margins, QMargins(padding, padding, padding, padding));
}

TEST_F(AskOpenFileTest, TheOutlineOfItsComboBoxesIsSeenInEachTheme) {
    for (const look::Theme theme : {look::Theme::light, look::Theme::dark, look::Theme::contrast}) {
        look::SetTheme(theme);
        auto* combo = OpenFileDialog()->findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        ASSERT_NE(combo, nullptr);
        const QImage image = combo->grab().toImage();
        EXPECT_GE(
            ContrastOf(image.pixelColor(image.width() / 2, 0), look::color(look::Color::page)),
            3.0);
    }
}

TEST_F(AskOpenFileTest, ItsButtonsShowTheFocus) {
    const auto ringed = [](QWidget& button) {
        const QImage image = button.grab().toImage();
        return image.pixelColor(image.width() / 2, 0) == look::color(look::Color::ring);
    };
    QFileDialog& dialog = *OpenFileDialog();
    ShowActive(dialog);
    auto* cancel = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel);
    auto* up = dialog.findChild<QToolButton*>(QStringLiteral("toParentButton"));
    for (QWidget* button : std::initializer_list<QWidget*>{cancel, up}) {
        EXPECT_FALSE(ringed(*button));
        button->setFocus(Qt::TabFocusReason);
        EXPECT_TRUE(ringed(*button)) << button->objectName().toStdString();
    }
}

TEST_F(AskOpenFileTest, SaysNothingWhenTheUserGivesUp) {
    OpenFileDialog()->reject();
    Settle();
    EXPECT_TRUE(chosen_.isEmpty());
}

}  // namespace
}  // namespace quorvi
