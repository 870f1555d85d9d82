// The fields of the kit: edits, the search box, combo boxes.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStringList>

namespace quorvi {

// A line of text in a frame of its own, 30 high. It holds a text of any length.
class CSkinEdit : public QLineEdit {
    Q_OBJECT
  public:
    explicit CSkinEdit(const QString& text = {}, QWidget* parent = nullptr);

    // Draws the frame in red: the text is not accepted.
    void SetBad(bool bad);
    [[nodiscard]] bool Bad() const { return bad_; }

    [[nodiscard]] QSize sizeHint() const override;

  private:
    bool bad_ = false;
};

// Several lines of text in the same frame.
class SkinTextEdit : public QPlainTextEdit {
    Q_OBJECT
  public:
    explicit SkinTextEdit(const QString& text = {}, QWidget* parent = nullptr);

    // Shows a text from elsewhere, whatever is in it: a word of a megabyte, which would take the
    // layout minutes to break between words, is broken anywhere.
    void SetText(const QString& text);

  protected:
    void insertFromMimeData(const QMimeData* source) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

// The search box: Enter asks for the search, Escape gives the text up, the focus selects it all.
class CSearchEdit : public QLineEdit {
    Q_OBJECT
  public:
    explicit CSearchEdit(const QString& hint, QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;

  Q_SIGNALS:
    // Enter was pressed; `text` is what the box holds, which may be empty.
    void searchAsked(const QString& text);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
};

// A combo box with a white list, 30 high. The wheel turns it only while it has the focus.
class CSkinCombo : public QComboBox {
    Q_OBJECT
  public:
    explicit CSkinCombo(QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    void showPopup() override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    // The icon of an entry; empty for none.
    [[nodiscard]] virtual QString ImageOf(int index) const;
};

// A combo box whose entries show the icon of their index.
class CSkinImageCombo : public CSkinCombo {
    Q_OBJECT
  public:
    explicit CSkinImageCombo(QWidget* parent = nullptr);
    // Icon names; entry i shows icon i, entries beyond the list none.
    void SetImageList(QStringList icons);

  protected:
    [[nodiscard]] QString ImageOf(int index) const override;

  private:
    friend class DropDelegate;
    QStringList images_;
};

}  // namespace quorvi
