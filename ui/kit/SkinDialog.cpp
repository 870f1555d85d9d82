#include "ui/kit/SkinDialog.h"

#include <QCloseEvent>
#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <QWindow>

#include "ui/kit/ControlNumber.h"
#include "ui/kit/FreeArea.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"
#include "ui/kit/WindowFrame.h"
#include "ui/look/Theme.h"

namespace quorvi {

using look::ButtonKind;
using look::Color;
using look::Metric;
using look::Size;

namespace {

class DialogFooter : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        look::fill(painter, rect(), look::color(Color::chrome2));
        look::topLine(painter, rect(), look::color(Color::line));
    }
};

}  // namespace

// Dims a whole window, whatever it holds, and follows its size.
class Scrim : public QWidget {
  public:
    explicit Scrim(QWidget* window) : QWidget(window) {
        setObjectName(QStringLiteral("scrim"));
        window->installEventFilter(this);
        setGeometry(window->rect());
        show();
        raise();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), look::color(Color::scrim));
    }
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Resize) {
            setGeometry(parentWidget()->rect());
        }
        return QWidget::eventFilter(object, event);
    }
};

SkinDialog::SkinDialog(int number, const QString& title, QWidget* parent)
    : QDialog(parent == nullptr ? nullptr : parent->window(),
              Qt::Dialog | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint),
      title_(new QLabel(this)),
      close_(new WindowButton(QStringLiteral("win-close"), ToQString(u8"关闭"), this,
                              ButtonKind::windowClose)),
      body_(new QWidget(this)) {
    SetDialogNumber(*this, number);
    title_->setFont(look::font(Size::s14, true));
    look::SetPaletteColor(*this, QPalette::Window, Color::dialog);
    look::SetPaletteColor(*title_, QPalette::WindowText, Color::plum8);
    title_->setTextFormat(Qt::PlainText);
    SetTitle(title);

    close_->setFixedSize(Metric::dialogCaption, Metric::dialogCaption);
    close_->setFocusPolicy(Qt::NoFocus);                   // on the keyboard Escape does the same
    close_->setAccessibleName(ToQString(u8"关闭对话框"));  // a footer may have its own 关闭
    connect(close_, &QAbstractButton::clicked, this, &QDialog::reject);

    auto* caption = new QHBoxLayout;
    caption->setContentsMargins(Metric::dialogPadding, 0, 0, 0);
    caption->addWidget(title_, 1);
    caption->addWidget(close_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(caption);
    column->addWidget(body_, 1);
    body_->setContentsMargins(Metric::dialogPadding, Metric::dialogPadding, Metric::dialogPadding,
                              Metric::dialogPadding);
    WindowFrame::Attach(*this);
}

SkinDialog::~SkinDialog() {
    delete scrim_;
}

void SkinDialog::SetTitle(const QString& title) {
    setWindowTitle(title);
    title_->setText(title);
}

QHBoxLayout* SkinDialog::Footer() {
    if (footer_ == nullptr) {
        footer_ = new DialogFooter(this);
        footer_->setFixedHeight(Metric::dialogFooter);
        footerLayout_ = new QHBoxLayout(footer_);
        footerLayout_->setContentsMargins(Metric::dialogPadding, 0, Metric::dialogPadding, 0);
        footerLayout_->setSpacing(Metric::gap2);
        footerLayout_->addStretch(1);
        layout()->addWidget(footer_);
    }
    return footerLayout_;
}

CSkinButton* SkinDialog::AddButton(int number, const QString& text, ButtonKind kind) {
    QHBoxLayout* row = Footer();
    auto* button = SetControlNumber(new CSkinButton(text, footer_, kind), number, text);
    row->addWidget(button);
    return button;
}

CSkinButton* SkinDialog::AddEndButton(int number, const QString& text, int result,
                                      ButtonKind kind) {
    CSkinButton* button = AddButton(number, text, kind);
    connect(button, &QAbstractButton::clicked, this, [this, result] { done(result); });
    return button;
}

CSkinStateLabel* SkinDialog::AddState(const QString& text) {
    Footer();
    auto* label = new CSkinStateLabel(text, footer_);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    footerLayout_->setStretch(footerLeft_, 0);  // all the room that is left is the label's
    footerLayout_->insertWidget(footerLeft_++, label, 1);
    return label;
}

CSkinStateLabel* SkinDialog::AddState(int number, const QString& text) {
    return SetControlNumber(AddState(text), number);
}

void SkinDialog::AddToFooter(QWidget* widget) {
    Footer()->insertWidget(footerLeft_++, widget);
    footerLayout_->insertSpacing(footerLeft_++, Metric::gap2);
}

void SkinDialog::SetDefault(CSkinButton* button) {
    default_ = button;
    button->setDefault(true);
}

void SkinDialog::Open(std::function<void(int)> done) {
    setAttribute(Qt::WA_DeleteOnClose);
    if (done) {
        // The context is the dialog: when it is deleted with its parent, `done` is not called.
        connect(this, &QDialog::finished, this,
                [done = std::move(done)](int result) { done(result); });
    }
    open();
}

void SkinDialog::done(int result) {
    QDialog::done(endsWithOk_ ? Accepted : result);
}

// In the middle of the window behind, whole in view, and with that window dimmed.
void SkinDialog::StandOver(QWidget& behind) {
    adjustSize();
    const QRect over(behind.mapToGlobal(QPoint(0, 0)), behind.size());
    QRect place = rect();
    place.moveTopLeft(over.center() - place.center());
    place = BroughtInto(place, AreaFor(over, FreeAreas()));
    if (place.size() != size()) {
        setFixedSize(place.size());
    }
    move(place.topLeft());
    if (scrim_ == nullptr) {
        scrim_ = new Scrim(&behind);
    }
}

// A window that is shown under its dialog comes up in front of everything; the dialog follows it.
bool SkinDialog::eventFilter(QObject* object, QEvent* event) {
    if (object == parentWidget() && event->type() == QEvent::Show && !event->spontaneous() &&
        isVisible()) {
        StandOver(*parentWidget());
        QMetaObject::invokeMethod(
            this,
            [this] {
                raise();
                activateWindow();
            },
            Qt::QueuedConnection);
    }
    return QDialog::eventFilter(object, event);
}

bool SkinDialog::AskToGiveUp() {
    if (endsWithOk_ || !wouldLose_ || !wouldLose_()) {
        return false;
    }
    AskForConsent(this, ToQString(u8"填写的内容还没有保存或发送，现在离开就会丢失。"),
                  ToQString(u8"放弃内容"), ToQString(u8"继续填写"), ButtonKind::erase,
                  [this] { reject(); });
    return true;
}

void SkinDialog::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Cancel) && AskToGiveUp()) {
        return;
    }
    QDialog::keyPressEvent(event);
}

