#include "app/window/MainDlg.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollArea>
#include <QShortcut>
#include <QUrl>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

#include "app/platform/Notifier.h"
#include "app/platform/RunningInstance.h"
#include "app/window/CaptionBar.h"
#include "app/window/CommandRow.h"
#include "app/window/KeysDlg.h"
#include "app/window/NavigationBar.h"
#include "app/window/ProductName.h"
#include "app/window/StatusStrip.h"
#include "app/window/TabStrip.h"
#include "app/window/WindowPlace.h"
#include "pages/kit/KeptColumns.h"
#include "ui/html/HtmlCtrl.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/ResizeEdges.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/WindowFrame.h"
#include "ui/look/Look.h"
#include "ui/page/OpenGuide.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;

constexpr int kDialog = 102;
constexpr qsizetype kShortestSearch = 2;

// A message on its way to the main window.
class MessageEvent : public QEvent {
  public:
    static constexpr auto kType = static_cast<QEvent::Type>(QEvent::User + 1);
    MessageEvent(Message message, int first, int second)
        : QEvent(kType), message_(message), first_(first), second_(second) {}
    [[nodiscard]] Message Number() const { return message_; }
    [[nodiscard]] int First() const { return first_; }
    [[nodiscard]] int Second() const { return second_; }

  private:
    Message message_;
    int first_;
    int second_;
};

QStringList LocalFiles(const QMimeData& data) {
    QStringList paths;
    const QList<QUrl> urls = data.urls();
    for (const QUrl& url : urls) {
        if (url.isLocalFile()) {
            paths.append(url.toLocalFile());
        }
    }
    return paths;
}

// Tells assistive tools that the main window is a window; they take it for a box otherwise.
QAccessibleInterface* MakeAccessible(const QString& name, QObject* object) {
    if (name == QLatin1StringView(CMainDlg::staticMetaObject.className())) {
        return new QAccessibleWidget(qobject_cast<QWidget*>(object), QAccessible::Window);
    }
    return nullptr;
}

}  // namespace

const std::array<CMainDlg::Handler, 7> CMainDlg::kHandlers = {{
    {Message::tray, &CMainDlg::OnTray},
    {Message::goToPage, &CMainDlg::OnGoToPage},
    {Message::search, &CMainDlg::OnSearch},
    {Message::selectTab, &CMainDlg::OnSelectTab},
    {Message::commandButton, &CMainDlg::OnCommandButton},
    {Message::selectItem, &CMainDlg::OnSelectItem},
    {Message::pageCommand, &CMainDlg::OnPageCommand},
}};

CMainDlg::CMainDlg(MainParts parts)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint),
      parts_(std::move(parts)),
      caption_(new CaptionBar(this)),
      tabs_(new TabStrip(this)),
      bar_(new NavigationBar(this)),
      commands_(new CommandRow(this)),
      content_(new QWidget(this)),
      status_(new StatusStrip(this)),
      pages_(*content_),
      balloons_(parts_.tray, parts_.notifier, *this),
      link_({.status = *status_,
             .balloons = balloons_,
             .sounds = parts_.sounds,
             .connectPhone = parts_.connectPhone,
             .refreshDashboard = [this] { pages_.PageOf(kDashboardPage).Load(); },
             .serial = [this] { return parts_.services.device.Serial(); },
             .trouble = parts_.services.linkTrouble}) {
    QAccessible::installFactory(&MakeAccessible);
    SetDialogNumber(*this, kDialog);
    BuildFrame();
    connect(qApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState to) {
        if (to == Qt::ApplicationActive) {
            content_->update();
        }
    });
    qApp->installEventFilter(this);
}

CMainDlg::~CMainDlg() {
    qApp->removeEventFilter(this);
    parts_.instance.Withdraw();
    parts_.tray.Remove();
}

