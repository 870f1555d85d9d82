#include "ui/html/browser/DocHostSite.h"

#include <QWebEngineLoadingInfo>
#include <QWebEngineNewWindowRequest>

#include "ui/html/browser/Profiles.h"

namespace quorvi {
namespace {

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
    : QWebEnginePage(ProfileOf(content), parent), host_(host) {
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

void CDocHostSite::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel /*level*/,
                                            const QString& /*message*/, int /*line*/,
                                            const QString& /*source*/) {}

void CDocHostSite::OnLoadingChanged(const QWebEngineLoadingInfo& info) {
    using Domain = QWebEngineLoadingInfo::ErrorDomain;
    // A load that gave way to another has failed too, and so has a page that a site answers with an
    // error's number: neither is in these domains.
    if (info.status() == QWebEngineLoadingInfo::LoadFailedStatus &&
        (info.errorDomain() == Domain::ConnectionErrorDomain ||
         info.errorDomain() == Domain::CertificateErrorDomain ||
         info.errorDomain() == Domain::DnsErrorDomain)) {
        host_.OnUnreachable();
    }
}

}  // namespace quorvi
