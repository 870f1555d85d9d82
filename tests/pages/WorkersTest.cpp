// Pages and dialogs that go, or go on, while their workers are at the phone: for the thread
// sanitizer above all. No HTML view is shown here, so that no browser runs, whose threads the
// sanitizer cannot tell from ours.
#include <map>
#include <memory>
#include <ostream>

#include "pages/alarms/AlarmPage.h"
#include "pages/apps/AppPage.h"
#include "pages/bookmarks/BookmarkPage.h"
#include "pages/calls/CallLogPage.h"
#include "pages/cleaner/CleanerPage.h"
#include "pages/contacts/ContactEditDlg.h"
#include "pages/contacts/ContactGroupDlg.h"
#include "pages/contacts/ContactPage.h"
#include "pages/messages/SmsComposeDlg.h"
#include "pages/messages/SmsPage.h"
#include "pages/phoneinfo/HomePage.h"
#include "pages/phoneinfo/SystemInfoPage.h"
#include "pages/tasks/TaskPage.h"
#include "tests/pages/alarms/AlarmReplies.h"
#include "tests/pages/apps/AppReplies.h"
#include "tests/pages/bookmarks/BookmarkReplies.h"
#include "tests/pages/calls/CallReplies.h"
#include "tests/pages/cleaner/CleanReplies.h"
#include "tests/pages/contacts/ContactReplies.h"
#include "tests/pages/messages/MessageReplies.h"
#include "tests/pages/phoneinfo/SystemInfoReply.h"
#include "tests/pages/tasks/TaskReplies.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/PageTest.h"
#include "tests/support/ScriptedAgent.h"

