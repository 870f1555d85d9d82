#include <QLabel>
#include <QLineEdit>

#include "pages/contacts/ContactGroupDlg.h"
#include "pages/contacts/GroupEditDlg.h"
#include "tests/support/AgentDialogTest.h"
#include "tests/support/ColumnDriver.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/KeptDeletes.h"
#include "tests/support/KeyDriver.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/WireBytes.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/list/SkinListCtrl.h"

namespace quorvi {
namespace {

constexpr int kGroups = 679;
constexpr int kEditor = 681;
constexpr int kConfirm = 548;
constexpr int kNothingChecked = 682;

WireBytes& Add(WireBytes& bytes, std::uint64_t id, std::string_view title, std::uint32_t visible) {
    return bytes
        .U64(id)        // group id
        .Text(title)    // title
        .Text("phone")  // account
        .U32(visible);  // visible
}

class GroupDialog : public AgentDialogTest<CContactGroupDlg> {
  protected:
    void SetUp() override {
        AnswerTwoGroups();
        agent_.AnswerAcknowledged(AgentCommand::addGroup);
        agent_.AnswerAcknowledged(AgentCommand::renameGroup);
        agent_.AnswerAcknowledged(AgentCommand::deleteGroups);
        agent_.AnswerNoData(AgentCommand::listGroupMembers);
    }

