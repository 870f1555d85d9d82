// Contacts to a file and from one, through the page's menu.
#include <gmock/gmock.h>

#include <QLabel>
#include <filesystem>

#include "tests/pages/contacts/ContactPageFixture.h"
#include "tests/support/TransfersPageTest.h"

namespace quorvi {
namespace {

using testing::HasSubstr;

// The question before an import.
constexpr int kQuestion = 0;
constexpr int kYes = 1;

// Of the menu.
constexpr int kExportTicked = 4;

class ContactTransfers : public TransfersPageTest<ContactPage> {
  protected:
    // Of the open menu; null where it has no such item.
    [[nodiscard]] QAction* ItemOf(int command) const {
        const auto items = page_->findChild<CSkinMenu*>()->actions();
        const auto found = std::ranges::find(items, command, &CSkinMenu::CommandOf);
        return found == items.end() ? nullptr : *found;
    }
    std::size_t Added() { return agent_.Requests(AgentCommand::addContact).size(); }
};

TEST_F(ContactTransfers, ExportWritesACardOfEachContactAndSaysWhere) {
    OpenLoaded();
    ExportTo("mine.vcf");
    EXPECT_EQ(host_.status, ToQString(u8"已导出 3 个联系人：") + Path("mine.vcf"));
    EXPECT_THAT(TextOf("mine.vcf"), HasSubstr("FN:林远舟"));
    EXPECT_TRUE(page_->isEnabled());
}

TEST_F(ContactTransfers, ExportWritesATableWhereTheNameSaysSo) {
    OpenLoaded();
    ExportTo("mine.csv");
    EXPECT_EQ(host_.status, ToQString(u8"已导出 3 个联系人：") + Path("mine.csv"));
    EXPECT_THAT(TextOf("mine.csv"), HasSubstr("林远舟"));
}

TEST_F(ContactTransfers, WithoutATickTheMenuExportsAll) {
    OpenLoaded();
    Q_EMIT List().menuAsked(0, QPoint(0, 0));
    EXPECT_EQ(ItemOf(kExportTicked), nullptr);
    page_->findChild<CSkinMenu*>()->close();
}

TEST_F(ContactTransfers, WhereSomeAreTickedTheMenuExportsThese) {
    OpenLoaded();
    List().SetTicked(1, true);
    Choose(kExportTicked);
    Give("some.vcf");
    EXPECT_EQ(host_.status, ToQString(u8"已导出 1 个联系人：") + Path("some.vcf"));
    EXPECT_EQ(agent_.Requests(AgentCommand::readContact).back(), ReadContactRequest(12));
}

TEST_F(ContactTransfers, TheItemForTickedOnesSaysHowManyTheyAre) {
    OpenLoaded();
    List().SetTicked(1, true);
    List().SetTicked(2, true);
    Q_EMIT List().menuAsked(0, QPoint(0, 0));
    ASSERT_NE(ItemOf(kExportTicked), nullptr);
    EXPECT_EQ(ItemOf(kExportTicked)->text(), ToQString(u8"导出勾选的 2 个联系人…"));
    page_->findChild<CSkinMenu*>()->close();
}

TEST_F(ContactTransfers, AContactThatIsGoneMeanwhileIsNamed) {
    OpenLoaded();
    agent_.AnswerNoData(AgentCommand::readContact);
    ExportTo("mine.vcf");
    EXPECT_EQ(host_.status,
              ToQString(u8"已导出 0 个联系人，3 项没有导出（林远舟: 手机上已经没有这个联系人）：") +
                  Path("mine.vcf"));
}

TEST_F(ContactTransfers, AnExportThatBreaksOffWritesNothing) {
    OpenLoaded();
    agent_.Answer(AgentCommand::readContact, {});  // closed without a word
    ExportTo("mine.vcf");
    EXPECT_EQ(host_.status, ToQString(u8"【X】联系人没有导出：手机端没有回答，"
                                      u8"请重新连接手机后再试"));
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

TEST_F(ContactTransfers, ImportSaysWhatItWillDoAndAddsWhatThePhoneDoesNotHave) {
    OpenLoaded();
    ImportFrom("a.vcf",
               "BEGIN:VCARD\nFN:林远舟\nTEL:10086\nEND:VCARD\n"
               "BEGIN:VCARD\nFN:Bo\nTEL:10-1\nPHOTO;ENCODING=b:/9j/\nEND:VCARD\n"
               "BEGIN:VCARD\nEND:VCARD\n");
    ASSERT_NE(OpenDialog(kQuestion), nullptr);
    const QString question = FindControl<QLabel>(OpenDialog(kQuestion), 65535)->text();
    EXPECT_EQ(question, ToQString(u8"要把 1 个联系人导入到手机吗？"));
    // A line each, so that no bracket stands in another.
    const QStringList rest =
        FindControl<QLabel>(OpenDialog(kQuestion), 4)->text().split(QLatin1Char('\n'));
    ASSERT_EQ(rest.size(), 3);
    EXPECT_EQ(rest[0], ToQString(u8"手机上已有 1 个联系人"));
    EXPECT_TRUE(rest[1].startsWith(ToQString(u8"1 项读不出来（"))) << rest[1].toStdString();
    EXPECT_TRUE(rest[2].startsWith(ToQString(u8"1 项的一部分内容不会导入（Bo: 照片")))
        << rest[2].toStdString();
    EXPECT_EQ(Added(), 0u);
    PressIn(kQuestion, kYes);
    Settle();
    EXPECT_EQ(Added(), 1u);
    EXPECT_TRUE(host_.status.startsWith(ToQString(u8"已导入 1 个联系人，手机上已有 1 个联系人")))
        << host_.status.toStdString();
    EXPECT_EQ(Loads(), 4u);  // the page's, the plan's, the import's, and the new list
}

TEST_F(ContactTransfers, AFileWithoutACardIsSaid) {
    OpenLoaded();
    ImportFrom("a.vcf", "");
    EXPECT_EQ(host_.status, ToQString(u8"【X】联系人没有导入：文件里没有名片"));
    EXPECT_EQ(Loads(), 1u);
}

}  // namespace
}  // namespace quorvi
