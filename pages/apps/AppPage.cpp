#include "pages/apps/AppPage.h"

#include <QVBoxLayout>
#include <utility>

#include "pages/apps/AppActions.h"
#include "pages/kit/CountLine.h"
#include "pages/kit/PageSession.h"
#include "pages/kit/ShownNames.h"
#include "pages/kit/ViewSentences.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinMenu.h"
#include "ui/page/DisabledJob.h"
#include "ui/page/PageKeys.h"

namespace quorvi {

using look::Metric;

namespace {

constexpr int kHideSystem = 1043;

constexpr std::u8string_view kNotUninstalled = u8"【X】“%1”没有卸载：%2";
constexpr std::u8string_view kWaiting = u8"【X】没有找到手机，接上手机后会卸载“%1”";
constexpr std::u8string_view kNoPackageName = u8"它的包名不合规范，请在手机上卸载";

InstalledApp AppOf(const AppRecord& row) {
    return {row.name, row.package};
}

}  // namespace

// What the phone is, where it was asked.
struct CAppPage::Identified {
    bool asked = false;
    SessionOutcome outcome = SessionOutcome::noData;
    DeviceIdentity identity;
};

CAppPage::CAppPage(PageHost& host, const Services& services, QWidget* parent, LinkEnvironment adb)
    : Page(host, kNumbers.dialog, parent),
      agent_(services.agent),
      site_(services.deployment),
      load_(*this, host.LoadState(), kNumbers.loadKey),
      storeCheck_(*this),
      list_(new AppListCtrl(this)),
      uninstaller_(std::make_shared<Uninstaller>(
          std::move(adb),
          [this, page = QPointer<QObject>(this)](UninstallEnd&& end) {
              PostToWindow(page, [this, end = std::move(end)] { OnUninstalled(end); });
          },
          [this, page = QPointer<QObject>(this)](const InstalledApp& app) {
              PostToWindow(page, [this, name = app.name] { SayThatAdbWaits(name); });
          })) {
    list_->setObjectName(QStringLiteral("appList"));
    list_->setAccessibleName(ToQString(u8"手机上的应用"));
    SayWhenEmpty(*list_, u8"手机上没有应用，或者还没有获取");
    SayWhenFailed(*list_, u8"重新获取应用");
    ShowCount(*this, *list_);
    HeedKeys(
        *this,
        {.refresh = [this] { Refresh(); }, .list = list_, .erase = [this] { UninstallChosen(); }});
    list_->EnableFind();
    list_->SetObserver(this);
    connect(list_, &CSkinListCtrl::menuAsked, this, &CAppPage::OpenMenu);
    auto* hideSystem = SetControlNumber(new CSkinCheck(ToQString(u8"隐藏系统应用")), kHideSystem);
    hideSystem->SetCheck(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(Metric::gap2);
    layout->addWidget(list_, 1);
    layout->addWidget(hideSystem, 0, Qt::AlignLeft);
}

// ---- the list ----------------------------------------------------------------------------------

void CAppPage::Refresh() {
    load_.Start(
        [this] {
            list_->Clear();
            list_->SetRedraw(false);
            list_->SetState(ListState::loading);
        },
        [this, list = list_, agent = agent_,
         identity = identity_](const LoadProgress& progress) mutable {
            const AgentSession session(agent);
            auto reply =
                std::make_shared<AppListReply>(FetchAppList(session, ProgressTo(progress, list)));
            const bool goesOn = !reply->Connected() || reply->IsWhole();
            // The rows are shown while the phone is still asked what it is.
            progress([this, reply] { Show(std::move(*reply)); });
            Identified found{.asked = goesOn, .identity = std::move(identity)};
            if (goesOn) {
                found.outcome = ReadDeviceIdentity(session, found.identity);
            }
            return found;
        },
        [this](Identified&& found) {
            if (!found.asked) {
                return;
            }
            if (found.outcome == SessionOutcome::connectFailed) {
                ShowConnectError(Host());
            }
            identity_ = std::move(found.identity);
            StartStoreCheck();
        });
}

void CAppPage::Show(AppListReply&& reply) {
    ShowLoadOutcome(Host(), reply.outcome);
    const bool endsEarly = reply.Connected() && !reply.IsWhole();
    list_->SetState(reply.Connected() ? ListState::idle : ListState::failed);
    reply.list.marked.reset();  // a row comes with its name, in whose place the mark stands
    list_->Show(std::move(reply.list));
    if (!endsEarly) {
        list_->SetRedraw(true);
    }
}

// ---- the store ---------------------------------------------------------------------------------

void CAppPage::StartStoreCheck() {
    if (list_->RowCount() == 0) {
        return;
    }
    storeCheck_.Start(
        [site = site_, identity = identity_, packages = list_->Packages()] {
            return ParseStoreAnswers(
                AskService(site, kStoreCheckService, StoreCheckDocument(identity, packages)));
        },
        [this](StoreAnswers&& answers) { list_->Merge(answers); });
}

void CAppPage::OpenInStore(int row) {
    Host().LoadState().Set(kStorePage.loadKey, PageLoadState::kEnded);
    const AppRecord* app = list_->RecordAt(row);
    if (app != nullptr && app->store.storeId != kNoStoreId) {
        Host().Post(Message::pageCommand, static_cast<int>(PageCommand::openStoreItem),
                    app->store.storeId);
    }
}

void CAppPage::OnLinkClicked(int /*kind*/, int row) {
    OpenInStore(row);
}

// ---- what is done with an application ----------------------------------------------------------

void CAppPage::OpenMenu(int row, const QPoint& at) {
    if (list_->RecordAt(row) == nullptr) {
        return;
    }
    auto* menu = new CSkinMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->SetStrip({QStringLiteral("run"), QStringLiteral("uninstall"), QStringLiteral("store")});
    menu->AddItem(CSkinMenu::normal, menuRun, 0, ToQString(u8"立即运行"));
    menu->AddItem(CSkinMenu::normal, menuUninstall, 1, ToQString(u8"删除卸载"));
    menu->AddItem(CSkinMenu::normal, menuStore, 2, ToQString(u8"商城搜索"));
    connect(menu, &CSkinMenu::commandChosen, this, &CAppPage::OnMenuCommand);
    menu->popup(at);
}

void CAppPage::OnMenuCommand(int command) {
    const AppRecord* app = list_->CurrentRecord();
    if (app == nullptr || !isEnabled()) {
        return;  // a refresh took the row away, or a change is on its way
    }
    switch (command) {
        case menuRun:
            RunApplication(app->package);
            break;
        case menuUninstall:
            Uninstall({AppOf(*app)});
            break;
        case menuStore:
            OpenInStore(list_->CurrentRow());
            break;
        default:
            break;
    }
}

void CAppPage::RunCommand(int index) {
    switch (index) {
        case commandRefresh:
            Refresh();
            break;
        case commandUninstall:
            UninstallChecked();
            break;
        default:
            break;
    }
}

void CAppPage::RunApplication(const std::string& package) {
    SendChange(Host(), *this, agent_, RunApplicationRequest(package),
               [](const AcknowledgedReply&) {});
}

void CAppPage::AskAndUninstall(const std::vector<int>& rows) {
    const auto apps = list_->OfRows(rows, &AppOf, MarkedRow::leftOut);
    if (apps.empty()) {
        (new CNothingCheckedDlg(this))->Open();
        return;
    }
    QStringList names;
    for (const InstalledApp& app : apps) {
        if (IsPackageName(app.package)) {
            names.append(ToShownQString(app.name));
        }
    }
    if (names.isEmpty()) {
        Uninstall(apps);  // says why it does not
        return;
    }
    auto* question = new CConfirmDeleteDlg(
        ToQString(u8"您真的要删除选择的【 %1 】个应用吗？").arg(names.size()), this);
    question->AddRemark(NamesInWords(names));
    question->Open([this, apps](int result) {
        if (result == QDialog::Accepted) {
            Uninstall(apps);
        }
    });
}

void CAppPage::Uninstall(const std::vector<InstalledApp>& apps) {
    // Of an earlier one.
    Host().TakeBackStatus(std::exchange(waiting_, {}));
    Host().TakeBackStatus(std::exchange(failure_, {}));
    std::vector<InstalledApp> named;
    for (const InstalledApp& app : apps) {
        if (IsPackageName(app.package)) {
            named.push_back(app);
        } else {
            SayNotUninstalled(app.name, ToQString(kNoPackageName));
        }
    }
    if (named.empty()) {
        return;
    }
    // To start a run means to wait for the end of the one before it. Of the workers that do so
    // there is one at a time, as the page is disabled meanwhile.
    RunDisabled(
        *this,
        [uninstaller = uninstaller_, named = std::move(named)] {
            std::vector<InstalledApp> failed;
            for (const InstalledApp& app : named) {
                if (!uninstaller->Start(app)) {
                    failed.push_back(app);
                }
            }
            return failed;
        },
        [this](std::vector<InstalledApp>&& failed) {
            if (!failed.empty()) {
                SayNotUninstalled(failed.back().name,
                                  ToQString(UninstallReason(UninstallOutcome::noAdb, {})));
            }
        });
}

void CAppPage::OnUninstalled(const UninstallEnd& end) {
    Host().TakeBackStatus(std::exchange(waiting_, {}));
    if (end.outcome == UninstallOutcome::done) {
        ++uninstalled_;
    } else {
        SayNotUninstalled(end.app.name, ToQString(UninstallReason(end.outcome, end.said)));
    }
    if (end.last) {
        // What did not work is the more important word.
        if (const int count = std::exchange(uninstalled_, 0); count > 0 && failure_.isEmpty()) {
            Host().SetStatus(ToQString(u8"已卸载 %1 个应用").arg(count));
        }
        Refresh();
    }
}

void CAppPage::SayThatAdbWaits(const std::string& name) {
    waiting_ = ToQString(kWaiting).arg(ShortName(ToShownQString(name)));
    Host().SetStatus(waiting_);
}

void CAppPage::SayNotUninstalled(const std::string& name, const QString& reason) {
    failure_ = ToQString(kNotUninstalled).arg(ShortName(ToShownQString(name)), reason);
    Host().SetStatus(failure_);
}

}  // namespace quorvi
