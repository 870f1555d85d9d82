#include "pages/devices/DeviceManagerDlg.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <array>
#include <chrono>
#include <thread>
#include <utility>

#include "link/AdbHostClient.h"
#include "link/AdbNames.h"
#include "link/LinkText.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinFields.h"
#include "ui/list/RecordListCtrl.h"
#include "ui/page/Job.h"

namespace quorvi {

using look::ButtonKind;
using look::Color;
using look::Metric;
using look::Size;

namespace {

// Numbers of the dialog and its controls.
constexpr int kDialog = 533;
constexpr int kDeviceList = 1214;
constexpr int kConnectionType = 1073;
constexpr int kState = 1220;
constexpr int kRefresh = 1047;
constexpr int kConnect = 1215;
constexpr int kClose = 10200;
constexpr int kHelp = 1199;

// Between a phone's answer and the question to the next.
constexpr std::chrono::milliseconds kTimer0{50};

enum Column { columnBrand, columnHardware, columnVersion, columnConnection };

constexpr std::array<ListColumn, 4> kColumns{{
    {u8"品牌信息", 104, CellKind::picture},
    {u8"硬件信息", 200, CellKind::twoLines, CellAlign::left},
    {u8"系统版本", 140, CellKind::twoLines},
    {u8"连接方式", 140, CellKind::iconText},
}};

}  // namespace

class DeviceListCtrl : public RecordListCtrl<DeviceRow> {
  public:
    explicit DeviceListCtrl(QWidget* parent) : RecordListCtrl(kColumns, Metric::rowTall, parent) {}

  protected:
    [[nodiscard]] Cell CellOf(const DeviceRow& row, int column) const override {
        switch (column) {
            case columnBrand: {
                const std::string_view picture = BrandPicture(row.record.brandImage);
                return {.icon = QString::fromLatin1(picture.data(),
                                                    static_cast<qsizetype>(picture.size()))};
            }
            case columnHardware:
                return {.text = ToQString(HardwareText(row.properties)),
                        .second = ToQString(row.record.serial)};
            case columnVersion:
                return {.text = ToQString(row.record.androidVersion),
                        .second = ToQString(ApiLevelText(row.properties))};
            case columnConnection:
                return {.text = ToQString(ConnectionText(row.record)),
                        .icon = row.record.connectionKind == 0 ? QStringLiteral("usb")
                                                               : QStringLiteral("wifi"),
                        .iconSide = Metric::rowIconLarge};
            default:
                return {};
        }
    }
};

CDeviceManagerDlg::CDeviceManagerDlg(DeviceContext& device,
                                     std::function<void(const QString&)> setStatus,
                                     const QString& title, QWidget* parent,
                                     LinkEnvironment environment)
    : SkinDialog(kDialog, title.isEmpty() ? ToQString(u8"设备管理器 - Quorvi") : title, parent),
      device_(device),
      setStatus_(std::move(setStatus)),
      environment_(std::move(environment)),
      inquiry_(std::make_shared<DeviceInquiry>(
          environment_, [this, guard = QPointer<QObject>(this)](int round, DeviceRow row) {
              PostToWindow(guard, [this, round, row = std::move(row)] { OnRow(round, row); });
          })) {
    BuildControls();
    timer0_.setSingleShot(true);
    timer0_.setInterval(kTimer0);
    connect(&timer0_, &QTimer::timeout, this, &CDeviceManagerDlg::OnTimer0);
    connect(refresh_, &QAbstractButton::clicked, this, &CDeviceManagerDlg::Refresh);
    connect(connect_, &QAbstractButton::clicked, this, &CDeviceManagerDlg::Connect);
    connect(list_, &CSkinListCtrl::rowOpened, this, [this](int) { Connect(); });
}

// The inquiry may still wait for a phone; to end it can take seconds. A thread of its own does
// that, so that the window does not wait.
CDeviceManagerDlg::~CDeviceManagerDlg() {
    std::thread([inquiry = std::move(inquiry_)]() mutable { inquiry.reset(); }).detach();
}

void CDeviceManagerDlg::BuildControls() {
    const QString typeCaption = ToQString(u8"连接方式");
    auto* caption = new QLabel(typeCaption, Body());
    caption->setFont(look::font(Size::s13));
    QPalette ink = caption->palette();
    ink.setColor(QPalette::WindowText, look::color(Color::ink2));
    caption->setPalette(ink);

    auto* type = SetControlNumber(new CSkinCombo(Body()), kConnectionType, typeCaption);
    type->addItem(ToQString(u8"USB (数据线)"));
    type->setFixedWidth(Metric::deviceCombo);

    const QString refresh = ToQString(u8"刷新");
    refresh_ = SetControlNumber(new CSkinButton(refresh, Body()), kRefresh, refresh);
    refresh_->SetImage(QStringLiteral("refresh"));

    list_ = SetControlNumber(new DeviceListCtrl(Body()), kDeviceList, ToQString(u8"设备列表"));
    list_->SetEmptyText(ToQString(u8"没有找到Android设备"),
                        ToQString(u8"请用数据线连接手机并打开USB调试，再点“刷新”"));
    list_->SetFailedText(ToQString(u8"无法获取设备信息"),
                         ToQString(u8"adb 没有启动，请重新安装后再点“刷新”"));

    auto* top = new QHBoxLayout;
    top->setSpacing(Metric::gap2);
    top->addWidget(caption);
    top->addWidget(type);
    top->addStretch(1);
    top->addWidget(refresh_);
    auto* column = new QVBoxLayout(Body());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metric::gap3);
    column->addLayout(top);
    column->addWidget(list_, 1);

