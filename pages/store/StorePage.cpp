#include "pages/store/StorePage.h"

#include <QVBoxLayout>

#include "online/LinkResolver.h"
#include "pages/kit/QueuePackage.h"
#include "pages/store/StoreAddress.h"
#include "ui/html/HtmlFrame.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

QString Unreachable() {
    return ToQString(u8"【X】软件商城打不开");
}

}  // namespace

StorePage::StorePage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      services_(services),
      view_(new CHtmlCtrlFix(kView, HtmlContent::web, *this, this)),
      frame_(new HtmlFrame(*view_, this)) {
    view_->setAccessibleName(ToQString(u8"软件商城"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(frame_);
}

void StorePage::Load() {
    Host().LoadState().Set(kNumbers.loadKey, PageLoadState::kRunning);
    Visit(services_.deployment.storeRoot);
}

void StorePage::RunCommand(int index) {
    if (index == commandBack) {
        view_->GoBack();
    } else if (index == commandHome) {
        Visit(services_.deployment.storeRoot);
    }
}

void StorePage::OnMessage(Message message, int /*first*/, int second) {
    if (message == Message::openStoreItem) {
        Visit(StoreItemAddress(services_.deployment.storeRoot, second));
    }
}

void StorePage::OnSearch(const QString& text) {
    Visit(StoreSearchAddress(services_.deployment.storeRoot, text.toStdString()));
}

// The page counts as loaded behind it: what was found by the first search is not to give way to the
// store's first page, which is loaded at the first show.
void StorePage::Visit(const std::string& address) {
    frame_->SetState(ListState::loading);
    view_->Navigate2(QUrl(QString::fromStdString(address)));
    Host().LoadState().Set(kNumbers.loadKey, PageLoadState::kEnded);
}

void StorePage::OnAppCmd(const std::string& text) {
    auto package = PackageOfStoreLink(text);
    if (!package) {
        return;
    }
    if (package->size() > kLongestLinkedPackage) {
        Host().SetStatus(
            ToQString(ResolveStatus({.outcome = ResolveOutcome::noPackageName, .task = {}})));
        return;
    }
    QueuePackage(Host(), services_, *std::move(package));
}

void StorePage::OnVisit(HtmlVisit visit) {
    if (visit == HtmlVisit::begun) {
        frame_->SetState(ListState::loading);
        return;
    }
    frame_->SetFilled();
    frame_->SetState(ListState::idle);
    if (visit == HtmlVisit::failed) {
        Host().SetStatus(Unreachable());
        OfferCommand(commandHome);
    } else {
        Host().TakeBackStatus(Unreachable());
    }
}

}  // namespace quorvi
