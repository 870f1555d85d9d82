#include "pages/settings/SettingsPage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include "base/CodePageChoice.h"
#include "pages/settings/BackupGroup.h"
#include "pages/settings/DiagnosisGroup.h"
#include "pages/settings/LookGroup.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinLabels.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;
using look::Size;

// Control numbers.
constexpr int kAutoRun = 1016;
constexpr int kAutoRunOnUsb = 1017;
constexpr int kExitHide = 1018;
constexpr int kExitQuit = 1019;
constexpr int kRepair = 1355;
constexpr int kProgress = 1356;
constexpr int kRepairText = 1109;

// What `exit_mode` may be.
constexpr std::string_view kExitMode = "exit_mode";
constexpr std::uint32_t kHideToTray = 0;
constexpr std::uint32_t kLeaveProgram = 3;

// How far the repair is, in percent, behind each of its steps. Nothing is done for the second and
// the third: the library that they put back on other systems has no use on this one.
constexpr int kShortcutMade = 10;
constexpr int kLibraryWritten = 20;
constexpr int kLibraryRegistered = 30;
constexpr int kProtocolWritten = 40;
constexpr int kRepaired = 100;

QLabel* Line(std::u8string_view text, Color ink) {
    return new PlainLabel(ToQString(text), Size::s12, ink);
}

// Two groups beside each other, of one width.
QLayout* Halves(QWidget* left, QWidget* right) {
    auto* halves = new QHBoxLayout;
    halves->setSpacing(Metric::gap3);
    for (QWidget* half : {left, right}) {
        half->setSizePolicy(QSizePolicy::Ignored, half->sizePolicy().verticalPolicy());
        halves->addWidget(half, 1);
    }
    return halves;
}

QWidget* OverEachOther(QWidget* upper, QWidget* lower) {
    auto* both = new QWidget;
    auto* rows = new QVBoxLayout(both);
    rows->setContentsMargins({});
    rows->setSpacing(Metric::gap3);
    rows->addWidget(upper);
    rows->addWidget(lower, 1);
    return both;
}

template <typename Control>
Control* Hidden(Control* control) {
    control->hide();
    return control;
}

}  // namespace

