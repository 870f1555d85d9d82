#include "pages/messages/SmsComposeDlg.h"

#include <QGridLayout>
#include <QShortcut>
#include <QVBoxLayout>
#include <utility>

#include "pages/kit/PageSession.h"
#include "pages/kit/ViewSentences.h"
#include "pages/messages/ConversationIndex.h"
#include "pages/messages/OutgoingMessage.h"
#include "pages/messages/RecipientLine.h"
#include "pages/messages/ViewFind.h"
#include "ui/html/HtmlFrame.h"
#include "ui/html/HtmlTemplate.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"
#include "ui/kit/SkinTree.h"
#include "ui/list/TreeFind.h"
#include "ui/look/Theme.h"

namespace quorvi {

using look::ButtonKind;
using look::Color;
using look::Metric;
using look::Size;

namespace {

constexpr int kDialog = 550;
constexpr int kView = 1359;
constexpr int kTree = 1338;
constexpr int kRecipients = 1337;
constexpr int kText = 1271;
constexpr int kSend = 1030;
constexpr int kCancel = 1021;

// The number of a member's node stands behind the last bracket of its text.
QString SearchedMember(const QString& text) {
    const qsizetype bracket = text.lastIndexOf(u'[');
    return text.left(bracket) + u'\n' + text.mid(bracket);
}

std::vector<TreeNode> NodesOf(const GroupNames& names, const GroupMembers& members) {
    std::vector<TreeNode> nodes;
    for (const RecipientGroup& group : RecipientTree(names, members)) {
        TreeNode& node = nodes.emplace_back(TreeNode{.text = ToQString(group.text)});
        // A null title would be searched by the node's text, in which the count stands.
        node.find = group.title.empty() ? QStringLiteral("") : ToQString(group.title);
        for (const std::string& member : group.members) {
            const QString text = ToQString(member);
            node.children.push_back({.text = text, .find = SearchedMember(text)});
        }
    }
    return nodes;
}

}  // namespace

CSmsComposeDlg::CSmsComposeDlg(PageHost& host, std::uint32_t conversation, QWidget* parent,
                               AgentAddress agent)
    : SkinDialog(kDialog, ToQString(u8"编写短信 - Quorvi"), parent),
      host_(host),
      conversation_(conversation),
      agent_(agent) {
    BuildControls();
    connect(view_, &CHtmlCtrlBase::documentLoaded, this,
            [this] { PostToWindow(this, [this] { OnMessage(Message::documentLoaded, 0); }); });
    connect(recipients_, &QLineEdit::textEdited, this, &CSmsComposeDlg::TidyTyped);
    connect(recipients_, &QLineEdit::textChanged, this, [this] {
        ResolveRecipient();
        ShowRecipients();
    });
    connect(text_, &QPlainTextEdit::textChanged, this, &CSmsComposeDlg::ShowLength);
    connect(tree_, &CSkinTree::ticksChanged, this, &CSmsComposeDlg::TakeTicked);
    connect(send_, &QAbstractButton::clicked, this, &CSmsComposeDlg::Send);
    AskBeforeEscape([this] { return WouldLose(); });
    ShowLength();
    view_->LoadFromResource(kConversationTemplate);
}

void CSmsComposeDlg::BuildControls() {
    tree_ = SetControlNumber(new CSkinTree(Body(), CSkinTree::Ticks::each), kTree,
                             ToQString(u8"联系人"));
    tree_->setFixedWidth(Metric::composerTree);
    tree_->Status().SetEmptyText(ToQString(u8"没有联系人"), ToQString(u8"可以直接输入收件人号码"));
    SayWhenFailed(tree_->Status(), {});
    tree_->Status().Set(ListState::loading);
    treeFind_ = new TreeFind(*tree_);

    view_ = new CHtmlCtrlFix(kView, HtmlContent::local, *this, Body());
    view_->setAccessibleName(ToQString(u8"短信对话"));
    view_->StayAtEnd();  // below it the recipients take more room or less
    frame_ = new HtmlFrame(*view_, Body());
    frame_->ShowFocus();
    if (conversation_ == kNoConversation) {
        frame_->SetFilled();  // with the template's own word
    } else {
        find_ = new ViewFind(*frame_, *view_,
                             {.list = "conversation_list",
                              .by = ToQString(u8"短信内容"),
                              .name = ToQString(u8"在短信对话中查找"),
                              .scroll = HtmlScroll::end,
                              .texts = {{"dd", FindKind::text}}});
        find_->LeaveKey();
        treeFind_->LeaveKey();
        auto* key = new QShortcut(QKeySequence::Find, this);
        connect(key, &QShortcut::activated, this, &CSmsComposeDlg::Find);
    }

    const QString recipients = ToQString(u8"收件人:");
    recipients_ = SetControlNumber(new CSkinEdit({}, Body()), kRecipients, recipients);
    const QString text = ToQString(u8"发送内容");
    text_ = SetControlNumber(new SkinTextEdit({}, Body()), kText, text);
    text_->setFixedHeight(Metric::composerText);

    length_ = new QLabel(Body());
    length_->setObjectName(QStringLiteral("messageLength"));
    length_->setFont(look::font(Size::s12));
    length_->setAlignment(Qt::AlignRight | Qt::AlignTop);
    length_->setTextFormat(Qt::PlainText);
    look::SetPaletteColor(*length_, QPalette::WindowText, Color::ink2);

    auto* captions = new QVBoxLayout;
    captions->setSpacing(0);
    captions->addWidget(new FormCaption(text, Body()));
    captions->addWidget(length_, 1);
    auto* grid = new QGridLayout(Body());
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(Metric::formGap);
    grid->setVerticalSpacing(Metric::formGap);
    grid->addWidget(tree_, 0, 0, 3, 1);
    grid->addWidget(frame_, 0, 1, 1, 2);
    line_ = new RecipientLine(Body());
    auto* toWhom = new QVBoxLayout;
    toWhom->setSpacing(Metric::recipientGap);
    toWhom->addWidget(recipients_);
    toWhom->addWidget(line_);
    grid->addWidget(new FormCaption(recipients, Body()), 1, 1, Qt::AlignTop);
    grid->addLayout(toWhom, 1, 2);
    grid->addLayout(captions, 2, 1);
    grid->addWidget(text_, 2, 2, Qt::AlignTop);
    grid->setRowStretch(0, 1);
    grid->setColumnStretch(2, 1);

    // Enter in a field must not send: a message cannot be called back.
    send_ = AddButton(kSend, ToQString(u8"立即发送"), ButtonKind::primary);
    send_->SetImage(QStringLiteral("send"));
    send_->setAutoDefault(false);
    cancel_ = AddEndButton(kCancel, ToQString(u8"取消发送"), QDialog::Rejected);
    cancel_->setAutoDefault(false);
    state_ = AddState({});
    SetInnerSize({Metric::composerWidth, Metric::composerHeight});
    if (conversation_ == kNoConversation) {
        recipients_->setFocus();
    } else {
        text_->setFocus();
    }
}

void CSmsComposeDlg::OnMessage(Message message, int first) {
    if (message != Message::documentLoaded || first != 0) {
        return;
    }
    if (conversation_ == kNoConversation) {
        ReadTree();
    } else {
        ReadConversation();
    }
}

// ---- the conversation --------------------------------------------------------------------------

void CSmsComposeDlg::ReadConversation() {
    frame_->SetState(ListState::loading);
    recipients_->setEnabled(false);  // the party of the conversation comes to stand there
    RunJob(
        this,
        [agent = agent_, id = conversation_, document = view_->Document()] {
            ConversationReply reply = FetchConversation(AgentSession(agent), id);
            if (!reply.messages.empty()) {
                document.SetInnerHtml("conversation_list", ConversationFragment(reply.messages),
                                      HtmlScroll::end);
            }
            return reply;
        },
        [this](ConversationReply&& reply) {
            ShowConversation(std::move(reply));
            ReadTree();
        });
}

// The fragment of its messages is in the view by now.
void CSmsComposeDlg::ShowConversation(ConversationReply&& reply) {
    frame_->SetFilled();
    frame_->SetState(ListState::idle);
    recipients_->setEnabled(true);
    ShowLoadOutcome(host_, reply.outcome);
    if (!reply.messages.empty()) {
        messages_ = std::move(reply.messages);
        find_->SetRows([this] { return IndexOfMessages(messages_); });
        recipients_->setText(ToShownQString(
            ConversationParty(messages_)));  // cut where it is too long for any number
    }
}

// One bar at a time, so that Escape closes that.
void CSmsComposeDlg::Find() {
    const QWidget* at = focusWidget();
    if (at != nullptr && (at == tree_ || tree_->isAncestorOf(at))) {
        find_->Close();
        treeFind_->Open();
    } else {
        treeFind_->Close();
        find_->Open();
    }
}

// ---- the tree ----------------------------------------------------------------------------------

void CSmsComposeDlg::ReadTree() {
    RunJob(
        this, [agent = agent_] { return FetchGroupTree(AgentSession(agent)); },
        [this](GroupTree&& tree) { ShowTree(std::move(tree)); });
}

void CSmsComposeDlg::ShowTree(GroupTree&& tree) {
    ShowLoadOutcome(host_, tree.outcome);
    tree_->Status().Set(tree.connected ? ListState::idle : ListState::failed);
    members_ = std::move(tree.members);
    if (!tree.complete) {
        return;
    }
    tree_->SetNodes(NodesOf(tree.names, members_));
    if (QTreeWidgetItem* first = tree_->topLevelItem(0)) {
        first->setExpanded(true);
    }
    ResolveRecipient();
    ShowRecipients();
}

// ---- recipients --------------------------------------------------------------------------------

void CSmsComposeDlg::TidyTyped(const QString& text) {
    picked_ = true;
    const std::string typed = FromQString(text);
    const std::string tidy = WithOwnSeparators(typed);
    if (tidy != typed) {
        const std::string beforeCursor = FromQString(text.left(recipients_->cursorPosition()));
        recipients_->setText(ToQString(tidy));
        recipients_->setCursorPosition(
            static_cast<int>(ToQString(WithOwnSeparators(beforeCursor)).size()));
    }
}

void CSmsComposeDlg::ResolveRecipient() {
    if (resolving_) {
        return;
    }
    const auto entry = quorvi::ResolveRecipient(FromQString(recipients_->text()), members_);
    if (entry) {
        resolving_ = true;  // an entry is not resolved again, whatever a contact's number is
        recipients_->setText(ToQString(*entry));
        resolving_ = false;
    }
}

RecipientList CSmsComposeDlg::ToWhom() const {
    return ReadRecipients(FromQString(recipients_->text()));
}

void CSmsComposeDlg::ShowRecipients() {
    line_->Show(ToWhom(), members_);
}

// What was typed by hand is lost. Kept on purpose: the ticks are the whole list of recipients (test
// Composer.TicksRebuildTheRecipientsFromNothing).
void CSmsComposeDlg::TakeTicked() {
    picked_ = true;
    std::string entries;
    for (int i = 0; i < tree_->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* group = tree_->topLevelItem(i);
        for (int k = 0; k < group->childCount(); ++k) {
            const QTreeWidgetItem* member = group->child(k);
            if (tree_->IsTicked(member)) {
                entries += RecipientOfNode(FromQString(member->text(0)));
            }
        }
    }
    recipients_->setText(ToQString(entries));
}

// ---- the message -------------------------------------------------------------------------------

void CSmsComposeDlg::ShowLength() {
    const QString typed = text_->toPlainText();
    const std::string text = FromQString(typed);
    const MessageLength length = MeasureMessage(text);
    length_->setText(ToQString(u8"%1 字\n%2 条短信").arg(length.characters).arg(length.messages));
    length_->setToolTip(ToQString(u8"还可以写 %1 字，再多就要增加一条短信").arg(length.left));
    state_->SetState(CSkinStateLabel::kRed,
                     FitsCodePage(typed) ? QString() : ToQString(kMessageCharactersLost));
}

bool CSmsComposeDlg::WouldLose() const {
    return !text_->document()->isEmpty() || (picked_ && !recipients_->text().isEmpty());
}

void CSmsComposeDlg::WriteTo(const std::string& number) {
    recipients_->setText(ToShownQString(number));
    text_->setFocus();
}

void CSmsComposeDlg::Resume(const UnsentMessage& message) {
    picked_ = true;
    recipients_->setText(message.recipients);
    text_->SetText(message.text);
    text_->moveCursor(QTextCursor::End);
    ForgetUnacknowledged(host_);
    state_->SetState(CSkinStateLabel::kBlue, ToQString(u8"上次的短信没有得到手机的确认"));
}

void CSmsComposeDlg::Send() {
    const RecipientList list = ToWhom();
    if (text_->document()->isEmpty() || list.recipients.empty()) {
        return;
    }
    const QString question = FaultQuestion(list);
    if (question.isEmpty()) {
        SendNow();
        return;
    }
    AskForConsent(this, question, ToQString(u8"仍然发送"), ToQString(u8"返回修改"),
                  ButtonKind::plain, [this] { SendNow(); });
}

void CSmsComposeDlg::SendNow() {
    const std::string text = FromQString(text_->toPlainText());
    const std::vector<std::string> numbers = RecipientNumbers(FromQString(recipients_->text()));
    sentTo_ = numbers.size();
    // The message cannot be called back from here on, so the dialog ends with Accepted even if the
    // user closes it now.
    EndWithOk();
    send_->setEnabled(false);
    cancel_->setEnabled(false);
    state_->SetState(CSkinStateLabel::kBlue, ToQString(u8"正在发送…"));
    unsent_ = {recipients_->text(), text_->toPlainText()};
    SendChange(host_, *Body(), agent_, SendMessageRequest(numbers, text),
               [this](const AcknowledgedReply& reply) {
                   if (reply.outcome == SessionOutcome::complete) {
                       unsent_.reset();
                   }
                   ShowAcknowledgement(host_, reply.outcome);
                   accept();
               });
}

}  // namespace quorvi
