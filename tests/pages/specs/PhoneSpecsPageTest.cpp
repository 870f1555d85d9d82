// Page 1, driven by control number.
#include <fmt/format.h>

#include <QAbstractButton>
#include <QLabel>
#include <fstream>

#include "pages/specs/PhoneSpecsPage.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/OpenedAddresses.h"
#include "tests/support/PageTest.h"
#include "tests/support/TemporaryFolder.h"
#include "ui/kit/SkinFields.h"
#include "ui/list/SkinListCtrl.h"

namespace quorvi {
namespace {

std::string Values(std::string_view name, int count) {
    std::string values;
    for (int i = 0; i < count; ++i) {
        values += fmt::format("<v>{} {}</v>", name, i);
    }
    return values;
}

std::string Model(std::string_view name, int values) {
    return fmt::format("<item device='{}'>{}</item>", name, Values(name, values));
}

// Two makers of the first platform, one of the second.
std::string SampleFile() {
    return "<main><android-device><north manufacturer='North'>" + Model("N1", 18) + Model("N2", 2) +
           "</north><south manufacturer='South'>" + Model("S1", 18) +
           "</south><empty manufacturer='Empty'/></android-device><ophone-device>"
           "<west manufacturer='West'>" +
           Model("W1", 18) +
           "</west></ophone-device><symbian-device/><apple-device/><windowsphone-device/></main>";
}

class PhoneSpecsPageTest : public PageTest {
  protected:
    void Write(std::string_view text) { std::ofstream(File(), std::ios::binary) << text; }
    [[nodiscard]] std::filesystem::path File() const { return folder_.Path() / "device.xml"; }
    // The page, shown, after it has read the file.
    void Open() {
        page_ = std::make_unique<PhoneSpecsPage>(host_, nullptr, File());
        page_->resize(760, 462);
        page_->show();
        Settle();
    }
    void OpenSample() {
        Write(SampleFile());
        Open();
    }
    [[nodiscard]] CSkinCombo& Platform() { return *FindControl<CSkinCombo>(page_.get(), 1004); }
    [[nodiscard]] CSkinCombo& Maker() {
        return *page_->findChild<CSkinCombo*>(QStringLiteral("maker"));
    }
    [[nodiscard]] CSkinCombo& ModelBox() {
        return *page_->findChild<CSkinCombo*>(QStringLiteral("model"));
    }
    [[nodiscard]] CSkinListCtrl& List() { return *FindControl<CSkinListCtrl>(page_.get(), 1005); }
    // As the user does: only then the box tells of it.
    void Choose(CSkinCombo& box, int index) {
        box.setCurrentIndex(index);
        Q_EMIT box.activated(index);
        Settle();
    }
    // All entries of a box, with a bar between them.
    [[nodiscard]] static QString Entries(const CSkinCombo& box) {
        QStringList entries;
        for (int i = 0; i < box.count(); ++i) {
            entries.append(box.itemText(i));
        }
        return entries.join(u'|');
    }
    [[nodiscard]] QString ValueAt(int row) { return List().CellAt(row, 2).text; }

