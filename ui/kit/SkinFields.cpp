#include "ui/kit/SkinFields.h"

#include <QKeyEvent>
#include <QListView>
#include <QMimeData>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QWheelEvent>
#include <algorithm>
#include <limits>

#include "ui/look/Look.h"
#include "ui/look/Theme.h"

namespace quorvi {

using look::Color;
using look::Metric;
using look::Size;

namespace {

// The margin that QLineEdit itself leaves between its frame and its text.
constexpr int kLineEditMargin = 2;

// The longest word, in characters, for which lines are broken between words. Qt's time for that
// grows with the square of a word's length.
constexpr qsizetype kLongWord = 1000;

bool HasLongWord(const QString& text) {
    qsizetype length = 0;
    return std::ranges::any_of(text, [&](QChar character) {
        length = character.isSpace() ? 0 : length + 1;
        return length > kLongWord;
    });
}

look::ButtonState FieldState(const QWidget& widget) {
    using Stage = look::ButtonState::Stage;
    return {widget.underMouse() ? Stage::hover : Stage::normal, widget.isEnabled(),
            widget.hasFocus()};
}

}  // namespace

CSkinEdit::CSkinEdit(const QString& text, QWidget* parent) : QLineEdit(text, parent) {
    setFont(look::font(Size::s13));
    // QLineEdit cuts a text off at 32,767 characters as delivered, and the rest would be lost when
    // the field is saved.
    setMaxLength(std::numeric_limits<int>::max());
    const int margin = Metric::fieldPadding - kLineEditMargin - Metric::hairline;
    setTextMargins(margin, 0, margin, 0);
    setAttribute(Qt::WA_Hover);
}

void CSkinEdit::SetBad(bool bad) {
    bad_ = bad;
    update();
}

QSize CSkinEdit::sizeHint() const {
    return {QLineEdit::sizeHint().width(), Metric::fieldHeight};
}

SkinTextEdit::SkinTextEdit(const QString& text, QWidget* parent) : QPlainTextEdit(text, parent) {
    setFont(look::font(Size::s13));
    setFrameStyle(QFrame::NoFrame);
    setTabChangesFocus(true);
    const int x = Metric::fieldPadding - static_cast<int>(document()->documentMargin());
    const int y = Metric::fieldAreaPadding - static_cast<int>(document()->documentMargin());
    setViewportMargins(x, std::max(y, Metric::fieldFocusLine), Metric::fieldFocusLine,
                       std::max(y, Metric::fieldFocusLine));
    setAttribute(Qt::WA_Hover);
    viewport()->setAutoFillBackground(false);
}

void SkinTextEdit::SetText(const QString& text) {
    clear();  // so that Qt does not lay the old text out anew in the new mode
    setWordWrapMode(HasLongWord(text) ? QTextOption::WrapAnywhere
                                      : QTextOption::WrapAtWordBoundaryOrAnywhere);
    setPlainText(text);
}

void SkinTextEdit::insertFromMimeData(const QMimeData* source) {
    if (HasLongWord(source->text())) {
        setWordWrapMode(QTextOption::WrapAnywhere);
    }
    QPlainTextEdit::insertFromMimeData(source);
}

bool SkinTextEdit::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::Paint: {
            // The frame is painted on this widget: the viewport lies inside it.
            QPainter painter(this);
            look::paintField(painter, rect(), FieldState(*this));
            return true;
        }
        case QEvent::FocusIn:
        case QEvent::FocusOut:
        case QEvent::HoverEnter:
        case QEvent::HoverLeave:
        case QEvent::EnabledChange:
            update();
            break;
        default:
            break;
    }
    return QPlainTextEdit::event(event);
}

void SkinTextEdit::paintEvent(QPaintEvent* event) {
    QPlainTextEdit::paintEvent(event);
}

CSearchEdit::CSearchEdit(const QString& hint, QWidget* parent) : QLineEdit(parent) {
    setFont(look::font(Size::s12));
    setPlaceholderText(hint);
    setAccessibleName(hint);
    setFrame(false);
    setAttribute(Qt::WA_Hover);
    setTextMargins(
        Metric::fieldPadding + Metric::iconField + Metric::searchIconGap - kLineEditMargin, 0,
        Metric::fieldPadding - kLineEditMargin, 0);
}

QSize CSearchEdit::sizeHint() const {
    return {Metric::searchWidth, Metric::fieldHeight};
}

void CSearchEdit::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        Color line = Color::searchLine;
        int width = Metric::hairline;
        if (!isEnabled()) {
            line = Color::line2;
        } else if (hasFocus()) {
            line = Color::ring;
            width = Metric::fieldFocusLine;
        } else if (underMouse()) {
            line = Color::ink3;
        }
        look::plate(painter, rect(), height() / 2.0,
                    look::color(isEnabled() ? Color::field : Color::fieldOff), look::color(line),
                    width);
        look::drawIcon(painter, QRectF(Metric::fieldPadding, 0, Metric::iconField, height()),
                       u"search", Metric::iconField,
                       look::color(isEnabled() ? Color::plum6 : Color::inkOff));
    }
    QLineEdit::paintEvent(event);
}

