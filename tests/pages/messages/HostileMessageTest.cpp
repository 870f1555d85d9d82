// Messages written to do harm, in the list of conversations and in a conversation.
#include <array>

#include "base/Text.h"
#include "base/os/TcpListener.h"
#include "pages/messages/SmsComposeDlg.h"
#include "pages/messages/SmsPage.h"
#include "tests/pages/messages/MessageReplies.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/HtmlDriver.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/PageTest.h"
#include "tests/support/ScriptedAgent.h"
#include "ui/html/HtmlTemplate.h"
#include "ui/kit/ControlNumber.h"

namespace quorvi {
namespace {

#define RAN "document.documentElement.setAttribute(\"ran\",1)"

struct Hostile {
    const char* name;
    const char* text;  // %1 is a web server's root
};

void PrintTo(const Hostile& hostile, std::ostream* out) {
    *out << hostile.name;
}

constexpr Hostile kHostile[] = {
    {"Script", "<script>" RAN "</script><script src='%1x.js'></script>"},
    {"Handlers", "<img src=x onerror='" RAN "'><svg onload='" RAN "'></svg>"
                 "<details open ontoggle='" RAN "'></details><b onclick='" RAN "'>go</b>"},
    {"RemoteImages",
     "<img src='%1a.png'><img srcset='%1b.png 1x'><picture><source srcset='%1c'>"
     "<img></picture><div style='background:url(%1d.png)'>x</div>"},
    {"StyleSheets",
     "<style>@import '%1a.css'; body{background:url(%1b.png)}</style>"
     "<link rel=stylesheet href='%1c.css'><link rel=prefetch href='%1d'>"},
    {"Form",
     "<form action='%1post' method=post><input name=a value=b>"
     "<button>go</button></form>"},
    {"PrivateForm", "<form action='qvh:did=7'><button>go</button></form>"},
    {"Frames", "<iframe src='%1frame'></iframe><iframe srcdoc='<script>" RAN "</script>'></iframe>"
               "<object data='%1o'></object><embed src='%1e'>"},
    {"Refresh",
     "<meta http-equiv=refresh content='0;url=%1r'>"
     "<meta http-equiv=refresh content='0;url=qvh:did=7'><base href='%1'>"},
    {"Media", "<audio src='%1a.mp3' autoplay></audio><video src='%1v.mp4' autoplay></video>"},
    {"LinkToTheWeb", "<a href='%1go' target=_blank ping='%1ping'>go</a>"},
    {"LinkToAScript", "<a href='javascript:" RAN "'>go</a>"},
    {"LinkToAFile", "<a href='file:///etc/passwd'>go</a>"},
    {"LinkToData", "<a href='data:text/html,<script>1</script>'>go</a>"},
    {"LinkToAnApplication", "<a href='tel:10086'>go</a><a href='mailto:a@b'>mail</a>"},
    {"LinkToABlankPage", "<a href='about:blank'>go</a>"},
    {"LinkToTheBrowsersPages", "<a href='chrome://settings'>go</a>"},
    {"LinkToASource", "<a href='view-source:%1'>go</a>"},
    {"LinkToAServerOfFiles", "<a href='ftp://127.0.0.1/x'>go</a>"},
    {"LinkWithoutAScheme", "<a href='//127.0.0.1/x'>go</a>"},
    {"LinkIntoTheProgram", "<a href='qrc:/views/contact.html'>go</a>"},
    {"Blob", "<a href='blob:null/1'>go</a>"},
    {"Download", "<a href='%1x.exe' download>go</a>"},
    {"PrivateLink", "<a href='qvh:did=7'>go</a><a href='qvh:vid=7'>read</a>"},
    {"PrivateLinkInEntities", "<b><a href='&#113;vh&colon;did=7'>go</b>"},
    {"PrivateLinkLeftOpen", "<a href='qvh:did=7'>go"},
    {"PrivateLinkOverAll",
     "<a href='qvh:did=7' style='position:fixed;top:0;left:0;width:100%;height:100%'>go</a>"},
    {"BlocksOfTheProgram",
     "</a></p></li><li><span class=tool><a href='qvh:did=7'>x</a> </span><p class=text>"
     "<a href='qvh:did=7'>go</a></p></li><li>"},
    {"MessagesOfTheProgram",
     "</dd></dl></li></ul></div><div class=entry><a href='qvh:did=7'>go</a>"},
    {"PrivateMap",
     "<img usemap='#m' src='w_os.gif' width=80 height=40><map name=m>"
     "<area shape=default href='qvh:did=7'></map>"},
    {"BrokenMarkup", "</p></li></ul></body></html><plaintext><!-- <script>" RAN "</script>"},
};

// A web server's address: whoever connects is seen.
class Bait {
  public:
    [[nodiscard]] bool Listening() const { return listener_.IsOpen(); }
    [[nodiscard]] std::string Url() const {
        return "http://127.0.0.1:" + std::to_string(listener_.Port()) + "/";
    }
    // Whether anybody has connected.
    [[nodiscard]] bool Taken() const { return listener_.Accept().IsOpen(); }

