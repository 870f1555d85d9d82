// Messages and questions: one picture, one sentence, and the buttons.
#pragma once

#include <functional>

#include "ui/kit/SkinDialog.h"

class QVBoxLayout;

namespace quorvi {

// The form of a message or question, 400 by 196. More text makes it higher.
class QuestionDlg : public SkinDialog {
    Q_OBJECT
  public:
    enum class Kind { information, warning, error };

    // `textNumber` is the number of the control that holds the sentence.
    QuestionDlg(int number, const QString& title, Kind kind, const QString& text, int textNumber,
                QWidget* parent = nullptr);

    // Shows a text from elsewhere below the sentence, in full and as it is: a long one scrolls.
    // `name` is what a screen reader calls it.
    void Quote(const QString& text, const QString& name);
    // Shows a remark of the program's own below the sentence; nothing for an empty one.
    void AddRemark(const QString& text);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void FitHeight();

    QVBoxLayout* column_;  // the sentence, remarks, and what is quoted
};

// Dialog 548: asks before a delete. Ends with Accepted for 删除, with Rejected for anything else;
// 取消 is the default.
class CConfirmDeleteDlg : public QuestionDlg {
    Q_OBJECT
  public:
    explicit CConfirmDeleteDlg(const QString& text, QWidget* parent = nullptr);
};

// Dialog 682: nothing is ticked. Its help button does nothing.
class CNothingCheckedDlg : public QuestionDlg {
    Q_OBJECT
  public:
    explicit CNothingCheckedDlg(QWidget* parent = nullptr);
};

// A question whose answer can cost something: ends with Accepted for `affirm`, with Rejected for
// anything else; `stay`, the way back, is the default.
class ConsentDlg : public QuestionDlg {
    Q_OBJECT
  public:
    ConsentDlg(const QString& text, const QString& affirm, const QString& stay,
               look::ButtonKind affirmKind, QWidget* parent = nullptr);
};

// Asks that, without blocking; `yes` is called when the user has affirmed.
void AskForConsent(QWidget* parent, const QString& text, const QString& affirm, const QString& stay,
                   look::ButtonKind affirmKind, std::function<void()> yes);

// Shows a message box with one button, without blocking; `done` is called when it has ended.
void ShowMessage(QWidget* parent, QuestionDlg::Kind kind, const QString& text,
                 std::function<void()> done = {});

}  // namespace quorvi
