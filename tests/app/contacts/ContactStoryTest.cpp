// A user's story with contacts and their groups: through the window by its control numbers, to the
// phone and back.
#include <gmock/gmock.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "refdata/NumberAttribution.h"
#include "tests/support/PagesOnPhone.h"

namespace quorvi {
namespace {

using testing::HasSubstr;

// Numbers of the page and its controls, and of the dialogs.
constexpr int kList = 1067;
constexpr int kDetail = 1370;
constexpr std::size_t kAdd = 1;
constexpr std::size_t kGroups = 2;
constexpr std::size_t kDelete = 3;

constexpr int kEditor = 540;
constexpr int kSave = 1020;

enum Column { columnPhoto, columnContact, columnFavourite, columnLastContact, columnTick };

class ContactStory : public PagesOnPhone {
  protected:
    void SetUp() override {
        PagesOnPhone::SetUp();
        OpenFresh(kContacts);
        ASSERT_TRUE(WaitFor([] { return !DetailLines().isEmpty(); }));  // its template has loaded
    }

    static CSkinListCtrl& List() { return OnPage<CSkinListCtrl>(kList); }
    static CHtmlCtrlBase& Detail() { return OnPage<CHtmlCtrlBase>(kDetail); }
    // The row that a name stands in, or -1.
    static int RowOf(std::u8string_view name) {
        for (int row = 0; row < List().RowCount(); ++row) {
            if (List().CellAt(row, columnContact).text == ToQString(name)) {
                return row;
            }
        }
        return -1;
    }
    // The lines of the detail view, label and text of each; the name in front, the note at the end.
    static QStringList DetailLines() {
        return AskHtml(Detail(), QStringLiteral(R"(
            [document.querySelector('#block .name').innerText,
             document.querySelector('#block .nickname').innerText,
             ...[...document.querySelectorAll('#block p.w80')].map(
                 p => p.innerText + p.parentElement.lastElementChild.previousElementSibling.innerText),
             ...[...document.querySelectorAll('#notes p.section')].map(p => p.innerText)])"))
            .toStringList();
    }
    static void TypeIn(int control, std::u8string_view text) {
        Type(In(kEditor, control), ToQString(text));
    }
    static QString TextIn(int control) { return In<QLineEdit>(kEditor, control).text(); }
    static QString NoteIn(int control) {
        return In<QPlainTextEdit>(kEditor, control).toPlainText();
    }
    // Comes to an entry of a combo box by its keys.
    static void Choose(int control, std::u8string_view entry) {
        auto& box = In<QComboBox>(kEditor, control);
        QTest::keyClick(&box, Qt::Key_Home);
        while (box.currentText() != ToQString(entry)) {
            const int before = box.currentIndex();
            QTest::keyClick(&box, Qt::Key_Down);
            ASSERT_NE(box.currentIndex(), before) << "no such entry";
        }
    }
};

TEST_F(ContactStory, AContactIsAddedReadBackChangedAndDeleted) {
    // ---- added
    ASSERT_EQ(List().RowCount(), 48);
    Command(kAdd);
    ASSERT_TRUE(WaitForDialog(kEditor));
    EXPECT_EQ(OpenDialog(kEditor)->windowTitle(), ToQString(u8"添加联系人 - Quorvi"));
    TypeIn(1149, u8"新朋友");
    TypeIn(1152, u8"小新");
    TypeIn(1150, u8"13861234500");
    TypeIn(1151, u8"051988880000");
    Choose(1383, u8"寻呼机");
    TypeIn(1240, u8"1275566");
    Choose(1235, u8"MSN");
    TypeIn(1236, u8"new@live.example");
    Choose(1385, u8"工作");
    TypeIn(1242, u8"new@example.com");
    TypeIn(1381, u8"同城");
    TypeIn(1243, u8"Qingguo Lane 18");
    TypeIn(1244, u8"Survey Institute");
    TypeIn(1245, u8"http://example.com/新");
    ClickOn(In(kEditor, 1224));
    Press(kEditor, kSave);
    ASSERT_TRUE(WaitForNoDialog(kEditor));
    ASSERT_EQ(Requests(870103).size(), 1u);
    EXPECT_THAT(Requests(870103)[0], HasSubstr(Hex(WireBytes()
                                                       .U32(870103)  // code
                                                       .U32(371)     // total
                                                       .U32(1)       // item count
                                                       .U32(1)       // favourite
                                                       .U32(0)       // structured flag
                                                       .U32(1)       // name flag
                                                       .U64(0)
                                                       .U32(0)
                                                       .Text("新朋友")
                                                       .U32(1)  // nickname flag
                                                       .U64(0)
                                                       .U32(0)
                                                       .Text("小新")
                                                       .U32(1)  // note flag
                                                       .U64(0)
                                                       .U32(0)
                                                       .Text("同城")
                                                       .U32(3)  // phones
                                                       .U64(0)
                                                       .U32(2)
                                                       .Text("13861234500")
                                                       .U64(0)
                                                       .U32(3)
                                                       .Text("051988880000")
                                                       .U64(0)
                                                       .U32(6)
                                                       .Text("1275566")
                                                       .U32(0)  // groups
                                                       .U32(1)  // e-mails
                                                       .U64(0)
                                                       .U32(2)
                                                       .Text("new@example.com")
                                                       .U32(1)  // ims
                                                       .U64(0)
                                                       .U32(1)
                                                       .Text("new@live.example")
                                                       .U32(1)  // websites
                                                       .U64(0)
                                                       .U32(0)
                                                       .Text("http://example.com/新")
                                                       .U32(1)  // addresses
                                                       .U64(0)
                                                       .U32(0)
                                                       .Text("Qingguo Lane 18")
                                                       .U32(1)  // organisations
                                                       .U64(0)
                                                       .U32(0)
                                                       .Text("Survey Institute"))));

    // ---- in the list
    ASSERT_EQ(List().RowCount(), 49);
    int row = RowOf(u8"新朋友");
    ASSERT_EQ(row, 48);
    EXPECT_EQ(List().CellAt(row, columnContact).second, QStringLiteral("13861234500"));
    EXPECT_EQ(List().CellAt(row, columnFavourite).value, 1);
    EXPECT_EQ(List().CellAt(row, columnLastContact).text, QStringLiteral("N/A"));
    EXPECT_EQ(List().CellAt(row, columnLastContact).second,
              ToQString(NumberAttribution("13861234500", CPhoneDb())));

    // ---- and, selected, in the detail view
    ClickCell(List(), row, columnContact);
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(
        DetailLines(),
        (QStringList{ToQString(u8"新朋友"), ToQString(u8"小新"), ToQString(u8"收藏：【是】"),
                     ToQString(u8"联系次数：0 次"), ToQString(u8"上次联系：N/A"),
                     ToQString(u8"手机：13861234500"), ToQString(u8"公司电话：051988880000"),
                     ToQString(u8"寻呼机：1275566"), ToQString(u8"工作邮箱：new@example.com"),
                     ToQString(u8"MSN：new@live.example"), ToQString(u8"自定地址：Qingguo Lane 18"),
                     ToQString(u8"个人网页：http://example.com/新"),
                     ToQString(u8"自定组织：Survey Institute"), ToQString(u8"同城")}));

    // ---- changed
    DoubleClickCell(List(), row, columnContact);
    ASSERT_TRUE(WaitForDialog(kEditor));
    EXPECT_EQ(OpenDialog(kEditor)->windowTitle(), ToQString(u8"修改联系人 - Quorvi"));
    EXPECT_EQ(TextIn(1149), ToQString(u8"新朋友"));
    EXPECT_EQ(In<QComboBox>(kEditor, 1383).currentText(), ToQString(u8"寻呼机"));
    EXPECT_EQ(TextIn(1240), QStringLiteral("1275566"));
    EXPECT_EQ(NoteIn(1381), ToQString(u8"同城"));
    EXPECT_EQ(NoteIn(1245), ToQString(u8"http://example.com/新"));
    TypeIn(1149, u8"老朋友");
    TypeIn(1152, u8"");
    Choose(1380, u8"个人");
    TypeIn(1150, u8"10086");
    TypeIn(1240, u8"");
    ClickOn(In(kEditor, 1224));
    Press(kEditor, kSave);
    ASSERT_TRUE(WaitForNoDialog(kEditor));
    ASSERT_EQ(Requests(870104).size(), 1u);
    // The ids of the rows are the phone's own; between them stands what is to be done.
    for (const WireBytes& part : {
             WireBytes()
                 .U32(1)   // item count
                 .U32(49)  // contact id
                 .U32(0)   // favourite
                 .U32(0)   // structured flag
                 .U32(1),  // name flag
             WireBytes()
                 .U32(2)  // the name is changed
                 .U32(0)
                 .Text("老朋友")
                 .U32(0),                                     // nickname flag
             WireBytes().U32(2).U32(0).Text("同城").U32(3),   // the note, and three phones:
             WireBytes().U32(2).U32(1).Text("10086"),         // changed, type and number
             WireBytes().U32(2).U32(3).Text("051988880000"),  // sent again as it is
             WireBytes().U32(1).U32(6).Text("1275566"),       // deleted, with its old text
         }) {
        EXPECT_THAT(Requests(870104)[0], HasSubstr(Hex(part)));
    }

    row = RowOf(u8"老朋友");
    ASSERT_EQ(row, 48);
    EXPECT_EQ(List().CellAt(row, columnContact).second, QStringLiteral("10086"));
    EXPECT_EQ(List().CellAt(row, columnFavourite).value, 0);
    EXPECT_EQ(List().CellAt(row, columnLastContact).second, ToQString(u8"中国移动"));
    ClickCell(List(), row, columnContact);
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(
        DetailLines(),
        (QStringList{ToQString(u8"老朋友"), QString(), ToQString(u8"收藏：否"),
                     ToQString(u8"联系次数：0 次"), ToQString(u8"上次联系：N/A"),
                     ToQString(u8"个人电话：10086"), ToQString(u8"公司电话：051988880000"),
                     ToQString(u8"工作邮箱：new@example.com"), ToQString(u8"MSN：new@live.example"),
                     ToQString(u8"自定地址：Qingguo Lane 18"),
                     ToQString(u8"个人网页：http://example.com/新"),
                     ToQString(u8"自定组织：Survey Institute"), ToQString(u8"同城")}));

    // ---- deleted
    const std::uint32_t id = Window().Selection().Id(PageSelection::kContact).value_or(0);
    ClickCell(List(), row, columnTick);
    Command(kDelete);
    EXPECT_EQ(ConfirmDelete(), ToQString(u8"您真的要删除选择的【 1 】条联系人吗？"));
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(List().RowCount(), 48);
    EXPECT_EQ(RowOf(u8"老朋友"), -1);
    ASSERT_EQ(Requests(870106).size(), 1u);
    EXPECT_THAT(Requests(870106)[0], HasSubstr(Hex(WireBytes()
                                                       .U32(870106)  // code
                                                       .U32(16)      // total
                                                       .U32(1)       // item count
                                                       .U32(id))));  // contact id
    EXPECT_EQ(Status(), ToQString(u8"已删除 1 个联系人"));
}

class GroupStory : public ContactStory {
  protected:
    static constexpr int kDialog = 679;
    static constexpr int kTitles = 1372;
    static constexpr int kNew = 1154;
    static constexpr int kRename = 1155;
    static constexpr int kDeleteTicked = 1049;
    static constexpr int kOk = 1215;
    static constexpr int kTitleDialog = 681;
    static constexpr int kTitle = 1257;

