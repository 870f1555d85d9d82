// Dialog 533, the device manager: shows the phones that adb lists, and links to one of them.
#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "link/DeviceContext.h"
#include "link/DeviceInquiry.h"
#include "link/LinkEnvironment.h"
#include "ui/kit/SkinDialog.h"

namespace quorvi {

class DeviceListCtrl;

// Fills its list when it opens. Every run of adb and the forward go off the window's thread, and
// the dialog may be closed under them at any time.
class CDeviceManagerDlg : public SkinDialog {
    Q_OBJECT
  public:
    // An empty title leaves the dialog's own. `setStatus` writes the main window's StatusLabel.
    // `device` outlives the process's workers. The environment differs in tests only.
    CDeviceManagerDlg(DeviceContext& device, std::function<void(const QString&)> setStatus,
                      const QString& title = {}, QWidget* parent = nullptr,
                      LinkEnvironment environment = {});
    ~CDeviceManagerDlg() override;

    // False while a refresh looks for phones.
    [[nodiscard]] bool Ready() const { return ready_; }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void BuildControls();
    void Refresh();
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
    QTimer timer0_;

    std::vector<std::string> serials_;
    std::size_t current_ = 0;  // index in serials_ of the phone that is asked
    int round_ = 0;            // counts refreshes; answers to an earlier one are dropped
    bool ready_ = true;
    bool opened_ = false;
};

}  // namespace quorvi
