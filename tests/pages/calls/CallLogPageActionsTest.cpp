// What the call log page does with its calls: what is kept of those that it deletes, and its menu.
#include <gmock/gmock.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <filesystem>

#include "tests/pages/calls/CallLogPageFixture.h"
#include "tests/support/KeptDeletePageTest.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/TransfersPageTest.h"

namespace quorvi {
namespace {

// ---- what is kept of a delete ------------------------------------------------------------------

using CallDelete = TickedDelete<CallLogPage, CCallLogPage::commandDelete, AgentCommand::listCalls,
                                AgentCommand::deleteCalls, BackupKind::calls, 2>;
INSTANTIATE_TYPED_TEST_SUITE_P(Calls, KeptDeletePage, CallDelete);

TEST_F(CallLogPage, TheStatusSaysWhatWasDeleted) {
    CCallLogPage& page = OpenLoaded();
    List().SetTicked(0, true);
    List().SetTicked(1, true);
    page.OnCommand(CCallLogPage::commandDelete);
    PressIn(kConfirm, 1215);
    WaitForLoads(2);
    EXPECT_EQ(host_.status, ToQString(u8"已删除 2 条通话记录"));
    page.OnCommand(CCallLogPage::commandDeleteAll);
    PressIn(kConfirm, 1215);
    ASSERT_TRUE(WaitFor([&] { return host_.status == ToQString(u8"已删除所有通话记录"); }));
    Settle();
}

TEST_F(CallLogPage, OfAllCallsThoseAreKeptThatThePhoneHasByThen) {
    CCallLogPage& page = OpenLoaded();
    agent_.AnswerPayload(AgentCommand::listCalls, CallsPayload({{.id = 7}, {.id = 10}}).Get());
    agent_.Hold(AgentCommand::deleteAllCalls);
    page.OnCommand(CCallLogPage::commandDeleteAll);
    PressIn(kConfirm, 1215);
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::deleteAllCalls).empty(); }));
    EXPECT_TRUE(kept_.IsOne(BackupKind::calls, 2));
    agent_.Release();
    WaitForLoads(3);
}

TEST_F(CallLogPage, OfAnEmptyLogNothingIsKept) {
    agent_.AnswerNoData(AgentCommand::listCalls);
    Open().OnCommand(CCallLogPage::commandDeleteAll);
    PressIn(kConfirm, 1215);
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::deleteAllCalls).empty(); }));
    Settle();
    EXPECT_TRUE(kept_.List().empty());
}

TEST_F(CallLogPage, ALogThatDoesNotComeWholeIsAskedAboutBeforeAllOfItGoes) {
    CCallLogPage& page = OpenLoaded();
    agent_.Answer(AgentCommand::listCalls, {Join({Word(100), Word(0)}), ScriptedAgent::End::reset});
    page.OnCommand(CCallLogPage::commandDeleteAll);
    PressIn(kConfirm, 1215);
    Settle();
    EXPECT_EQ(Question(), ToQString(u8"要删除的内容没能先保存到电脑：手机给出的内容不完整。"
                                    u8"这样删除以后就找不回来了，还要删除吗？"));
    PressIn(kConfirm, 1021);
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteAllCalls).empty());
}

TEST_F(CallLogPage, ACallOfWhichOnlyTheIdCameIsAskedAboutAndForgottenWhenItStays) {
    WireBytes bytes = CallsPayload({{.id = 1}});
    bytes.U64(2).Absent();  // a record whose number is absent
    agent_.AnswerPayload(AgentCommand::listCalls, bytes.Get());
    CCallLogPage& page = Open();
    page.Load();
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    List().SetTicked(0, true);
    List().SetTicked(1, true);
    page.OnCommand(CCallLogPage::commandDelete);
    PressIn(kConfirm, 1215);
    Settle();
    EXPECT_EQ(Question(), ToQString(u8"要删除的内容没能先保存到电脑：手机没有给出其中 1 项的内容。"
                                    u8"这样删除以后就找不回来了，还要删除吗？"));
    EXPECT_TRUE(kept_.IsOne(BackupKind::calls, 1));
    PressIn(kConfirm, 1021);
    Settle();
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteCalls).empty());
    EXPECT_TRUE(kept_.List().empty());
}

// ---- the menu ----------------------------------------------------------------------------------

class CallLogMenu : public TransfersPageTest<CallLogPage> {
  protected:
    Services all_ = services_.At(agent_.Port());
};

TEST_F(CallLogMenu, TheMenuOfACallIsAboutItsNumberAndOpensAtTheMenuKey) {
    OpenLoaded();
    List().SelectRow(1);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(List().viewport(), &event);
    auto* menu = page_->findChild<CSkinMenu*>();
    ASSERT_NE(menu, nullptr);
    QStringList texts;
    for (const QAction* item : menu->actions()) {
        texts.append(item->isSeparator() ? QStringLiteral("-") : item->text());
    }
    EXPECT_EQ(texts, (QStringList{ToQString(u8"复制号码"), ToQString(u8"给这个号码写短信"),
                                  ToQString(u8"添加为联系人"), QStringLiteral("-"),
                                  ToQString(u8"导出通话记录…")}));
    ChooseFrom(menu, NumberMenu::commandCopy);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("95588"));
    EXPECT_EQ(host_.status, ToQString(u8"已复制号码 95588"));
}