    void SetUp() override {
        ContactStory::SetUp();
        Command(kGroups);
        ASSERT_TRUE(WaitForDialog(kDialog));
    }

    static CSkinListCtrl& Groups() { return In<CSkinListCtrl>(kDialog, kTitles); }
    static QStringList Titles() {
        QStringList titles;
        for (int row = 0; row < Groups().RowCount(); ++row) {
            titles.append(Groups().CellAt(row, 1).text);
        }
        return titles;
    }
    static void GiveTitle(std::u8string_view title) {
        ASSERT_TRUE(WaitForDialog(kTitleDialog));
        Type(In(kTitleDialog, kTitle), ToQString(title));
        Press(kTitleDialog, kOk);
        ASSERT_TRUE(WaitForNoDialog(kTitleDialog));
    }
};

TEST_F(GroupStory, AGroupIsAddedRenamedAndDeleted) {
    EXPECT_EQ(OpenDialog(kDialog)->windowTitle(), ToQString(u8"联系人分组 - Quorvi"));
    const QStringList before = Titles();
    ASSERT_EQ(before.size(), 8);

    Press(kDialog, kNew);
    GiveTitle(u8"新组");
    EXPECT_EQ(Titles(), before + QStringList{ToQString(u8"新组")});
    EXPECT_EQ(Groups().CellAt(8, 3).text, ToQString(u8"是"));

    ClickCell(Groups(), 8, 1);
    Press(kDialog, kRename);
    ASSERT_TRUE(WaitForDialog(kTitleDialog));
    EXPECT_EQ(In<QLineEdit>(kTitleDialog, kTitle).text(), ToQString(u8"新组"));
    GiveTitle(u8"旧组");
    EXPECT_EQ(Titles(), before + QStringList{ToQString(u8"旧组")});

    ClickCell(Groups(), 8, 4);
    ClickCell(Groups(), 3, 4);
    Press(kDialog, kDeleteTicked);
    EXPECT_EQ(ConfirmDelete(), ToQString(u8"您真的要删除选择的【 2 】条联系人分组吗？"));
    ASSERT_TRUE(WaitIdle());
    QStringList left = before;
    left.removeAt(3);
    EXPECT_EQ(Titles(), left);

    Press(kDialog, kOk);
    ASSERT_TRUE(WaitForNoDialog(kDialog));
    EXPECT_THAT(Requests(870121).at(0), HasSubstr("\"新组\""));
    EXPECT_THAT(Requests(870122).at(0), HasSubstr("\"旧组\""));
    ASSERT_EQ(Requests(870124).size(), 1u);
    EXPECT_THAT(Requests(870124)[0], HasSubstr(Hex(WireBytes()
                                                       .U32(870124)  // code
                                                       .U32(20)      // total
                                                       .U32(2)       // item count
                                                       .U32(4)       // group ids, in row order
                                                       .U32(9))));
    // The contacts know of it at the next look, not before: a change of groups fetches no list.
    EXPECT_TRUE(Requests(870101).empty());
    ClickCell(List(), 0, columnContact);
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(DetailLines().filter(ToQString(u8"所属分组：")),
              QStringList{ToQString(u8"所属分组：朋友")});
}

TEST_F(GroupStory, WithoutATickThereIsNothingToDelete) {
    Press(kDialog, kDeleteTicked);
    ASSERT_TRUE(WaitForDialog(682));
    Press(682, kOk);
    ASSERT_TRUE(WaitForNoDialog(682));
    EXPECT_TRUE(Requests(870124).empty());
    Press(kDialog, kOk);
    ASSERT_TRUE(WaitForNoDialog(kDialog));
}

}  // namespace
}  // namespace quorvi
