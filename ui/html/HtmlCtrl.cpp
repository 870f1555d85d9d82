#include "ui/html/HtmlCtrl.h"

#include <QKeyEvent>
#include <QTimer>
#include <QVBoxLayout>
#include <QWebEngineHistory>
#include <QWebEngineHttpRequest>
#include <QWebEngineLoadingInfo>
#include <QWebEngineScript>
#include <QWebEngineView>
#include <algorithm>

#include "ui/html/HtmlTemplate.h"
#include "ui/kit/ControlNumber.h"
#include "ui/look/Look.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

// Times that one document is loaded again after its renderer has died; then the view stays empty
// until the page loads something else.
constexpr int kMaxRevivals = 3;

QUrl WithoutFragment(const QUrl& url) {
    return url.adjusted(QUrl::RemoveFragment);
}

}  // namespace

void WatchedDocumentCookie::SetInnerHtml(std::string_view id, std::string_view html,
                                         HtmlScroll scroll) const {
    PostToWindow(view_, [view = view_, edit = SetInnerHtmlEdit(id, html, scroll)]() mutable {
        static_cast<CHtmlCtrlBase*>(view.data())->Edit(std::move(edit));
    });
}

CHtmlCtrlBase::CHtmlCtrlBase(int controlId, HtmlContent content, QWidget* parent)
    : QWidget(parent), content_(content) {
    SetControlNumber(this, controlId);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
}

CHtmlCtrlBase::~CHtmlCtrlBase() = default;

void CHtmlCtrlBase::LoadFromResource(int resourceId) {
    const QUrl url = TemplateUrl(resourceId);
    if (url.isValid() && !url.isEmpty()) {
        edits_.clear();
        Load(url);
    }
}

void CHtmlCtrlBase::LoadFromText(std::string_view html) {
    edits_.clear();
    edits_.push_back(SetInnerHtmlEdit({}, html, HtmlScroll::top));
    Load(BlankTemplateUrl());
}

void CHtmlCtrlBase::Navigate2(const QUrl& url, std::string_view postData) {
    if (content_ == HtmlContent::web && url.isValid()) {
        postData_ = QByteArray(postData.data(), static_cast<qsizetype>(postData.size()));
        Load(url);
    }
}

void CHtmlCtrlBase::GoBack() {
    if (view_ != nullptr) {
        view_->history()->back();
    }
}

void CHtmlCtrlBase::SetInnerHtml(std::string_view id, std::string_view html, HtmlScroll scroll) {
    Edit(SetInnerHtmlEdit(id, html, scroll));
}

void CHtmlCtrlBase::Edit(HtmlEdit edit) {
    if (ready_) {
        view_->page()->runJavaScript(edit.script, QWebEngineScript::ApplicationWorld);
    }
    std::erase_if(edits_, [&](const HtmlEdit& earlier) { return earlier.id == edit.id; });
    edits_.push_back(std::move(edit));
}

void CHtmlCtrlBase::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (view_ == nullptr) {
        CreateBrowser();
    }
}

void CHtmlCtrlBase::CreateBrowser() {
    view_ = new QWebEngineView(this);
    view_->setContextMenuPolicy(Qt::NoContextMenu);
    view_->setAcceptDrops(false);
    auto* site = new CDocHostSite(
        content_, [this](const std::string& text) { OnAppCmd(text); }, view_);
    site->setBackgroundColor(look::color(look::Color::page));
    view_->setPage(site);
    connect(site, &QWebEnginePage::loadFinished, this, [this] { OnLoadFinished(); });
    connect(site, &QWebEnginePage::loadingChanged, this, &CHtmlCtrlBase::OnLoadingChanged);
    connect(site, &QWebEnginePage::urlChanged, this, &CHtmlCtrlBase::OnUrlChanged);
    connect(site, &QWebEnginePage::renderProcessTerminated, this, [this] { Revive(); });
    layout()->addWidget(view_);
    setFocusProxy(view_);
    if (!document_.isEmpty()) {
        Begin();
    }
}

void CHtmlCtrlBase::Load(const QUrl& document) {
    document_ = document;
    announced_ = false;
    revivals_ = 0;
    if (view_ != nullptr) {
        Begin();
    }
}

