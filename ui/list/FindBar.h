// The bar over a list, in which one types what is looked for.
#pragma once

#include <QWidget>

namespace quorvi {

class CSearchEdit;
class PlainLabel;
class WindowButton;

// A field, how much was found, and a button that closes it. Down asks for the list. The window's
// thread.
class FindBar : public QWidget {
    Q_OBJECT
  public:
    explicit FindBar(QWidget* parent);

    [[nodiscard]] QString Text() const;
    void SetText(const QString& text);
    // What was found, in words; empty for nothing to say.
    void SetCount(const QString& text);
    // The keyboard comes to the field, whose text is selected.
    void TakeFocus();
    // The Tab key leads from the bar to this widget, and back.
    void LeadTo(QWidget& next);

  Q_SIGNALS:
    void typed();
    void closeAsked();
    void listAsked();

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    CSearchEdit* field_;
    PlainLabel* count_;
    WindowButton* close_;
};

}  // namespace quorvi
