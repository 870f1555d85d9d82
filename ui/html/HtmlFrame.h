// The frame around an HTML view, and in it the marks with which lists show what they are at.
#pragma once

#include <QFrame>

#include "ui/kit/ViewStatus.h"
#include "ui/look/FocusRing.h"

namespace quorvi {

// Holds one view and lays the mark over it: the running bar at its top while work goes on. As long
// as the view has nothing to show, what a list would paint in that state covers all of it. The
// window's thread.
class HtmlFrame : public QFrame, public RingShape {
    Q_OBJECT
  public:
    // Takes the view as its child.
    HtmlFrame(QWidget& view, QWidget* parent);

    void SetState(ListState state);
    [[nodiscard]] ListState State() const;
    // How far the load has come, in bytes; a total of 0 means that it is not known.
    void SetLoadProgress(std::uint64_t have, std::uint64_t total);
    // The view has something to show from now on, and stays in sight.
    void SetFilled();
    [[nodiscard]] bool IsFilled() const { return filled_; }
    // Lays a bar over the view, which becomes the frame's child and takes its room while it is
    // shown.
    void SetBar(QWidget& bar);
    // Says in place of the view that nothing was found; an empty headline shows the view.
    void SetNothingFound(const QString& headline);
    // Has the focus ring laid around it while the view has the focus: for a view in which nothing
    // takes it and shows it, but which keys scroll.
    void ShowFocus() { showsFocus_ = true; }
    [[nodiscard]] QRectF RingRect() const override;
    [[nodiscard]] qreal RingRadius() const override;
    // The sentence of a failed load, which names the refresh button.
    void SetFailedText(const QString& headline, const QString& sentence);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

  private:
    class Cover;
    void PlaceCover();

    Cover* cover_;
    QWidget& view_;
    bool filled_ = false;
    bool showsFocus_ = false;
};

}  // namespace quorvi
