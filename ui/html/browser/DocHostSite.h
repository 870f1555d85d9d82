// The control site of the browser: the page of the engine's in which a document sits.
#pragma once

#include <QWebEnginePage>

#include "ui/html/HtmlBrowser.h"

namespace quorvi {

// Asks the host about each navigation; denies all that a document may ask of the system, and opens
// no window and no dialog: a file that a form asks for is not chosen, a script's question is
// answered with no.
class CDocHostSite : public QWebEnginePage {
    Q_OBJECT
  public:
    CDocHostSite(HtmlContent content, HtmlBrowserHost& host, QObject* parent);

  protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage* createWindow(WebWindowType type) override;
    QStringList chooseFiles(FileSelectionMode mode, const QStringList& chosen,
                            const QStringList& types) override;
    void javaScriptAlert(const QUrl& origin, const QString& text) override;
    bool javaScriptConfirm(const QUrl& origin, const QString& text) override;
    bool javaScriptPrompt(const QUrl& origin, const QString& text, const QString& usual,
                          QString* answer) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message,
                                  int line, const QString& source) override;

  private:
    void OnLoadingChanged(const QWebEngineLoadingInfo& info);

    HtmlContent content_;
    HtmlBrowserHost& host_;
};

}  // namespace quorvi
