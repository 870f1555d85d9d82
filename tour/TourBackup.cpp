// The tour's stops at the backups: the settings page with one that is being made and one that was,
// the plan of a restore, and what a restore does and has done.
#include <QAbstractButton>
#include <QScrollArea>
#include <QScrollBar>
#include <memory>
#include <string>
#include <utility>

#include "backup/BackupPlace.h"
#include "base/Text.h"
#include "pages/settings/RestorePlanDlg.h"
#include "pages/settings/SettingsPage.h"
#include "tour/PageStops.h"
#include "tour/PhoneBehind.h"
#include "tour/TourHome.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

// Buttons of the dialog with the plan.
constexpr int kGo = 1215;
constexpr int kStop = 1216;

// So much is done before the pictures of a backup and of a restore at work.
constexpr int kRead = 6;     // conversations
constexpr int kWritten = 4;  // bookmarks

QAbstractButton& ButtonOf(const QWidget& page, const char* name) {
    return *page.findChild<QAbstractButton*>(QString::fromLatin1(name));
}

// The foot of the page, which scrolls: what was deleted, and the code page.
TourStop EndStop(std::string name) {
    const auto scroll = [](CMainDlg& window, bool down) {
        auto& bar = *window.PageOfDialog(kSettingsPage.dialog)
                         ->findChild<QScrollArea*>()
                         ->verticalScrollBar();
        bar.setValue(down ? bar.maximum() : 0);
    };
    return {.name = std::move(name),
            .open =
                [scroll](CMainDlg& window) {
                    GoTo(window, kSettingsPage);
                    PostToWindow(&window, [scroll, &window] { scroll(window, true); });
                },
            .leave = [scroll](CMainDlg& window) { scroll(window, false); }};
}

// A page over the window's own, whose backups stand in the tour's home, and which makes one: of
// the phone, or until `stalls` does.
TourStop BackupStop(std::string name, const PhoneBehind* stalls) {
    auto shown = std::make_shared<QPointer<Page>>();
    return {.name = std::move(name),
            .open =
                [shown, stalls](CMainDlg& window) {
                    GoTo(window, kSettingsPage);
                    window.Settings().WriteText(kSettingsKey, "backup_folder",
                                                ToAnsi(BackupFolderAtHome().string()));
                    PostToWindow(&window, [shown, stalls, &window] {
                        Page* own = window.PageOfDialog(kSettingsPage.dialog);
                        Services services = window.PageServices();
                        if (stalls != nullptr) {
                            services.agent = stalls->Port();
                        }
                        *shown = new SettingsPage(window, services, own);
                        (*shown)->setAutoFillBackground(true);
                        (*shown)->resize(own->size());
                        (*shown)->show();
                        ButtonOf(**shown, "backupStart").click();
                    });
                },
            .leave =
                [shown](CMainDlg& window) {
                    delete shown->data();
                    window.SetStatus(ToQString(u8"就绪"));  // it may have been at work
                },
            .ready =
                [shown, stalls] {
                    return (stalls != nullptr && stalls->HasStalled()) ||
                           (*shown && !(*shown)->IsAtWork());
                }};
}

enum class Until { plan, end };

// Of the backup that BackupStop has made, to a phone that has lost alarms and bookmarks.
TourStop RestoreStop(std::string name, const PhoneBehind& phone, Until until) {
    auto shown = std::make_shared<QPointer<SkinDialog>>();
    return {
        .name = std::move(name),
        .open =
            [shown, &phone](CMainDlg& window) {
                GoTo(window, kSettingsPage);
                const auto backups = FindBackups(BackupFolderAtHome());
                *shown = new RestorePlanDlg(
                    phone.Port(), backups.empty() ? std::filesystem::path() : backups.front().path,
                    &window);
                (*shown)->Open();
            },
        // One at work does not close, but stops.
        .leave = [shown](CMainDlg&) { delete shown->data(); },
        .ready =
            [shown, &phone, until] {
                if (!*shown) {
                    return false;
                }
                auto& go = *FindControl<QAbstractButton>(*shown, kGo);
                if (until == Until::end && go.isVisible() && go.isEnabled()) {
                    go.click();
                    return false;
                }
                return until == Until::plan
                           ? go.isEnabled()
                           : phone.HasStalled() ||
                                 (go.isHidden() && FindControl<QWidget>(*shown, kStop)->isHidden());
            }};
}

}  // namespace

std::vector<TourStop> BackupStops() {
    static const auto& lost = *new PhoneBehind(AgentPort);
    static const auto* reading = new PhoneBehind(AgentPort, AgentCommand::readConversation, kRead);
    static const auto& writing = *new PhoneBehind(AgentPort, AgentCommand::addBookmark, kWritten);
    return {EndStop("settings-end"),
            BackupStop("settings-backup", nullptr),
            BackupStop("settings-backup-running", reading),
            RestoreStop("dialog-restore-plan", lost, Until::plan),
            RestoreStop("dialog-restore-running", writing, Until::end),
            RestoreStop("dialog-restore-result", lost, Until::end)};
}

}  // namespace quorvi
