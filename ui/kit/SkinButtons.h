// The push buttons of the kit.
#pragma once

#include <QPushButton>
#include <QString>

#include "ui/kit/Pressable.h"

namespace quorvi {

// A push button, plain, primary (the affirmative) or erasing. At least 80 by 32.
class CSkinButton : public Pressable<QPushButton> {
    Q_OBJECT
  public:
    explicit CSkinButton(const QString& text, QWidget* parent = nullptr,
                         look::ButtonKind kind = look::ButtonKind::plain);

    // The name of the icon before the text; empty for none.
    void SetImage(const QString& icon);
    [[nodiscard]] const QString& Image() const { return image_; }
    void SetKind(look::ButtonKind kind);
    [[nodiscard]] look::ButtonKind Kind() const { return kind_; }
    // Leads nowhere: it looks as ever and can be clicked, but takes no keys, and a screen reader is
    // told that it is a text.
    void SetInert();
    [[nodiscard]] bool IsInert() const { return inert_; }
    // 28 high with text of 12, for a button inside a form.
    void SetSmall(bool small);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    // Icon and text side by side in the middle of `area`.
    void PaintContents(QPainter& painter, const QRectF& area, const look::ButtonInk& ink,
                       int iconSize, const QFont& font) const;
    [[nodiscard]] virtual QFont TextFont() const;

  private:
    look::ButtonKind kind_;
    QString image_;
    bool small_ = false;
    bool inert_ = false;
};

// A command button of the main window: 124 by 32, its image changed with each page.
class CSkinStripButton : public CSkinButton {
    Q_OBJECT
  public:
    explicit CSkinStripButton(const QString& text = {}, QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;
};

// A flat tool bar button with an image: grey lines at rest, a blue line hovered, an orange one
// pressed.
class CFlatImageButton : public CSkinButton {
    Q_OBJECT
  public:
    explicit CFlatImageButton(const QString& text, const QString& icon = {},
                              QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] QFont TextFont() const override;
};

// Text that is clicked like a link.
class SkinLink : public Pressable<QPushButton> {
    Q_OBJECT
  public:
    explicit SkinLink(const QString& text, QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    [[nodiscard]] QRectF RingRect() const override;
    [[nodiscard]] qreal RingRadius() const override { return look::Metric::radiusSmall; }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

// Minimise, maximise, close: a picture alone, with a tool tip that is its accessible name too.
class WindowButton : public Pressable<QPushButton> {
    Q_OBJECT
  public:
    WindowButton(const QString& icon, const QString& name, QWidget* parent = nullptr,
                 look::ButtonKind kind = look::ButtonKind::window);
    void SetImage(const QString& icon, const QString& name);
    [[nodiscard]] QSize sizeHint() const override;
    // The ring lies inside: nothing is laid around.
    [[nodiscard]] QRectF RingRect() const override { return {}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    look::ButtonKind kind_;
    QString image_;
};

}  // namespace quorvi