namespace quorvi {
namespace {

constexpr std::uint32_t kContact = 11;
constexpr std::uint32_t kConversation = 7;

// One session of a worker: who runs it, and the command that it waits for.
struct Work {
    const char* name;
    AgentCommand command;
    QWidget* (*start)(PageHost& host, const Services& services);
};

void PrintTo(const Work& work, std::ostream* out) {
    *out << work.name;
}

template <typename P>
QWidget* StartPage(PageHost& host, const Services& services) {
    auto* page = new P(host, services);
    page->Load();
    return page;
}

QWidget* StartGroups(PageHost& host, const Services& services) {
    return new CContactGroupDlg(host, nullptr, services.agent);
}

QWidget* StartEditor(PageHost& host, const Services& services) {
    return new CContactEditDlg(host, kContact, nullptr, services.agent);
}

// Beside a site that nobody reaches.
QWidget* StartApps(PageHost& host, const Services& services) {
    Services told = services;
    told.deployment.siteRoot = "http://127.0.0.1:1/";
    auto* page = new CAppPage(host, told);
    page->Load();
    return page;
}

QWidget* StartComposer(PageHost& host, const Services& services) {
    auto* composer = new CSmsComposeDlg(host, kConversation, nullptr, services.agent);
    composer->OnMessage(Message::documentLoaded, 0);  // in the place of the view
    return composer;
}

const Work kWorks[] = {
    {"Dashboard", AgentCommand::systemInformation, &StartPage<CHomePage>},
    {"SystemInfo", AgentCommand::systemInformation, &StartPage<CSystemInfoPage>},
    {"Contacts", AgentCommand::listContacts, &StartPage<CContactPage>},
    {"Contact", AgentCommand::readContact, &StartPage<CContactPage>},
    {"Editor", AgentCommand::readContact, &StartEditor},
    {"Groups", AgentCommand::listGroups, &StartGroups},
    {"Calls", AgentCommand::listCalls, &StartPage<CCallLogPage>},
    {"Alarms", AgentCommand::listAlarms, &StartPage<CAlarmPage>},
    {"Bookmarks", AgentCommand::listBookmarks, &StartPage<CBookmarkPage>},
    {"Caches", AgentCommand::scanForCleaning, &StartPage<CCleanerPage>},
    {"Applications", AgentCommand::listApplications, &StartApps},
    {"DeviceIdentity", AgentCommand::deviceSummary, &StartApps},
    {"FreeMemory", AgentCommand::freeMemory, &StartPage<CTaskPage>},
    {"Processes", AgentCommand::listProcesses, &StartPage<CTaskPage>},
    {"Conversations", AgentCommand::listConversations, &StartPage<CSmsPage>},
    {"Conversation", AgentCommand::readConversation, &StartComposer},
    {"GroupNames", AgentCommand::listGroupNames, &StartComposer},
    {"Members", AgentCommand::listGroupMembers, &StartComposer},
};

// The payloads of a phone that has one of each.
const std::map<AgentCommand, Bytes> kPayloads{
    {AgentCommand::systemInformation, WholeSystemInfo().Get()},
    {AgentCommand::listContacts, ListPayload({{.id = kContact}}).Get()},
    {AgentCommand::readContact, ContactPayload(kContact, "A", {{}}).Get()},
    {AgentCommand::listGroups, WireBytes().U32(0).U64(5).Text("B").Text("C").U32(1).Get()},
    {AgentCommand::listCalls, CallsPayload({{}}).Get()},
    {AgentCommand::listAlarms, AlarmsPayload({{}}).Get()},
    {AgentCommand::listBookmarks, BookmarksPayload({{.thumbnail = "B"}}).Get()},
    {AgentCommand::scanForCleaning, CachesPayload({{}}).Get()},
    {AgentCommand::listApplications, AppsPayload({{}}).Get()},
    {AgentCommand::deviceSummary, WireBytes().U32(0).U32(7).U32(10).Text("A").Get()},
    {AgentCommand::freeMemory, Word(7)},  // read as one word: its length
    {AgentCommand::listProcesses, ProcessesPayload({{}}).Get()},
    {AgentCommand::listConversations, ConversationsPayload({{}}).Get()},
    {AgentCommand::readConversation, MessagesPayload({{}}).Get()},
    {AgentCommand::listGroupNames, WireBytes().U32(0).U64(5).Text("B").Get()},
    {AgentCommand::listGroupMembers, MembersPayload({{5, "A", "1"}}).Get()},
};

class Workers : public PageTest, public testing::WithParamInterface<Work> {
  protected:
    void SetUp() override {
        for (const auto& [command, payload] : kPayloads) {
            agent_.AnswerPayload(command, payload);
        }
    }
    // What a worker does when its page is gone comes after its session.
    static void TearDownTestSuite() { Settle(); }

    void Start() { page_.reset(GetParam().start(host_, services_.At(agent_.Port()))); }
    [[nodiscard]] bool Asks(std::size_t times) {
        return WaitFor([&] { return agent_.Requests(GetParam().command).size() >= times; });
    }

    ScriptedAgent agent_;
    std::unique_ptr<QWidget> page_;
};

TEST_P(Workers, HandTheirReplyToAPageThatIsThere) {
    Start();
    ASSERT_TRUE(Asks(1));
    Settle();
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_P(Workers, GoOnWithoutAPageThatWentWhileThePhoneHeldItsReply) {
    agent_.Hold(GetParam().command);
    Start();
    ASSERT_TRUE(Asks(1));
    page_.reset();
    agent_.Release();
    Settle();
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_P(Workers, LoseTheirPageAtEachByteOfTheReply) {
    const Bytes reply = Framed(kPayloads.at(GetParam().command));
    for (std::size_t came = 0; came <= reply.size(); ++came) {
        agent_.Answer(GetParam().command,
                      {Bytes(reply.begin(), reply.begin() + static_cast<std::ptrdiff_t>(came))});
        Start();
        ASSERT_TRUE(Asks(came + 1));
        page_.reset();
    }
    EXPECT_TRUE(host_.statuses.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Each, Workers, testing::ValuesIn(kWorks),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace quorvi