    void AnswerTwoGroups() {
        WireBytes groups;
        groups.U32(0);  // leading word
        Add(groups, 0x500000005, "朋友", 1);
        Add(groups, 6, "同事", 2);
        agent_.AnswerPayload(AgentCommand::listGroups, groups.Get());
    }
    void OpenAt(std::uint16_t port) { Show(new CContactGroupDlg(host_, nullptr, port)); }
    void OpenLoaded() {
        OpenAt(agent_.Port());
        WaitForLoads(1);
    }
    KeptDeletes kept_;
    CSkinListCtrl& List() { return *FindControl<CSkinListCtrl>(dialog_, 1372); }
    std::size_t Loads() { return agent_.Requests(AgentCommand::listGroups).size(); }
    void WaitForLoads(std::size_t count) {
        ASSERT_TRUE(
            WaitFor([&] { return Loads() == count && List().State() != ListState::loading; }));
    }
    QLineEdit* Title() { return FindControl<QLineEdit>(OpenDialog(kEditor), 1257); }
    QString Notice() { return OpenDialog(kEditor)->findChild<CSkinStateLabel*>()->text(); }
    // Presses 确定 in the editor and waits for its end.
    void EndEditor() {
        PressIn(kEditor, 1215);
        ASSERT_TRUE(WaitFor([] { return OpenDialog(kEditor) == nullptr; }));
    }
};

TEST_F(GroupDialog, CtrlFFindsAGroupAndEscapeEndsTheSearchBeforeTheDialog) {
    OpenLoaded();
    dialog_->activateWindow();
    ASSERT_TRUE(WaitFor([&] { return dialog_->isActiveWindow(); }));
    QTest::keySequence(dialog_->windowHandle(), QKeySequence::Find);
    auto* field = dialog_->findChild<QLineEdit*>(QStringLiteral("find"));
    ASSERT_TRUE(field->hasFocus());
    field->setText(QStringLiteral("ts"));
    EXPECT_EQ(List().model()->rowCount(), 1);
    EXPECT_TRUE(List().IsShown(1));  // 同事
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_FALSE(field->isVisible());
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(List().model()->rowCount(), 2);
}

TEST_F(GroupDialog, AColumnThatWasDraggedIsAsWideTheNextTime) {
    constexpr int kAccount = 2;
    OpenLoaded();
    const int told = List().columnWidth(kAccount);
    DragColumn(List(), kAccount - 1, -30);
    const int dragged = List().columnWidth(kAccount);
    EXPECT_EQ(dragged, told + 30);
    PressIn(679, 1215);
    Settle();
    ASSERT_TRUE(Gone());
    OpenAt(agent_.Port());
    WaitForLoads(2);
    EXPECT_EQ(List().columnWidth(kAccount), dragged);
}

TEST_F(GroupDialog, OpeningLoadsTheGroupsIntoTheirColumns) {
    OpenLoaded();
    EXPECT_EQ(dialog_->objectName(), QStringLiteral("dialog 679"));
    EXPECT_EQ(dialog_->windowTitle(), ToQString(u8"联系人分组 - Quorvi"));
    const std::vector<std::pair<std::u8string_view, int>> columns{
        {u8"", 25}, {u8"标题", 200}, {u8"所属账户", 180}, {u8"可见", 70}, {u8"选择", 80}};
    ASSERT_EQ(List().ColumnCount(), 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(List().Column(i).caption, columns[static_cast<std::size_t>(i)].first);
        EXPECT_EQ(List().Column(i).width, columns[static_cast<std::size_t>(i)].second);
        EXPECT_EQ(List().Column(i).align, CellAlign::centre);
    }
    ASSERT_EQ(List().RowCount(), 2);
    EXPECT_EQ(List().CellAt(0, 1).text, ToQString(u8"朋友"));
    EXPECT_EQ(List().CellAt(0, 2).text, QStringLiteral("phone"));
    EXPECT_EQ(List().CellAt(0, 3).text, ToQString(u8"是"));
    EXPECT_TRUE(List().Redraw());
}

TEST_F(GroupDialog, AVisibleValueOtherThanOneIsHidden) {
    OpenLoaded();
    EXPECT_EQ(List().CellAt(1, 3).text, ToQString(u8"【隐藏】"));
}

TEST_F(GroupDialog, ItsOkAndTheCloseButtonEndIt) {
    OpenLoaded();
    PressIn(kGroups, 1215);
    EXPECT_EQ(results_, std::vector<int>{QDialog::Accepted});
    OpenAt(agent_.Port());
    OpenDialog(kGroups)->close();
    EXPECT_EQ(results_.size(), 2u);
}

TEST_F(GroupDialog, RefreshDuringARunningLoadIsDropped) {
    OpenLoaded();
    agent_.Hold(AgentCommand::listGroups);
    PressIn(kGroups, 1047);
    PressIn(kGroups, 1047);
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_FALSE(List().Redraw());
    ASSERT_TRUE(WaitFor([&] { return Loads() == 2; }));
    agent_.Release();
    WaitForLoads(2);
    Settle();
    EXPECT_EQ(Loads(), 2u);
}

TEST_F(GroupDialog, ConnectFailureIsToldAndRedrawGoesOn) {
    OpenAt(UnusedPort());
    ASSERT_TRUE(WaitFor([&] { return List().State() == ListState::failed; }));
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_TRUE(List().Redraw());
}

// Replies that end the worker early.
class GroupDialogEarlyEnd : public GroupDialog,
                            public testing::WithParamInterface<ScriptedAgent::Reply> {};

TEST_P(GroupDialogEarlyEnd, LeavesAnEmptyListWithoutRedrawOrMessageUntilALaterLoadGetsFurther) {
    agent_.Answer(AgentCommand::listGroups, GetParam());
    OpenLoaded();
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_FALSE(List().Redraw());
    EXPECT_TRUE(host_.statuses.isEmpty());
    AnswerTwoGroups();
    PressIn(kGroups, 1047);
    WaitForLoads(2);
    EXPECT_EQ(List().RowCount(), 2);
    EXPECT_TRUE(List().Redraw());
}

INSTANTIATE_TEST_SUITE_P(
    NoData_Closed_Broken, GroupDialogEarlyEnd,
    testing::Values(ScriptedAgent::Reply{Word(NoDataMark)}, ScriptedAgent::Reply{Bytes{}},
                    ScriptedAgent::Reply{Join({Word(100), Word(0)}), ScriptedAgent::End::reset}));

TEST_F(GroupDialog, AnAbsentTitleLeavesAnEmptyRowBehindItsIdAndNoRedraw) {
    WireBytes groups;
    groups.U32(0);
    Add(groups, 5, "朋友", 1).U64(9).Absent();
    agent_.AnswerPayload(AgentCommand::listGroups, groups.Get());
    OpenLoaded();
    ASSERT_EQ(List().RowCount(), 2);
    EXPECT_FALSE(List().Redraw());
    for (const int column : {1, 2, 3}) {
        EXPECT_EQ(List().CellAt(1, column).text, QString());
    }
}

TEST_F(GroupDialog, AddingSendsTheTitleAndLoadsAgain) {
    OpenLoaded();
    PressIn(kGroups, 1154);
    EXPECT_EQ(OpenDialog(kEditor)->windowTitle(), ToQString(u8"新建分组 - Quorvi"));
    EXPECT_EQ(Title()->text(), QString());
    Title()->setText(ToQString(u8"家"));
    EndEditor();
    WaitForLoads(2);
    const auto requests = agent_.Requests(AgentCommand::addGroup);
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0], Join({Word(870121), Word(19), Word(1), Text("家")}));
    EXPECT_EQ(host_.status, ToQString(u8"已添加分组 家"));
}

