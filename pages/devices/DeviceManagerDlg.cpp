#include "pages/devices/DeviceManagerDlg.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <array>
#include <chrono>
#include <thread>
#include <utility>

#include "link/AdbHostClient.h"
#include "link/AdbNames.h"
#include "link/LinkText.h"
#include "link/WirelessAddress.h"
#include "pages/kit/KeptColumns.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinFields.h"
#include "ui/list/RecordListCtrl.h"
#include "ui/look/Theme.h"
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
                                     LinkEnvironment environment, SettingsStore* settings)
    : SkinDialog(kDialog, title.isEmpty() ? ToQString(u8"设备管理器 - Quorvi") : title, parent),
      device_(device),
      setStatus_(std::move(setStatus)),
      environment_(std::move(environment)),
      inquiry_(std::make_shared<DeviceInquiry>(
          environment_,
          [this, guard = QPointer<QObject>(this)](int round, DeviceRow row) {
              PostToWindow(guard, [this, round, row = std::move(row)] { OnRow(round, row); });
          })),
      settings_(settings) {
    BuildControls();
    if (settings_ != nullptr) {
        KeepColumnsOf(*this, *settings_);
    }
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
    look::SetPaletteColor(*caption, QPalette::WindowText, Color::ink2);

    type_ = SetControlNumber(new CSkinCombo(Body()), kConnectionType, typeCaption);
    type_->addItem(ToQString(u8"USB (数据线)"));
    type_->addItem(ToQString(u8"WiFi (无线网络)"));
    type_->setFixedWidth(Metric::deviceCombo);

    const QString refresh = ToQString(u8"刷新");
    refresh_ = SetControlNumber(new CSkinButton(refresh, Body()), kRefresh, refresh);
    refresh_->SetImage(QStringLiteral("refresh"));

    list_ = SetControlNumber(new DeviceListCtrl(Body()), kDeviceList, ToQString(u8"设备列表"));
    list_->SetEmptyText(ToQString(u8"没有找到Android设备"),
                        ToQString(u8"请用数据线连接手机并打开USB调试，再点“刷新”"));
    list_->SetFailedText(ToQString(u8"无法获取设备信息"),
                         ToQString(u8"adb 没有启动，请重新安装后再点“刷新”"));

    BuildWirelessRows(caption->sizeHint().width());
    auto* top = new QHBoxLayout;
    top->setSpacing(Metric::gap2);
    top->addWidget(caption);
    top->addWidget(type_);
    top->addStretch(1);
    top->addWidget(refresh_);
    auto* column = new QVBoxLayout(Body());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metric::gap3);
    column->addLayout(top);
    column->addWidget(wireless_);
    column->addWidget(list_, 1);

    state_ = AddState(kState, ToQString(u8"未知"));
    AddButton(kHelp, ToQString(u8"使用帮助"));  // without a command, kept on purpose
    connect_ = AddButton(kConnect, ToQString(u8"连接"), ButtonKind::primary);
    AddEndButton(kClose, ToQString(u8"关闭"), QDialog::Rejected);
    SetDefault(connect_);
    ShowWirelessRows();
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
    if (IsWireless()) {
        FindPhones();
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
    const bool wanted = row.record.serial == wanted_;
    list_->Append(std::move(row));
    if (wanted || list_->RowCount() == 1) {
        list_->SelectRow(list_->RowCount() - 1);
    }
    timer0_.start();
}

void CDeviceManagerDlg::OnTimer0() {
    ++current_;
    AskCurrent();
}

// ---- phones in the network ---------------------------------------------------------------------

// The captions stand under the one above, which is that wide.
void CDeviceManagerDlg::BuildWirelessRows(int captionWidth) {
    wireless_ = new QWidget(Body());
    const auto name = [](QWidget* control, const char16_t* object, std::u8string_view said) {
        control->setObjectName(QString::fromUtf16(object));
        control->setAccessibleName(ToQString(said));
    };
    known_ = new CSkinCombo(wireless_);
    known_->setFixedWidth(Metric::deviceCombo);
    name(known_, u"known phones", u8"附近和连接过的手机");
    address_ = new CSkinEdit({}, wireless_);
    address_->setPlaceholderText(QStringLiteral("192.168.1.23:5555"));
    name(address_, u"address", u8"手机地址");
    const QString connectText = ToQString(u8"连接地址");
    connectAddress_ = new CSkinButton(connectText, wireless_);
    name(connectAddress_, u"connect address", u8"连接地址");
    code_ = new CSkinEdit({}, wireless_);
    code_->setFixedWidth(Metric::deviceCombo);
    code_->setPlaceholderText(ToQString(u8"六位配对码"));
    name(code_, u"pairing code", u8"六位配对码");
    const QString pairText = ToQString(u8"配对");
    pair_ = new CSkinButton(pairText, wireless_);
    name(pair_, u"pair", u8"配对");
    auto* hint = new RemarkLabel(ToQString(u8"填手机配对画面上的地址和配对码"), wireless_);
    const auto caption = [this](std::u8string_view text) {
        return new PlainLabel(ToQString(text), Size::s13, Color::ink2, wireless_);
    };

    auto* grid = new QGridLayout(wireless_);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(Metric::gap2);
    grid->setVerticalSpacing(Metric::gap2);
    grid->setColumnStretch(2, 1);
    grid->setColumnMinimumWidth(0, captionWidth);
    grid->addWidget(caption(u8"手机"), 0, 0);
    grid->addWidget(known_, 0, 1);
    grid->addWidget(address_, 0, 2);
    grid->addWidget(connectAddress_, 0, 3);
    grid->addWidget(caption(u8"配对码"), 1, 0);
    grid->addWidget(code_, 1, 1);
    grid->addWidget(hint, 1, 2);
    grid->addWidget(pair_, 1, 3);

    connect(type_, &QComboBox::currentIndexChanged, this, [this] {
        ShowWirelessRows();
        if (IsWireless()) {
            FindPhones();
        }
    });
    connect(known_, &QComboBox::activated, this, [this] {
        if (const QString address = known_->currentData().toString(); !address.isEmpty()) {
            address_->setText(address);
        }
    });
    connect(connectAddress_, &QAbstractButton::clicked, this, &CDeviceManagerDlg::ConnectAddress);
    connect(pair_, &QAbstractButton::clicked, this, &CDeviceManagerDlg::Pair);
    connect(code_, &QLineEdit::returnPressed, this, &CDeviceManagerDlg::Pair);
    connect(address_, &QLineEdit::textChanged, this, [this] { address_->SetBad(false); });
    connect(code_, &QLineEdit::textChanged, this, [this] { code_->SetBad(false); });
    ShowKnown({}, {});
}

