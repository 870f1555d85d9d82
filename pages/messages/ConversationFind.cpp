#include "pages/messages/ConversationFind.h"

#include <QLocale>
#include <optional>
#include <string_view>
#include <vector>

#include "pages/messages/ConversationIndex.h"
#include "ui/html/HtmlCtrl.h"
#include "ui/html/HtmlFrame.h"
#include "ui/kit/FindBar.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

constexpr std::string_view kList = "sms_ul";

}  // namespace

ConversationFind::ConversationFind(HtmlFrame& frame, CHtmlCtrlBase& view)
    : QObject(&frame),
      frame_(frame),
      view_(view),
      bar_(new FindBar(view, ToQString(u8"姓名、号码或短信内容"), &frame)) {
    frame_.SetBar(*bar_);
    connect(bar_, &FindBar::openAsked, this, &ConversationFind::Open);
    connect(bar_, &FindBar::typed, this, &ConversationFind::Narrow);
    connect(bar_, &FindBar::closeAsked, this, &ConversationFind::Close);
    connect(bar_, &FindBar::listAsked, this, &ConversationFind::GoToView);
}

bool ConversationFind::IsOpen() const {
    return bar_->IsOpen();
}

void ConversationFind::Open() {
    if (!IsOpen()) {
        ReadConversations();  // now, so that no key has to wait for it
        bar_->SetOpen(true);
    }
    bar_->TakeFocus();
}

void ConversationFind::Close() {
    if (!IsOpen()) {
        return;
    }
    bar_->SetOpen(false);
    bar_->SetText({});  // shows all conversations again
    index_.Clear();
    GoToView();
}

void ConversationFind::SetConversations(std::span<const Conversation> conversations) {
    conversations_ = conversations;
    if (IsOpen()) {
        ReadConversations();
        Narrow();
    }
}

void ConversationFind::ReadConversations() {
    index_ = IndexOfConversations(conversations_);
}

void ConversationFind::Narrow() {
    const QString typed = bar_->Text();
    const QStringView units(typed);
    const FindQuery query({units.utf16(), static_cast<std::size_t>(units.size())});
    if (query.IsEmpty()) {
        bar_->SetCount({});
        frame_.SetNothingFound({});
        view_.ShowChildren(kList, std::nullopt);
        return;
    }
    const std::vector<int> found = index_.Find(query);
    const QString count = QLocale(QLocale::Chinese).toString(static_cast<int>(found.size()));
    // A list that is on its way has nothing to count.
    const bool none = conversations_.empty();
    bar_->SetCount(none ? QString() : ToQString(u8"找到 %1 项").arg(count));
    frame_.SetNothingFound(!none && found.empty() ? ToQString(u8"没有找到“%1”").arg(typed.trimmed())
                                                  : QString());
    view_.ShowChildren(kList, found);
}

void ConversationFind::GoToView() {
    view_.setFocus(Qt::OtherFocusReason);
}

}  // namespace quorvi