TEST_F(GroupDialog, AnEmptyTitleSendsNothingAndTheListLoadsAgain) {
    OpenLoaded();
    PressIn(kGroups, 1154);
    EndEditor();
    WaitForLoads(2);
    EXPECT_TRUE(agent_.Requests(AgentCommand::addGroup).empty());
}

TEST_F(GroupDialog, CancellingTheEditorLoadsNothing) {
    OpenLoaded();
    PressIn(kGroups, 1154);
    PressIn(kEditor, 1021);
    Settle();
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(GroupDialog, RenamingWithoutASelectionDoesNothing) {
    OpenLoaded();
    PressIn(kGroups, 1155);
    EXPECT_EQ(OpenDialog(kEditor), nullptr);
}

TEST_F(GroupDialog, RenamingWithAnUnchangedTitleStillSends) {
    OpenLoaded();
    List().SelectRow(0);
    PressIn(kGroups, 1155);
    EXPECT_EQ(OpenDialog(kEditor)->windowTitle(), ToQString(u8"修改分组 - Quorvi"));
    EXPECT_EQ(Title()->text(), ToQString(u8"朋友"));
    EndEditor();
    WaitForLoads(2);
    const auto requests = agent_.Requests(AgentCommand::renameGroup);
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0], Join({Word(870122), Word(26), Word(1), Word(5), Text("朋友")}));
    EXPECT_EQ(host_.status, ToQString(u8"已保存分组 朋友"));
}

TEST_F(GroupDialog, AnUnchangedTitleGoesBackInTheVeryBytesThatCame) {
    const std::string title = "a\r\nb\tc\xE2\x80\xA8\xFF\xF0\x9F\x8E\x88";
    WireBytes groups;
    groups.U32(0);
    Add(groups, 5, title, 1);
    agent_.AnswerPayload(AgentCommand::listGroups, groups.Get());
    OpenLoaded();
    List().SelectRow(0);
    PressIn(kGroups, 1155);
    EndEditor();
    WaitForLoads(2);
    EXPECT_EQ(agent_.Requests(AgentCommand::renameGroup).at(0),
              Join({Word(870122), Word(20 + static_cast<std::uint32_t>(title.size())), Word(1),
                    Word(5), Text(title)}));
    List().SelectRow(0);
    PressIn(kGroups, 1155);
    Title()->setText(QStringLiteral("x"));
    EndEditor();
    WaitForLoads(3);
    EXPECT_EQ(agent_.Requests(AgentCommand::renameGroup).at(1),
              Join({Word(870122), Word(21), Word(1), Word(5), Text("x")}));
}

TEST_F(GroupDialog, CharactersOfATitleThatCannotBeSavedAreWarnedOf) {
    OpenLoaded();
    PressIn(kGroups, 1154);
    EXPECT_EQ(Notice(), QString());
    Title()->setText(QStringLiteral("\U0001F388"));
    EXPECT_EQ(Notice(), ToQString(u8"有些字符无法保存，会变成“?”"));
    Title()->setText(ToQString(u8"家"));
    EXPECT_EQ(Notice(), QString());
    PressIn(kEditor, 1021);
}