void CMainDlg::BuildFrame() {
    WindowFrame::Attach(*this);
    const QSize usual(Metric::windowWidth, Metric::windowHeight);
    const QSize least(Metric::windowLeastWidth, Metric::windowLeastHeight);
    place_ = new WindowPlace(
        *this, parts_.settings,
        {.usual = WindowFrame::Around(*this, usual), .least = WindowFrame::Around(*this, least)});
    setAcceptDrops(true);

    // What a small window cannot show of a page is scrolled to; all around the pages stays.
    auto* view = new QScrollArea(this);
    view->setFrameShape(QFrame::NoFrame);
    view->setFocusPolicy(Qt::NoFocus);
    view->setWidgetResizable(true);
    view->setWidget(content_);
    content_->setObjectName(QStringLiteral("content"));
    content_->setMinimumWidth(Metric::pageLeastWidth);
    bar_->WatchTasks(parts_.services.taskCount);

    auto* tabRow = new QHBoxLayout;
    tabRow->setContentsMargins(Metric::tabsX, 0, 0, 0);
    tabRow->addWidget(tabs_);
    tabRow->addStretch(1);

    auto* pageColumn = new QVBoxLayout;
    pageColumn->setContentsMargins(Metric::pageInset,
                                   Metric::commandsY - Metric::captionHeight - Metric::tabsHeight,
                                   Metric::pageInset, Metric::contentBottom);
    pageColumn->setSpacing(Metric::contentY - Metric::commandsY - Metric::buttonHeight);
    pageColumn->addWidget(commands_);
    pageColumn->addWidget(view, 1);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(caption_, 0, 0, 1, 2);
    grid->addLayout(tabRow, 1, 0, 1, 2);
    grid->addWidget(bar_, 2, 0);
    grid->addLayout(pageColumn, 2, 1);
    grid->addWidget(status_, 3, 0, 1, 2);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(1, 1);

    tabs_->setFocus();
    ResizeEdges::Attach(*this);

    connect(caption_, &CaptionBar::pressed, this, &CMainDlg::OnCaptionButton);
    connect(caption_, &CaptionBar::searchAsked, this, [this] { Post(Message::search); });
    connect(tabs_, &TabStrip::chosen, this, [this](int tab) { Post(Message::selectTab, 0, tab); });
    connect(bar_, &NavigationBar::chosen, this,
            [this](int item) { Post(Message::selectItem, 0, item); });
    connect(commands_, &CommandRow::pressed, this,
            [this](int index) { Post(Message::commandButton, 0, index); });

    // A shortcut, so that it is a letter to a field that has the focus, in the window or in a page
    // of the store. Keyboards differ in whether it needs Shift.
    auto* keys = new QShortcut(this);
    keys->setKeys({Qt::Key_Question, Qt::SHIFT | Qt::Key_Question});
    keys->setAutoRepeat(false);
    connect(keys, &QShortcut::activated, this, [this] {
        auto* dialog = new KeysDlg(this);
        KeepColumnsOf(*dialog, Settings());
        dialog->Open();
    });
}

void CMainDlg::OnInitDialog() {
    parts_.instance.Announce([this] { OnSecondStart(); });

    parts_.tray.Listen({
        [this](TrayMouse mouse) { Post(Message::tray, 0, static_cast<int>(mouse)); },
        [this](TrayCommand command) { OnTrayCommand(command); },
        [this] { OnTrayRecreated(); },
    });
    parts_.notifier.Listen(
        [this] { Post(Message::tray, 0, static_cast<int>(TrayMouse::leftDown)); });
    parts_.tray.Add(WelcomeText());
    Welcome();

    setWindowIcon(QIcon(QStringLiteral(":/icons/logo.svg")));
    setWindowTitle(ToQString(kProductName));
    pages_.Build(parts_.makers, *this, parts_.services);
    ShowPage(FindPage(kDashboardPage.page));
    place_->Restore();
    parts_.watchUsb();
    link_.ConnectPhone(false);
}

void CMainDlg::EndDialog() {
    if (ending_) {
        return;
    }
    ending_ = true;
    hide();
    parts_.tray.Remove();
    parts_.instance.Withdraw();
    place_->StoreThen(parts_.endProcess);
}

// ---- messages ----------------------------------------------------------------------------------

void CMainDlg::Post(Message message, int first, int second) {
    QCoreApplication::postEvent(this, new MessageEvent(message, first, second));
}

bool CMainDlg::event(QEvent* event) {
    if (event->type() != MessageEvent::kType) {
        return QWidget::event(event);
    }
    const auto* sent = static_cast<const MessageEvent*>(event);
    const auto* handler = std::ranges::find(kHandlers, sent->Number(), &Handler::message);
    if (handler != kHandlers.end()) {
        (this->*handler->take)(sent->First(), sent->Second());
    }
    return true;
}