  private:
    TcpListener listener_ = TcpListener::On(0);
};

class HostileMessage : public PageTest, public testing::WithParamInterface<Hostile> {
  protected:
    static constexpr std::uint32_t kListed = 8;  // the texts speak of 7

    void SetUp() override {
        ASSERT_TRUE(bait_.Listening());
        text_ = "<b>shown</b>" + ReplaceAll(GetParam().text, "%1", bait_.Url());
        agent_.AnswerNoData(AgentCommand::listGroupNames);
        agent_.AnswerNoData(AgentCommand::listGroupMembers);
        agent_.AnswerPayload(
            AgentCommand::listConversations,
            ConversationsPayload({{.id = kListed, .name = text_, .text = text_}}).Get());
        agent_.AnswerPayload(
            AgentCommand::readConversation,
            MessagesPayload({{.address = text_, .text = text_}, {.incoming = 0, .text = text_}})
                .Get());
    }

    static bool IsShown(const CHtmlCtrlBase& view) {
        return AskHtml(view, QStringLiteral("document.querySelector('foreign-text b')?.innerText"))
                   .toString() == QStringLiteral("shown");
    }
    // Where the texts that the selector finds show something.
    static QList<QPoint> Places(const CHtmlCtrlBase& view, const char* texts) {
        const QVariantList middles =
            AskHtml(view, QStringLiteral("[...document.querySelectorAll('%1')].flatMap(t => ["
                                         "t, ...t.querySelectorAll('*')])"
                                         ".map(e => e.getClientRects()[0]).filter(r => r)"
                                         ".map(r => [r.x + r.width / 2, r.y + r.height / 2])")
                              .arg(QLatin1String(texts)))
                .toList();
        QList<QPoint> places;
        for (const QVariant& middle : middles) {
            places.append({middle.toList()[0].toInt(), middle.toList()[1].toInt()});
        }
        return places;
    }
    static void Click(const CHtmlCtrlBase& view, const QPoint& at, Qt::MouseButton button) {
        ClickHtmlAt(view, at, button);
    }
    void ExpectUnharmed(const CHtmlCtrlBase& view, int resource) {
        EXPECT_TRUE(WaitFor([&] { return IsShown(view); }));
        EXPECT_EQ(AskHtml(view, QStringLiteral("document.querySelectorAll('foreign-text :is("
                                               "[href], [style], [usemap], [action])').length"))
                      .toInt(),
                  0);
        EXPECT_FALSE(
            AskHtml(view, QStringLiteral("document.documentElement.hasAttribute('ran')")).toBool());
        EXPECT_EQ(view.Browser()->url().adjusted(QUrl::RemoveFragment), TemplateUrl(resource));
        EXPECT_FALSE(bait_.Taken());
    }

