#include "ui/html/browser/EngineBrowser.h"

#include <QWebEngineHttpRequest>
#include <QWebEngineScript>

#include "ui/html/browser/DocHostSite.h"

namespace quorvi {

EngineBrowser::EngineBrowser(HtmlContent content, const HtmlLook& look, HtmlBrowserHost& host,
                             QWidget* parent)
    : view_(std::make_unique<QWebEngineView>(parent)) {
    view_->setContextMenuPolicy(Qt::NoContextMenu);
    view_->setAcceptDrops(false);
    auto* site = new CDocHostSite(content, host, view_.get());
    view_->setPage(site);
    SetLook(look);
}

void EngineBrowser::Load(const QUrl& url, const QByteArray& postData) {
    if (postData.isEmpty()) {
        view_->load(url);
        return;
    }
    QWebEngineHttpRequest request(url, QWebEngineHttpRequest::Post);
    request.setPostData(postData);
    view_->load(request);
}

void EngineBrowser::SetLook(const HtmlLook& look) {
    view_->page()->setBackgroundColor(look.ground);
    Run(QStringLiteral("if (location.protocol === 'qrc:') {"
                       "  document.documentElement.dataset.look = '%1';"
                       "}")
            .arg(look.name),
        {});
}

void EngineBrowser::Run(const QString& script, const Answer& answer) {
    view_->page()->runJavaScript(script, QWebEngineScript::ApplicationWorld, answer);
}

std::unique_ptr<HtmlBrowser> EngineBrowserMaker::Make(HtmlContent content, const HtmlLook& look,
                                                      HtmlBrowserHost& host, QWidget* parent) {
    return std::make_unique<EngineBrowser>(content, look, host, parent);
}

}  // namespace quorvi
