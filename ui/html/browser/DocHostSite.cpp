#include "ui/html/browser/DocHostSite.h"

#include <QWebEngineLoadingInfo>
#include <QWebEngineNewWindowRequest>

#include "ui/html/browser/Profiles.h"

namespace quorvi {
namespace {

// Where the program's own documents stand.
const QString kTemplateScheme = QStringLiteral("qrc");

// The engine's number for a load that gave way to another, or to none at all.
constexpr int kAborted = -3;

HtmlNavigation NavigationOf(QWebEnginePage::NavigationType type) {
    switch (type) {
        case QWebEnginePage::NavigationTypeTyped:
            return HtmlNavigation::typed;
        case QWebEnginePage::NavigationTypeLinkClicked:
            return HtmlNavigation::clicked;
        default:
            return HtmlNavigation::other;
    }
}

}  // namespace

CDocHostSite::CDocHostSite(HtmlContent content, HtmlBrowserHost& host, QObject* parent)
    : QWebEnginePage(ProfileOf(content), parent), content_(content), host_(host) {
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl& origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
    connect(this, &QWebEnginePage::newWindowRequested, this,
            [this](const QWebEngineNewWindowRequest& request) {
                if (request.isUserInitiated()) {
                    host_.OnNewWindow(request.requestedUrl());
                }
            });
    connect(this, &QWebEnginePage::loadFinished, this, [this] { host_.OnLoadFinished(); });
    connect(this, &QWebEnginePage::loadingChanged, this, &CDocHostSite::OnLoadingChanged);
    connect(this, &QWebEnginePage::urlChanged, this,
            [this](const QUrl& url) { host_.OnUrlChanged(url); });
    connect(this, &QWebEnginePage::renderProcessTerminated, this,
            [this] { host_.OnRendererGone(); });
}

bool CDocHostSite::acceptNavigationRequest(const QUrl& url, NavigationType type,
                                           bool /*isMainFrame*/) {
    return host_.MayNavigate(url, NavigationOf(type));
}

QWebEnginePage* CDocHostSite::createWindow(WebWindowType /*type*/) {
    return nullptr;
}

QStringList CDocHostSite::chooseFiles(FileSelectionMode /*mode*/, const QStringList& /*chosen*/,
                                      const QStringList& /*types*/) {
    return {};
}

void CDocHostSite::javaScriptAlert(const QUrl& /*origin*/, const QString& /*text*/) {}

bool CDocHostSite::javaScriptConfirm(const QUrl& /*origin*/, const QString& /*text*/) {
    return false;
}

bool CDocHostSite::javaScriptPrompt(const QUrl& /*origin*/, const QString& /*text*/,
                                    const QString& /*usual*/, QString* /*answer*/) {
    return false;
}

void CDocHostSite::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel /*level*/,
                                            const QString& /*message*/, int /*line*/,
                                            const QString& /*source*/) {}

void CDocHostSite::OnLoadingChanged(const QWebEngineLoadingInfo& info) {
    if (content_ != HtmlContent::web || info.url().scheme() == kTemplateScheme) {
        return;
    }
    if (info.status() == QWebEngineLoadingInfo::LoadStartedStatus) {
        host_.OnVisitOf(info.url(), HtmlVisit::begun);
        return;
    }
    // A load that gave way to another has failed too, and so has a page that a site answers with an
    // error's number.
    const bool failed =
        info.status() == QWebEngineLoadingInfo::LoadFailedStatus &&
        info.errorDomain() != QWebEngineLoadingInfo::ErrorDomain::HttpStatusCodeDomain &&
        info.errorCode() != kAborted;
    host_.OnVisitOf(info.url(), failed ? HtmlVisit::failed : HtmlVisit::ended);
}

}  // namespace quorvi