    Bait bait_;
    std::string text_;
    ScriptedAgent agent_;
};

// The text stands in the link of its own conversation, which is what a click on it opens.
TEST_P(HostileMessage, InTheListDoesNothingButWhatItsConversationDoes) {
    CSmsPage page(host_, services_.At(agent_.Port()));
    page.resize(760, 462);
    page.show();
    page.Load();
    auto& view = *FindControl<CHtmlCtrlBase>(&page, 1361);
    ASSERT_TRUE(WaitFor([&] { return view.Browser() != nullptr && IsShown(view); }));
    const QList<QPoint> places = Places(view, "#sms_ul .text foreign-text");
    ASSERT_FALSE(places.empty());
    Click(view, places.front(), Qt::MiddleButton);
    Click(view, places.front(), Qt::LeftButton);
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::readConversation).empty(); }));
    EXPECT_EQ(agent_.Requests(AgentCommand::readConversation)[0], ReadConversationRequest(kListed));
    EXPECT_TRUE(agent_.Requests(AgentCommand::deleteConversation).empty());
    ExpectUnharmed(view, kConversationsTemplate);
}

TEST_P(HostileMessage, InAConversationDoesNothing) {
    const QPointer dialog = new CSmsComposeDlg(host_, kListed, nullptr, agent_.Port());
    dialog->Open();
    ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::listGroupMembers).empty(); }));
    auto& view = *FindControl<CHtmlCtrlBase>(dialog, 1359);
    ASSERT_TRUE(WaitFor([&] { return IsShown(view); }));
    for (const QPoint& at : Places(view, "dd > foreign-text")) {
        Click(view, at, Qt::LeftButton);
        Click(view, at, Qt::MiddleButton);
    }
    ExpectUnharmed(view, kConversationTemplate);
    delete dialog;
}

INSTANTIATE_TEST_SUITE_P(All, HostileMessage, testing::ValuesIn(kHostile),
                         [](const auto& hostile) { return std::string(hostile.param.name); });

class LongMessage : public PageTest {
  protected:
    static constexpr std::size_t kMegabyte = 1 << 20;

    LongMessage() {
        agent_.AnswerPayload(AgentCommand::listConversations,
                             ConversationsPayload({{.name = text_, .text = text_}}).Get());
        agent_.AnswerPayload(AgentCommand::readConversation,
                             MessagesPayload({{.address = text_, .text = text_}}).Get());
    }
    // Waits until the element holds that many characters.
    static bool Holds(const CHtmlCtrlBase& view, const char* selector, std::size_t characters) {
        return WaitFor([&] {
            return view.Browser() != nullptr &&
                   AskHtml(view, QStringLiteral("document.querySelector('%1')?.textContent.length")
                                     .arg(QLatin1String(selector)))
                           .toULongLong() == characters;
        });
    }

    const std::string text_ = std::string(kMegabyte, 'm');
    ScriptedAgent agent_;
};

TEST_F(LongMessage, OfAMegabyteIsShownWholeInTheList) {
    CSmsPage page(host_, services_.At(agent_.Port()));
    page.resize(760, 462);
    page.show();
    page.Load();
    EXPECT_TRUE(Holds(*FindControl<CHtmlCtrlBase>(&page, 1361), "#sms_ul .text > a", kMegabyte));
}

TEST_F(LongMessage, OfAMegabyteIsShownWholeInAConversation) {
    const QPointer dialog = new CSmsComposeDlg(host_, 7, nullptr, agent_.Port());
    dialog->Open();
    constexpr std::size_t kCaption = 4;  // 对您说：
    EXPECT_TRUE(
        Holds(*FindControl<CHtmlCtrlBase>(dialog, 1359), ".remote dd", kMegabyte + kCaption));
    delete dialog;
}

}  // namespace
}  // namespace quorvi
