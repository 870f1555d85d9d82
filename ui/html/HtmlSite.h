// The browser's side of an HTML view: the site in which a document sits, and what it may do there.
#pragma once

#include <QWebEnginePage>
#include <functional>
#include <string>

namespace quorvi {

// Where the document of a view comes from, and so how far it is trusted.
enum class HtmlContent {
    local,  // the program's templates, filled with the phone's texts: no script, no network
    web,    // a web site
};

// Settings of the browser that must stand before the application object is made: one renderer for
// all local views, and the sandbox off where the system cannot give one (the user root).
void PrepareHtmlViews();

// The control site of one view. Decides each navigation: a private link is handed to the listener
// and goes no further; a local document is never left; a web document only for another one.
class CDocHostSite : public QWebEnginePage {
    Q_OBJECT
  public:
    // Receives the text of a private link (ANSI), on the window's thread, after the browser's own
    // call has returned, so that it may open a dialog.
    using PrivateLinkListener = std::function<void(const std::string& text)>;

    CDocHostSite(HtmlContent content, PrivateLinkListener listener, QObject* parent);

  protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage* createWindow(WebWindowType type) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message,
                                  int line, const QString& source) override;

  private:
    HtmlContent content_;
    PrivateLinkListener listener_;
};

}  // namespace quorvi
