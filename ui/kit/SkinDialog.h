// The frame of every dialog: caption, ground, footer, and the dimmed window behind.
#pragma once

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <functional>

#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinLabels.h"

namespace quorvi {

class Scrim;

// A dialog without the desktop's frame: a caption of 40 that drags it, a body on the page's ground,
// and a footer of 56 once something is put there. Known by its number ("dialog 130"). Escape is the
// way out, Enter the default button. While it is shown, the window behind it is dimmed.
//
// Open it with Open: it is modal, but its opener goes on at once and hears of the end later.
class SkinDialog : public QDialog {
    Q_OBJECT
  public:
    SkinDialog(int number, const QString& title, QWidget* parent = nullptr);
    ~SkinDialog() override;

    void SetTitle(const QString& title);
    // Fixes the dialog's size, caption and footer included. On a screen that is smaller it is shown
    // in what the screen has.
    void SetInnerSize(QSize size);

    // Where the dialog's own controls go; give it a layout. Its margins are the dialog's padding.
    [[nodiscard]] QWidget* Body() const { return body_; }

    // Appends a button to the footer, from left to right: help, the affirmative, the way out.
    CSkinButton* AddButton(int number, const QString& text,
                           look::ButtonKind kind = look::ButtonKind::plain);
    // The same, and a click ends the dialog with `result`.
    CSkinButton* AddEndButton(int number, const QString& text, int result,
                              look::ButtonKind kind = look::ButtonKind::plain);
    // The state text at the footer's left; without a number it has no object name.
    CSkinStateLabel* AddState(const QString& text);
    CSkinStateLabel* AddState(int number, const QString& text);
    // Puts a widget of the dialog's own behind the state text.
    void AddToFooter(QWidget* widget);
    // The button that Enter presses, and that has the focus when the dialog opens.
    void SetDefault(CSkinButton* button);

    // Shows the dialog, modal to its parent's window, and returns at once. When it has ended,
    // `done` is called with its result on the window's thread, and the dialog is deleted.
    void Open(std::function<void(int result)> done = {});

    // From now on the dialog ends with Accepted, however it is closed: what it has sent cannot be
    // taken back, and its opener has to look at the phone again.
    void EndWithOk() { endsWithOk_ = true; }
    // From now on Escape, and a close that the desktop asks for, ask first while `wouldLose` says
    // that something was typed that would be lost.
    void AskBeforeEscape(std::function<bool()> wouldLose) { wouldLose_ = std::move(wouldLose); }

    bool eventFilter(QObject* object, QEvent* event) override;
    void setVisible(bool visible) override;
    void done(int result) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    [[nodiscard]] QRect Captioned() const;
    void StandOver(QWidget& behind);
    QHBoxLayout* Footer();
    // Asks whether to give up what was typed. False when there is nothing to ask about.
    bool AskToGiveUp();

    QLabel* title_;
    WindowButton* close_;
    QWidget* body_;
    QWidget* footer_ = nullptr;
    QHBoxLayout* footerLayout_ = nullptr;
    int footerLeft_ = 0;  // widgets before the stretch
    bool endsWithOk_ = false;
    std::function<bool()> wouldLose_;
    QPointer<CSkinButton> default_;
    QPointer<Scrim> scrim_;
};

}  // namespace quorvi