TEST_F(GroupDialog, ATitleThatIsNotAcknowledgedStandsInTheNextEditorOnce) {
    const QString unconfirmed = ToQString(u8"上次的标题没有得到手机的确认");
    agent_.Answer(AgentCommand::addGroup, {});  // closed without a word
    agent_.Answer(AgentCommand::renameGroup, {});
    OpenLoaded();
    PressIn(kGroups, 1154);
    Title()->setText(ToQString(u8"家"));
    EndEditor();
    EXPECT_EQ(host_.status, kUnacknowledged);
    WaitForLoads(2);
    List().SelectRow(0);
    PressIn(kGroups, 1155);
    EXPECT_EQ(Title()->text(), ToQString(u8"朋友"));
    Title()->setText(ToQString(u8"好朋友"));
    EndEditor();
    WaitForLoads(3);

    // In another dialog, to which the opener hands it on.
    const UnsavedGroups unsaved = dialog_->Unsaved();
    dialog_->close();
    ASSERT_TRUE(Gone());
    OpenAt(agent_.Port());
    dialog_->Resume(unsaved);
    WaitForLoads(4);
    PressIn(kGroups, 1154);
    EXPECT_EQ(Title()->text(), ToQString(u8"家"));
    EXPECT_EQ(Notice(), unconfirmed);
    EXPECT_EQ(host_.status, kReady);  // it stands before the user
    PressIn(kEditor, 1021);
    PressIn(kGroups, 1154);
    EXPECT_EQ(Title()->text(), QString());
    PressIn(kEditor, 1021);
    List().SelectRow(1);
    PressIn(kGroups, 1155);
    EXPECT_EQ(Title()->text(), ToQString(u8"同事"));
    PressIn(kEditor, 1021);
    List().SelectRow(0);
    PressIn(kGroups, 1155);
    EXPECT_EQ(Title()->text(), ToQString(u8"好朋友"));
    agent_.AnswerAcknowledged(AgentCommand::renameGroup);
    EndEditor();
    WaitForLoads(5);
    List().SelectRow(0);
    PressIn(kGroups, 1155);
    EXPECT_EQ(Title()->text(), ToQString(u8"朋友"));
    PressIn(kEditor, 1021);
}

TEST_F(GroupDialog, DeletingWithNothingTickedSaysSo) {
    OpenLoaded();
    PressIn(kGroups, 1049);
    ASSERT_NE(OpenDialog(kNothingChecked), nullptr);
    PressIn(kNothingChecked, 1215);
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteGroups).empty());
}

TEST_F(GroupDialog, DeletingTickedGroupsAsksSendsTheirIdsAndLoadsAgain) {
    OpenLoaded();
    List().TickAll(true);
    PressIn(kGroups, 1049);
    EXPECT_EQ(FindControl<QLabel>(OpenDialog(kConfirm), 1378)->text(),
              ToQString(u8"您真的要删除选择的【 2 】条联系人分组吗？"));
    PressIn(kConfirm, 1215);
    WaitForLoads(2);
    const auto requests = agent_.Requests(AgentCommand::deleteGroups);
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0], Join({Word(870124), Word(20), Word(2), Word(5), Word(6)}));
}

TEST_F(GroupDialog, TheDeleteKeyAsksAboutTheSelectedGroupByItsNameAndTheStatusSaysThatItWent) {
    OpenLoaded();
    List().SelectRow(1);
    PressKeyIn(List(), Qt::Key_Delete);
    ASSERT_NE(OpenDialog(kConfirm), nullptr);
    EXPECT_EQ(FindControl<QLabel>(OpenDialog(kConfirm), 4)->text(), ToQString(u8"同事"));
    PressIn(kConfirm, 1215);
    WaitForLoads(2);
    EXPECT_EQ(agent_.Requests(AgentCommand::deleteGroups)[0],
              Join({Word(870124), Word(16), Word(1), Word(6)}));
    EXPECT_EQ(host_.status, ToQString(u8"已删除 1 个分组"));
}

TEST_F(GroupDialog, F5RefreshesAndCtrlNAdds) {
    OpenLoaded();
    PressKeyIn(List(), Qt::Key_F5);
    WaitForLoads(2);
    PressKeyIn(List(), Qt::Key_N, Qt::ControlModifier);
    ASSERT_NE(OpenDialog(kEditor), nullptr);
    OpenDialog(kEditor)->reject();
}

TEST_F(GroupDialog, CountsItsGroupsAndTheTickedOnes) {
    OpenLoaded();
    List().SetTicked(1, true);
    const auto* count = dialog_->findChild<QLabel*>(QStringLiteral("count"));
    EXPECT_TRUE(WaitFor([&] { return count->text() == ToQString(u8"共 2 项 · 已选 1 项"); }));
}

TEST_F(GroupDialog, ADeleteThatFindsNoPhoneIsToldAndLoadsNothingAgain) {
    auto phone = std::make_unique<ScriptedAgent>();
    WireBytes groups;
    groups.U32(0);
    Add(groups, 5, "朋友", 1);
    phone->AnswerPayload(AgentCommand::listGroups, groups.Get());
    OpenAt(phone->Port());
    ASSERT_TRUE(WaitFor([&] { return List().RowCount() == 1; }));
    phone.reset();
    List().TickAll(true);
    PressIn(kGroups, 1049);
    PressIn(kConfirm, 1215);
    ASSERT_TRUE(WaitFor([&] { return !host_.statuses.isEmpty(); }));
    Settle();
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});  // a load would have told it again
    EXPECT_EQ(List().RowCount(), 1);
    EXPECT_TRUE(List().isEnabled());
}

