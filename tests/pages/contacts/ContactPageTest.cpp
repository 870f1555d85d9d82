// The contacts page: its list, its detail, and what it shows of photos.
#include <QLineEdit>
#include <QPushButton>

#include "base/Text.h"
#include "pages/contacts/ContactRecord.h"
#include "tests/pages/contacts/ContactPageFixture.h"
#include "tests/support/Contrast.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/PictureFiles.h"
#include "ui/list/SkinHeader.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

TEST_F(ContactPage, NumbersAreTheControls) {
    CContactPage& page = Open();
    EXPECT_EQ(page.objectName(), QStringLiteral("dialog 132"));
    EXPECT_NE(FindControl(&page, 1067), nullptr);
    EXPECT_NE(FindControl(&page, 1370), nullptr);
    Settle();
    EXPECT_EQ(Loads(), 0u);  // the navigator loads it, not the page itself
}

TEST_F(ContactPage, LoadShowsEachContactInItsRow) {
    OpenLoaded();
    ASSERT_EQ(List().RowCount(), 3);
    EXPECT_EQ(List().CellAt(0, 1).text, ToQString(u8"林远舟"));
    EXPECT_EQ(List().CellAt(0, 1).second, QStringLiteral("10086"));
    EXPECT_EQ(List().CellAt(0, 2).value, 1);
    EXPECT_EQ(List().CellAt(1, 2).value, 0);
    EXPECT_EQ(List().CellAt(0, 3).text, QStringLiteral("N/A"));
    EXPECT_EQ(List().CellAt(0, 3).second, ToQString(u8"中国移动"));
    EXPECT_EQ(List().CellAt(2, 3).second, ToQString(u8"未知"));
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::idle);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(ContactPage, ColumnsAreTheFiveOfAContact) {
    Open();
    const struct {
        std::u8string_view caption;
        int width;
        CellKind kind;
        CellAlign align;
        CellAlign cells;
    } columns[] = {
        {u8"头像", 60, CellKind::picture, CellAlign::centre, CellAlign::centre},
        {u8"联系人", 140, CellKind::twoLines, CellAlign::centre, CellAlign::left},
        {u8"收藏", 44, CellKind::star, CellAlign::centre, CellAlign::centre},
        {u8"上次联系时间、归属地", 150, CellKind::twoSmallLines, CellAlign::left,
         CellAlign::centre},
        {u8"选择", 44, CellKind::check, CellAlign::centre, CellAlign::centre},
    };
    ASSERT_EQ(List().ColumnCount(), 5);
    for (int i = 0; i < 5; ++i) {
        const ListColumn& column = List().Column(i);
        EXPECT_EQ(column.caption, columns[i].caption) << i;
        EXPECT_EQ(column.width, columns[i].width) << i;
        EXPECT_EQ(column.kind, columns[i].kind) << i;
        EXPECT_EQ(column.align, columns[i].align) << i;
        EXPECT_EQ(column.cells, columns[i].cells) << i;
    }
}

TEST_F(ContactPage, NumberIsGreyAndAttributionRed) {
    OpenLoaded();
    EXPECT_EQ(List().CellAt(0, 1).ink, look::Color::ink);
    EXPECT_EQ(List().CellAt(0, 1).secondInk, look::Color::ink2);
    EXPECT_EQ(List().CellAt(0, 3).ink, look::Color::ink);
    EXPECT_EQ(List().CellAt(0, 3).secondInk, look::Color::red);
    EXPECT_EQ(List().CellAt(0, 0).text, QString());  // the photo's cell has no text
}

TEST_F(ContactPage, TextsReadOnEveryGroundOfARow) {
    OpenLoaded();
    ExpectReadableRows(List());
}

TEST_F(ContactPage, InAWideWindowTheNamesTakeWhatTheListGains) {
    OpenLoaded();
    const int columns = List().columnWidth(1);
    const int list = List().width();
    page_->resize(page_->width() + 400, page_->height());
    ASSERT_GT(List().width(), list);
    EXPECT_EQ(List().columnWidth(1) - columns, List().width() - list);
    EXPECT_EQ(List().columnWidth(4), 44);
}

