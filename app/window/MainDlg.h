// The main window: the frame around the pages, and the window's part in the link, the tray and the
// end of the process. Start here for everything that the user sees.
#pragma once

#include <QWidget>
#include <array>
#include <functional>
#include <optional>

#include "app/platform/Tray.h"
#include "app/window/Balloons.h"
#include "app/window/LinkDisplay.h"
#include "app/window/Navigation.h"
#include "app/window/PageFactory.h"
#include "app/window/PageStack.h"
#include "ui/page/Page.h"

namespace quorvi {

class CaptionBar;
class CommandRow;
class NavigationBar;
class Notifier;
class RunningInstance;
class Sounds;
class StatusStrip;
class TabStrip;
class WindowPlace;

// What the window stands on. All outlive it.
struct MainParts {
    SettingsStore& settings;
    Tray& tray;
    Notifier& notifier;
    Sounds& sounds;
    RunningInstance& instance;
    Services services;
    PageMakers makers;
    QString siteAddress;  // of the product, for the welcome

    // Starts the link procedure and returns at once; `delay`: wait before, as after a USB arrival.
    std::function<void(bool delay)> connectPhone;
    // Starts the watch for phones, on the cable and in adb's list, which tells what it sees to
    // Link(). Where that fails the program goes on without it.
    std::function<void()> watchUsb;
    // Opens the device manager dialog, modal to the window, and returns at once; an empty title
    // leaves the dialog's own. `done` is called when it has ended.
    std::function<void(QWidget* parent, const QString& title, std::function<void()> done)>
        openDeviceManager;
    // Ends the process, waiting for nobody.
    std::function<void()> endProcess;
};

// The frame, and the messages between the pages and the window. The pages themselves stand in a
// PageStack, what is shown of the link in a LinkDisplay. Without a frame of the desktop's, usually
// 960 by 640; where it stands is a WindowPlace's. The window's thread.
class CMainDlg : public QWidget, public PageHost {
    Q_OBJECT
  public:
    explicit CMainDlg(MainParts parts);
    ~CMainDlg() override;

    // `hidden`: from "/hide". Stays set until an action of the user shows the window; while it is
    // set, the window hides itself at each first frame.
    void SetStartHidden(bool hidden) { startHidden_ = hidden; }
    [[nodiscard]] bool StartHidden() const { return startHidden_; }

    // Tray icon, pages, page 0, USB events, link: in this order. Once, before the first show.
    void OnInitDialog();
    // Ends the process: takes the tray icon and the running instance's socket away before.
    void EndDialog();

    // Takes what the link and the USB watch bring, on the window's thread.
    [[nodiscard]] LinkDisplay& Link() { return link_; }
    void RunDeviceManager(const QString& title, std::function<void()> done);

    // PageHost
    void SetStatus(const QString& text) override;
    void TakeBackStatus(const QString& text) override;
    void Post(Message message, int first = 0, int second = 0) override;
    void ShowBalloon(const QString& title, const QString& text) override;
    [[nodiscard]] PageLoadState& LoadState() override { return loadState_; }
    [[nodiscard]] PageSelection& Selection() override { return selection_; }
    [[nodiscard]] SettingsStore& Settings() override { return parts_.settings; }

    // The page number that is shown, and its window.
    [[nodiscard]] int MainPage() const { return navigation_.MainPage(); }
    [[nodiscard]] Page* ShownPage() const { return pages_.Shown(); }
    [[nodiscard]] Page* PageOfDialog(int dialog) const { return pages_.PageOfDialog(dialog); }
    // What its pages are made from.
    [[nodiscard]] const Services& PageServices() const { return parts_.services; }
    // Takes away a balloon that stands inside the window.
    void HideBalloon() { balloons_.HideCard(); }

    bool eventFilter(QObject* object, QEvent* event) override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    // Has the desktop move the window with the pointer; false where it cannot.
    virtual bool StartSystemMove();

  private:
    struct Handler {
        Message message;
        void (CMainDlg::*take)(int first, int second);
    };
    static const std::array<Handler, 7> kHandlers;

    void BuildFrame();

    // What each message does.
    void OnTray(int first, int second);
    void OnGoToPage(int first, int second);
    void OnSearch(int first, int second);
    void OnSelectTab(int first, int second);
    void OnCommandButton(int first, int second);
    void OnSelectItem(int first, int second);
    void OnPageCommand(int first, int second);

    void OnCaptionButton(int control);
    void OnTrayCommand(TrayCommand command);
    void OnTrayRecreated();
    void OnSecondStart();
    void ShowPage(const PageRow* row);
    void ForwardToPage(const PageNumbers& page, Message message, int second);
    void ShowByUser();
    void Welcome();
    [[nodiscard]] QString WelcomeText() const;

    MainParts parts_;
    Navigation navigation_;
    PageLoadState loadState_;
    PageSelection selection_;
    bool startHidden_ = false;
    bool ending_ = false;
    bool dropRepeats_ = false;  // of the key that is held since the page changed
    // While the window is dragged on a desktop that does not do it: where in the window the pointer
    // is.
    std::optional<QPoint> dragFrom_;

    // In the order in which the Tab key goes through them.
    CaptionBar* const caption_;
    TabStrip* const tabs_;
    NavigationBar* const bar_;
    CommandRow* const commands_;
    QWidget* const content_;
    StatusStrip* const status_;
    WindowPlace* place_;
    PageStack pages_;
    Balloons balloons_;
    LinkDisplay link_;
};

}  // namespace quorvi
