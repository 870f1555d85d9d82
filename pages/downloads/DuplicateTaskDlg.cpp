#include "pages/downloads/DuplicateTaskDlg.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"
#include "ui/kit/SkinPanels.h"
#include "ui/look/FocusRing.h"

namespace quorvi {

using look::ButtonKind;
using look::Color;
using look::Metric;
using look::Size;

namespace {

// Numbers of the dialog and its controls.
constexpr int kDialog = 686;
constexpr int kTitle = 1391;
constexpr int kDate = 1392;
constexpr int kPath = 1393;
constexpr int kAgain = 1215;
constexpr int kInstall = 1216;
constexpr int kCancel = 1021;

}  // namespace

DuplicateTaskDlg::DuplicateTaskDlg(const FoundTask& task, bool fileThere, QWidget* parent)
    : SkinDialog(kDialog, ToQString(u8"重复的任务"), parent) {
    auto* facts = new SkinPanel(Body());
    auto* grid = new QGridLayout(facts);
    grid->setContentsMargins(0, Metric::formGap, Metric::gap3, Metric::formGap);
    grid->setHorizontalSpacing(Metric::formGap);
    grid->setVerticalSpacing(0);
    grid->setColumnStretch(1, 1);
    const auto add = [&](std::u8string_view caption, int number, const QString& text) {
        const int row = grid->rowCount();
        auto* name = new RemarkLabel(ToQString(caption), facts);
        name->setFixedWidth(Metric::formCaption);
        name->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        auto* value = SetControlNumber(new ElidedLabel(text, Size::s13, Color::ink, facts), number);
        value->setFixedHeight(Metric::duplicateFact);
        grid->addWidget(name, row, 0);
        grid->addWidget(value, row, 1);
    };
    add(u8"名称", kTitle, ToShownQString(task.title));
    add(u8"创建时间", kDate, ToShownQString(task.datetime));
    add(u8"保存位置", kPath, QString::fromStdString(task.file.native()));

    auto* question = new PlainLabel(ToQString(u8"这个软件已经在任务列表里，要重新开始吗？"),
                                    Size::s14, Color::ink, Body());
    question->setWordWrap(true);
    question->setMinimumHeight(Metric::iconMessage);
    auto* column = new QVBoxLayout;
    column->setSpacing(Metric::gap2);
    column->addWidget(question);
    column->addWidget(facts);
    column->addStretch(1);
    auto* row = new QHBoxLayout(Body());
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Metric::gap4);
    Body()->setContentsMargins(Metric::questionPadding, Metric::formPadding,
                               Metric::questionPadding, Metric::gap3);
    row->addWidget(new IconLabel(QStringLiteral("info"), Metric::iconMessage, Color::plum6, Body()),
                   0, Qt::AlignTop);
    row->addLayout(column, 1);

    CSkinButton* again = AddEndButton(kAgain, ToQString(u8"重新下载"), kDownloadAgain,
                                      fileThere ? ButtonKind::plain : ButtonKind::primary);
    CSkinButton* install =
        AddEndButton(kInstall, ToQString(u8"重新安装"), kInstallAgain, ButtonKind::primary);
    install->setVisible(fileThere);
    AddEndButton(kCancel, ToQString(u8"取消"), QDialog::Rejected);
    SetDefault(fileThere ? install : again);
    SetInnerSize({Metric::duplicateWidth, Metric::duplicateHeight});
}

void DuplicateTaskDlg::showEvent(QShowEvent* event) {
    SkinDialog::showEvent(event);
    FocusRing::Show();  // the user sees which button Enter would press
}

}  // namespace quorvi