void CHtmlCtrlBase::Begin() {
    ready_ = false;
    if (postData_.isEmpty()) {
        view_->load(document_);
        return;
    }
    QWebEngineHttpRequest request(document_, QWebEngineHttpRequest::Post);
    request.setPostData(postData_);
    view_->load(request);
}

void CHtmlCtrlBase::Revive() {
    ready_ = false;
    if (revivals_ == kMaxRevivals) {
        return;
    }
    ++revivals_;
    QTimer::singleShot(0, this, [this] {
        if (content_ == HtmlContent::web) {
            view_->reload();
        } else {
            Begin();
        }
    });
}

void CHtmlCtrlBase::OnUrlChanged(const QUrl& url) {
    // A link to about:blank is not asked about; a local document that it has wiped comes back.
    if (content_ == HtmlContent::local && WithoutFragment(url) != document_) {
        ready_ = false;
        QTimer::singleShot(0, this, &CHtmlCtrlBase::Begin);
    }
}

bool CHtmlCtrlBase::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && content_ == HtmlContent::local) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Space && key->modifiers() == Qt::NoModifier) {
            OnSpace(watched);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void CHtmlCtrlBase::OnSpace(QObject* receiver) {
    view_->page()->runJavaScript(
        QStringLiteral("document.activeElement?.matches('a[href]')"),
        QWebEngineScript::ApplicationWorld,
        [receiver = QPointer<QObject>(receiver)](const QVariant& onLink) {
            if (!receiver) {
                return;
            }
            // Straight to the receiver: on the common way the window takes Enter for itself.
            const int key = onLink.toBool() ? Qt::Key_Return : Qt::Key_Space;
            const QString text = onLink.toBool() ? QStringLiteral("\r") : QStringLiteral(" ");
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
            QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
            receiver->event(&press);
            receiver->event(&release);
        });
}

void CHtmlCtrlBase::OnLoadingChanged(const QWebEngineLoadingInfo& info) {
    using Domain = QWebEngineLoadingInfo::ErrorDomain;
    // A load that gave way to another has failed too, and so has a page that a site answers with an
    // error's number: neither is in these domains.
    const bool unreachable = info.status() == QWebEngineLoadingInfo::LoadFailedStatus &&
                             (info.errorDomain() == Domain::ConnectionErrorDomain ||
                              info.errorDomain() == Domain::CertificateErrorDomain ||
                              info.errorDomain() == Domain::DnsErrorDomain);
    if (content_ == HtmlContent::web && unreachable) {
        view_->load(TemplateUrl(kUnreachableTemplate));
    }
}

void CHtmlCtrlBase::OnLoadFinished() {
    if (content_ == HtmlContent::local && WithoutFragment(view_->url()) != document_) {
        return;
    }
    ready_ = true;
    if (QWidget* keys = view_->focusProxy(); keys != nullptr) {
        keys->installEventFilter(this);  // the browser may have made it anew
    }
    for (const HtmlEdit& edit : edits_) {
        view_->page()->runJavaScript(edit.script, QWebEngineScript::ApplicationWorld);
    }
    if (!announced_) {
        announced_ = true;
        Q_EMIT documentLoaded();
    }
}

CHtmlCtrlFix::CHtmlCtrlFix(int controlId, HtmlContent content, HtmlListener& listener,
                           QWidget* parent)
    : CHtmlCtrlBase(controlId, content, parent), listener_(listener) {}

CHtmlCtrlFix* CHtmlCtrlFix::CreateFromStatic(int controlId, QWidget& parent,
                                             HtmlListener& listener) {
    auto* place =
        parent.findChild<QWidget*>(QString::number(controlId), Qt::FindDirectChildrenOnly);
    auto* view = new CHtmlCtrlFix(controlId, HtmlContent::local, listener, &parent);
    if (place != nullptr) {
        view->setGeometry(place->geometry());
        if (parent.layout() != nullptr) {
            delete parent.layout()->replaceWidget(place, view);
        }
        delete place;
    }
    view->show();
    return view;
}

}  // namespace quorvi