TEST_F(ContactPage, FillGivesTheListTheFocus) {
    CContactPage& page = Open();
    page.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
    View().setFocus();
    page.Load();
    WaitForLoads(1);
    EXPECT_TRUE(List().hasFocus());
}

// The page in a window that has a field of its own, which has the focus.
class ContactPageBesideAField : public ContactPage {
  protected:
    void SetUp() override {
        ContactPage::SetUp();
        MakeAt(agent_.Port()).setParent(&window_);
        page_->show();
        window_.show();
        window_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    }
    void TearDown() override { page_.reset(); }

    QWidget window_;
    QLineEdit field_{&window_};
    QPushButton button_{&window_};
};

TEST_F(ContactPageBesideAField, FillLeavesTheFocusWhereTheUserIsTyping) {
    field_.setFocus();
    page_->Load();
    WaitForLoads(1);
    EXPECT_TRUE(field_.hasFocus());
    EXPECT_EQ(List().CurrentRow(), 0);
}

TEST_F(ContactPageBesideAField, FillOfAHiddenPageLeavesTheFocusWhereItIs) {
    button_.setFocus();
    page_->hide();
    page_->Load();
    WaitForLoads(1);
    EXPECT_TRUE(button_.hasFocus());
    page_->show();
    EXPECT_TRUE(button_.hasFocus());
    EXPECT_EQ(List().CurrentRow(), 0);
}

TEST_F(ContactPage, FillSelectsTheFirstRowAndFetchesItsDetail) {
    OpenLoaded();
    EXPECT_EQ(List().CurrentRow(), 0);
    EXPECT_EQ(Selected(), 11u);
    EXPECT_EQ(agent_.Requests(AgentCommand::readContact).at(0), ReadContactRequest(11));
    ASSERT_TRUE(WaitFor([&] {
        return InnerHtml(View(), QStringLiteral("block")).contains(ToQString(u8"<b>林远舟</b>"));
    }));
    Settle();
    EXPECT_EQ(Details(), 1u);
}

TEST_F(ContactPage, TheAttributionIsTheOneThatItWasHanded) {
    services_.attribution = [](std::string_view number) { return "of " + std::string(number); };
    OpenLoaded();
    EXPECT_EQ(List().CellAt(0, 3).second, QStringLiteral("of 10086"));
}

TEST_F(ContactPage, WhileItLoadsTheListIsClearedWithoutRedrawAndSaysSo) {
    CContactPage& page = OpenLoaded();
    agent_.Hold(AgentCommand::listContacts);
    page.Load();
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::loading);
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kRunning; }));
    agent_.Release();
    WaitForLoads(2);
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 3);
}

