#include "ui/html/HtmlSite.h"

#include <unistd.h>

#include <QApplication>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInfo>
#include <QWebEngineUrlRequestInterceptor>

#include "ui/html/HtmlLink.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

constexpr char kFlagsVariable[] = "QTWEBENGINE_CHROMIUM_FLAGS";
constexpr char kSandboxVariable[] = "QTWEBENGINE_DISABLE_SANDBOX";
constexpr char kTextureVariable[] = "force_s3tc_enable";

// Lets local views load what is part of the program, and nothing else.
class LocalRequestsOnly : public QWebEngineUrlRequestInterceptor {
  public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo& info) override {
        const QString scheme = info.requestUrl().scheme();
        info.block(scheme != QStringLiteral("qrc") && scheme != QStringLiteral("data"));
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

void SetUpWeb(QWebEngineProfile& profile) {
    profile.setHttpAcceptLanguage(QStringLiteral("zh-CN,zh"));
    QWebEngineSettings& settings = *profile.settings();
    for (const auto attribute :
         {QWebEngineSettings::PluginsEnabled, QWebEngineSettings::PdfViewerEnabled,
          QWebEngineSettings::HyperlinkAuditingEnabled, QWebEngineSettings::ErrorPageEnabled,
          QWebEngineSettings::NavigateOnDropEnabled}) {
        settings.setAttribute(attribute, false);
    }
}

// One profile for all views of a kind, and so one renderer; it outlives their pages.
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

}  // namespace

void PrepareHtmlViews() {
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    qputenv(kFlagsVariable, (qgetenv(kFlagsVariable) + " --renderer-process-limit=1").trimmed());
    if (geteuid() == 0 && !qEnvironmentVariableIsSet(kSandboxVariable)) {
        qputenv(kSandboxVariable, "1");
    }
    // The browser engine sets this one itself as the first view is made. A new variable moves the
    // environment, and a program that another thread is just starting with it does not start.
    qputenv(kTextureVariable, "true");
}

CDocHostSite::CDocHostSite(HtmlContent content, PrivateLinkListener listener, QObject* parent)
    : QWebEnginePage(ProfileOf(content), parent),
      content_(content),
      listener_(std::move(listener)) {
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl& origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
    // A web site's new window opens in the one view that there is.
    connect(this, &QWebEnginePage::newWindowRequested, this,
            [this](const QWebEngineNewWindowRequest& request) {
                if (content_ == HtmlContent::web && request.isUserInitiated() &&
                    IsWebLink(request.requestedUrl().toEncoded().toStdString())) {
                    setUrl(request.requestedUrl());
                }
            });
}

bool CDocHostSite::acceptNavigationRequest(const QUrl& url, NavigationType type,
                                           bool /*isMainFrame*/) {
    const std::string encoded = url.toEncoded().toStdString();
    if (const auto text = PrivateLinkText(encoded)) {
        // In a local document only a click gives a command: markup that came from the phone must
        // not give one by itself.
        if (content_ == HtmlContent::web || type == NavigationTypeLinkClicked) {
            PostToWindow(this, [this, text = *text] { listener_(text); });
        }
        return false;
    }
    // A template is loaded by the program, and by no link.
    return (content_ == HtmlContent::web && IsWebLink(encoded)) ||
           (type == NavigationTypeTyped && url.scheme() == QStringLiteral("qrc"));
}

QWebEnginePage* CDocHostSite::createWindow(WebWindowType /*type*/) {
    return nullptr;
}

void CDocHostSite::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel /*level*/,
                                            const QString& /*message*/, int /*line*/,
                                            const QString& /*source*/) {}

}  // namespace quorvi