void CMainDlg::OnGoToPage(int first, int second) {
    if (const PageRow* row = navigation_.GoToPage(first, second)) {
        tabs_->Select(first);
        ShowPage(row);
    }
}

void CMainDlg::OnSelectTab(int /*first*/, int second) {
    if (const PageRow* row = navigation_.SelectTab(second)) {
        tabs_->Select(second);
        ShowPage(row);
    }
}

void CMainDlg::OnSelectItem(int /*first*/, int second) {
    ShowPage(navigation_.SelectItem(second));
}

// The one place that turns a page number into what is shown.
void CMainDlg::ShowPage(const PageRow* row) {
    if (row == nullptr) {
        return;
    }
    pages_.Show(*row);
    dropRepeats_ = true;
    commands_->Show(*row, pages_.IsBuilt(*row), pages_.PageOf(*row));
    bar_->Show(TabOf(*row), ItemOf(*row));
    pages_.LoadAtFirstShow(*row, loadState_);
}

void CMainDlg::OnCommandButton(int /*first*/, int second) {
    if (const PageRow* row = FindPage(MainPage())) {
        pages_.RunCommand(*row, second);
    }
}

void CMainDlg::OnSearch(int /*first*/, int /*second*/) {
    const QString text = caption_->Search().text();
    if (text.toUcs4().size() < kShortestSearch) {
        ShowBalloon(ToQString(u8"Quorvi软件店搜索"),
                    ToQString(u8"关键字【%1】过短，请换个长些的").arg(text));
        return;
    }
    pages_.PageOf(kStorePage).OnSearch(text);
    Post(Message::goToPage, TabOf(kStorePage), kStorePage.page);
}

void CMainDlg::OnPageCommand(int first, int second) {
    switch (static_cast<PageCommand>(first)) {
        case PageCommand::openDeviceManager:
            RunDeviceManager({}, [] {});
            break;
        case PageCommand::openStoreItem:
            ForwardToPage(kStorePage, Message::openStoreItem, second);
            break;
        case PageCommand::captureScreen:
            ForwardToPage(kScreenshotPage, Message::startCapture, second);
            break;
        case PageCommand::takeNextPackage:
            pages_.PageOf(kDownloadsPage).Load();
            break;
        case PageCommand::writeToNumber:
            pages_.PageOf(kMessagesPage).OnMessage(Message::takeNumber, 0, 0);
            break;
        case PageCommand::addNumber:
            pages_.PageOf(kContactsPage).OnMessage(Message::takeNumber, 0, 0);
            break;
        case PageCommand::repaintContent:
            content_->update();
            break;
    }
}

void CMainDlg::ForwardToPage(const PageNumbers& page, Message message, int second) {
    OnGoToPage(TabOf(page), page.page);
    pages_.PageOf(page).OnMessage(message, 0, second);
}

void CMainDlg::RunDeviceManager(const QString& title, std::function<void()> done) {
    parts_.openDeviceManager(this, title, std::move(done));
}

// ---- caption, keys, drops ----------------------------------------------------------------------

void CMainDlg::OnCaptionButton(int control) {
    switch (control) {
        case CaptionBar::kClose:
            EndDialog();
            break;
        case CaptionBar::kMinimise:
            showMinimized();
            break;
        case CaptionBar::kMaximise:
            // Kept on purpose: the button belongs to the caption, and in this product its command
            // does nothing at all (MainWindow.TheMaximiseButtonDoesNothingAtAll).
            break;
        case CaptionBar::kDeviceManager:
            RunDeviceManager({}, [] {});
            break;
        case CaptionBar::kDownloads:
            Post(Message::goToPage, 0, kDownloadsPage.page);
            break;
        default:
            break;
    }
}

void CMainDlg::closeEvent(QCloseEvent* event) {
    event->ignore();
    EndDialog();
}

