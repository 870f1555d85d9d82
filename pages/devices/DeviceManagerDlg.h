// Dialog 533, the device manager: shows the phones that adb lists, and links to one of them. A
// phone in the network is paired and connected here, and then listed as the others are.
#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "link/DeviceContext.h"
#include "link/DeviceInquiry.h"
#include "link/LinkEnvironment.h"
#include "link/WirelessLink.h"
#include "ui/kit/SkinDialog.h"

namespace quorvi {

class CSkinCombo;
class CSkinEdit;
class DeviceListCtrl;
class SettingsStore;

// Fills its list when it opens. Every run of adb and the forward go off the window's thread, and
// the dialog may be closed under them at any time.
class CDeviceManagerDlg : public SkinDialog {
    Q_OBJECT
  public:
    // An empty title leaves the dialog's own. `setStatus` writes the main window's StatusLabel.
    // `device` outlives the process's workers, and so do `settings`, in which the addresses of
    // phones in the network are remembered; without settings they are not. The environment differs
    // in tests only.
    CDeviceManagerDlg(DeviceContext& device, std::function<void(const QString&)> setStatus,
                      const QString& title = {}, QWidget* parent = nullptr,
                      LinkEnvironment environment = {}, SettingsStore* settings = nullptr);
    ~CDeviceManagerDlg() override;

    // False while a refresh looks for phones.
    [[nodiscard]] bool Ready() const { return ready_; }
    // Reads the list again, unless that is being done.
    void Refresh();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void BuildControls();
    void BuildWirelessRows(int captionWidth);
    [[nodiscard]] bool IsWireless() const;
    void ShowWirelessRows();
    void FindPhones();
    void ShowKnown(const std::vector<std::string>& remembered,
                   const std::vector<FoundPhone>& found);
    void ConnectAddress();
    void OnConnected(const std::string& address, ConnectResult result);
    void Pair();
    // What adb is doing for the rows of the network; they are disabled meanwhile.
    void SetBusy(const QString& doing);
    void ShowOutcome(bool good, const std::string& text);
    void OnSerials(SerialList list);
    void AskCurrent();
    void OnRow(int round, DeviceRow row);
    void OnTimer0();
    void Connect();
    void OnForwarded(bool stands);

    DeviceContext& device_;
    std::function<void(const QString&)> setStatus_;
    LinkEnvironment environment_;
    std::shared_ptr<DeviceInquiry> inquiry_;  // shared with the workers that use it

    CSkinButton* refresh_ = nullptr;
    DeviceListCtrl* list_ = nullptr;
    CSkinStateLabel* state_ = nullptr;
    CSkinButton* connect_ = nullptr;
    CSkinCombo* type_ = nullptr;
    QWidget* wireless_ = nullptr;  // the rows of the network
    CSkinCombo* known_ = nullptr;
    CSkinEdit* address_ = nullptr;
    CSkinButton* connectAddress_ = nullptr;
    CSkinEdit* code_ = nullptr;
    CSkinButton* pair_ = nullptr;
    SettingsStore* settings_;
    QTimer timer0_;

    std::vector<std::string> serials_;
    std::size_t current_ = 0;  // index in serials_ of the phone that is asked
    int round_ = 0;            // counts refreshes; answers to an earlier one are dropped
    std::string wanted_;       // the phone to select when its row comes
    bool ready_ = true;
    bool opened_ = false;
};

}  // namespace quorvi
