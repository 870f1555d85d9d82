// What only shows: state labels, the banner, progress, group boxes.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>

#include "ui/look/Look.h"

namespace quorvi {

// A text of one line with a dot before it; both in the colour of a state. The text is what
// assistive tools read.
class CSkinStateLabel : public QLabel {
    Q_OBJECT
  public:
    static constexpr int kBlue = 0;   // working, ready
    static constexpr int kRed = 1;    // error
    static constexpr int kGreen = 2;  // success

    explicit CSkinStateLabel(const QString& text = {}, QWidget* parent = nullptr);

    // A number that is no state is taken as kBlue.
    void SetState(int state);
    void SetState(int state, const QString& text);
    [[nodiscard]] int State() const { return state_; }
    // A sentence more in the tool tip, under the text where that is cut off. Assistive tools read
    // it as the label's description.
    void SetTip(const QString& tip);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    int state_ = kBlue;
    QString tip_;
};

// The link's state in the main window: the same, at the right.
class ConnectionBannerLabel : public CSkinStateLabel {
    Q_OBJECT
  public:
    explicit ConnectionBannerLabel(QWidget* parent = nullptr);
};

// A text of one size and ink, in which no markup counts.
class PlainLabel : public QLabel {
    Q_OBJECT
  public:
    PlainLabel(const QString& text, look::Size size, look::Color ink, QWidget* parent = nullptr,
               bool bold = false);
};

// The same in one line. What its place has no room for is left out of its middle, and stands whole
// in the tool tip.
class ElidedLabel : public PlainLabel {
    Q_OBJECT
  public:
    using PlainLabel::PlainLabel;

    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

// The caption before a field of a form, 64 wide, right aligned.
class FormCaption : public PlainLabel {
    Q_OBJECT
  public:
    explicit FormCaption(const QString& text, QWidget* parent = nullptr);
};

// A remark beside or under something else: 12 in the second ink.
class RemarkLabel : public PlainLabel {
    Q_OBJECT
  public:
    explicit RemarkLabel(const QString& text = {}, QWidget* parent = nullptr);
};

// A progress bar that draws "38 %".
class CSkinProgress : public QProgressBar {
    Q_OBJECT
  public:
    explicit CSkinProgress(QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

// A rounded box with a filled caption.
class CSkinGroupBox : public QGroupBox {
    Q_OBJECT
  public:
    explicit CSkinGroupBox(const QString& caption, QWidget* parent = nullptr);

    void SetCaptionColors(look::Color text, look::Color fill);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    look::Color text_ = look::Color::plum7;
    look::Color fill_ = look::Color::rowHover;
};

}  // namespace quorvi