// F1 opens the guide. Swallows Escape everywhere in the window and Enter outside the search box, so
// that neither closes it. An HTML view lets Enter no further than to its links. A key that changed
// the page and is still held does nothing in the page, to which the focus has gone. A dialog over
// the window is a window of its own and gets its keys.
bool CMainDlg::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto* widget = qobject_cast<QWidget*>(object);
        if (widget != nullptr && widget->window() == this) {
            const auto* press = static_cast<QKeyEvent*>(event);
            if (!press->isAutoRepeat()) {
                dropRepeats_ = false;
            } else if (dropRepeats_) {
                return true;
            }
            const int key = press->key();
            if (key == Qt::Key_F1) {
                OpenGuide(this, [this] { SetStatus(ToQString(kGuideNotOpened)); });
                return true;
            }
            const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
            if (key == Qt::Key_Escape ||
                (enter && widget != &caption_->Search() && !CHtmlCtrlBase::Holds(*widget))) {
                return true;
            }
        }
    }
    return QWidget::eventFilter(object, event);
}

void CMainDlg::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    if (event->button() != Qt::LeftButton ||
        at.y() >= contentsRect().top() + Metric::captionHeight) {
        QWidget::mousePressEvent(event);
        return;
    }
    if (!StartSystemMove()) {
        dragFrom_ = at;
    }
}

void CMainDlg::mouseMoveEvent(QMouseEvent* event) {
    if (dragFrom_) {
        move(event->globalPosition().toPoint() - *dragFrom_);
    }
}

void CMainDlg::mouseReleaseEvent(QMouseEvent*) {
    dragFrom_.reset();
}

bool CMainDlg::StartSystemMove() {
    return windowHandle() != nullptr && windowHandle()->startSystemMove();
}

void CMainDlg::dragEnterEvent(QDragEnterEvent* event) {
    if (!LocalFiles(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void CMainDlg::dropEvent(QDropEvent* event) {
    const QStringList files = LocalFiles(*event->mimeData());
    event->acceptProposedAction();
    pages_.PageOf(kFilesPage).OnDropFiles(files);
    pages_.PageOf(kDownloadsPage).OnDropFiles(files);
}

// ---- shape -------------------------------------------------------------------------------------

// Paints the grounds of all strips, which the strips do not paint themselves: the outer ones must
// leave the window's round corners free, and only the window knows where these are.
void CMainDlg::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    WindowFrame::Paint(painter, *this);
    const QRect inside = contentsRect();
    const QRect top(inside.topLeft(), QSize(inside.width(), Metric::captionHeight));
    const QRect tabs = top.translated(0, top.height())
                           .adjusted(0, 0, 0, Metric::tabsHeight - Metric::captionHeight);
    const QRect foot = inside.adjusted(0, inside.height() - Metric::statusHeight, 0, 0);
    const QRect bar(inside.left(), tabs.bottom() + 1, Metric::navWidth,
                    foot.top() - tabs.bottom() - 1);
    QLinearGradient shade(tabs.topLeft(), tabs.bottomLeft());
    shade.setColorAt(0, look::color(Color::chrome1));
    shade.setColorAt(1, look::color(Color::chrome2));

    look::fill(painter, inside, look::color(Color::page));
    look::fill(painter, top, look::color(Color::chrome1));
    painter.fillRect(tabs, shade);
    look::bottomLine(painter, tabs, look::color(Color::line));
    look::fill(painter, bar, look::color(Color::surface));
    look::leftLine(painter, bar.translated(bar.width() - Metric::hairline, 0),
                   look::color(Color::line));
    look::fill(painter, foot, look::color(Color::chrome2));
    look::topLine(painter, foot, look::color(Color::line));
}

void CMainDlg::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layout()->activate();
    pages_.FillFrame();
}

// ---- hiding, tray, balloons --------------------------------------------------------------------

// After a start with "/hide" the window hides itself at each first frame, until an action of the
// user at the tray clears the mark. A second start does not clear it, so it shows the window for an
// instant only: kept on purpose, since autostart and links start the program without asking for the
// window (MainWindow.AfterAHiddenStartASecondStartShowsTheWindowForAnInstantOnly).
void CMainDlg::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (startHidden_) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (startHidden_) {
                    hide();
                }
            },
            Qt::QueuedConnection);
    }
}

void CMainDlg::ShowByUser() {
    startHidden_ = false;
    if (isMinimized()) {
        showNormal();
    } else {
        show();
    }
    raise();
    activateWindow();
}

void CMainDlg::OnSecondStart() {
    showNormal();
    raise();
    activateWindow();
}

void CMainDlg::SetStatus(const QString& text) {
    status_->SetStatus(text);
}

void CMainDlg::TakeBackStatus(const QString& text) {
    status_->TakeBackStatus(text);
}

}  // namespace quorvi
