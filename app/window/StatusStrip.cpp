#include "app/window/StatusStrip.h"

#include <QHBoxLayout>

#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinLabels.h"
#include "ui/look/Look.h"

namespace quorvi {

using look::Metric;

namespace {

QString Ready() {
    return ToQString(u8"就绪");
}

}  // namespace

StatusStrip::StatusStrip(QWidget* parent)
    : QWidget(parent),
      status_(new CSkinStateLabel(Ready(), this)),
      banner_(new ConnectionBannerLabel(this)) {
    setObjectName(QStringLiteral("status"));
    setFixedHeight(Metric::statusHeight);
    SetControlNumber(status_, kStatusLabel);
    banner_->setObjectName(QStringLiteral("banner"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Metric::statusInset, Metric::hairline, Metric::statusInset, 0);
    row->setSpacing(Metric::gap4);
    row->addWidget(status_, 1);
    row->addWidget(banner_, 1);
}

void StatusStrip::SetStatus(const QString& text) {
    const bool error =
        text.startsWith(ToQString(u8"【X】")) || text.startsWith(ToQString(u8"【错误】"));
    status_->SetState(error ? CSkinStateLabel::kRed : CSkinStateLabel::kBlue, text);
}

void StatusStrip::TakeBackStatus(const QString& text) {
    if (status_->text() == text) {
        SetStatus(Ready());
    }
}

void StatusStrip::SetBanner(const QString& text, BannerState state) {
    state_ = state;
    banner_->SetState(static_cast<int>(state), text);
}

void StatusStrip::SetBannerTip(const QString& tip) {
    banner_->SetTip(tip);
}

QString StatusStrip::BannerText() const {
    return banner_->text();
}

}  // namespace quorvi
