#include "ui/html/browser/EngineBrowser.h"

#include <QWebEngineHttpRequest>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>

#include "ui/html/browser/DocHostSite.h"

namespace quorvi {

namespace {

const QString kLookScript = QStringLiteral("look");

// Names the look at the root of a document of the program's own.
QString NameLook(const QString& name) {
    return QStringLiteral(
               "if (location.protocol === 'qrc:') {"
               "  if ('%1' === '') delete document.documentElement.dataset.look;"
               "  else document.documentElement.dataset.look = '%1';"
               "}")
        .arg(name);
}

}  // namespace

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
    QWebEnginePage& page = *view_->page();
    page.setBackgroundColor(look.ground);
    // Before a document is painted for the first time, and in the one that stands.
    QWebEngineScript script;
    script.setName(kLookScript);
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    script.setSourceCode(NameLook(look.name));
    const QList<QWebEngineScript> earlier = page.scripts().find(kLookScript);
    for (const QWebEngineScript& each : earlier) {
        page.scripts().remove(each);
    }
    page.scripts().insert(script);
    Run(script.sourceCode(), {});
}

void EngineBrowser::Run(const QString& script, const Answer& answer) {
    view_->page()->runJavaScript(script, QWebEngineScript::ApplicationWorld, answer);
}

std::unique_ptr<HtmlBrowser> EngineBrowserMaker::Make(HtmlContent content, const HtmlLook& look,
                                                      HtmlBrowserHost& host, QWidget* parent) {
    return std::make_unique<EngineBrowser>(content, look, host, parent);
}

}  // namespace quorvi
