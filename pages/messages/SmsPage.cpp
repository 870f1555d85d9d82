#include "pages/messages/SmsPage.h"

#include <QLocale>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "agent/AgentSession.h"
#include "pages/kit/KeptDelete.h"
#include "pages/kit/PageSession.h"
#include "pages/kit/ViewSentences.h"
#include "pages/messages/Conversations.h"
#include "pages/messages/ViewFind.h"
#include "ui/html/HtmlFrame.h"
#include "ui/html/HtmlTemplate.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinMenu.h"
#include "ui/page/PageKeys.h"

namespace quorvi {
namespace {

constexpr int kView = 1361;

// First arguments of Message::conversation.
enum { conversationView = 0, conversationDelete = 1 };

enum MenuCommand { menuView = 1, menuDelete, menuExportOne };

}  // namespace

struct CSmsPage::Loaded {
    SessionOutcome outcome;
    std::vector<Conversation> conversations;  // of which the fragment has been set, if any
};

CSmsPage::CSmsPage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      agent_(services.agent),
      attribution_(services.attribution),
      load_(*this, host.LoadState(), kNumbers.loadKey),
      view_(new CHtmlCtrlFix(kView, HtmlContent::local, *this, this)),
      frame_(new HtmlFrame(*view_, this)),
      find_(
          new ViewFind(*frame_, *view_,
                       {.list = "sms_ul",
                        .by = ToQString(u8"姓名、号码、看过的短信"),
                        .name = ToQString(u8"在会话中查找"),
                        .scroll = HtmlScroll::top,
                        .texts = {{".sender a", FindKind::name}, {".text > a", FindKind::text}}})),
      transfers_(host, *this, FileKind::messages,
                 {.write =
                      [agent = agent_, attribution = attribution_](
                          const std::filesystem::path& file, const TransferWatch& watch) {
                          return ExportMessages(agent, attribution, std::nullopt, file, watch);
                      }}),
      read_(services.device),
      numbers_(host, services),
      toWriteTo_(services.numbersToWriteTo) {
    view_->setAccessibleName(ToQString(u8"短信会话"));
    view_->LoadFromResource(kConversationsTemplate);
    SayWhenFailed(*frame_, u8"刷新列表");
    HeedKeys(*this,
             {.refresh = [this] { RefreshSms(); }, .add = [this] { Compose(kNoConversation); }});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(frame_);
}

void CSmsPage::RefreshSms() {
    load_.Start([this] { frame_->SetState(ListState::loading); },
                [agent = agent_, attribution = attribution_, frame = frame_,
                 document = view_->Document()](const LoadProgress& progress) {
                    ConversationListReply reply = FetchConversations(
                        AgentSession(agent), attribution, ProgressTo(progress, frame));
                    if (!reply.conversations.empty()) {
                        document.SetInnerHtml("sms_ul", ConversationsFragment(reply.conversations),
                                              HtmlScroll::top);
                    }
                    return Loaded{reply.outcome, std::move(reply.conversations)};
                },
                [this](Loaded&& loaded) { ShowLoaded(std::move(loaded)); });
}

void CSmsPage::ShowLoaded(Loaded loaded) {
    const bool connected = loaded.outcome != SessionOutcome::connectFailed;
    ShowLoadOutcome(Host(), loaded.outcome);
    if (!loaded.conversations.empty()) {
        shown_ = std::move(loaded.conversations);
        ShowFound();
        SetCountLine(ToQString(u8"共 %1 项")
                         .arg(QLocale(QLocale::Chinese).toString(qulonglong{shown_.size()})));
        frame_->SetFilled();
    }
    frame_->SetState(connected ? ListState::idle : ListState::failed);
}

void CSmsPage::ShowFound() {
    find_->SetRows([this] { return IndexOfConversations(shown_, read_.Here()); });
}

void CSmsPage::Remember(ReadTexts& read, std::uint32_t conversation,
                        const std::vector<ConversationMessage>& messages) {
    if (messages.empty()) {
        return;
    }
    std::vector<std::string>& texts = read[conversation];
    texts.clear();
    for (const ConversationMessage& message : messages) {
        texts.push_back(message.text);
    }
    ShowFound();
}

void CSmsPage::RunCommand(int index) {
    switch (index) {
        case commandRefresh:
            RefreshSms();
            break;
        case commandCompose:
            Compose(kNoConversation);
            break;
        default:
            break;
    }
}

void CSmsPage::OnAppCmd(const std::string& text) {
    if (const auto link = ReadConversationLink(text)) {
        OnMessage(
            Message::conversation,
            link->action == ConversationLink::Action::view ? conversationView : conversationDelete,
            static_cast<int>(link->id));
    }
}

void CSmsPage::OnDelete(const std::string& text) {
    if (const auto link = ReadConversationLink(text)) {
        OnMessage(Message::conversation, conversationDelete, static_cast<int>(link->id));
    }
}

void CSmsPage::OnMenu(const std::string& text, const QPoint& at) {
    if (isEnabled()) {
        const auto link = ReadConversationLink(text);
        OpenMenu(link ? link->id : kNoConversation, at);
    }
}

void CSmsPage::OpenMenu(std::uint32_t conversation, const QPoint& at) {
    auto* menu = new CSkinMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->SetStrip(QStringList{QStringLiteral("message-read"), QStringLiteral("delete"),
                               QStringLiteral("save")} +
                   NumberMenu::Icons() + FileTransfers::Icons());
    const std::string number = Shown(conversation).number;
    if (conversation != kNoConversation) {
        menu->AddItem(CSkinMenu::normal, menuView, 0, ToQString(u8"查看会话"));
        menu->AddItem(CSkinMenu::normal, menuDelete, 1, ToQString(u8"删除会话"));
        menu->AddItem(transfers_.AtWork() ? CSkinMenu::disabled : CSkinMenu::normal, menuExportOne,
                      2, ToQString(u8"导出会话…"));
        menu->addSeparator();
        NumberMenu::AddItems(*menu, 3, number);
    }
    transfers_.AddItems(*menu, 3 + static_cast<int>(NumberMenu::Icons().size()));
    connect(menu, &CSkinMenu::commandChosen, this, [this, conversation, number](int command) {
        if (isEnabled() && !numbers_.Take(command, number)) {
            TakeFromMenu(command, conversation);
        }
    });
    menu->popup(at);
}

void CSmsPage::TakeFromMenu(int command, std::uint32_t conversation) {
    if (transfers_.Take(command)) {
        return;
    }
    switch (command) {
        case menuView:
            Compose(conversation);
            break;
        case menuDelete:
            Delete(conversation);
            break;
        case menuExportOne: {
            const Conversation one = Shown(conversation);
            transfers_.AskAndExport(
                ToQString(u8"短信 ") + AsFileName(one.name.empty() ? one.number : one.name),
                [agent = agent_, attribution = attribution_, conversation](
                    const std::filesystem::path& file, const TransferWatch& watch) {
                    return ExportMessages(agent, attribution, conversation, file, watch);
                });
            break;
        }
        default:
            break;
    }
}

Conversation CSmsPage::Shown(std::uint32_t conversation) const {
    if (const auto shown = std::ranges::find(shown_, conversation, &Conversation::id);
        shown != shown_.end()) {
        return *shown;
    }
    Conversation unknown;
    unknown.id = conversation;
    return unknown;
}

void CSmsPage::OnMessage(Message message, int first, int second) {
    if (message == Message::takeNumber) {
        if (const auto number = toWriteTo_.Take()) {
            WriteTo(*number);
        }
        return;
    }
    if (message != Message::conversation || !isEnabled()) {
        return;
    }
    const auto id = static_cast<std::uint32_t>(second);
    if (first == conversationView) {
        Compose(id);
    } else if (first == conversationDelete) {
        Delete(id);
    }
}

void CSmsPage::Compose(std::uint32_t conversation) {
    auto* composer = new CSmsComposeDlg(Host(), conversation, this, agent_);
    ReadTexts& read = read_.Here();  // another phone may be selected by then
    connect(composer, &QDialog::finished, this, [this, composer, &read, conversation] {
        Remember(read, conversation, composer->Messages());
    });
    OpenComposer(composer, unsent_, conversation);
}

void CSmsPage::WriteTo(const std::string& number) {
    auto* composer = new CSmsComposeDlg(Host(), kNoConversation, this, agent_);
    composer->WriteTo(number);
    OpenComposer(composer, unsentTo_, number);
}

template <typename Key>
void CSmsPage::OpenComposer(CSmsComposeDlg* composer, std::map<Key, UnsentMessage>& unsent,
                            const Key& key) {
    if (const auto message = unsent.extract(key)) {
        composer->Resume(message.mapped());
    }
    composer->Open([this, composer, &unsent, key](int result) {
        if (composer->Unsent()) {
            unsent[key] = *composer->Unsent();
        } else if (composer->SentTo() > 0) {
            Host().SetStatus(ToQString(u8"已发送给 %1 人").arg(composer->SentTo()));
        }
        // A page that has not been shown yet loads when it is.
        if (result == QDialog::Accepted &&
            (isVisible() || Host().LoadState().Contains(kNumbers.loadKey))) {
            RefreshSms();
        }
    });
}

// Kept on purpose: it asks nothing before, unlike the deletes of the lists, unless the conversation
// cannot be kept on the PC (test SmsPage.ADeleteLinkDeletesWithoutAQuestionAndLoadsAgain).
void CSmsPage::Delete(std::uint32_t conversation) {
    if (conversation == kNoConversation) {
        RefreshSms();
        return;
    }
    const Going going{std::vector{Shown(conversation)}};
    SendKeptDelete({.host = Host(),
                    .window = *this,
                    .controls = *this,
                    .agent = agent_,
                    .find = [going](AgentAddress) { return going; },
                    .request = DeleteConversationRequest(conversation),
                    .done =
                        [this, conversation, &read = read_.Here()](const AcknowledgedReply& reply) {
                            if (reply.outcome == SessionOutcome::complete) {
                                read.erase(conversation);
                                Host().SetStatus(ToQString(u8"已删除 1 个会话"));
                            }
                            RefreshSms();
                        }});
}

}  // namespace quorvi
