#include "pages/bookmarks/BookmarkPage.h"

#include <QUrl>
#include <QVBoxLayout>
#include <initializer_list>

#include "pages/bookmarks/BookmarkAddress.h"
#include "pages/bookmarks/BookmarkEditDlg.h"
#include "pages/bookmarks/BookmarkSyncDlg.h"
#include "pages/kit/CountLine.h"
#include "pages/kit/ViewSentences.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"
#include "ui/kit/SkinMenu.h"
#include "ui/page/OpenOnDesktop.h"
#include "ui/page/PageKeys.h"

namespace quorvi {
namespace {

constexpr int kList = 1074;
constexpr int kStore = 1073;
constexpr int kUpdateCache = 1075;
constexpr int kSync = 1076;

enum MenuCommand { menuVisit = 1, menuEdit };

constexpr std::u8string_view kNoProgram = u8"【X】电脑上没有能打开这个网址的程序";

// An address in which nothing is hidden: what cannot be seen in it, and what would turn round the
// order in which it is read, is written out.
QString WrittenOut(const QString& address) {
    QString shown;
    for (const QChar c : address) {
        switch (c.category()) {
            case QChar::Other_Control:
            case QChar::Other_Format:
            case QChar::Separator_Line:
            case QChar::Separator_Paragraph:
                shown += QString::fromLatin1(QUrl::toPercentEncoding(c));
                break;
            default:
                shown += c;
        }
    }
    return shown;
}

}  // namespace

CBookmarkPage::CBookmarkPage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      agent_(services.agent),
      list_(SetControlNumber(new CBookmarkListCtrl(this), kList, ToQString(u8"书签"))),
      road_({.host = host,
             .window = *this,
             .controls = *this,
             .agent = services.agent,
             .loadKey = kNumbers.loadKey},
            list_, &FetchBookmarkList),
      unsaved_(services.device),
      transfers_(
          host, *this, FileKind::bookmarks,
          {.write = [agent = agent_](
                        const std::filesystem::path& file,
                        const TransferWatch& watch) { return ExportBookmarks(agent, file, watch); },
           .read =
               [agent = agent_](const ImportContent& content, ImportMode mode,
                                const TransferWatch& watch) {
                   return ImportBookmarks(agent, content, mode, watch);
               },
           .refresh = [this] { RefreshBookmarks(); }}) {
    SayWhenEmpty(*list_, u8"手机上没有书签，或者还没有获取");
    SayWhenFailed(*list_, u8"刷新书签项");
    ShowCount(*this, *list_);
    list_->EnableFind();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(list_);
    MakeHiddenControls();

    list_->SetObserver(this);
    HeedKeys(*this, {.refresh = [this] { RefreshBookmarks(); },
                     .add = [this] { AddBookmark(); },
                     .list = list_,
                     .erase = [this] { DeleteChosen(); }});
    connect(list_, &CSkinListCtrl::rowClicked, this, &CBookmarkPage::Select);
    // The selection by key leads to the same as a click.
    connect(list_, &CSkinListCtrl::rowSelected, this, &CBookmarkPage::Select);
    connect(list_, &CSkinListCtrl::rowOpened, this, [this](int row) {
        if (list_->RecordAt(row) != nullptr) {
            Select(row);
            EditSelected();
        }
    });
    connect(list_, &CSkinListCtrl::menuAsked, this, &CBookmarkPage::OpenMenu);
}

void CBookmarkPage::MakeHiddenControls() {
    const QString type = ToQString(u8"显示类型");
    auto* store = SetControlNumber(new CSkinCombo(this), kStore, type);
    for (const std::u8string_view entry : kBookmarkStores) {
        store->addItem(ToQString(entry));
    }
    const QString update = ToQString(u8"更新缓存");
    const QString sync = ToQString(u8"同步书签");
    auto* syncButton = SetControlNumber(new CSkinButton(sync, this), kSync, sync);
    connect(syncButton, &QAbstractButton::clicked, this,
            [this] { (new CBookmarkSyncDlg(this))->Open(); });
    for (QWidget* control : std::initializer_list<QWidget*>{
             new FormCaption(type, this), store,
             SetControlNumber(new CSkinButton(update, this), kUpdateCache, update), syncButton}) {
        control->hide();
    }
}

void CBookmarkPage::Select(int row) {
    if (const BookmarkRow* bookmark = list_->RecordAt(row)) {
        Host().Selection().Set(PageSelection::kBookmark, bookmark->id);
        selected_ = FormOf(*bookmark);
    }
}

void CBookmarkPage::OnLinkClicked(int /*kind*/, int row) {
    if (const BookmarkRow* bookmark = list_->RecordAt(row)) {
        Visit(*bookmark);
    }
}

void CBookmarkPage::Visit(const BookmarkRow& bookmark) {
    const QString address = ToQString(bookmark.url);
    switch (OpeningOf(bookmark.url)) {
        case AddressOpening::nothing:
            break;
        case AddressOpening::atOnce:
            OpenAddress(address);
            break;
        case AddressOpening::askFirst:
            NewQuestion(bookmark.url, this)->Open([this, address](int result) {
                if (result == QDialog::Accepted) {
                    OpenAddress(address);
                }
            });
            break;
    }
}

SkinDialog* CBookmarkPage::NewQuestion(std::string_view url, QWidget* parent) {
    auto* question =
        new ConsentDlg(ToQString(u8"这个书签不是网页，真的要在电脑上打开吗？"), ToQString(u8"打开"),
                       ToQString(u8"不打开"), look::ButtonKind::plain, parent);
    question->Quote(WrittenOut(ToQString(url)), ToQString(u8"网址"));
    return question;
}

void CBookmarkPage::OpenAddress(const QString& address) {
    const QString failure = ToQString(kNoProgram);
    if (OpenOnDesktop(address)) {
        Host().TakeBackStatus(failure);
    } else {
        Host().SetStatus(failure);
    }
}

void CBookmarkPage::OpenMenu(int row, const QPoint& at) {
    auto* menu = new CSkinMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->SetStrip(QStringList{QStringLiteral("open-external"), QStringLiteral("edit")} +
                   FileTransfers::Icons());
    if (const BookmarkRow* bookmark = list_->RecordAt(row)) {
        menu->AddItem(bookmark->url.empty() ? CSkinMenu::disabled : CSkinMenu::normal, menuVisit, 0,
                      ToQString(u8"立即访问"));
        menu->AddItem(CSkinMenu::normal, menuEdit, 1, ToQString(u8"修改选择的"));
    }
    transfers_.AddItems(*menu, 2);
    connect(menu, &CSkinMenu::commandChosen, this, [this](int command) {
        const BookmarkRow* current = list_->CurrentRecord();
        if (!isEnabled() || transfers_.Take(command)) {
            return;
        }
        if (command == menuVisit && current != nullptr) {
            Visit(*current);
        } else if (command == menuEdit) {
            EditSelected();
        }
    });
    menu->popup(at);
}

void CBookmarkPage::RunCommand(int index) {
    switch (index) {
        case commandRefresh:
            RefreshBookmarks();
            break;
        case commandAdd:
            AddBookmark();
            break;
        case commandEdit:
            EditSelected();
            break;
        case commandDelete:
            DeleteTicked();
            break;
        default:
            break;
    }
}

void CBookmarkPage::AddBookmark() {
    unsaved_.OpenNew(new CBookmarkEditDlg(Host(), this, agent_), [this] { RefreshBookmarks(); });
}

void CBookmarkPage::EditSelected() {
    const auto id = Host().Selection().Id(PageSelection::kBookmark);
    if (!id) {
        return;
    }
    unsaved_.OpenOf(new CBookmarkEditDlg(Host(), *id, selected_, this, agent_), *id, selected_,
                    [this] { RefreshBookmarks(); });
}

void CBookmarkPage::DeleteTicked() {
    Delete(list_->TickedRows());
}

void CBookmarkPage::Delete(const std::vector<int>& rows) {
    road_.Delete({.ids = list_->OfRows(rows, &BookmarkRow::id, MarkedRow::leftOut),
                  .rows = list_->RecordsOf(rows),
                  .names = list_->NamesOf(rows, MarkedRow::leftOut),
                  .question = u8"您真的要删除选择的【 %1 】条浏览器书签项吗？",
                  .said = u8"已删除 %1 个书签",
                  .request = &DeleteBookmarksRequest});
}

}  // namespace quorvi
