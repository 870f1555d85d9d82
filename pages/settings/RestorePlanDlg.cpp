#include "pages/settings/RestorePlanDlg.h"

#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "backup/BackupPlace.h"
#include "backup/BackupReader.h"
#include "backup/BackupTexts.h"
#include "pages/settings/PlanCounter.h"
#include "pages/settings/PlanListCtrl.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/page/Job.h"
#include "ui/page/LatestPost.h"

namespace quorvi {

using look::ButtonKind;
using look::Color;
using look::Metric;
using look::Size;

namespace {

// Numbers of the dialog and its controls.
constexpr int kDialog = 690;
constexpr int kList = 1074;
constexpr int kState = 1220;
constexpr int kProgress = 1356;
constexpr int kGo = 1215;
constexpr int kStop = 1216;
constexpr int kClose = 1021;
constexpr std::array<RestoreAction, 4> kCounted{RestoreAction::add, RestoreAction::change,
                                                RestoreAction::there, RestoreAction::impossible};

constexpr int kPercent = 100;

}  // namespace

struct RestorePlanDlg::Try {
    StopSignal stop;
    std::unique_ptr<BackupReader> reader;
    std::optional<Restore> restore;
};

namespace {

RestorePlanDlg::Prepared PrepareOnWorker(RestorePlanDlg::Try& attempt, AgentAddress agent,
                                         const std::filesystem::path& backup) {
    RestorePlanDlg::Prepared prepared;
    OpenedBackup opened = BackupReader::Open(backup);
    if (!opened.reader) {
        prepared.status = {RestoreEnd::backupBad, opened.why};
        return prepared;
    }
    attempt.reader = std::move(opened.reader);
    prepared.title = BackupTitle(attempt.reader->TheManifest());
    std::vector<BackupKind> kinds;
    for (const BackupKindName& kind : kBackupKinds) {
        kinds.push_back(kind.kind);
    }
    attempt.restore.emplace(agent, *attempt.reader, std::move(kinds));
    prepared.status = attempt.restore->Prepare(attempt.stop);
    if (prepared.status.end == RestoreEnd::whole) {
        prepared.phone = FetchModel(agent, attempt.stop);
        prepared.rows = PlanRowsOf(attempt.restore->Plan());
    }
    return prepared;
}

}  // namespace

RestorePlanDlg::RestorePlanDlg(AgentAddress agent, std::filesystem::path backup, QWidget* parent)
    : SkinDialog(kDialog, ToQString(u8"恢复计划 - Quorvi"), parent),
      agent_(agent),
      backup_(std::move(backup)),
      note_(new ElidedLabel({}, Size::s12, Color::ink2, Body())),
      progress_(SetControlNumber(new CSkinProgress(Body()), kProgress, ToQString(u8"恢复进度"))),
      list_(SetControlNumber(new PlanListCtrl(Body()), kList, ToQString(u8"恢复计划"))),
      state_(AddState(kState, {})),
      go_(AddButton(kGo, ToQString(u8"开始恢复"), ButtonKind::primary)),
      stop_(AddButton(kStop, ToQString(u8"停止"))),
      close_(AddButton(kClose, ToQString(u8"取消"))) {
    auto* rows = new QVBoxLayout(Body());
    rows->setContentsMargins({});
    rows->setSpacing(Metric::gap3);
    auto* line = new QHBoxLayout;
    line->setSpacing(Metric::gap3);
    line->addWidget(note_, 1);
    line->addWidget(progress_);
    note_->setFixedHeight(Metric::textLine);
    progress_->setFixedSize(Metric::planProgress, Metric::textLine);
    progress_->hide();
    rows->addLayout(line);
    AddCounters(*rows);
    rows->addWidget(list_, 1);
    list_->SetEmptyText(ToQString(u8"这里没有内容"), ToQString(u8"这份备份里没有这一类的内容"));
    list_->SetFailedText(ToQString(u8"没有得到恢复计划"),
                         ToQString(u8"请看下方的原因，处理后点“重试”"));
    stop_->SetImage(QStringLiteral("stop"));

    connect(go_, &QAbstractButton::clicked, this, [this] {
        if (stage_ == Stage::ready) {
            Write();
        } else {
            Prepare(stage_ == Stage::broken);
        }
    });
    connect(stop_, &QAbstractButton::clicked, this, &RestorePlanDlg::StopWork);
    connect(close_, &QAbstractButton::clicked, this, &QDialog::reject);
    SetInnerSize({Metric::planWidth, Metric::planHeight});
    Prepare(false);
}

RestorePlanDlg::~RestorePlanDlg() {
    try_->stop.Stop();
}

void RestorePlanDlg::AddCounters(QLayout& rows) {
    auto* line = new QHBoxLayout;
    line->setSpacing(Metric::gap2);
    for (const RestoreAction action : kCounted) {
        auto* counter = new PlanCounter(action, Body());
        counter->setObjectName(QStringLiteral("planCounter%1").arg(counters_.size()));
        connect(counter, &QAbstractButton::clicked, this, [this, counter] { Filter(*counter); });
        counters_.push_back(counter);
        line->addWidget(counter, 1);
    }
    rows.addItem(line);
}

void RestorePlanDlg::Filter(const PlanCounter& pressed) {
    for (PlanCounter* counter : counters_) {
        counter->setChecked(counter == &pressed && pressed.isChecked());
    }
    list_->ShowOnly(pressed.isChecked() ? std::optional(pressed.Action()) : std::nullopt);
}

void RestorePlanDlg::Prepare(bool goOn) {
    try_ = std::make_shared<Try>();
    list_->ShowPlan({});
    list_->SetState(ListState::loading);
    note_->setText(ToQString(u8"只会新增和补充，不会删除手机里的内容。"));
    Enter(Stage::reading, CSkinStateLabel::kBlue, ToQString(u8"正在比较备份和手机里的内容"));
    RunJob(
        this,
        [attempt = try_, agent = agent_, backup = backup_] {
            return PrepareOnWorker(*attempt, agent, backup);
        },
        [this, goOn](Prepared&& prepared) { ShowPrepared(std::move(prepared), goOn); });
}

void RestorePlanDlg::ShowPrepared(Prepared prepared, bool goOn) {
    if (prepared.status.end != RestoreEnd::whole) {
        list_->SetState(ListState::failed);
        Enter(goOn ? Stage::broken : Stage::unread, CSkinStateLabel::kRed,
              ToQString(prepared.status.why));
        return;
    }
    note_->setText(ToQString(u8"备份 ") + ToShownQString(prepared.title) +
                   (prepared.phone.empty()
                        ? QString()
                        : ToQString(u8"，恢复到 ") + ToShownQString(prepared.phone)) +
                   ToQString(u8"。只会新增和补充，不会删除手机里的内容。"));
    todo_.clear();
    for (PlanCounter* counter : counters_) {
        counter->SetCount(static_cast<std::size_t>(
            std::ranges::count(prepared.rows, counter->Action(), &PlanRow::action)));
    }
    for (const PlanRow& row : prepared.rows) {
        if (row.action == RestoreAction::add || row.action == RestoreAction::change) {
            todo_.resize(std::max(todo_.size(), row.order + 1));
            todo_[row.order] = row.kind + " " + row.what;
        }
    }
    list_->SetState(ListState::idle);
    list_->ShowPlan(std::move(prepared.rows));
    if (todo_.empty() && !goOn) {
        Enter(Stage::whole, CSkinStateLabel::kGreen, ToQString(u8"没有要写入的内容，不用恢复"));
    } else if (goOn) {
        Write();
    } else {
        Enter(Stage::ready, CSkinStateLabel::kBlue, ToQString(u8"还没有写入任何内容"));
    }
}

void RestorePlanDlg::Write() {
    Enter(Stage::writing, CSkinStateLabel::kBlue,
          ToQString(u8"停止后已写入的会保留，下次从这里继续"));
    ShowDone(0);
    const LatestPost<std::size_t> told(this, [this](std::size_t done) { ShowDone(done); });
    RunJob(
        this,
        [attempt = try_, told] {
            RestoreStatus status = attempt->restore->Run(
                [&told](std::size_t done, std::size_t) { told(done); }, attempt->stop);
            return std::pair(std::move(status), attempt->restore->Done());
        },
        [this](std::pair<RestoreStatus, std::size_t>&& end) { ShowEnd(end.first, end.second); });
}

void RestorePlanDlg::ShowDone(std::size_t done) {
    progress_->setValue(todo_.empty() ? kPercent
                                      : static_cast<int>(kPercent * done / todo_.size()));
    note_->setText(done < todo_.size()
                       ? ToQString(u8"正在写入 %1 / %2：%3")
                             .arg(QString::number(done + 1), QString::number(todo_.size()),
                                  ToShownQString(todo_[done]))
                       : ToQString(u8"正在把新的联系人放进分组"));
    list_->ShowDone(done);
}

void RestorePlanDlg::ShowEnd(const RestoreStatus& status, std::size_t done) {
    ShowDone(done);
    note_->setText(ToQString(u8"已写入 %1 / %2。下次打开各个列表时，会重新读取手机上的内容。")
                       .arg(done)
                       .arg(todo_.size()));
    Q_EMIT phoneChanged();
    if (status.end != RestoreEnd::whole) {
        Enter(Stage::broken, CSkinStateLabel::kRed, ToQString(status.why));
        return;
    }
    list_->SelectRow(-1);
    const auto count = [&](RestoreAction action) {
        return ToQString(GroupedDigits(static_cast<std::uint64_t>(
            std::ranges::count(list_->Plan(), action, &PlanRow::action))));
    };
    Enter(Stage::whole, CSkinStateLabel::kGreen,
          ToQString(u8"恢复完成，新增 %1 项，补充 %2 项")
              .arg(count(RestoreAction::add), count(RestoreAction::change)));
}

void RestorePlanDlg::Enter(Stage stage, int state, const QString& text) {
    stage_ = stage;
    state_->SetState(state, text);
    const bool writes = stage == Stage::writing;
    progress_->setVisible(writes);
    // The key that was pressed goes on with what comes next.
    const bool keys = go_->hasFocus() || stop_->hasFocus() || close_->hasFocus();
    go_->setText(ToQString(stage == Stage::unread   ? u8"重试"
                           : stage == Stage::broken ? u8"继续恢复"
                                                    : u8"开始恢复"));
    go_->setAccessibleName(go_->text());
    go_->setVisible(!writes && stage != Stage::whole);
    go_->setEnabled(stage != Stage::reading);
    stop_->setVisible(writes);
    close_->setVisible(!writes);
    close_->setText(
        ToQString(stage == Stage::broken || stage == Stage::whole ? u8"关闭" : u8"取消"));
    close_->setAccessibleName(close_->text());
    close_->SetKind(stage == Stage::whole ? ButtonKind::primary : ButtonKind::plain);
    CSkinButton* next = writes                                             ? stop_
                        : stage == Stage::whole || stage == Stage::reading ? close_
                                                                           : go_;
    SetDefault(next);
    if (keys || stage == Stage::ready) {
        next->setFocus();
    }
}

void RestorePlanDlg::StopWork() {
    try_->stop.Stop();
    state_->SetState(CSkinStateLabel::kBlue, ToQString(u8"正在停止"));
}

void RestorePlanDlg::done(int result) {
    if (stage_ == Stage::writing) {
        StopWork();
        return;
    }
    try_->stop.Stop();
    SkinDialog::done(result);
}

}  // namespace quorvi
