#include "pages/contacts/ContactPage.h"

#include <QHBoxLayout>
#include <utility>

#include "agent/AgentSession.h"
#include "pages/contacts/ContactEditDlg.h"
#include "pages/contacts/ContactFragment.h"
#include "pages/kit/CountLine.h"
#include "pages/kit/ViewSentences.h"
#include "ui/html/HtmlFrame.h"
#include "ui/html/HtmlTemplate.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinMenu.h"
#include "ui/list/ListSort.h"
#include "ui/page/PageKeys.h"

namespace quorvi {

using look::Metric;

namespace {

constexpr int kList = 1067;
constexpr int kView = 1370;

enum MenuCommand { menuAdd = 1, menuEdit, menuDelete, menuExportTicked };

std::vector<std::uint32_t> IdsOf(const std::vector<ContactListRow>& contacts) {
    std::vector<std::uint32_t> ids;
    for (const ContactListRow& contact : contacts) {
        ids.push_back(contact.contactId);
    }
    return ids;
}

}  // namespace

CContactPage::CContactPage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      agent_(services.agent),
      unsaved_(services.device),
      toAdd_(services.numbersToAdd),
      list_(SetControlNumber(new CContactListCtrl(this), kList, ToQString(u8"联系人"))),
      road_(
          {.host = host,
           .window = *this,
           .controls = *this,
           .agent = services.agent,
           .loadKey = kNumbers.loadKey},
          list_,
          [attribution = services.attribution](const AgentSession& session,
                                               const AgentSession::Progress& progress) {
              return Ranked(FetchContactList(session, attribution, progress));
          },
          [this] { SelectFirst(); }),
      transfers_(
          host, *this, FileKind::contacts,
          {.write = [agent = agent_](
                        const std::filesystem::path& file,
                        const TransferWatch& watch) { return ExportContacts(agent, file, watch); },
           .read =
               [agent = agent_](const ImportContent& content, ImportMode mode,
                                const TransferWatch& watch) {
                   return ImportContacts(agent, content, mode, watch);
               },
           .refresh = [this] { RefreshContacts(); }}),
      view_(new CHtmlCtrlFix(kView, HtmlContent::local, *this, this)),
      frame_(new HtmlFrame(*view_, this)) {
    ShowCount(*this, *list_);
    list_->EnableFind();
    SayWhenEmpty(*list_, u8"手机上没有联系人，或者还没有获取");
    SayWhenFailed(*list_, u8"重新获取");
    view_->setAccessibleName(ToQString(u8"联系人详细信息"));
    view_->LoadFromResource(kContactTemplate);
    frame_->SetFilled();  // the template says what to do while nothing is selected
    frame_->ShowFocus();

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(Metric::gap2);
    row->addWidget(list_, Metric::contactList);
    row->addWidget(frame_, Metric::contactDetail);

    HeedKeys(*this, {.refresh = [this] { RefreshContacts(); },
                     .add = [this] { AddContact(); },
                     .list = list_,
                     .erase = [this] { DeleteChosen(); }});
    detailTimer_.setSingleShot(true);
    connect(&detailTimer_, &QTimer::timeout, this, [this] { fillMissed_ = !FetchDetail(); });
    connect(list_, &CSkinListCtrl::rowClicked, this, &CContactPage::Select);
    // The selection by key leads to the same as a click.
    connect(list_, &CSkinListCtrl::rowSelected, this, [this](int selected) {
        if (!selecting_) {
            Select(selected);
        }
    });
    connect(list_, &CSkinListCtrl::rowOpened, this, &CContactPage::EditSelected);
    connect(list_, &CSkinListCtrl::menuAsked, this,
            [this](int, const QPoint& at) { OpenMenu(at); });
}

void CContactPage::SelectFirst() {
    const int top = list_->TopRow();
    if (const ContactListRow* first = list_->RecordAt(top)) {
        Host().Selection().Set(PageSelection::kContact, first->contactId);
        FocusFilled(*list_);
        selecting_ = true;
        list_->SelectRow(top);
        selecting_ = false;
    }
    detailTimer_.start(0);
}

void CContactPage::Select(int row) {
    if (const ContactListRow* contact = list_->RecordAt(row)) {
        Host().Selection().Set(PageSelection::kContact, contact->contactId);
        RefreshDetail();
    }
}

std::uint32_t CContactPage::SelectedContact() const {
    return Host().Selection().Id(PageSelection::kContact).value_or(0);
}

bool CContactPage::FetchDetail() {
    return detailLoad_.Start(
        [this] { frame_->SetState(ListState::loading); },
        [agent = agent_, id = SelectedContact(), document = view_->Document()] {
            const ContactReply reply = FetchContact(AgentSession(agent), id);
            if (reply.record) {
                document.SetInnerHtml("block", ContactFragment(*reply.record));
            }
            return reply.outcome;
        },
        [this, id = SelectedContact()](SessionOutcome outcome) {
            frame_->SetState(ListState::idle);
            ShowLoadOutcome(Host(), outcome);
            // What was dropped meanwhile is made up for, in another turn: this one is not over.
            if (std::exchange(fillMissed_, false) || id != SelectedContact()) {
                PostToWindow(this, [this] { RefreshDetail(); });
            }
        });
}

void CContactPage::RunCommand(int index) {
    switch (index) {
        case commandRefresh:
            RefreshContacts();
            break;
        case commandAdd:
            AddContact();
            break;
        case commandGroups:
            OpenGroups();
            break;
        case commandDelete:
            DeleteTicked();
            break;
        default:
            break;
    }
}

void CContactPage::OpenMenu(const QPoint& at) {
    auto* menu = new CSkinMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->SetStrip(QStringList{QStringLiteral("add-contact"), QStringLiteral("edit"),
                               QStringLiteral("delete")} +
                   FileTransfers::Icons());
    menu->AddItem(CSkinMenu::normal, menuAdd, 0, ToQString(u8"添加联系人"));
    menu->AddItem(CSkinMenu::normal, menuEdit, 1, ToQString(u8"修改选择的"));
    menu->AddItem(CSkinMenu::normal, menuDelete, 2, ToQString(u8"删除选择的"));
    if (const std::size_t ticked = list_->TickedRecords().size(); ticked > 0) {
        menu->AddItem(transfers_.AtWork() ? CSkinMenu::disabled : CSkinMenu::normal,
                      menuExportTicked, 3, ToQString(u8"导出勾选的 %1 个联系人…").arg(ticked));
    }
    transfers_.AddItems(*menu, 3);
    menu->addSeparator();
    list_->Sorting()->AddOrders(*menu);
    connect(menu, &CSkinMenu::commandChosen, this, [this](int command) {
        if (!isEnabled() || transfers_.Take(command)) {
            return;
        }
        switch (command) {
            case menuAdd:
                AddContact();
                break;
            case menuEdit:
                EditSelected();
                break;
            case menuDelete:
                DeleteSelected();
                break;
            case menuExportTicked:
                ExportTicked();
                break;
            default:
                break;
        }
    });
    menu->popup(at);
}

void CContactPage::ExportTicked() {
    transfers_.AskAndExport(ToQString(u8"联系人"),
                            [agent = agent_, ids = IdsOf(list_->TickedRecords())](
                                const std::filesystem::path& file, const TransferWatch& watch) {
                                return ExportContacts(agent, file, watch, ids);
                            });
}

void CContactPage::AddContact() {
    auto* editor = new CContactEditDlg(Host(), this, agent_);
    if (unsavedNew_) {
        editor->Resume(*unsavedNew_);
    }
    editor->Open([this, editor](int result) {
        unsavedNew_ = editor->Unsaved();
        EndEditor(result);
    });
}

void CContactPage::OnMessage(Message message, int /*first*/, int /*second*/) {
    if (message == Message::takeNumber) {
        if (const auto number = toAdd_.Take()) {
            AddNumber(*number);
        }
    }
}

void CContactPage::AddNumber(const std::string& number) {
    auto* editor = new CContactEditDlg(Host(), this, agent_);
    if (const auto form = unsavedNumbers_.extract(number)) {
        editor->Resume(form.mapped());
    } else {
        editor->BeginWithNumber(number);
    }
    editor->Open([this, editor, number](int result) {
        if (editor->Unsaved()) {
            unsavedNumbers_[number] = *editor->Unsaved();
        }
        EndEditor(result);
    });
}

void CContactPage::EditSelected() {
    if (const ContactListRow* contact = list_->CurrentRecord()) {
        auto* editor = new CContactEditDlg(Host(), contact->contactId, this, agent_);
        Unsaved& here = unsaved_.Here();
        if (const auto form = here.contacts.extract(contact->contactId)) {
            editor->Resume(form.mapped());
        }
        editor->Open([this, editor, id = contact->contactId, &here](int result) {
            if (editor->Unsaved()) {
                here.contacts[id] = *editor->Unsaved();
            }
            EndEditor(result);
        });
    }
}

void CContactPage::OpenGroups() {
    auto* groups = new CContactGroupDlg(Host(), this, agent_);
    Unsaved& here = unsaved_.Here();
    groups->Resume(here.groups);
    groups->Open([groups, &here](int) { here.groups = groups->Unsaved(); });
}

void CContactPage::EndEditor(int result) {
    if (result == QDialog::Accepted) {
        // A page that has not been shown yet loads when it is.
        if (isVisible() || Host().LoadState().Contains(kNumbers.loadKey)) {
            RefreshContacts();
        }
    } else {
        list_->viewport()->update();
        view_->update();
    }
}

void CContactPage::DeleteTicked() {
    Delete(list_->TickedRows());
}

void CContactPage::DeleteSelected() {
    if (list_->CurrentRecord() != nullptr) {
        Delete({list_->CurrentRow()});
    }
}

void CContactPage::Delete(const std::vector<int>& rows) {
    const std::vector<ContactListRow> contacts = list_->RecordsOf(rows);
    road_.Delete({.ids = IdsOf(contacts),
                  .rows = contacts,
                  .names = list_->NamesOf(rows, MarkedRow::leftOut),
                  .question = u8"您真的要删除选择的【 %1 】条联系人吗？",
                  .said = u8"已删除 %1 个联系人",
                  .request = &DeleteContactsRequest});
}

}  // namespace quorvi
