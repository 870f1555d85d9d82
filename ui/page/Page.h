// What every one of the pages is, and what it may ask of the main window.
#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

#include "base/SettingsStore.h"
#include "ui/page/Messages.h"
#include "ui/page/PageState.h"

namespace quorvi {

// The main window as its pages see it. The window's thread.
class PageHost {
  public:
    virtual ~PageHost() = default;
    // Shows text in the StatusLabel (control 1366).
    virtual void SetStatus(const QString& text) = 0;
    // Shows 就绪 there again where the StatusLabel still shows this text: what it tells is over.
    virtual void TakeBackStatus(const QString& text) = 0;
    // Posts a message to the main window.
    virtual void Post(Message message, int first = 0, int second = 0) = 0;
    virtual void ShowBalloon(const QString& title, const QString& text) = 0;
    [[nodiscard]] virtual PageLoadState& LoadState() = 0;
    [[nodiscard]] virtual PageSelection& Selection() = 0;
    [[nodiscard]] virtual SettingsStore& Settings() = 0;
};

// A page: a child of the main window's content frame, made hidden at start, living as long as the
// window. Its object name is "dialog N"; its controls are named by their numbers. All calls come on
// the window's thread.
class Page : public QWidget {
    Q_OBJECT
  public:
    Page(PageHost& host, int dialog, QWidget* parent = nullptr);

    // Loads the page; ignored while a load runs (see PageLoad). The navigator calls it at the first
    // show of a page that has a load key, the page's own refresh button at each press, timer 1 of
    // the main window for the dashboard.
    virtual void Load() {}
    // A press of command button 0 to 3 while this page is shown. Nothing while the page is
    // disabled: a change is on its way to the phone, and what follows it comes first.
    void OnCommand(int index);
    // Whether something that the user has asked for is on its way to the phone, and nothing else of
    // this page comes in front of it.
    [[nodiscard]] virtual bool IsAtWork() const { return !isEnabled(); }
    // A message that the main window forwards to this page.
    virtual void OnMessage(Message /*message*/, int /*first*/, int /*second*/) {}
    // Message::dropFiles: full paths of the files dropped on the main window.
    virtual void OnDropFiles(const QStringList& /*paths*/) {}
    // The text of the main window's search box, for the app store page.
    virtual void OnSearch(const QString& /*text*/) {}

    // What stands at the right end of the command row while this page is shown.
    [[nodiscard]] const QString& CountLine() const { return countLine_; }
    void SetCountLine(const QString& text);

  Q_SIGNALS:
    void countLineChanged(const QString& text);
    // The keyboard is to go to a command button, 0 to 3.
    void commandOffered(int index);

  protected:
    // What command button 0 to 3 does.
    virtual void RunCommand(int /*index*/) {}

    [[nodiscard]] PageHost& Host() const { return host_; }
    // Gives a control of this page that has been filled the focus, unless the page is hidden or the
    // user is typing in a field of the window.
    void FocusFilled(QWidget& control) const;
    // Gives the focus, under the same condition, to a command button: it is the next step.
    void OfferCommand(int index);

  private:
    [[nodiscard]] bool MayTakeFocus() const;

    PageHost& host_;
    QString countLine_;
};

}  // namespace quorvi
