#include "pages/bookmarks/BookmarkSyncDlg.h"

#include <array>
#include <string_view>

#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"

namespace quorvi {

using look::Metric;

namespace {

constexpr int kDialog = 554;
constexpr int kManner = 1287;
constexpr int kOk = 1215;
constexpr int kCancel = 1021;

constexpr std::array<std::u8string_view, 3> kManners{u8"电脑同步到手机", u8"手机同步到电脑",
                                                     u8"电脑和手机双向"};

}  // namespace

CBookmarkSyncDlg::CBookmarkSyncDlg(QWidget* parent)
    : SkinDialog(kDialog, ToQString(u8"同步收藏夹 - Quorvi"), parent) {
    const QString caption = ToQString(u8"同步方式");
    auto* manner = SetControlNumber(new CSkinCombo(Body()), kManner, caption);
    for (const std::u8string_view entry : kManners) {
        manner->addItem(ToQString(entry));
    }
    Body()->setContentsMargins(Metric::gap3, Metric::formPadding, Metric::formPadding,
                               Metric::gap3);
    auto* row = new QHBoxLayout(Body());
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Metric::formGap);
    row->addWidget(new FormCaption(caption, Body()), 0, Qt::AlignTop);
    row->addWidget(manner, 1, Qt::AlignTop);
    AddState(ToQString(u8"同步功能还没有开放"));
    AddButton(kOk, ToQString(u8"确定"), look::ButtonKind::primary)->setEnabled(false);
    SetDefault(AddEndButton(kCancel, ToQString(u8"取消"), QDialog::Rejected));
    SetInnerSize({Metric::groupEditWidth, Metric::groupEditHeight});
}

}  // namespace quorvi