    state_ = AddState(kState, ToQString(u8"未知"));
    AddButton(kHelp, ToQString(u8"使用帮助"));  // without a command, kept on purpose
    connect_ = AddButton(kConnect, ToQString(u8"连接"), ButtonKind::primary);
    AddEndButton(kClose, ToQString(u8"关闭"), QDialog::Rejected);
    SetDefault(connect_);
    SetInnerSize({Metric::deviceWidth, Metric::deviceHeight});
}

void CDeviceManagerDlg::showEvent(QShowEvent* event) {
    SkinDialog::showEvent(event);
    if (!std::exchange(opened_, true)) {
        Refresh();
    }
}

// ---- looking for phones ------------------------------------------------------------------------

void CDeviceManagerDlg::Refresh() {
    if (!std::exchange(ready_, false)) {
        return;
    }
    ++round_;
    timer0_.stop();
    state_->SetState(CSkinStateLabel::kBlue, ToQString(u8"获取设备信息中,请稍等..."));
    refresh_->setEnabled(false);
    serials_.clear();
    list_->Clear();
    list_->SetState(ListState::loading);
    RunJob(
        this, [environment = environment_] { return ListSerials(environment); },
        [this](SerialList list) { OnSerials(std::move(list)); });
}

void CDeviceManagerDlg::OnSerials(SerialList list) {
    serials_ = std::move(list.serials);
    current_ = 0;
    AskCurrent();
    ready_ = true;
    refresh_->setEnabled(true);
    state_->SetState(CSkinStateLabel::kBlue, ToQString(device_.Serial()));
    if (list.outcome != RunOutcome::started) {
        list_->SetState(ListState::failed);
    } else if (serials_.empty()) {
        list_->SetState(ListState::idle);
    }
    list_->setFocus();
    // Row 0 is selected as soon as its phone has answered.
}

void CDeviceManagerDlg::AskCurrent() {
    if (current_ >= serials_.size()) {
        return;
    }
    RunJob(
        this,
        [inquiry = inquiry_, round = round_, serial = serials_[current_]] {
            return inquiry->Ask(round, serial);
        },
        [this, round = round_](bool asked) {
            if (!asked && round == round_) {
                list_->SetState(ListState::failed);
            }
        });
}

void CDeviceManagerDlg::OnRow(int round, DeviceRow row) {
    if (round != round_) {
        return;
    }
    list_->SetState(ListState::idle);
    list_->Append(std::move(row));
    if (list_->RowCount() == 1) {
        list_->SelectRow(0);
    }
    timer0_.start();
}

void CDeviceManagerDlg::OnTimer0() {
    ++current_;
    AskCurrent();
}

// ---- linking to one ----------------------------------------------------------------------------

void CDeviceManagerDlg::Connect() {
    const DeviceRow* const row = list_->Current();
    if (row == nullptr || !connect_->isEnabled()) {
        return;
    }
    device_.SetSerial(row->record.serial);
    connect_->setEnabled(false);
    list_->setEnabled(false);
    refresh_->setEnabled(false);
    const auto report = [guard = QPointer<QObject>(this),
                         setStatus = setStatus_](ForwardEvent event) {
        PostToWindow(guard, [setStatus, event] { setStatus(ToQString(StatusText(event))); });
    };
    RunJob(
        this,
        [port = environment_.hostPort, serial = row->record.serial, report] {
            return AdbHostClient(port).ForwardAgentPort(serial, report);
        },
        [this](bool stands) { OnForwarded(stands); });
}

void CDeviceManagerDlg::OnForwarded(bool stands) {
    // A finished try closes the dialog, unless a refresh runs and the try has failed.
    if (stands || ready_) {
        done(stands ? QDialog::Accepted : QDialog::Rejected);
        return;
    }
    connect_->setEnabled(true);
    list_->setEnabled(true);
}

}  // namespace quorvi
