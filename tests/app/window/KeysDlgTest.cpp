// The keys, as the dialog and the guide tell them.
#include <QFile>
#include <QLineEdit>

#include "app/window/KeyTable.h"
#include "app/window/KeysDlg.h"
#include "tests/app/window/MainDlgFixture.h"
#include "tests/support/BuildPlaces.h"
#include "tests/support/ColumnDriver.h"
#include "ui/list/SkinListCtrl.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

class KeysDialog : public MainDlgTest {
  protected:
    void Show() {
        MakeWindow();
        ShowActive(*window_);
    }
    [[nodiscard]] KeysDlg* Dialog() const {
        auto* dialog = window_->findChild<KeysDlg*>();
        return dialog != nullptr && dialog->isVisible() ? dialog : nullptr;
    }
};

TEST_F(KeysDialog, AQuestionMarkOpensItWherePressedWithShiftOrWithout) {
    Show();
    for (const auto held : {Qt::ShiftModifier, Qt::NoModifier}) {
        QTest::keyClick(window_->windowHandle(), Qt::Key_Question, held);
        ASSERT_NE(Dialog(), nullptr);
        QTest::keyClick(Dialog(), Qt::Key_Escape);
        ASSERT_TRUE(WaitFor([this] { return Dialog() == nullptr; }));
        ShowActive(*window_);
    }
}

TEST_F(KeysDialog, AColumnThatWasDraggedIsAsWideTheNextTime) {
    Show();
    int dragged = 0;
    for (const bool again : {false, true}) {
        QTest::keyClick(window_->windowHandle(), Qt::Key_Question, Qt::ShiftModifier);
        ASSERT_NE(Dialog(), nullptr);
        auto& list = *Dialog()->findChild<CSkinListCtrl*>();
        if (again) {
            EXPECT_EQ(list.columnWidth(0), dragged);
        } else {
            const int told = list.columnWidth(0);
            DragColumn(list, 0, 40);
            dragged = list.columnWidth(0);
            EXPECT_EQ(dragged, told + 40);
        }
        QTest::keyClick(Dialog(), Qt::Key_Escape);
        ASSERT_TRUE(WaitFor([this] { return Dialog() == nullptr && RunningJobs() == 0; }));
        ShowActive(*window_);
    }
}

TEST_F(KeysDialog, AQuestionMarkInTheSearchBoxIsALetter) {
    Show();
    auto* search = window_->findChild<QLineEdit*>();
    ASSERT_NE(search, nullptr);
    search->setFocus();
    QTest::keyClick(window_->windowHandle(), '?', Qt::ShiftModifier);
    EXPECT_EQ(search->text(), QStringLiteral("?"));
    EXPECT_EQ(Dialog(), nullptr);
}

TEST_F(KeysDialog, ItShowsEveryRowOfTheTableWithoutScrollingOrCutting) {
    Show();
    QTest::keyClick(window_->windowHandle(), Qt::Key_Question, Qt::ShiftModifier);
    ASSERT_NE(Dialog(), nullptr);
    const auto& list = *Dialog()->findChild<CSkinListCtrl*>();
    const int last = static_cast<int>(kKeyTable.size()) - 1;
    EXPECT_EQ(list.RowCount(), last + 1);
    EXPECT_TRUE(list.viewport()->rect().contains(list.CellRect(last, 0)));
    for (int row = 0; row <= last; ++row) {
        for (int column = 0; column < list.ColumnCount(); ++column) {
            const QString text = list.CellAt(row, column).text;
            EXPECT_LE(list.fontMetrics().horizontalAdvance(text) + 2 * look::Metric::cellPadding,
                      list.CellRect(row, column).width())
                << text.toStdString();
        }
    }
}

QString KeyCaps(std::u8string_view keys) {
    QStringList caps;
    for (const QString& key : ToQString(keys).split(u' ')) {
        caps.append(QStringLiteral("<kbd>%1</kbd>").arg(key));
    }
    return caps.join(u' ');
}

TEST(KeyTable, TheGuideHoldsTheSameRows) {
    QFile guide(QStringLiteral(QUORVI_SOURCE_DIR "/Data/guide.html"));
    ASSERT_TRUE(guide.open(QFile::ReadOnly));
    const QString text = QString::fromUtf8(guide.readAll());
    const QString keys = text.mid(text.indexOf(QStringLiteral("<section id=\"keys\">")))
                             .section(QStringLiteral("</section>"), 0, 0);
    QString rows;
    for (const KeyRow& row : kKeyTable) {
        rows += QStringLiteral("<tr><td>%1</td><td>%2</td></tr>\n")
                    .arg(KeyCaps(row.keys), ToQString(row.deed));
    }
    EXPECT_TRUE(keys.contains(QStringLiteral("</th></tr>\n") + rows + QStringLiteral("</table>")))
        << rows.toStdString();
}

}  // namespace
}  // namespace quorvi
