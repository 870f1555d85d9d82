#include "ui/html/browser/Profiles.h"

#include <QApplication>
#include <QHostAddress>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInfo>
#include <QWebEngineUrlRequestInterceptor>

namespace quorvi {
namespace {

// Lets local views load what is part of the program, and nothing else.
class LocalRequestsOnly : public QWebEngineUrlRequestInterceptor {
  public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo& info) override {
        const QString scheme = info.requestUrl().scheme();
        info.block(scheme != QStringLiteral("qrc") && scheme != QStringLiteral("data"));
    }
};

// This computer, by each of its names for itself.
bool IsThisComputer(const QString& host) {
    if (host == QStringLiteral("localhost") || host.endsWith(QStringLiteral(".localhost"))) {
        return true;
    }
    QString number = host;
    const QHostAddress address(number.remove(u'[').remove(u']'));
    return address.isLoopback() || address == QHostAddress::AnyIPv4 ||
           address == QHostAddress::AnyIPv6;
}

bool IsSameServer(const QUrl& a, const QUrl& b) {
    return a.host() == b.host() && a.port() == b.port();
}

// Lets a site load what is on the web. Not the user's files, nor what is part of the program; and
// on this computer, where adb, the agent and other programs listen, the site's own server alone.
class WebRequestsOnly : public QWebEngineUrlRequestInterceptor {
  public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo& info) override {
        const QUrl url = info.requestUrl();
        if (url.scheme() == QStringLiteral("qrc")) {
            info.block(info.firstPartyUrl().scheme() != QStringLiteral("qrc"));
            return;
        }
        static const QStringList allowed{QStringLiteral("http"), QStringLiteral("https"),
                                         QStringLiteral("ws"),   QStringLiteral("wss"),
                                         QStringLiteral("data"), QStringLiteral("blob")};
        // What the program itself asks for has no document that it comes from.
        const bool fromSite = !info.initiator().isEmpty();
        info.block(!allowed.contains(url.scheme()) || (fromSite && IsThisComputer(url.host()) &&
                                                       !IsSameServer(url, info.initiator())));
    }
};

void SetUpLocal(QWebEngineProfile& profile) {
    profile.setUrlRequestInterceptor(new LocalRequestsOnly(&profile));
    profile.setSpellCheckEnabled(false);
    QWebEngineSettings& settings = *profile.settings();
    for (const auto attribute :
         {QWebEngineSettings::JavascriptEnabled, QWebEngineSettings::LocalStorageEnabled,
          QWebEngineSettings::LocalContentCanAccessRemoteUrls,
          QWebEngineSettings::LocalContentCanAccessFileUrls, QWebEngineSettings::PluginsEnabled,
          QWebEngineSettings::ErrorPageEnabled, QWebEngineSettings::WebGLEnabled,
          QWebEngineSettings::PdfViewerEnabled, QWebEngineSettings::DnsPrefetchEnabled,
          QWebEngineSettings::HyperlinkAuditingEnabled,
          QWebEngineSettings::NavigateOnDropEnabled}) {
        settings.setAttribute(attribute, false);
    }
}

// How much of what it has loaded the engine keeps to show it faster, in bytes.
constexpr int kMostCache = 32 << 20;

void SetUpWeb(QWebEngineProfile& profile) {
    profile.setCachePath(profile.persistentStoragePath() + QStringLiteral("/cache"));
    profile.setHttpCacheMaximumSize(kMostCache);
    profile.setUrlRequestInterceptor(new WebRequestsOnly(&profile));
    QObject::connect(&profile, &QWebEngineProfile::downloadRequested, &profile,
                     [](QWebEngineDownloadRequest* download) { download->cancel(); });
    profile.setHttpAcceptLanguage(QStringLiteral("zh-CN,zh"));
    QWebEngineSettings& settings = *profile.settings();
    for (const auto attribute :
         {QWebEngineSettings::PluginsEnabled, QWebEngineSettings::PdfViewerEnabled,
          QWebEngineSettings::HyperlinkAuditingEnabled, QWebEngineSettings::ErrorPageEnabled,
          QWebEngineSettings::NavigateOnDropEnabled,
          QWebEngineSettings::JavascriptCanOpenWindows}) {
        settings.setAttribute(attribute, false);
    }
    settings.setAttribute(QWebEngineSettings::WebRTCPublicInterfacesOnly, true);
}

}  // namespace

QWebEngineProfile* ProfileOf(HtmlContent content) {
    if (content == HtmlContent::local) {
        static QWebEngineProfile* const local = [] {
            auto* profile = new QWebEngineProfile(qApp);
            SetUpLocal(*profile);
            return profile;
        }();
        return local;
    }
    static QWebEngineProfile* const web = [] {
        auto* profile = new QWebEngineProfile(QStringLiteral("web"), qApp);
        SetUpWeb(*profile);
        return profile;
    }();
    return web;
}

}  // namespace quorvi
