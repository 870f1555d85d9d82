#include "ui/kit/FindBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QShortcut>

#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"

namespace quorvi {

using look::Color;
using look::Metric;

FindBar::FindBar(QWidget& searched, const QString& placeholder, QWidget* parent)
    : QWidget(parent),
      searched_(searched),
      key_(new QShortcut(QKeySequence::Find, &searched)),
      escape_(new QShortcut(QKeySequence(Qt::Key_Escape), &searched)),
      field_(new CSearchEdit(placeholder, this)),
      count_(new PlainLabel({}, look::Size::s12, Color::ink2, this)),
      close_(new WindowButton(QStringLiteral("win-close"), ToQString(u8"关闭查找 (Esc)"), this)) {
    setObjectName(QStringLiteral("findBar"));
    setFixedHeight(Metric::findBar);
    field_->setObjectName(QStringLiteral("find"));
    field_->setAccessibleName(ToQString(u8"在列表中查找"));
    field_->setFixedHeight(Metric::findField);
    field_->setMaximumWidth(Metric::searchWidth);
    field_->setMinimumWidth(Metric::findField);
    field_->installEventFilter(this);
    count_->setObjectName(QStringLiteral("findCount"));
    close_->setObjectName(QStringLiteral("findClose"));
    close_->setFixedSize(Metric::smallHeight, Metric::smallHeight);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Metric::rowPictureInset, 0, Metric::gap1, Metric::hairline);
    layout->setSpacing(Metric::gap2);
    // The field gives way where it is narrow; where it is wide, the count takes what is left.
    constexpr int kFieldFirst = 100;
    layout->addWidget(field_, kFieldFirst);
    layout->addWidget(count_, 1);
    layout->addWidget(close_);
    connect(key_, &QShortcut::activated, this, &FindBar::openAsked);
    // A shortcut, since the main window keeps the key itself from all that is in it.
    escape_->setEnabled(false);
    connect(escape_, &QShortcut::activated, this, &FindBar::closeAsked);
    connect(field_, &QLineEdit::textChanged, this, &FindBar::typed);
    connect(close_, &QAbstractButton::clicked, this, &FindBar::closeAsked);
    hide();
}

void FindBar::SetFieldName(const QString& name) {
    field_->setAccessibleName(name);
}

void FindBar::LeaveKey() {
    key_->setEnabled(false);
}

void FindBar::SetOpen(bool open) {
    setVisible(open);
    escape_->setEnabled(open);
    if (open) {
        setTabOrder(searched_.previousInFocusChain(), field_);
        setTabOrder(field_, close_);
        setTabOrder(close_, &searched_);
    }
}

QString FindBar::Text() const {
    return field_->text();
}

void FindBar::SetText(const QString& text) {
    field_->setText(text);
}

void FindBar::SetFound(std::optional<std::size_t> found) {
    count_->setText(found ? ToQString(u8"找到 %1 项")
                                .arg(QLocale(QLocale::Chinese).toString(static_cast<int>(*found)))
                          : QString());
}

QString FindBar::NothingFound() const {
    return ToQString(u8"没有找到“%1”").arg(Text().trimmed());
}

void FindBar::TakeFocus() {
    field_->setFocus(Qt::ShortcutFocusReason);
    field_->selectAll();
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
