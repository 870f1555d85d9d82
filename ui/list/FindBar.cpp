#include "ui/list/FindBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"

namespace quorvi {

using look::Color;
using look::Metric;

FindBar::FindBar(QWidget* parent)
    : QWidget(parent),
      field_(new CSearchEdit(ToQString(u8"名称、拼音或号码"), this)),
      count_(new PlainLabel({}, look::Size::s12, Color::ink2, this)),
      close_(new WindowButton(QStringLiteral("win-close"), ToQString(u8"关闭查找 (Esc)"), this)) {
    setObjectName(QStringLiteral("findBar"));
    setFixedHeight(Metric::findBar);
    field_->setObjectName(QStringLiteral("find"));
    field_->setAccessibleName(ToQString(u8"在列表中查找"));
    field_->setFixedSize(Metric::searchWidth, Metric::findField);
    field_->installEventFilter(this);
    count_->setObjectName(QStringLiteral("findCount"));
    close_->setObjectName(QStringLiteral("findClose"));
    close_->setFixedSize(Metric::smallHeight, Metric::smallHeight);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Metric::rowPictureInset, 0, Metric::gap1, Metric::hairline);
    layout->setSpacing(Metric::gap2);
    layout->addWidget(field_);
    layout->addWidget(count_, 1);
    layout->addWidget(close_);
    connect(field_, &QLineEdit::textChanged, this, &FindBar::typed);
    connect(close_, &QAbstractButton::clicked, this, &FindBar::closeAsked);
}

QString FindBar::Text() const {
    return field_->text();
}

void FindBar::SetText(const QString& text) {
    field_->setText(text);
}

void FindBar::SetCount(const QString& text) {
    count_->setText(text);
}

void FindBar::TakeFocus() {
    field_->setFocus(Qt::ShortcutFocusReason);
    field_->selectAll();
}

void FindBar::LeadTo(QWidget& next) {
    setTabOrder(next.previousInFocusChain(), field_);
    setTabOrder(field_, close_);
    setTabOrder(close_, &next);
}

// The field itself would keep Down.
bool FindBar::eventFilter(QObject* object, QEvent* event) {
    if (object == field_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
        Q_EMIT listAsked();
        return true;
    }
    return QWidget::eventFilter(object, event);
}

void FindBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    look::fill(painter, rect(), look::color(Color::rowLight));
    look::bottomLine(painter, rect(), look::color(Color::line2));
}

}  // namespace quorvi
