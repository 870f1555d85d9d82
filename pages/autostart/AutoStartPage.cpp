#include "pages/autostart/AutoStartPage.h"

#include <QVBoxLayout>
#include <utility>

#include "pages/autostart/AutoStartModel.h"
#include "pages/kit/PageSession.h"
#include "pages/kit/ViewSentences.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinTree.h"
#include "ui/list/TreeFind.h"
#include "ui/page/PageKeys.h"

namespace quorvi {
namespace {

constexpr int kTree = 1184;

}  // namespace

CAutoStartPage::CAutoStartPage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      agent_(services.agent),
      load_(*this, host.LoadState(), kNumbers.loadKey),
      tree_(SetControlNumber(new SkinTreeView(this), kTree, ToQString(u8"自启动项"))),
      model_(new AutoStartModel(tree_)) {
    tree_->setModel(model_);
    SayWhenEmpty(tree_->Status(), u8"手机上没有自启动项，或者还没有获取");
    SayWhenFailed(tree_->Status(), u8"刷新自启动项");
    new TreeFind(*tree_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(tree_);
    HeedKeys(*this, {.refresh = [this] { Refresh(); }});
}

void CAutoStartPage::RunCommand(int index) {
    switch (index) {
        case commandRefresh:
            Refresh();
            break;
        case commandExpandAll:
            ExpandAll();
            break;
        case commandCollapseAll:
            CollapseAll();
            break;
        default:
            break;
    }
}

void CAutoStartPage::Refresh() {
    load_.Start(
        [this] {
            model_->Set({});
            tree_->SetRedraw(false);
            tree_->Status().Set(ListState::loading);
        },
        [tree = tree_, agent = agent_](const LoadProgress& progress) {
            return FetchAutoStart(AgentSession(agent), ProgressTo(progress, tree));
        },
        [this](AutoStartReply&& reply) { Show(std::move(reply)); });
}

void CAutoStartPage::Show(AutoStartReply&& reply) {
    ShowLoadOutcome(Host(), reply.outcome);
    TellOfUnknown(reply.list);
    const bool connected = reply.outcome != SessionOutcome::connectFailed;
    tree_->Status().Set(connected ? ListState::idle : ListState::failed);
    const bool broke = reply.outcome == SessionOutcome::noReply ||
                       reply.outcome == SessionOutcome::receiveFailed || reply.list.endedByMark;
    model_->Set(std::move(reply.list.groups));
    if (!broke) {
        tree_->SetRedraw(true);
    }
}

void CAutoStartPage::TellOfUnknown(const AutoStartList& list) {
    if (!unknown_.isEmpty()) {
        Host().TakeBackStatus(unknown_);
        unknown_.clear();
    }
    if (list.unknownEvent) {
        unknown_ = ToQString(UnknownEventText(*list.unknownEvent));
        Host().SetStatus(unknown_);
    }
}

void CAutoStartPage::ExpandAll() {
    tree_->ExpandTop();
}

void CAutoStartPage::CollapseAll() {
    tree_->CollapseTop();
}

}  // namespace quorvi
