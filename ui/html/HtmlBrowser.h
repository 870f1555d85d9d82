// The border between an HTML view and the browser engine. The engine is large, so all that links it
// stands behind this border in a module of its own, which HtmlEngine loads.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QString>
#include <QUrl>
#include <QVariant>
#include <functional>
#include <memory>

#include "ui/html/HtmlSite.h"

class QWebEngineView;
class QWidget;

namespace quorvi {

// How far a visit to a web site has come.
enum class HtmlVisit {
    begun,
    ended,   // what the site has answered is shown, or the visit gave way to another
    failed,  // no site answered
};

// What a browser asks and tells the view that it sits in. The window's thread.
class HtmlBrowserHost {
  public:
    // Asked before each navigation.
    [[nodiscard]] virtual bool MayNavigate(const QUrl& url, HtmlNavigation navigation) = 0;
    // The user's click asks for a new window; none opens by itself.
    virtual void OnNewWindow(const QUrl& url) = 0;
    virtual void OnUrlChanged(const QUrl& url) = 0;
    virtual void OnLoadFinished() = 0;
    virtual void OnVisitOf(const QUrl& url, HtmlVisit visit) = 0;
    // The process that renders the document has ended, and the document with it.
    virtual void OnRendererGone() = 0;

  protected:
    HtmlBrowserHost() = default;
    HtmlBrowserHost(const HtmlBrowserHost&) = default;
    HtmlBrowserHost& operator=(const HtmlBrowserHost&) = default;
    ~HtmlBrowserHost() = default;
};

// How a browser's documents are drawn.
struct HtmlLook {
    QColor ground;  // seen until a document is painted, and beneath one that has no ground
    QString name;   // what the program's own documents bear as `data-look`
};

// One browser. The window's thread.
class HtmlBrowser {
  public:
    HtmlBrowser() = default;
    HtmlBrowser(const HtmlBrowser&) = delete;
    HtmlBrowser& operator=(const HtmlBrowser&) = delete;
    virtual ~HtmlBrowser() = default;

    // What is seen of it; goes with it.
    [[nodiscard]] virtual QWidget* Widget() = 0;
    // The same as the engine's own class.
    [[nodiscard]] virtual QWebEngineView* View() = 0;

    [[nodiscard]] virtual QUrl Url() const = 0;
    // By GET, or by POST when there is something to post.
    virtual void Load(const QUrl& url, const QByteArray& postData) = 0;
    virtual void Reload() = 0;
    virtual void Back() = 0;

    // Sets the ground of all documents, and names the look at the root of the one that stands, if
    // it is the program's own. Its body is unseen until then.
    virtual void SetLook(const HtmlLook& look) = 0;

    // Runs a script of the program's own, in a world that the document's scripts cannot reach.
    // `answer`, where there is one, receives its value later.
    using Answer = std::function<void(const QVariant& value)>;
    virtual void Run(const QString& script, const Answer& answer) = 0;
};

// Makes browsers: what the module gives.
class HtmlBrowserMaker {
  public:
    virtual ~HtmlBrowserMaker() = default;

    // `host` outlives the browser.
    [[nodiscard]] virtual std::unique_ptr<HtmlBrowser> Make(HtmlContent content,
                                                            const HtmlLook& look,
                                                            HtmlBrowserHost& host,
                                                            QWidget* parent) = 0;
};

}  // namespace quorvi

Q_DECLARE_INTERFACE(quorvi::HtmlBrowserMaker, "quorvi.HtmlBrowserMaker/1")
