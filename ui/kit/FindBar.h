// The bar over a list, a tree or a view, in which one types what is looked for.
#pragma once

#include <QWidget>
#include <cstddef>
#include <optional>

class QShortcut;

namespace quorvi {

class CSearchEdit;
class PlainLabel;
class WindowButton;

// A field, how much was found, and a button that closes it. From anywhere in the window of what is
// searched Ctrl+F asks for the bar, and while it is open Escape asks to close it; Down asks for
// what is searched. The window's thread.
class FindBar : public QWidget {
    Q_OBJECT
  public:
    // Closed. `searched` is what it belongs to, which outlives it; `placeholder` says by what one
    // can look.
    FindBar(QWidget& searched, const QString& placeholder, QWidget* parent);

    // What a screen reader calls the field, where that is not a list's.
    void SetFieldName(const QString& name);
    // Ctrl+F is heeded elsewhere from now on: in a window that has two bars.
    void LeaveKey();

    [[nodiscard]] bool IsOpen() const { return !isHidden(); }
    // An open bar takes part in the Tab key's round, before what is searched.
    void SetOpen(bool open);
    [[nodiscard]] QString Text() const;
    void SetText(const QString& text);
    // Says how much was found; none for nothing to say.
    void SetFound(std::optional<std::size_t> found);
    // What stands in place of what is searched when nothing in it has the text.
    [[nodiscard]] QString NothingFound() const;
    // The keyboard comes to the field, whose text is selected.
    void TakeFocus();

  Q_SIGNALS:
    void openAsked();
    void typed();
    void closeAsked();
    void listAsked();

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QWidget& searched_;
    QShortcut* key_;
    QShortcut* escape_;
    CSearchEdit* field_;
    PlainLabel* count_;
    WindowButton* close_;
};

}  // namespace quorvi