TEST_F(GroupDialog, AnEditorThatFindsNoPhoneIsToldAndEndsWithOk) {
    int result = -1;
    auto* editor = new CGroupEditDlg(host_, nullptr, UnusedPort());
    editor->Open([&](int ended) { result = ended; });
    Title()->setText(ToQString(u8"家"));
    EndEditor();
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
    EXPECT_EQ(result, QDialog::Accepted);
}

TEST_F(GroupDialog, AnEditorThatIsClosedWhileItsTitleIsOnItsWayLoadsTheListAgain) {
    OpenLoaded();
    agent_.Hold(AgentCommand::addGroup);
    PressIn(kGroups, 1154);
    Title()->setText(ToQString(u8"家"));
    PressIn(kEditor, 1215);
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::addGroup).empty(); }));
    PressIn(kEditor, 1021);
    WaitForLoads(2);
    agent_.Release();
}

TEST_F(GroupDialog, ARightClickAndADoubleClickDoNothing) {
    OpenLoaded();
    Q_EMIT List().menuAsked(0, QPoint(0, 0));
    Q_EMIT List().rowOpened(0);
    EXPECT_EQ(OpenDialog(kEditor), nullptr);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(GroupDialog, MayBeClosedWhileItsPhoneStalls) {
    agent_.Hold(AgentCommand::listGroups);
    OpenAt(agent_.Port());
    ASSERT_TRUE(WaitFor([&] { return Loads() == 1; }));
    OpenDialog(kGroups)->close();
    ASSERT_TRUE(Gone());
    agent_.Release();
    Settle();
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(GroupDialog, EscapeInItsEditorAsksBeforeATitleThatWasTypedIsLost) {
    OpenLoaded();
    PressIn(kGroups, 1154);
    QTest::keyClick(Title(), Qt::Key_Escape);
    ASSERT_TRUE(WaitFor([] { return OpenDialog(kEditor) == nullptr; }));
    PressIn(kGroups, 1154);
    QTest::keyClicks(Title(), QStringLiteral("t"));
    QTest::keyClick(Title(), Qt::Key_Escape);
    ASSERT_NE(OpenDialog(0), nullptr);
    EXPECT_NE(OpenDialog(kEditor), nullptr);
    PressIn(0, 1);
    ASSERT_TRUE(WaitFor([] { return OpenDialog(kEditor) == nullptr; }));
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::addGroup).empty());
}

// ---- what is kept of a delete ------------------------------------------------------------------

TEST_F(GroupDialog, WhatIsDeletedIsKeptWithItsMembersBeforeTheRequestIsSent) {
    agent_.AnswerPayload(AgentCommand::listGroupMembers, WireBytes()
                                                             .U32(0)        // leading word
                                                             .U64(5)        // group
                                                             .Text("Anna")  // name
                                                             .Text("110")   // number
                                                             .Get());
    OpenLoaded();
    List().TickAll(true);
    agent_.Hold(AgentCommand::deleteGroups);
    PressIn(kGroups, 1049);
    PressIn(kConfirm, 1215);
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::deleteGroups).empty(); }));
    EXPECT_TRUE(kept_.IsOne(BackupKind::groups, 2));
    EXPECT_EQ(kept_.List()[0].manifest.kinds[1].count, 1u);  // the member, as a contact
    agent_.Release();
    WaitForLoads(2);
}

TEST_F(GroupDialog, WhatCannotBeKeptIsAskedAboutOnceMoreAndStaysWhenTheAnswerIsNo) {
    agent_.Answer(AgentCommand::listGroupMembers, {});  // closed without a word
    OpenLoaded();
    List().TickAll(true);
    PressIn(kGroups, 1049);
    PressIn(kConfirm, 1215);
    Settle();
    ASSERT_NE(OpenDialog(kConfirm), nullptr);
    EXPECT_EQ(FindControl<QLabel>(OpenDialog(kConfirm), 1378)->text(),
              ToQString(u8"要删除的内容没能先保存到电脑：和手机的连接断了，请重新连接后重试。"
                        u8"这样删除以后就找不回来了，还要删除吗？"));
    PressIn(kConfirm, 1021);
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteGroups).empty());
    EXPECT_TRUE(kept_.List().empty());
    EXPECT_EQ(Loads(), 1u);
}

}  // namespace
}  // namespace quorvi