TEST_F(ContactPage, WhileItLoadsTheListShowsHowMuchHasCome) {
    look::SetLessMotion(true);  // nothing moves but what comes
    CContactPage& page = Open();
    agent_.Hold(AgentCommand::listContacts);
    WireBytes half;
    half.U32(1'000'000).Raw(std::string(500'000, '\0'));
    agent_.Answer(AgentCommand::listContacts, {half.Get(), ScriptedAgent::End::wait});
    page.Load();
    const auto shot = [&] { return List().viewport()->grab().toImage(); };
    const QImage before = shot();
    agent_.Release();
    EXPECT_TRUE(WaitFor([&] { return shot() != before; }));
    EXPECT_EQ(List().State(), ListState::loading);
    look::SetLessMotion(false);
}

TEST_F(ContactPage, WhileTheDetailIsFetchedItsFrameSaysSo) {
    OpenLoaded();
    agent_.Hold(AgentCommand::readContact);
    Click(1);
    EXPECT_EQ(Frame().State(), ListState::loading);
    agent_.Release();
    EXPECT_TRUE(WaitFor([&] { return Frame().State() == ListState::idle; }));
}

TEST_F(ContactPage, RefreshDuringARunningLoadIsDroppedNotQueued) {
    CContactPage& page = Open();
    agent_.Hold(AgentCommand::listContacts);
    page.OnCommand(0);
    page.OnCommand(0);
    ASSERT_TRUE(WaitFor([&] { return Loads() == 1; }));
    page.OnCommand(0);
    agent_.Release();
    WaitForLoads(1);
    Settle();
    EXPECT_EQ(Loads(), 1u);
}

TEST_F(ContactPage, ADetailThatWorksTakesAnOldConnectFailureBack) {
    CContactPage& page = OpenLoaded();
    FailBefore();
    page.RefreshDetail();
    EXPECT_TRUE(WaitFor([&] { return host_.status == kReady; }));
}

TEST_F(ContactPage, ConnectFailureIsToldAndTheListEmptyWithRedrawOn) {
    CContactPage& page = OpenAt(UnusedPort());
    page.Load();
    ASSERT_TRUE(WaitFor([&] { return Key() == PageLoadState::kEnded; }));
    EXPECT_EQ(host_.statuses.value(0), kConnectError);
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().State(), ListState::failed);
    EXPECT_FALSE(Selected());
    // The detail is asked for all the same.
    ASSERT_TRUE(WaitFor([&] { return host_.statuses.size() == 2; }));
    EXPECT_EQ(host_.statuses.value(1), kConnectError);
}

TEST_F(ContactPage, PhoneWithoutContactsLeavesTheListEmptyAndTheDetailAsItWas) {
    CContactPage& page = OpenLoaded();
    agent_.AnswerNoData(AgentCommand::listContacts);
    page.Load();
    WaitForLoads(2);
    Settle();
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_FALSE(List().Redraw());  // kept on purpose, until a later load gets further
    EXPECT_EQ(Details(), 1u);       // no timer was started
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(ContactPage, AgentThatIsGoneLeavesRedrawOff) {
    agent_.Answer(AgentCommand::listContacts, {});
    CContactPage& page = Open();
    page.Load();
    WaitForLoads(1);
    Settle();
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(Details(), 0u);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(ContactPage, ConnectionThatBreaksInsideThePayloadLeavesRedrawOff) {
    WireBytes broken;
    broken.U32(1'000'000).Add(ListPayload(kThree).Get());
    agent_.Answer(AgentCommand::listContacts, {broken.Get(), ScriptedAgent::End::reset});
    CContactPage& page = Open();
    page.Load();
    WaitForLoads(1);
    Settle();
    EXPECT_EQ(List().RowCount(), 0);
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(Details(), 0u);
}

TEST_F(ContactPage, AbsentNameLeavesAnEmptyLastRowWithoutRedrawOrSelection) {
    WireBytes payload = ListPayload({{.id = 11}});
    payload.U64(12).U64(12).Absent();
    agent_.AnswerPayload(AgentCommand::listContacts, payload.Get());
    CContactPage& page = Open();
    page.Load();
    WaitForLoads(1);
    Settle();
    EXPECT_EQ(List().RowCount(), 2);
    EXPECT_EQ(List().CellAt(1, 1).text, QString());
    EXPECT_FALSE(List().Redraw());
    EXPECT_EQ(List().CurrentRow(), -1);
    EXPECT_FALSE(Selected());
    EXPECT_EQ(Details(), 0u);
    Click(1);  // beyond the contacts: ignored
    Q_EMIT List().rowOpened(1);
    Settle();
    EXPECT_FALSE(Selected());
    EXPECT_EQ(OpenDialog(kEditor), nullptr);
}

TEST_F(ContactPage, RefreshAfterAnEarlyEndShowsTheListAgain) {
    agent_.AnswerNoData(AgentCommand::listContacts);
    CContactPage& page = Open();
    page.Load();
    WaitForLoads(1);
    EXPECT_FALSE(List().Redraw());
    agent_.AnswerPayload(AgentCommand::listContacts, ListPayload(kThree).Get());
    page.OnCommand(0);
    WaitForLoads(2);
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().RowCount(), 3);
}

TEST_F(ContactPage, CutReplyShowsTheRowsThatCame) {
    WireBytes cut;
    cut.U32(1'000'000).Add(ListPayload(kThree).Get());
    agent_.Answer(AgentCommand::listContacts, {cut.Get(), ScriptedAgent::End::close});
    CContactPage& page = Open();
    page.Load();
    WaitForLoads(1);
    EXPECT_EQ(List().RowCount(), 3);
    EXPECT_TRUE(List().Redraw());
    EXPECT_EQ(List().CurrentRow(), 0);
}

// ---- sorting -----------------------------------------------------------------------------------

class ContactPageSort : public ContactPage {
  protected:
    void ClickHead(int key) {
        auto& head = *static_cast<CSkinHeader*>(List().horizontalHeader());
        QTest::mouseClick(head.viewport(), Qt::LeftButton, {}, head.SortRect(key).center());
    }
    // The names from top to bottom.
    QStringList Names() {
        QStringList names;
        for (int place = 0; place < List().model()->rowCount(); ++place) {
            names.append(List()
                             .model()
                             ->index(place, kNameColumn)
                             .data()
                             .toString()
                             .section(QLatin1Char('\n'), 0, 0));
        }
        return names;
    }
    const QStringList asTheyCame_{ToQString(u8"林远舟"), ToQString(u8"顾晓棠"),
                                  ToQString(u8"何思远")};
    const QStringList byName_{ToQString(u8"顾晓棠"), ToQString(u8"何思远"), ToQString(u8"林远舟")};
};

TEST_F(ContactPageSort, AClickOnTheHeadOfNamesSortsByPinyin) {
    OpenLoaded();
    ClickHead(contactsByName);
    EXPECT_EQ(Names(), byName_);
    ClickHead(contactsByName);
    EXPECT_EQ(Names(), QStringList(byName_.rbegin(), byName_.rend()));
    ClickHead(contactsByName);
    EXPECT_EQ(Names(), asTheyCame_);
}

TEST_F(ContactPageSort, AnotherListComesInTheSameOrderWithItsTopmostSelected) {
    OpenLoaded();
    ClickHead(contactsByName);
    EXPECT_EQ(Selected(), 11u);  // stays with its contact
    page_->Load();
    WaitForLoads(2);
    EXPECT_EQ(Names(), byName_);
    EXPECT_EQ(Selected(), 12u);
    EXPECT_EQ(List().CurrentRow(), 1);
    ASSERT_TRUE(WaitFor([&] { return Details() == 2; }));
}

TEST_F(ContactPageSort, TheOrdersAreInTheMenuOfARow) {
    OpenLoaded();
    QMenu* menu = OpenMenu();
    ASSERT_NE(menu, nullptr);
    QMenu* orders = menu->actions().last()->menu();
    ASSERT_NE(orders, nullptr);
    ASSERT_EQ(orders->actions().size(), 8);
    orders->actions().at(1)->trigger();
    delete menu;
    EXPECT_EQ(Names(), QStringList(byName_.rbegin(), byName_.rend()));
}

TEST_F(ContactPageSort, DeletesGoToTheContactsThatAreTicked) {
    CContactPage& page = OpenLoaded();
    ClickHead(contactsByName);
    List().setFocus();
    QTest::keyClick(&List(), Qt::Key_Home);
    QTest::keyClick(&List(), Qt::Key_Space);
    page.OnCommand(CContactPage::commandDelete);
    PressIn(kConfirm, 1215);
    Settle();
    PressIn(kConfirm, 1215);  // the phone gives another contact, so that this one is not kept
    WaitForLoads(2);
    ASSERT_EQ(agent_.Requests(AgentCommand::deleteContacts).size(), 1u);
    EXPECT_EQ(agent_.Requests(AgentCommand::deleteContacts)[0],
              Join({Word(870106), Word(16), Word(1), Word(12)}));
}

TEST_F(ContactPage, TicksAreLostAtEachRefresh) {
    CContactPage& page = OpenLoaded();
    List().SetTicked(1, true);
    page.Load();
    WaitForLoads(2);
    EXPECT_TRUE(List().TickedRows().empty());
}

TEST_F(ContactPage, ClickFetchesTheDetailOfItsRow) {
    OpenLoaded();
    Click(2);
    ASSERT_TRUE(WaitFor([&] { return Details() == 2; }));
    EXPECT_EQ(Selected(), 13u);
    EXPECT_EQ(agent_.Requests(AgentCommand::readContact).at(1), ReadContactRequest(13));
}

TEST_F(ContactPage, ClickDuringARunningDetailIsDroppedAndMadeUpForAtItsEnd) {
    OpenLoaded();
    agent_.Hold(AgentCommand::readContact);
    Click(1);
    ASSERT_TRUE(WaitFor([&] { return Details() == 2; }));
    Click(0);
    Click(2);
    DrainWindow();
    EXPECT_EQ(Details(), 2u);
    EXPECT_EQ(Selected(), 13u);
    agent_.AnswerPayload(AgentCommand::readContact, ContactPayload(13, "何思远").Get());
    agent_.Release();
    Settle();
    ASSERT_TRUE(WaitFor([&] { return Details() == 3; }));
    EXPECT_EQ(agent_.Requests(AgentCommand::readContact).at(2), ReadContactRequest(13));
    ASSERT_TRUE(WaitFor([&] {
        return InnerHtml(View(), QStringLiteral("block")).contains(ToQString(u8"<b>何思远</b>"));
    }));
    Settle();
    EXPECT_EQ(Details(), 3u);  // the click between the two is not made up for
}

TEST_F(ContactPage, FastKeysLeaveTheDetailOnTheSelectedContact) {
    OpenLoaded();
    agent_.Hold(AgentCommand::readContact);
    QTest::keyClick(&List(), Qt::Key_Down);
    ASSERT_TRUE(WaitFor([&] { return Details() == 2; }));
    QTest::keyClick(&List(), Qt::Key_Down);
    agent_.Release();
    ASSERT_TRUE(WaitFor([&] { return Details() == 3; }));
    EXPECT_EQ(agent_.Requests(AgentCommand::readContact).at(2), ReadContactRequest(13));
}

TEST_F(ContactPage, ComingBackDuringARunningDetailFetchesItOnce) {
    OpenLoaded();
    agent_.Hold(AgentCommand::readContact);
    Click(1);
    ASSERT_TRUE(WaitFor([&] { return Details() == 2; }));
    Click(2);
    Click(1);
    agent_.Release();
    Settle();
    EXPECT_EQ(Details(), 2u);
    EXPECT_EQ(Selected(), 12u);
}

// What is on its way may be what the phone held before the change after which the list was fetched.
TEST_F(ContactPage, AFillDuringARunningDetailFetchesItAgain) {
    CContactPage& page = OpenLoaded();
    agent_.Hold(AgentCommand::readContact);
    page.RefreshDetail();
    ASSERT_TRUE(WaitFor([&] { return Details() == 2; }));
    page.Load();
    WaitForLoads(2);
    DrainWindow();
    EXPECT_EQ(Details(), 2u);
    agent_.Release();
    EXPECT_TRUE(WaitFor([&] { return Details() == 3; }));
    Settle();
    EXPECT_EQ(Details(), 3u);
}

TEST_F(ContactPage, SelectionByKeyFetchesTheDetailToo) {
    OpenLoaded();
    QTest::keyClick(&List(), Qt::Key_Down);
    ASSERT_TRUE(WaitFor([&] { return Details() == 2; }));
    EXPECT_EQ(Selected(), 12u);
}

TEST_F(ContactPage, DetailThatCannotBeFetchedLeavesTheViewAndIsTold) {
    CContactPage& page = OpenAt(UnusedPort());
    page.RefreshDetail();
    ASSERT_TRUE(WaitFor([&] { return !host_.statuses.isEmpty(); }));
    EXPECT_EQ(host_.statuses, QStringList{kConnectError});
}

TEST_F(ContactPage, DetailOfNoDataLeavesTheViewWithoutAMessage) {
    OpenLoaded();
    ASSERT_TRUE(
        WaitFor([&] { return !InnerHtml(View(), QStringLiteral("block")).trimmed().isEmpty(); }));
    const QString before = InnerHtml(View(), QStringLiteral("block"));
    agent_.AnswerNoData(AgentCommand::readContact);
    Click(1);
    ASSERT_TRUE(WaitFor([&] { return Details() == 2; }));
    Settle();
    EXPECT_EQ(InnerHtml(View(), QStringLiteral("block")), before);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

// A contact with `text` in each of its texts.
WireBytes ContactOf(std::string_view text) {
    WireBytes bytes = ContactStart(11).U32(0);  // structured flag
    for (int field = 0; field < 3; ++field) {
        bytes.U32(1).U64(70).U32(0).Text(text);
    }
    for (int list = 0; list < 7; ++list) {
        AddItems(bytes, {{80, 99, text}});
    }
    return bytes;
}

TEST_F(ContactPage, MarkupInAnyTextIsShownAndRunsNothing) {
    agent_.AnswerPayload(
        AgentCommand::readContact,
        ContactOf("<script>document.documentElement.setAttribute('ran',1)</script><img src=x "
                  "onerror=\"document.documentElement.setAttribute('ran',1)\"><i>x</i>")
            .Get());
    OpenLoaded();
    const auto ask = [&](const char* script) {
        return AskHtml(View(), QString::fromLatin1(script));
    };
    ASSERT_TRUE(WaitFor([&] {
        return ask("document.querySelectorAll('#block foreign-text i').length").toInt() == 3 + 7;
    }));
    // The picture has failed, and has told its handler if it has one.
    ASSERT_TRUE(WaitFor([&] {
        return ask("[...document.querySelectorAll('#block img')].every(i => i.complete)").toBool();
    }));
    EXPECT_FALSE(ask("document.documentElement.hasAttribute('ran')").toBool());
}

TEST_F(ContactPage, TheDetailKeepsTheLinesOfANoteAndAnAddress) {
    agent_.AnswerPayload(AgentCommand::readContact, ContactOf("one\ntwo\r\nthree").Get());
    OpenLoaded();
    const auto shown = [&](const char* part) {
        return AskHtml(View(), QStringLiteral("document.querySelector('%1')?.innerText")
                                   .arg(QLatin1String(part)))
            .toString();
    };
    const QString lines = QStringLiteral("one\ntwo\nthree");
    EXPECT_TRUE(WaitFor([&] { return shown("#notes .section") == lines; }));
    EXPECT_EQ(shown("#others .l:not(.w80)"), lines);
    EXPECT_EQ(shown(".name"), QStringLiteral("one two three"));
}

TEST_F(ContactPage, BytesThatAreNoTextShowInTheDetailAsQuestionMarks) {
    agent_.AnswerPayload(AgentCommand::readContact, ContactOf("<i>\x01\x1b[31m\xff\xfe</i>").Get());
    OpenLoaded();
    EXPECT_TRUE(WaitFor([&] {
        return AskHtml(View(), QStringLiteral("document.querySelector('#block i')?.textContent"))
                   .toString() == QStringLiteral("\x01\x1b[31m??");
    }));
}

TEST_F(ContactPage, BrokenPhotosShowTheDefaultHead) {
    agent_.AnswerPayload(AgentCommand::listContacts,
                         ListPayload({{.id = 1},
                                      {.id = 2, .photo = "x"},
                                      {.id = 3, .photo = "no picture at all"},
                                      {.id = 4, .photo = PngClaiming(60'000)},
                                      {.id = 5, .photo = std::string(262'245, 'x')}})
                             .Get());
    OpenLoaded();
    List().SelectRow(-1);
    const auto photo = [&](int row) {
        const QRect cell = List().CellRect(row, 0).adjusted(6, 6, -6, -6);
        return List().viewport()->grab(cell).toImage();
    };
    for (int row = 2; row < 5; row += 2) {  // rows of one ground
        EXPECT_EQ(photo(row), photo(0)) << row;
    }
    EXPECT_EQ(photo(3), photo(1));
}

TEST_F(ContactPage, NameOfAMegabyteIsShownAndCostsLittle) {
    const std::string name(1 << 20, 'n');
    agent_.AnswerPayload(AgentCommand::listContacts, ListPayload({{.id = 1, .name = name}}).Get());
    OpenLoaded();
    EXPECT_TRUE(List().CellAt(0, 1).text.startsWith(QStringLiteral("nnn")));
    EXPECT_LT(List().CellAt(0, 1).text.size(), 2000);
}

TEST_F(ContactPage, BytesThatAreNoTextShowInTheListAsQuestionMarks) {
    agent_.AnswerPayload(AgentCommand::listContacts,
                         ListPayload({{.id = 1, .name = "\x01\x1b[31m\xff\xfe"}}).Get());
    OpenLoaded();
    EXPECT_EQ(List().CellAt(0, 1).text, QStringLiteral("\x01\x1b[31m??"));
    EXPECT_FALSE(List().viewport()->grab().isNull());
}

TEST_F(ContactPage, PageThatGoesDuringALoadLeavesNothingBehind) {
    GoWhileThePhoneStalls();
    EXPECT_EQ(Details(), 0u);
}

}  // namespace
}  // namespace quorvi