bool CDeviceManagerDlg::IsWireless() const {
    return type_->currentIndex() > 0;
}

// The dialog grows by the rows, so that the list keeps its height.
void CDeviceManagerDlg::ShowWirelessRows() {
    const bool wireless = IsWireless();
    wireless_->setVisible(wireless);
    SetDefault(wireless ? connectAddress_ : connect_);
    const int rows = wireless ? wireless_->sizeHint().height() + Metric::gap3 : 0;
    SetInnerSize({Metric::deviceWidth, Metric::deviceHeight + rows});
}

void CDeviceManagerDlg::FindPhones() {
    struct Known {
        std::vector<std::string> remembered;
        std::vector<FoundPhone> found;
    };
    RunJob(
        this,
        [environment = environment_, settings = settings_] {
            return Known{
                settings == nullptr ? std::vector<std::string>() : RememberedAddresses(*settings),
                FindWirelessPhones(environment)};
        },
        [this](const Known& known) { ShowKnown(known.remembered, known.found); });
}

// Fills the address with the first that can be connected, unless the user has begun to type one.
void CDeviceManagerDlg::ShowKnown(const std::vector<std::string>& remembered,
                                  const std::vector<FoundPhone>& found) {
    known_->clear();
    for (const FoundPhone& phone : found) {
        const bool waits = phone.waits == FoundPhone::Waits::toPair;
        known_->addItem(ToQString(waits ? u8"等待配对：%1" : u8"附近：%1")
                            .arg(QString::fromUtf8(phone.name.data(),
                                                   static_cast<qsizetype>(phone.name.size()))),
                        QString::fromStdString(phone.address));
    }
    for (const std::string& address : remembered) {
        known_->addItem(ToQString(u8"连接过：%1").arg(QString::fromStdString(address)),
                        QString::fromStdString(address));
    }
    if (known_->count() == 0) {
        known_->addItem(ToQString(u8"没有找到附近的手机"));
    } else if (address_->text().isEmpty()) {
        address_->setText(known_->currentData().toString());
    }
}

void CDeviceManagerDlg::SetBusy(const QString& doing) {
    state_->SetState(CSkinStateLabel::kBlue, doing);
    wireless_->setEnabled(false);
}

void CDeviceManagerDlg::ShowOutcome(bool good, const std::string& text) {
    wireless_->setEnabled(true);
    state_->SetState(good ? CSkinStateLabel::kBlue : CSkinStateLabel::kRed, ToQString(text));
    setStatus_(ToQString(text));
}

void CDeviceManagerDlg::ConnectAddress() {
    const std::optional<std::string> address = NormalAddress(FromQString(address_->text()));
    if (!address) {
        address_->SetBad(true);
        ShowOutcome(false, StatusText(ConnectResult::noAddress));
        address_->setFocus();
        return;
    }
    SetBusy(ToQString(u8"正在连接 %1 ...").arg(QString::fromStdString(*address)));
    RunJob(
        this,
        [address = *address, environment = environment_, settings = settings_] {
            const ConnectResult result = ConnectWireless(address, environment);
            const bool answered =
                result == ConnectResult::connected || result == ConnectResult::notAllowed;
            if (answered && settings != nullptr) {
                RememberAddress(*settings, address);
            }
            return result;
        },
        [this, address = *address](ConnectResult result) { OnConnected(address, result); });
}

void CDeviceManagerDlg::OnConnected(const std::string& address, ConnectResult result) {
    const bool good = result == ConnectResult::connected;
    ShowOutcome(good, StatusText(result));
    if (good) {
        wanted_ = address;
        Refresh();
    } else {
        address_->setFocus();
    }
}

void CDeviceManagerDlg::Pair() {
    if (!wireless_->isEnabled()) {
        return;
    }
    const std::string address = FromQString(address_->text());
    const std::string code = FromQString(code_->text().trimmed());
    const bool isAddress = NormalAddress(address, std::nullopt).has_value();
    if (!isAddress || !IsPairingCode(code)) {
        CSkinEdit* const bad = isAddress ? code_ : address_;
        bad->SetBad(true);
        ShowOutcome(false, StatusText(isAddress ? PairResult::noCode : PairResult::noAddress));
        bad->setFocus();
        return;
    }
    SetBusy(ToQString(u8"正在配对..."));
    RunJob(
        this,
        [address, code, environment = environment_] {
            return PairWireless(address, code, environment);
        },
        [this](PairResult result) {
            ShowOutcome(result == PairResult::paired, StatusText(result));
            if (result != PairResult::paired) {
                code_->setFocus();
                return;
            }
            // The connection has another port than the pairing: the phone tells it by mDNS.
            code_->clear();
            address_->clear();
            FindPhones();
        });
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