TEST_F(CallLogMenu, WritingAndAddingAreHandedToTheirPages) {
    page_ = std::make_unique<CCallLogPage>(host_, all_);
    page_->resize(760, 462);
    page_->show();
    page_->Load();
    WaitForLoads(1);
    ChooseFrom(OpenRowMenu(*page_, List(), 1, 1), NumberMenu::commandWrite);
    EXPECT_EQ(all_.numbersToWriteTo.Take(), "95588");
    EXPECT_EQ(all_.numbersToAdd.Take(), std::nullopt);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ChooseFrom(OpenRowMenu(*page_, List(), 0, 1), NumberMenu::commandAdd);
    EXPECT_EQ(all_.numbersToAdd.Take(), "10086");
    EXPECT_EQ(all_.numbersToWriteTo.Take(), std::nullopt);
    const auto command = [](PageCommand which) {
        return FakeHost::Posted(Message::pageCommand, static_cast<int>(which), 0);
    };
    EXPECT_EQ(host_.posted,
              (std::vector{command(PageCommand::writeToNumber), command(PageCommand::addNumber)}));
}

TEST_F(CallLogMenu, WithoutANumberNothingIsOfferedForIt) {
    agent_.AnswerPayload(AgentCommand::listCalls, CallsPayload({{.id = 7, .number = ""}}).Get());
    OpenLoaded();
    CSkinMenu* menu = OpenRowMenu(*page_, List(), 0, 1);
    ASSERT_NE(menu, nullptr);
    for (int i = 0; i < 3; ++i) {
        EXPECT_FALSE(menu->actions().at(i)->isEnabled());
    }
    menu->close();
}

TEST_F(CallLogMenu, ANumberIsCopiedAsTheTextThatItIs) {
    agent_.AnswerPayload(AgentCommand::listCalls,
                         CallsPayload({{.id = 7, .number = "<b>&1</b>"}}).Get());
    OpenLoaded();
    ChooseFrom(OpenRowMenu(*page_, List(), 0, 1), NumberMenu::commandCopy);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("<b>&1</b>"));
}

TEST_F(CallLogMenu, ExportsAllCallsIntoATableAndSaysWhere) {
    OpenLoaded();
    ExportTo("calls.csv");
    EXPECT_EQ(host_.status, ToQString(u8"已导出 3 条通话记录：") + Path("calls.csv"));
    EXPECT_THAT(TextOf("calls.csv"), testing::HasSubstr("林远舟,10086,"));
}

TEST_F(CallLogMenu, TheDialogOffersATableOfTheDay) {
    OpenLoaded();
    Q_EMIT List().menuAsked(0, QPoint(0, 0));
    ChooseFrom(page_->findChild<CSkinMenu*>(), FileTransfers::menuExport);
    const QFileDialog* dialog = OpenFileDialog();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowTitle(), ToQString(u8"导出通话记录"));
    EXPECT_EQ(dialog->nameFilters(), QStringList(ToQString(u8"表格 (*.csv)")));
    EXPECT_THAT(dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text().toStdString(),
                testing::StartsWith("通话记录 "));
}

TEST_F(CallLogMenu, AnExportThatFindsNoPhoneSaysSoAndLeavesTheFileAsItWas) {
    ASSERT_TRUE(ReplaceFile(folder_.Path() / "calls.csv", "mine"));
    OpenAt(UnusedPort());
    Q_EMIT List().menuAsked(-1, QPoint(0, 0));
    ChooseFrom(page_->findChild<CSkinMenu*>(), FileTransfers::menuExport);
    ASSERT_NE(OpenFileDialog(), nullptr);
    OpenFileDialog()->setOption(QFileDialog::DontConfirmOverwrite);
    AnswerFileDialog(Path("calls.csv"));
    Settle();
    EXPECT_EQ(host_.status, ToQString(u8"【X】通话记录没有导出：连接错误，请连接手机后再试"));
    EXPECT_EQ(TextOf("calls.csv"), "mine");
}

TEST_F(CallLogMenu, AnEndingOfAnotherKindSaysWhichOnesAreKnown) {
    OpenLoaded();
    ExportTo("calls.html");
    EXPECT_EQ(host_.status, ToQString(u8"【X】通话记录没有导出：文件的扩展名应为 csv、json，"
                                      u8"请换一个名字"));
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(CallLogMenu, AFolderThatIsGoneIsSaid) {
    OpenLoaded();
    ExportTo("missing/calls.csv");
    EXPECT_EQ(host_.status, ToQString(u8"【X】通话记录没有导出：文件写不进去，请换一个文件夹再试"));
}

TEST_F(CallLogMenu, WhileAnExportIsUnderWayNoneCanBeBegun) {
    OpenLoaded();
    agent_.Hold(AgentCommand::listCalls);
    Q_EMIT List().menuAsked(-1, QPoint(0, 0));
    ChooseFrom(page_->findChild<CSkinMenu*>(), FileTransfers::menuExport);
    AnswerFileDialog(Path("calls.csv"));
    ASSERT_TRUE(WaitFor([&] { return Loads() == 2; }));
    EXPECT_TRUE(page_->isEnabled());
    DrainWindow();  // the first menu is gone
    Q_EMIT List().menuAsked(-1, QPoint(0, 0));
    auto* menu = page_->findChild<CSkinMenu*>();
    ASSERT_NE(menu, nullptr);
    EXPECT_FALSE(menu->actions().at(0)->isEnabled());
    menu->close();
    agent_.Release();
    Settle();
    EXPECT_TRUE(std::filesystem::exists(folder_.Path() / "calls.csv"));
}

}  // namespace
}  // namespace quorvi