void SkinDialog::closeEvent(QCloseEvent* event) {
    if (event->spontaneous() && AskToGiveUp()) {
        event->ignore();
        return;
    }
    QDialog::closeEvent(event);
}

void SkinDialog::setVisible(bool visible) {
    QWidget* behind = parentWidget();
    if (visible && behind != nullptr) {
        // The desktop keeps a dialog in front of a window that it knows, shown or not.
        behind->winId();
        behind->installEventFilter(this);
        if (behind->isVisible()) {
            StandOver(*behind);
        }
    }
    if (visible && default_ != nullptr) {
        default_->setFocus(Qt::OtherFocusReason);
    }
    QDialog::setVisible(visible);
    if (!visible) {
        delete scrim_;
    }
}

void SkinDialog::SetInnerSize(QSize size) {
    setFixedSize(WindowFrame::Around(*this, size));
}

QRect SkinDialog::Captioned() const {
    QRect caption = contentsRect();
    caption.setHeight(Metric::dialogCaption);
    return caption;
}

void SkinDialog::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    WindowFrame::Paint(painter, *this);
    look::fill(painter, contentsRect(), look::color(Color::dialog));
    look::fill(painter, Captioned(), look::color(Color::chrome1));
}

void SkinDialog::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && Captioned().contains(event->position().toPoint()) &&
        windowHandle() != nullptr) {
        windowHandle()->startSystemMove();
        return;
    }
    QDialog::mousePressEvent(event);
}

}  // namespace quorvi
