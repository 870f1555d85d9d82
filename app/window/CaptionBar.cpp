#include "app/window/CaptionBar.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QStyleOption>
#include <array>

#include "app/window/ProductName.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinFields.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;
using look::Size;

// Stands behind the product's name, in a lighter weight: "奎维掌上工坊 PC版 1.0".
constexpr std::u8string_view kEdition = u8"PC版 1.0";

struct WindowButtonRow {
    int control;
    std::string_view image;
    std::u8string_view tip;
    look::ButtonKind kind;
};

constexpr std::array<WindowButtonRow, 3> kWindowButtons = {{
    {CaptionBar::kMinimise, "win-min", u8"最小化", look::ButtonKind::window},
    {CaptionBar::kMaximise, "win-max", u8"最大化", look::ButtonKind::window},
    {CaptionBar::kClose, "win-close", u8"关闭", look::ButtonKind::windowClose},
}};

}  // namespace

CaptionBar::CaptionBar(QWidget* parent)
    : QWidget(parent), search_(new CSearchEdit(ToQString(u8"搜索软件、游戏"), this)) {
    setObjectName(QStringLiteral("caption"));
    setFixedHeight(Metric::captionHeight);

    search_->setObjectName(QStringLiteral("search"));
    search_->setAccessibleName(ToQString(u8"搜索软件、游戏"));
    search_->setFixedSize(Metric::searchWidth, Metric::fieldHeight);
    connect(search_, &CSearchEdit::searchAsked, this, &CaptionBar::searchAsked);

    auto* downloads = new WindowButton(QStringLiteral("tasks"), ToQString(u8"当前下载任务"), this);
    SetControlNumber(downloads, kDownloads, ToQString(u8"当前下载任务"));
    downloads->setFixedSize(Metric::fieldHeight, Metric::fieldHeight);

    auto* devices = new CSkinButton(ToQString(u8"设备管理器"), this);
    devices->SetImage(QStringLiteral("devices"));
    SetControlNumber(devices, kDeviceManager, ToQString(u8"设备管理器"));
    devices->setFixedHeight(Metric::fieldHeight);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addStretch(1);
    row->addWidget(downloads);
    row->addSpacing(Metric::gap2);
    row->addWidget(search_);
    row->addSpacing(Metric::gap3);
    row->addWidget(devices);
    row->addSpacing(Metric::gap3);

    const auto tell = [this](QAbstractButton* button, int control) {
        connect(button, &QAbstractButton::clicked, this,
                [this, control] { Q_EMIT pressed(control); });
    };
    tell(downloads, kDownloads);
    tell(devices, kDeviceManager);
    for (const WindowButtonRow& line : kWindowButtons) {
        auto* button =
            new WindowButton(ToQString(line.image), ToQString(line.tip), this, line.kind);
        SetControlNumber(button, line.control, ToQString(line.tip));
        row->addWidget(button);
        tell(button, line.control);
    }
    setTabOrder(search_, devices);
    setTabOrder(devices, downloads);
}

void CaptionBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF logo(Metric::gap4, (height() - Metric::captionLogo) / 2.0, Metric::captionLogo,
                      Metric::captionLogo);
    look::drawCentred(painter, logo,
                      look::picture(u"logo", QSize(Metric::captionLogo, Metric::captionLogo),
                                    devicePixelRatioF()));

    const QString title = ToQString(kProductName);
    const QFont bold = look::font(Size::s14, true);
    painter.setFont(bold);
    painter.setPen(look::color(Color::plum8));
    QRect line(Metric::captionTitleX, 0, width() - Metric::captionTitleX, height());
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, title);
    line.setLeft(line.left() + QFontMetrics(bold).horizontalAdvance(title) + Metric::gap2);
    painter.setFont(look::font(Size::s12));
    painter.setPen(look::color(Color::ink2));
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, ToQString(kEdition));
}

}  // namespace quorvi