SettingsPage::SettingsPage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      desktop_(services.desktop),
      autoRun_(new CSkinCheck(ToQString(u8"启动Windows时自动运行奎维掌上工坊"))),
      autoRunOnUsb_(new CSkinCheck(ToQString(u8"USB 连接到智能手机时自动运行 Quorvi"))),
      exitHide_(new SkinRadio(ToQString(u8"隐藏到系统右下角托盘区"))),
      exitQuit_(new SkinRadio(ToQString(u8"完全退出 奎维掌上工坊"))),
      repair_(new CSkinButton(ToQString(u8"修复组件"))),
      progress_(new CSkinProgress),
      repairText_(new CSkinStateLabel(ToQString(u8"就绪"))),
      gb18030_(new SkinRadio(ToQString(u8"GB18030（所有字符都能显示和保存）"))),
      gbk_(new SkinRadio(ToQString(u8"GBK（旧编码，不常用的字符显示成“?”）"))),
      backup_(new BackupGroup(host, services.agent, services.attribution)),
      look_(new LookGroup(host)),
      diagnosis_(new DiagnosisGroup(host)) {
    for (const auto& [button, number] :
         std::initializer_list<std::pair<QAbstractButton*, int>>{{autoRun_, kAutoRun},
                                                                 {autoRunOnUsb_, kAutoRunOnUsb},
                                                                 {exitHide_, kExitHide},
                                                                 {exitQuit_, kExitQuit},
                                                                 {repair_, kRepair}}) {
        SetControlNumber(button, number, button->text());
    }
    gb18030_->setObjectName(QStringLiteral("codePageGb18030"));
    gbk_->setObjectName(QStringLiteral("codePageGbk"));
    for (SkinRadio* radio : {gb18030_, gbk_}) {
        radio->setAccessibleName(radio->text());
    }
    SetControlNumber(progress_, kProgress, ToQString(u8"修复进度"));
    SetControlNumber(repairText_, kRepairText);
    repair_->SetImage(QStringLiteral("repair"));

    auto* start = new CSkinGroupBox(ToQString(u8"启动设置"));
    auto* startRows = new QVBoxLayout(start);
    startRows->setContentsMargins({});
    startRows->setSpacing(Metric::gap1);
    startRows->addWidget(autoRun_, 0, Qt::AlignLeft);
    auto* startHint = Line(u8"随桌面一起启动，隐藏在系统托盘中等待手机连接", Color::ink2);
    startHint->setIndent(Metric::tick + Metric::tickGap);  // under the caption of its box
    startRows->addWidget(startHint);
    startRows->addWidget(Hidden(autoRunOnUsb_));
    startRows->addWidget(Hidden(Line(u8"关闭主窗口时", Color::ink)));
    startRows->addWidget(Hidden(exitHide_));
    startRows->addWidget(Hidden(exitQuit_));
    startRows->addStretch();

    auto* codePage = new CSkinGroupBox(ToQString(u8"文字编码"));
    auto* codePageRows = new QVBoxLayout(codePage);
    codePageRows->setContentsMargins({});
    codePageRows->setSpacing(Metric::gap1);
    codePageRows->addWidget(gb18030_, 0, Qt::AlignLeft);
    codePageRows->addWidget(gbk_, 0, Qt::AlignLeft);
    auto* codePageHint = Line(u8"更改后，退出并重新启动奎维掌上工坊才会生效", Color::ink2);
    codePageHint->setIndent(Metric::tick + Metric::tickGap);
    codePageRows->addWidget(codePageHint);
    codePageRows->addStretch();

    auto* repair = new CSkinGroupBox(ToQString(u8"修复组件"));
    auto* repairRows = new QVBoxLayout(repair);
    repairRows->setContentsMargins({});
    repairRows->setSpacing(Metric::gap3);
    repair_->setToolTip(ToQString(u8"重新建立桌面快捷方式，并让 Quorvi 链接由本程序打开"));
    auto* action = new QHBoxLayout;
    action->setSpacing(Metric::gap4);
    action->addWidget(repair_);
    action->addWidget(progress_, 1);
    repairRows->addLayout(action);
    repairRows->addWidget(repairText_);
    repairRows->addStretch();

    auto* groups = new QWidget;
    auto* rows = new QVBoxLayout(groups);
    rows->setContentsMargins(0, 0, Metric::gap2, 0);
    rows->setSpacing(Metric::gap3);
    rows->addLayout(Halves(start, repair));
    rows->addWidget(backup_);
    rows->addLayout(Halves(look_, OverEachOther(codePage, diagnosis_)));
    rows->addStretch();

    auto* view = new QScrollArea(this);
    view->setFrameShape(QFrame::NoFrame);
    view->setFocusPolicy(Qt::NoFocus);
    view->setWidgetResizable(true);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    groups->resize(view->size());  // else it is measured now, and once more when it is shown
    view->setWidget(groups);
    // The ground is the page's.
    view->viewport()->setAutoFillBackground(false);
    groups->setAutoFillBackground(false);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins({});
    whole->addWidget(view);

    connect(autoRun_, &QAbstractButton::clicked, this, &SettingsPage::OnAutoRun);
    connect(exitHide_, &QAbstractButton::clicked, this, &SettingsPage::OnExitHide);
    connect(exitQuit_, &QAbstractButton::clicked, this, &SettingsPage::OnExitQuit);
    connect(gb18030_, &QAbstractButton::clicked, this, [this] { OnCodePage(CodePage::gb18030); });
    connect(gbk_, &QAbstractButton::clicked, this, [this] { OnCodePage(CodePage::gbk); });
    connect(repair_, &QAbstractButton::clicked, this, &SettingsPage::OnRepair);
    OnInitDialog();
}