    TemporaryFolder folder_;
    std::unique_ptr<PhoneSpecsPage> page_;
};

TEST_F(PhoneSpecsPageTest, ShowsTheFirstModelOfTheFirstMaker) {
    OpenSample();
    EXPECT_EQ(page_->objectName(), QStringLiteral("dialog 137"));
    EXPECT_EQ(Entries(Platform()),
              ToQString(u8"Android (谷歌)|Ophone (中国移动)|Symbian (诺基亚)|iOS (苹果)|"
                        u8"Windows Phone (微软)"));
    EXPECT_EQ(Entries(Maker()), QStringLiteral("North|South|Empty"));
    EXPECT_EQ(Entries(ModelBox()), QStringLiteral("N1|N2"));
    EXPECT_EQ(ModelBox().currentIndex(), 0);
    EXPECT_EQ(ValueAt(0), QStringLiteral("N1 0"));
    EXPECT_EQ(ValueAt(17), QStringLiteral("N1 17"));
}

TEST_F(PhoneSpecsPageTest, RowsHaveTheirCaptionsAndSomeAPicture) {
    OpenSample();
    ASSERT_EQ(List().RowCount(), 18);
    EXPECT_EQ(List().CellAt(0, 1).text, ToQString(u8"手机型号"));
    EXPECT_EQ(List().CellAt(17, 1).text, ToQString(u8"通话时间"));
    EXPECT_EQ(List().CellAt(0, 0).icon, QStringLiteral("my-phone"));
    EXPECT_EQ(List().CellAt(8, 0).icon, QStringLiteral("camera"));
    for (const int row : {2, 3, 4, 7, 16, 17}) {
        EXPECT_EQ(List().CellAt(row, 0).icon, QString()) << row;
    }
}

TEST_F(PhoneSpecsPageTest, ReadsTheFileWhenSomebodyLooks) {
    Write(SampleFile());
    page_ = std::make_unique<PhoneSpecsPage>(host_, nullptr, File());
    Settle();
    EXPECT_EQ(Maker().count(), 0);
    page_->show();
    Settle();
    EXPECT_EQ(Maker().count(), 3);
}

TEST_F(PhoneSpecsPageTest, AModelThatTellsLessLeavesTheRestOfTheRows) {
    OpenSample();
    Choose(ModelBox(), 1);
    EXPECT_EQ(ValueAt(1), QStringLiteral("N2 1"));
    EXPECT_EQ(ValueAt(2), QStringLiteral("N1 2"));
    EXPECT_EQ(ModelBox().currentIndex(), 1);
    EXPECT_EQ(Maker().currentIndex(), 0);
}

TEST_F(PhoneSpecsPageTest, AnotherMakerStartsAtItsFirstModel) {
    OpenSample();
    Choose(ModelBox(), 1);
    Choose(Maker(), 1);
    EXPECT_EQ(Entries(ModelBox()), QStringLiteral("S1"));
    EXPECT_EQ(ModelBox().currentIndex(), 0);
    EXPECT_EQ(ValueAt(0), QStringLiteral("S1 0"));
}

TEST_F(PhoneSpecsPageTest, AMakerWithoutModelsLeavesTheirBoxEmpty) {
    OpenSample();
    Choose(Maker(), 2);
    EXPECT_EQ(ModelBox().count(), 0);
    EXPECT_EQ(ValueAt(0), QStringLiteral("N1 0"));
}

TEST_F(PhoneSpecsPageTest, AnotherPlatformStartsAtItsFirstMaker) {
    OpenSample();
    Choose(Maker(), 1);
    Choose(Platform(), 1);
    EXPECT_EQ(Entries(Maker()), QStringLiteral("West"));
    EXPECT_EQ(Maker().currentIndex(), 0);
    EXPECT_EQ(ValueAt(0), QStringLiteral("W1 0"));
    Choose(Platform(), 2);
    EXPECT_EQ(Maker().count(), 0);
    EXPECT_EQ(ModelBox().count(), 0);
}

TEST_F(PhoneSpecsPageTest, EachChoiceReadsTheFileAnew) {
    OpenSample();
    Write("<main><android-device><n manufacturer='New'>" + Model("A", 18) + Model("B", 18) +
          "</n></android-device></main>");
    Choose(ModelBox(), 1);
    EXPECT_EQ(Entries(Maker()), QStringLiteral("New"));
    EXPECT_EQ(ValueAt(0), QStringLiteral("B 0"));
}

TEST_F(PhoneSpecsPageTest, OfChoicesThatFollowEachOtherTheLastShows) {
    OpenSample();
    for (const int index : {1, 0, 1, 0}) {
        Platform().setCurrentIndex(index);
        Q_EMIT Platform().activated(index);
    }
    Settle();
    EXPECT_EQ(Entries(Maker()), QStringLiteral("North|South|Empty"));
    EXPECT_EQ(ValueAt(0), QStringLiteral("N1 0"));
}

TEST_F(PhoneSpecsPageTest, AFileWithSomethingWrongIsTold) {
    for (const char* text : {"", "words", "<main></main>", "<main><android-device>"}) {
        Write(text);
        Open();
        SkinDialog* box = OpenDialog(0);
        ASSERT_NE(box, nullptr) << text;
        EXPECT_EQ(FindControl<QLabel>(box, 65535)->text(), ToQString(u8"参数-xml文件存在问题"));
        PressIn(0, 1);
        Settle();
    }
}

TEST_F(PhoneSpecsPageTest, AFileThatIsNotThereOrTooLargeIsTold) {
    Open();
    ASSERT_NE(OpenDialog(0), nullptr);
    PressIn(0, 1);
    Settle();
    std::string large = SampleFile();
    large.append(5 << 20, ' ');
    Write(large);
    Open();
    ASSERT_NE(OpenDialog(0), nullptr);
    PressIn(0, 1);
    Settle();
}

TEST_F(PhoneSpecsPageTest, WhatTheFileSaysIsNoMarkup) {
    Write(
        "<main><android-device><n manufacturer='&lt;b&gt;N&lt;/b&gt;'><item device='D'>"
        "<v>&lt;img src=x&gt;</v></item></n></android-device></main>");
    Open();
    EXPECT_EQ(Maker().itemText(0), QStringLiteral("<b>N</b>"));
    EXPECT_EQ(ValueAt(0), QStringLiteral("<img src=x>"));
}

TEST_F(PhoneSpecsPageTest, TheSearchOfTheWebIsNotShown) {
    OpenSample();
    EXPECT_FALSE(FindControl<QWidget>(page_.get(), 1001)->isVisible());
    EXPECT_FALSE(FindControl<QWidget>(page_.get(), 10600)->isVisible());
}

TEST_F(PhoneSpecsPageTest, TheSearchOfTheWebTakesTwoCharacters) {
    OpenedAddresses opened({QStringLiteral("https")});
    OpenSample();
    auto* text = FindControl<CSkinEdit>(page_.get(), 1001);
    auto* search = FindControl<QAbstractButton>(page_.get(), 10600);
    text->setText(ToQString(u8"奎"));
    search->click();
    SkinDialog* box = OpenDialog(0);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(FindControl<QLabel>(box, 65535)->text(), ToQString(u8"您输入的关键词过短"));
    PressIn(0, 1);
    Settle();
    EXPECT_TRUE(opened.taken.isEmpty());
    text->setText(QStringLiteral("Q1"));
    search->click();
    ASSERT_EQ(opened.taken.size(), 1);
    EXPECT_TRUE(opened.taken.front().endsWith(QStringLiteral("=Q1")));
}

}  // namespace
}  // namespace quorvi
