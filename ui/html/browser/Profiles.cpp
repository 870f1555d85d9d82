#include "ui/html/browser/Profiles.h"

#include <QApplication>
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
