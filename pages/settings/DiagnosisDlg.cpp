#include "pages/settings/DiagnosisDlg.h"

#include <QVBoxLayout>

#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinFields.h"

namespace quorvi {

using look::ButtonKind;
using look::Color;
using look::Metric;
using look::Size;

namespace {

// Numbers of the dialog and its controls.
constexpr int kDialog = 691;
constexpr int kPreview = 3;
constexpr int kSave = 1215;
constexpr int kClose = 1021;

}  // namespace

DiagnosisDlg::DiagnosisDlg(const QString& preview, QWidget* parent)
    : SkinDialog(kDialog, ToQString(u8"诊断信息 - Quorvi"), parent) {
    auto* sentence =
        new PlainLabel(ToQString(u8"保存的文件里只有下面的内容，可以发给帮助您的人。手机里的"
                                 u8"姓名、号码、短信和文件都不在里面。"),
                       Size::s12, Color::ink2, Body());
    sentence->setWordWrap(true);
    auto* text =
        SetControlNumber(new SkinTextEdit({}, Body()), kPreview, ToQString(u8"诊断信息的内容"));
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->SetText(preview);
    auto* rows = new QVBoxLayout(Body());
    rows->setContentsMargins({});
    rows->setSpacing(Metric::gap3);
    rows->addWidget(sentence);
    rows->addWidget(text, 1);
    SetDefault(AddEndButton(kSave, ToQString(u8"保存..."), QDialog::Accepted, ButtonKind::primary));
    AddEndButton(kClose, ToQString(u8"关闭"), QDialog::Rejected);
    SetInnerSize({Metric::planWidth, Metric::planHeight});
}

}  // namespace quorvi
