#include "pages/settings/DiagnosisGroup.h"

#include <QDate>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <utility>

#include "base/Format.h"
#include "base/Places.h"
#include "log/LogFile.h"
#include "pages/settings/DiagnosisDlg.h"
#include "pages/settings/ScreenFacts.h"
#include "ui/kit/FileDialogs.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/page/DisabledJob.h"

namespace quorvi {

using look::Metric;

namespace {

CSkinButton* Button(std::u8string_view text, const char16_t* name, const char16_t* image,
                    std::u8string_view accessible) {
    auto* button = new CSkinButton(ToQString(text));
    button->setObjectName(QString::fromUtf16(name));
    button->setAccessibleName(ToQString(accessible));
    button->SetImage(QString::fromUtf16(image));
    return button;
}

}  // namespace

DiagnosisGroup::DiagnosisGroup(PageHost& host, QWidget* parent)
    : CSkinGroupBox(ToQString(u8"诊断信息"), parent),
      host_(host),
      show_(Button(u8"查看内容...", u"diagnosisShow", u"report", u8"查看诊断信息的内容")),
      save_(Button(u8"保存...", u"diagnosisSave", u"save", u8"保存诊断信息")),
      size_(new RemarkLabel),
      folder_(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)) {
    LayOut();
    connect(show_, &QAbstractButton::clicked, this,
            [this] { Gather([this](const Gathered& report) { Show(report); }); });
    connect(save_, &QAbstractButton::clicked, this,
            [this] { Gather([this](const Gathered& report) { AskAndSave(report); }); });
}

void DiagnosisGroup::LayOut() {
    size_->setObjectName(QStringLiteral("diagnosisSize"));
    auto* action = new QHBoxLayout;
    action->setSpacing(Metric::gap2);
    action->addWidget(show_);
    action->addWidget(save_);
    action->addStretch();
    action->addWidget(size_);
    auto* note = new RemarkLabel(
        ToQString(u8"版本、adb 和屏幕的状态、运行日志，不含姓名、号码、短信内容和完整的序列号"));
    note->setWordWrap(true);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(Metric::gap2);
    rows->addLayout(action);
    rows->addWidget(note);
    rows->addStretch();
}

void DiagnosisGroup::Refresh() {
    ++atWork_;
    RunJob(
        this, [] { return LogFile(ThePlaces().LogFile()).Size(); },
        [this](std::uintmax_t size) {
            --atWork_;
            size_->setText(ToQString(u8"日志 ") + ToQString(FormatByteSize(size)));
        });
}

void DiagnosisGroup::Gather(std::function<void(const Gathered& report)> then) {
    ++atWork_;
    RunDisabled(
        *this,
        [screen = ScreenFacts()] {
            return std::make_shared<const Report>(CollectReport({.further = {screen}}));
        },
        [this, then = std::move(then)](const Gathered& report) {
            --atWork_;
            then(report);
        });
}

void DiagnosisGroup::Show(const Gathered& report) {
    (new DiagnosisDlg(ToQString(ReportPreview(*report)), this))->Open([this, report](int result) {
        if (result == QDialog::Accepted) {
            AskAndSave(report);
        }
    });
}

void DiagnosisGroup::AskAndSave(const Gathered& report) {
    const QString filter = ToQString(u8"压缩文件 (*.zip)");
    const SaveQuestion question{
        .title = ToQString(u8"保存诊断信息"),
        .filters = {filter},
        .filter = filter,
        .folder = folder_,
        .name = ToQString(u8"Quorvi 诊断信息") +
                QDate::currentDate().toString(QStringLiteral(" yyyy-MM-dd"))};
    AskWhereToSave(*this, question, [this, report](const QString& file) {
        folder_ = QFileInfo(file).path();
        Save(report, file);
    });
}

// The dialog has asked already whether a file that stands there is to be replaced.
void DiagnosisGroup::Save(const Gathered& report, const QString& file) {
    ++atWork_;
    RunDisabled(
        *this,
        [report, path = QFile::encodeName(file).toStdString()] {
            return SaveReport(*report, path, ExistingFile::yields);
        },
        [this, file](const ReportSaved& saved) {
            --atWork_;
            host_.SetStatus(saved.saved
                                ? ToQString(u8"已保存诊断信息：") + file
                                : ToQString(u8"【X】诊断信息没有保存：") + ToQString(saved.why));
        });
}

}  // namespace quorvi