void CSearchEdit::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Q_EMIT searchAsked(text());
            event->accept();
            return;
        case Qt::Key_Escape:
            clear();
            event->accept();
            return;
        default:
            QLineEdit::keyPressEvent(event);
    }
}

void CSearchEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) {
        // A click that gives the focus goes on to place the cursor, which ends a selection. So the
        // text is selected after the click has been handled.
        QMetaObject::invokeMethod(this, &QLineEdit::selectAll, Qt::QueuedConnection);
    }
}

// One entry of a drop list.
class DropDelegate : public QStyledItemDelegate {
  public:
    explicit DropDelegate(CSkinCombo* combo) : QStyledItemDelegate(combo), combo_(combo) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        if ((option.state & QStyle::State_Selected) != 0) {
            look::fill(*painter, option.rect, look::color(Color::comboSel));
        }
        QRect area = option.rect.adjusted(Metric::fieldPadding, 0, -Metric::fieldPadding, 0);
        const bool enabled = (option.state & QStyle::State_Enabled) != 0;
        if (const QString image = Image(index.row()); !image.isEmpty()) {
            look::drawIcon(*painter,
                           QRectF(area.left(), area.top(), Metric::iconField, area.height()), image,
                           Metric::iconField, look::color(Color::ink2));
            area.setLeft(area.left() + Metric::iconField + Metric::gap2);
        }
        painter->setFont(combo_->font());
        painter->setPen(look::color(enabled ? Color::ink : Color::inkOff));
        const QString text = index.data(Qt::DisplayRole).toString();
        painter->drawText(
            area, Qt::AlignVCenter | Qt::AlignLeft,
            QFontMetrics(combo_->font()).elidedText(text, Qt::ElideRight, area.width()));
    }
    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const override {
        const QString text = index.data(Qt::DisplayRole).toString();
        return {QFontMetrics(combo_->font()).horizontalAdvance(text) + 2 * Metric::fieldPadding +
                    Metric::comboArrowSpace,
                Metric::dropRow};
    }

  private:
    [[nodiscard]] QString Image(int row) const {
        const auto* images = qobject_cast<const CSkinImageCombo*>(combo_);
        return images == nullptr ? QString() : images->ImageOf(row);
    }

    CSkinCombo* combo_;
};

CSkinCombo::CSkinCombo(QWidget* parent) : QComboBox(parent) {
    setFont(look::font(Size::s13));
    auto* list = new QListView(this);
    list->setUniformItemSizes(true);
    list->setMouseTracking(true);
    list->setFrameShape(QFrame::NoFrame);
    look::SetPaletteColor(*list, QPalette::Base, Color::menu);
    setView(list);
    setItemDelegate(new DropDelegate(this));
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
}

QSize CSkinCombo::sizeHint() const {
    int text = 0;
    for (int i = 0; i < count(); ++i) {
        text = std::max(text, fontMetrics().horizontalAdvance(itemText(i)));
    }
    return {text + Metric::fieldPadding + Metric::comboArrowSpace, Metric::fieldHeight};
}

QSize CSkinCombo::minimumSizeHint() const {
    return {Metric::fieldPadding + Metric::comboArrowSpace + Metric::fieldHeight,
            Metric::fieldHeight};
}

void CSkinCombo::showPopup() {
    QComboBox::showPopup();
    update();
}

void CSkinCombo::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();  // who scrolls the form does not want to change the box under the cursor
    }
}

QString CSkinCombo::ImageOf(int) const {
    return {};
}

void CSkinCombo::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const look::ButtonState state = FieldState(*this);
    look::paintField(painter, rect(), state);
    if (state.enabled && state.stage != look::ButtonState::Stage::normal && !state.focused) {
        const qreal line = look::hairline(painter);
        look::plate(painter, QRectF(rect()).adjusted(line, line, -line, -line),
                    Metric::radius - line, look::color(Color::rowLight), Qt::transparent);
    }
    QRect area = rect().adjusted(Metric::fieldPadding, 0, -Metric::comboArrowSpace, 0);
    if (const QString image = ImageOf(currentIndex()); !image.isEmpty()) {
        look::drawIcon(painter, QRectF(area.left(), 0, Metric::iconField, height()), image,
                       Metric::iconField, look::color(state.enabled ? Color::ink2 : Color::inkOff));
        area.setLeft(area.left() + Metric::iconField + Metric::gap2);
    }
    painter.setFont(font());
    painter.setPen(look::color(state.enabled ? Color::ink : Color::inkOff));
    painter.drawText(area, Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(currentText(), Qt::ElideRight, area.width()));
    const QRectF arrow(width() - Metric::comboArrowInset - Metric::iconField, 0, Metric::iconField,
                       height());
    look::drawIcon(painter, arrow, u"chevron-down", Metric::iconField,
                   look::color(state.enabled ? Color::ink2 : Color::inkOff));
}

CSkinImageCombo::CSkinImageCombo(QWidget* parent) : CSkinCombo(parent) {}

void CSkinImageCombo::SetImageList(QStringList icons) {
    images_ = std::move(icons);
    update();
}

QString CSkinImageCombo::ImageOf(int index) const {
    return index >= 0 && index < images_.size() ? images_[index] : QString();
}

}  // namespace quorvi