void SettingsPage::OnInitDialog() {
    autoRunOnUsb_->SetCheck(1);
    progress_->setRange(0, kRepaired);
    progress_->setValue(0);
    LoadSettings();
}

void SettingsPage::showEvent(QShowEvent* event) {
    Page::showEvent(event);
    backup_->Refresh();
    look_->Refresh();
    diagnosis_->Refresh();
}

bool SettingsPage::IsAtWork() const {
    return Page::IsAtWork() || job_.Running() || backup_->IsAtWork() || look_->IsAtWork() ||
           diagnosis_->IsAtWork();
}

template <typename Work, typename Done>
void SettingsPage::Run(Work work, Done done) {
    job_.Start([this] { SetBusy(true); },
               [desktop = desktop_, work](const LoadProgress& progress) {
                   return work(*desktop, progress);
               },
               [this, done](auto&& result) {
                   SetBusy(false);
                   done(result);
               });
}

void SettingsPage::SetBusy(bool busy) {
    if (busy) {
        focus_.emplace(*this);
    }
    for (QWidget* control : std::initializer_list<QWidget*>{autoRun_, repair_, gb18030_, gbk_}) {
        control->setEnabled(!busy);
    }
    if (!busy) {
        focus_->GiveBack();
    }
}

void SettingsPage::LoadSettings() {
    const bool leaves = Host().Settings().ReadNumber(kSettingsKey, kExitMode) == kLeaveProgram;
    (leaves ? exitQuit_ : exitHide_)->setChecked(true);
    struct Written {
        bool autoRuns;
        CodePage codePage;
    };
    Run(
        [&settings = Host().Settings()](DesktopIntegration& desktop, const LoadProgress&) {
            return Written{desktop.AutoRuns(), ChosenCodePage(settings, ActiveCodePage())};
        },
        [this](const Written& written) {
            autoRun_->SetCheck(written.autoRuns ? 1 : 0);
            (written.codePage == CodePage::gbk ? gbk_ : gb18030_)->setChecked(true);
            // The Tab key comes to what is chosen.
            for (SkinRadio* radio : {gb18030_, gbk_}) {
                radio->setFocusPolicy(radio->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
            }
        });
}

void SettingsPage::OnCodePage(CodePage codePage) {
    Run(
        [&settings = Host().Settings(), codePage](DesktopIntegration&, const LoadProgress&) {
            ChooseCodePage(settings, codePage);
            return true;
        },
        [](bool) {});
}

void SettingsPage::OnAutoRun() {
    Run(
        [on = autoRun_->GetCheck() == 1](DesktopIntegration& desktop, const LoadProgress&) {
            desktop.SetAutoRun(on);
            return desktop.AutoRuns();
        },
        [this](bool autoRuns) { autoRun_->SetCheck(autoRuns ? 1 : 0); });
}

void SettingsPage::OnExitHide() {
    Host().Settings().WriteNumber(kSettingsKey, kExitMode, kHideToTray);
    LoadSettings();
}

void SettingsPage::OnExitQuit() {
    Host().Settings().WriteNumber(kSettingsKey, kExitMode, kLeaveProgram);
    LoadSettings();
}

void SettingsPage::OnRepair() {
    Run(
        [this](DesktopIntegration& desktop, const LoadProgress& progress) {
            const auto reached = [&](int percent) {
                progress([this, percent] { progress_->setValue(percent); });
            };
            desktop.MakeShortcut();
            reached(kShortcutMade);
            reached(kLibraryWritten);
            reached(kLibraryRegistered);
            desktop.RegisterProtocol();
            reached(kProtocolWritten);
            return kRepaired;
        },
        [this](int percent) {
            progress_->setValue(percent);
            repairText_->SetState(CSkinStateLabel::kGreen,
                                  ToQString(u8"修复完成,仍然存在问题请尝试重装 Quorvi"));
        });
}

}  // namespace quorvi
