// The control in which a page shows HTML, and which turns every private link into a call of the
// page that owns it.
//
// What a view shows is an HtmlFragment, which knows of each byte whether the program or the phone
// has written it. The program's markup is taken as it is. A text from the phone is parsed apart
// from it and from all other texts, and only its words and the form of its words (bold, colours,
// lists, tables, pictures …) come into the document, in an element of the text's own. So, however a
// text is written, none of it is a link, a control or a style, none bears an id or a class, and all
// that it opens ends with it: a private link that the user clicks is one that the program has put
// there.
#pragma once

#include <QPointer>
#include <QUrl>
#include <QWidget>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/html/HtmlBrowser.h"
#include "ui/html/HtmlEdit.h"
#include "ui/html/HtmlEngine.h"

namespace quorvi {

// A view's document as a worker may hold it: a value that may be kept and used on any thread, and
// that does nothing once the view is gone.
class WatchedDocumentCookie {
  public:
    WatchedDocumentCookie() = default;

    // Sets the inner HTML of the element with this id, on the window's thread, in the order
    // of the calls.
    void SetInnerHtml(std::string_view id, const HtmlFragment& html,
                      HtmlScroll scroll = HtmlScroll::keep) const;

  private:
    friend class CHtmlCtrlBase;
    explicit WatchedDocumentCookie(QObject* view) : view_(view) {}

    QPointer<QObject> view_;  // looked at on the window's thread only
};

// The window's thread, WatchedDocumentCookie excepted. In a local view Enter opens the link that
// has the focus and goes no further, Delete is told of with it (OnDelete), as is the wish for a
// menu (OnMenu), and Space scrolls. No view changes its size of letters by the wheel. The browser
// itself is made when the control has been shown and the engine is there; what is asked of it
// before is kept until then. Where the engine can't be loaded the control stays empty.
class CHtmlCtrlBase : public QWidget, private HtmlBrowserHost {
    Q_OBJECT
  public:
    // `engine` outlives the control.
    CHtmlCtrlBase(int controlId, HtmlContent content, HtmlEngine& engine, QWidget* parent);
    ~CHtmlCtrlBase() override;

    // Show a template by its resource number, or a text that the page has built (without a limit of
    // length), with the templates' pictures beside it. Both give up what was set before.
    // An unknown number shows nothing new. Local views only.
    void LoadFromResource(int resourceId);
    void LoadFromText(const HtmlFragment& html);

    // Go to a URL, with a POST when `postData` is not empty. Web views only. In place of a site
    // that does not answer template 663 is shown with the name of its host, and GoBack leads to
    // what was shown before it.
    void Navigate2(const QUrl& url, std::string_view postData = {});
    void SetHome(const QUrl& url) { home_ = url; }
    void GoHome() { Navigate2(home_); }
    void GoBack();

    // Sets an element's inner HTML. Kept until the document has loaded, and set again when
    // the document had to be loaded again.
    void SetInnerHtml(std::string_view id, const HtmlFragment& html,
                      HtmlScroll scroll = HtmlScroll::keep);
    // Shows these of an element's children alone and marks words in them (see ShowChildrenEdit),
    // for one element at a time. Told faster than the document can show it, it leaves out what is
    // between.
    void ShowChildren(std::string_view id, const std::optional<std::vector<int>>& children,
                      HtmlScroll scroll = HtmlScroll::top, const std::vector<HtmlMark>& marks = {});
    // From the next document on, one that shows its end goes on showing it when the view becomes
    // lower.
    void StayAtEnd() { staysAtEnd_ = true; }
    [[nodiscard]] WatchedDocumentCookie Document() { return WatchedDocumentCookie(this); }

    // Whether a widget is part of a view.
    [[nodiscard]] static bool Holds(const QWidget& widget);

    // The browser, or nothing before it is made; for tests and pictures.
    [[nodiscard]] QWebEngineView* Browser() const { return browser_ ? browser_->View() : nullptr; }

  Q_SIGNALS:
    // A document has been loaded and all that was set in it has been handed to it.
    void documentLoaded();

  protected:
    // A click on a private link; `text` is what follows the scheme's colon, ANSI.
    virtual void OnAppCmd(const std::string& text) = 0;
    // Delete was pressed while a private link of this text had the focus.
    virtual void OnDelete(const std::string& /*text*/) {}
    // A menu was asked for at a place on the screen: of the private link of this text, which is
    // under the pointer or, asked for by key, has the focus; empty where there is none.
    virtual void OnMenu(const std::string& /*text*/, const QPoint& /*at*/) {}
    // How far a visit to a site has come; of a web view.
    virtual void OnVisit(HtmlVisit /*visit*/) {}

    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    friend class WatchedDocumentCookie;

    // What the browser asks and tells.
    [[nodiscard]] bool MayNavigate(const QUrl& url, HtmlNavigation navigation) override;
    void OnNewWindow(const QUrl& url) override;
    void OnUrlChanged(const QUrl& url) override;
    void OnLoadFinished() override;
    void OnVisitOf(const QUrl& url, HtmlVisit visit) override;
    void OnRendererGone() override;

    void CreateBrowser(HtmlBrowserMaker& maker);
    void Load(const QUrl& document);
    void Begin();
    [[nodiscard]] HtmlLook Look() const;
    void Dress();
    void Edit(HtmlEdit edit);
    void Keep(HtmlEdit edit);
    void Narrow(const QString& script);
    void TakeKeys(QWidget& keys);
    void TellOfDelete();
    void TellOfMenu(const QContextMenuEvent& event);
    void NameUnreachable();

    HtmlContent content_;
    HtmlEngine& engine_;
    QUrl document_;
    QUrl home_;
    QUrl unreachable_;  // where no site answered
    QByteArray postData_;
    std::vector<HtmlEdit> edits_;  // one an element, in the order in which they were set last
    bool ready_ = false;           // the document stands and takes edits
    bool narrows_ = false;         // it is at showing some of an element's children
    QString narrowNext_;           // and what it is told next; empty for nothing
    bool announced_ = false;
    bool staysAtEnd_ = false;
    int revivals_ = 0;
    QPointer<QWidget> before_;  // in the Tab key's round
    bool wanted_ = false;       // the engine has been asked for the browser
    std::unique_ptr<HtmlBrowser> browser_;
};

// What the owner of a view is told.
class HtmlListener {
  public:
    virtual ~HtmlListener() = default;
    virtual void OnAppCmd(const std::string& text) = 0;
    virtual void OnDelete(const std::string& /*text*/) {}
    virtual void OnMenu(const std::string& /*text*/, const QPoint& /*at*/) {}
    virtual void OnVisit(HtmlVisit /*visit*/) {}
};

// The view as the pages use it.
class CHtmlCtrlFix : public CHtmlCtrlBase {
    Q_OBJECT
  public:
    // `listener` is not owned and outlives the control.
    CHtmlCtrlFix(int controlId, HtmlContent content, HtmlListener& listener, QWidget* parent);

    // Puts a local view in the place of the control of that number on `parent`, which goes.
    static CHtmlCtrlFix* CreateFromStatic(int controlId, QWidget& parent, HtmlListener& listener);

  protected:
    void OnAppCmd(const std::string& text) override { listener_.OnAppCmd(text); }
    void OnDelete(const std::string& text) override { listener_.OnDelete(text); }
    void OnMenu(const std::string& text, const QPoint& at) override { listener_.OnMenu(text, at); }
    void OnVisit(HtmlVisit visit) override { listener_.OnVisit(visit); }

  private:
    HtmlListener& listener_;
};

}  // namespace quorvi
