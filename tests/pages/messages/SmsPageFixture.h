// The page of the conversations, with an agent that knows two.
#pragma once

#include <utility>

#include "pages/messages/SmsPage.h"
#include "tests/pages/messages/MessageReplies.h"
#include "tests/support/AgentPageTest.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/HtmlDriver.h"
#include "tests/support/KeptDeletes.h"
#include "tests/support/LoopbackAgent.h"
#include "ui/html/HtmlFrame.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {

inline constexpr int kConfirm = 548;
inline constexpr int kComposer = 550;

class SmsPage : public AgentPageTest<CSmsPage, AgentCommand::listConversations> {
  protected:
    void SetUp() override {
        agent_.AnswerPayload(AgentCommand::listConversations,
                             ConversationsPayload({{}, {.id = 0xFFFFFFFE, .name = "10086"}}).Get());
        agent_.AnswerPayload(AgentCommand::readConversation, MessagesPayload({{}}).Get());
        agent_.AnswerNoData(AgentCommand::listGroupNames);
        agent_.AnswerNoData(AgentCommand::listGroupMembers);
        agent_.AnswerAcknowledged(AgentCommand::deleteConversation);
        agent_.AnswerAcknowledged(AgentCommand::sendMessage);
    }

    // The page, shown, with its template loaded.
    CSmsPage& OpenAt(std::uint16_t port) {
        MakeAt(port);
        ShowWithDocument(*page_, View());
        return *page_;
    }
    CSmsPage& Open() { return OpenAt(agent_.Port()); }
    CSmsPage& OpenLoaded() {
        CSmsPage& page = Open();
        page.Load();
        WaitForLoads(1);
        EXPECT_TRUE(WaitFor([&] { return !List().isEmpty(); }));
        return page;
    }

    KeptDeletes kept_;
    CHtmlCtrlBase& View() { return *FindControl<CHtmlCtrlBase>(page_.get(), 1361); }
    HtmlFrame& Frame() { return *page_->findChild<HtmlFrame*>(); }
    QString List() { return InnerHtml(View(), QStringLiteral("sms_ul")); }
    std::vector<Bytes> Deletes() { return agent_.Requests(AgentCommand::deleteConversation); }
    // Waits until the first element that the selector finds is in sight, and where it was before:
    // what has come near is laid out by then.
    bool LiesStill(const QString& selector) {
        const QString where = QStringLiteral(
                                  "(e => { const r = e.getBoundingClientRect();"
                                  "const hit = document.elementFromPoint(r.x + r.width / 2,"
                                  " r.y + r.height / 2);"
                                  "return e.contains(hit) ? r.x + ',' + r.y : ''; })"
                                  "(document.querySelector(\"%1\"))")
                                  .arg(selector);
        QString last;
        return WaitFor([&] {
            const QString now = AskHtml(View(), where).toString();
            return !now.isEmpty() && std::exchange(last, now) == now;
        });
    }
    // As a click on a private link tells the page.
    void Follow(const char* link) {
        ClickHtml(View(), QStringLiteral("a[href='qvh:%1']").arg(QLatin1String(link)));
    }
};

}  // namespace quorvi
