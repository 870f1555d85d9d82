#include "pages/help/HelpPage.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <utility>

#include "pages/kit/PageSession.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"
#include "ui/kit/SkinPanels.h"
#include "ui/page/OpenOnDesktop.h"

namespace quorvi {
namespace {

using look::Metric;

struct IdentityReply {
    SessionOutcome outcome;
    DeviceIdentity identity;
};

// An address without its scheme and the slash at its end, as people write it.
QString Spoken(const std::string& address) {
    QString spoken = QString::fromStdString(address);
    spoken.remove(0, spoken.indexOf(u':') + 1);
    while (spoken.startsWith(u'/')) {
        spoken.remove(0, 1);
    }
    while (spoken.endsWith(u'/')) {
        spoken.chop(1);
    }
    return spoken;
}

// The name of the place over its address.
QWidget* MakeLink(int number, const QString& icon, std::u8string_view caption,
                  const std::string& address) {
    auto* row = new QWidget;
    row->setFixedHeight(Metric::helpLink);
    auto* link = SetControlNumber(new SkinLink(ToQString(caption)), number, ToQString(caption));
    link->setToolTip(QString::fromStdString(address));
    QObject::connect(link, &QAbstractButton::clicked, link,
                     [address = QString::fromStdString(address)] { OpenOnDesktop(address); });
    auto* where = new RemarkLabel;
    where->setText(
        where->fontMetrics().elidedText(Spoken(address), Qt::ElideRight, Metric::helpLinkText));
    auto* words = new QVBoxLayout;
    words->setSpacing(0);
    words->addStretch();
    words->addWidget(link, 0, Qt::AlignLeft);
    words->addWidget(where);
    words->addStretch();
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins({});
    line->setSpacing(Metric::gap3);
    line->addWidget(new IconLabel(icon));
    line->addLayout(words, 1);
    return row;
}

// Fills a box in, unless the user has put something there.
void FillInEmpty(CSkinEdit& box, const QString& text) {
    if (box.text().isEmpty() && !text.isEmpty()) {
        box.setText(text);
    }
}

}  // namespace

HelpPage::HelpPage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      agent_(services.agent),
      site_(services.deployment),
      load_(*this, host.LoadState(), kNumbers.loadKey) {
    auto* halves = new QHBoxLayout(this);
    halves->setContentsMargins({});
    halves->setSpacing(Metric::gap3);
    halves->addWidget(MakeLinks());
    halves->addWidget(MakeForm(), 1);
}

QWidget* HelpPage::MakeLinks() {
    auto* group = new CSkinGroupBox(ToQString(u8"联系我们"));
    group->setFixedWidth(Metric::helpLinks);
    auto* rows = new QVBoxLayout(group);
    rows->setContentsMargins({});
    rows->setSpacing(0);
    rows->addWidget(MakeLink(kMailLink, QStringLiteral("mail"), u8"发送邮件", site_.contactMail));
    rows->addWidget(new PanelRule(Qt::Horizontal));
    rows->addWidget(MakeLink(kForumLink, QStringLiteral("forum"), u8"讨论论坛", site_.forumLink));
    rows->addWidget(new PanelRule(Qt::Horizontal));
    rows->addWidget(MakeLink(kSocialLink, QStringLiteral("group"), u8"社交主页", site_.socialLink));
    rows->addWidget(new PanelRule(Qt::Horizontal));
    rows->addWidget(MakeLink(kHelpLink, QStringLiteral("help"), u8"帮助网站", site_.helpLink));
    rows->addStretch();
    return group;
}

QWidget* HelpPage::MakeForm() {
    auto* group = new CSkinGroupBox(ToQString(u8"意见反馈"));
    auto* grid = new QGridLayout(group);
    grid->setContentsMargins({});
    grid->setHorizontalSpacing(Metric::formGap);
    grid->setVerticalSpacing(Metric::formGap);
    grid->setColumnStretch(1, 1);
    const auto add = [&](std::u8string_view caption, auto* field, int number) {
        const int row = grid->rowCount();
        auto* label = new FormCaption(ToQString(caption));
        label->setFixedWidth(Metric::helpCaption);
        grid->addWidget(label, row, 0, Qt::AlignTop);
        grid->addWidget(field, row, 1);
        return SetControlNumber(field, number, ToQString(caption));
    };
    platform_ = add(u8"涉及平台 (必选)", new CSkinCombo, kPlatform);
    platform_->addItem(ToQString(u8"Android (谷歌)"));
    platform_->addItem(ToQString(u8"Ophone (中移动)"));
    model_ = add(u8"涉及机型 (必填)", new CSkinEdit, kModel);
    firmware_ = add(u8"固件版本 (必填)", new CSkinEdit, kFirmware);
    content_ = add(u8"反馈内容 (必填)", new SkinTextEdit, kContent);
    grid->setRowStretch(grid->rowCount() - 1, 1);
    email_ = add(u8"邮件 (* 选填)", new CSkinEdit, kEmail);
    qq_ = add(u8"QQ号 (* 选填)", new CSkinEdit, kQq);

    state_ = SetControlNumber(new CSkinStateLabel, kState);
    send_ = SetControlNumber(
        new CSkinButton(ToQString(u8"发送反馈"), nullptr, look::ButtonKind::primary), kSend,
        ToQString(u8"发送反馈"));
    send_->SetImage(QStringLiteral("send"));
    send_->setFixedWidth(Metric::helpSend);
    auto* foot = new QHBoxLayout;
    foot->addWidget(state_, 1);
    foot->addWidget(send_);
    grid->addLayout(foot, grid->rowCount(), 1);
    connect(send_, &QAbstractButton::clicked, this, &HelpPage::Send);
    return group;
}

void HelpPage::Load() {
    load_.Start(
        [agent = agent_] {
            IdentityReply reply{};
            reply.outcome = ReadDeviceIdentity(AgentSession(agent), reply.identity);
            return reply;
        },
        [this](const IdentityReply& reply) {
            ShowLoadOutcome(Host(), reply.outcome);
            if (reply.outcome == SessionOutcome::complete) {
                FillIn(reply.identity);
            }
        });
}

void HelpPage::FillIn(const DeviceIdentity& identity) {
    client_ = identity.client;
    FillInEmpty(*model_, ToQString(identity.model));
    FillInEmpty(*firmware_, ToQString(AndroidVersionOf(identity.api)));
}

FeedbackForm HelpPage::Form() const {
    return {.platform = platform_->currentIndex() == 1 ? FeedbackPlatform::ophone
                                                       : FeedbackPlatform::android,
            .model = FromQString(model_->text()),
            .firmware = FromQString(firmware_->text()),
            .content = FromQString(content_->toPlainText()),
            .email = FromQString(email_->text()),
            .qq = FromQString(qq_->text())};
}

void HelpPage::Send() {
    if (sent_ >= kMostFeedbacks) {
        return;
    }
    sending_.Start(
        [this] {
            focus_.emplace(*this);
            send_->setEnabled(false);
            state_->SetState(CSkinStateLabel::kBlue, ToQString(u8"正在提交，请稍等..."));
        },
        [site = site_, form = Form(), client = client_] {
            return SendFeedback(site, form, client);
        },
        [this](FeedbackOutcome outcome) { Show(outcome); });
}

void HelpPage::Show(FeedbackOutcome outcome) {
    sent_ += WasSent(outcome) ? 1 : 0;
    state_->SetState(
        outcome == FeedbackOutcome::received ? CSkinStateLabel::kGreen : CSkinStateLabel::kRed,
        ToQString(FeedbackText(outcome)));
    send_->setEnabled(true);
    focus_->GiveBack();
}

// What a field or button has not taken: Escape closes nothing, and Enter outside the text sends
// nothing.
void HelpPage::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key != Qt::Key_Escape && key != Qt::Key_Enter && key != Qt::Key_Return) {
        Page::keyPressEvent(event);
    }
}

}  // namespace quorvi
