// The contacts page with an agent that knows three contacts.
#pragma once

#include <QMenu>

#include "pages/contacts/ContactPage.h"
#include "tests/pages/contacts/ContactReplies.h"
#include "tests/support/AgentPageTest.h"
#include "tests/support/ControlDriver.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/HtmlDriver.h"
#include "tests/support/KeptDeletes.h"
#include "ui/html/HtmlFrame.h"
#include "ui/kit/ControlNumber.h"

namespace quorvi {

inline constexpr int kNameColumn = 1;

// Dialogs that the page opens.
inline constexpr int kEditor = 540;
inline constexpr int kConfirm = 548;
inline constexpr int kGroups = 679;
inline constexpr int kNothingChecked = 682;

inline const std::vector<ListedContact> kThree{
    {.id = 11, .name = "林远舟", .number = "10086", .favourite = 1},
    {.id = 12, .name = "顾晓棠", .number = "10010"},
    {.id = 13, .name = "何思远", .number = ""},
};

class ContactPage : public AgentPageTest<CContactPage, AgentCommand::listContacts> {
  protected:
    void SetUp() override {
        agent_.AnswerPayload(AgentCommand::listContacts, ListBytes());
        agent_.AnswerPayload(AgentCommand::readContact, ContactPayload(11, "林远舟").Get());
        agent_.AnswerAcknowledged(AgentCommand::deleteContacts);
        agent_.AnswerAcknowledged(AgentCommand::addContact);
        agent_.AnswerAcknowledged(AgentCommand::updateContact);
    }

    CContactPage& Open() { return OpenAt(agent_.Port()); }
    CContactPage& OpenAt(std::uint16_t port) {
        MakeAt(port).show();
        return *page_;
    }
    // The page, with its list and the first detail loaded.
    CContactPage& OpenLoaded() {
        CContactPage& page = Open();
        page.Load();
        EXPECT_TRUE(WaitFor([&] { return Details() == 1 && Key() == PageLoadState::kEnded; }));
        EXPECT_TRUE(WaitFor([&] { return Frame().State() == ListState::idle; }));
        return page;
    }

    // What the phone lists.
    [[nodiscard]] Bytes ListBytes() const { return ListPayload(kThree).Get(); }

    KeptDeletes kept_;
    CContactListCtrl& List() { return *FindControl<CContactListCtrl>(page_.get(), 1067); }
    CHtmlCtrlBase& View() { return *FindControl<CHtmlCtrlBase>(page_.get(), 1370); }
    HtmlFrame& Frame() { return *page_->findChild<HtmlFrame*>(); }
    std::size_t Details() { return agent_.Requests(AgentCommand::readContact).size(); }
    std::optional<std::uint32_t> Selected() { return host_.selection.Id(PageSelection::kContact); }
    void Click(int row) { ClickCell(List(), row, kNameColumn); }
    // Opens the menu of the selected row; the caller deletes it.
    QMenu* OpenMenu() {
        Q_EMIT List().menuAsked(List().CurrentRow(), QPoint(0, 0));
        return page_->findChild<QMenu*>();
    }
    // Opens the menu and takes an item of it.
    void ChooseInMenu(int item) {
        QMenu* menu = OpenMenu();
        ASSERT_NE(menu, nullptr);
        menu->actions().at(item)->trigger();
        delete menu;
    }
};

}  // namespace quorvi
