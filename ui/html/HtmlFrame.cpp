#include "ui/html/HtmlFrame.h"

#include <QPainter>
#include <QVBoxLayout>

#include "ui/look/Look.h"
#include "ui/look/RoundCorners.h"

namespace quorvi {

using look::Color;
using look::Metric;

// The widget that lies over the view and shows the marks: it covers all of the view, or only the
// bar at its top.
class HtmlFrame::Cover : public QWidget {
  public:
    explicit Cover(QWidget* parent) : QWidget(parent), status_(this) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

    ViewStatus& Status() { return status_; }
    void SetWhole(bool whole) {
        whole_ = whole;
        update();
    }

    void SetNothingFound(const QString& headline) {
        nothing_ = headline;
        update();
    }
    [[nodiscard]] bool SaysNothingFound() const { return !nothing_.isEmpty(); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const bool loading = status_.Get() == ListState::loading;
        if (whole_ || loading) {
            look::fill(painter, rect(), look::color(Color::surface));
        }
        if (whole_) {
            if (SaysNothingFound()) {
                status_.PaintNothingFound(painter, nothing_);
            } else if (loading) {
                PaintBlocks(painter);
            } else {
                status_.PaintVoid(painter);
            }
        }
        if (loading) {
            status_.PaintBar(painter);
        }
    }

  private:
    // Two lines a row, as the views have them.
    void PaintBlocks(QPainter& painter) const {
        constexpr int kLines[] = {3, 8};  // tenths of the width
        for (int row = 0; row < Metric::loadRows; ++row) {
            int top = row * Metric::rowTall + (Metric::rowTall / 2 - Metric::cellLine);
            for (const int tenths : kLines) {
                ViewStatus::PaintBlock(painter, {Metric::gap4, top + Metric::gap1,
                                                 width() * tenths / 10, Metric::skeletonLine});
                top += Metric::cellLine;
            }
        }
        status_.PaintProgress(painter);
    }

    ViewStatus status_;
    QString nothing_;
    bool whole_ = false;
};

HtmlFrame::HtmlFrame(QWidget& view, QWidget* parent)
    : QFrame(parent), cover_(new Cover(this)), view_(view) {
    setFrameShape(QFrame::StyledPanel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(&view);
    RoundCorners::Attach(*this);
}

void HtmlFrame::SetState(ListState state) {
    cover_->Status().Set(state);
    PlaceCover();
}

ListState HtmlFrame::State() const {
    return cover_->Status().Get();
}

void HtmlFrame::SetLoadProgress(std::uint64_t have, std::uint64_t total) {
    cover_->Status().SetProgress(have, total);
}

void HtmlFrame::SetFilled() {
    filled_ = true;
    PlaceCover();
}

void HtmlFrame::SetBar(QWidget& bar) {
    static_cast<QVBoxLayout*>(layout())->insertWidget(0, &bar);
}

void HtmlFrame::SetNothingFound(const QString& headline) {
    cover_->SetNothingFound(headline);
    PlaceCover();
}

void HtmlFrame::SetFailedText(const QString& headline, const QString& sentence) {
    cover_->Status().SetFailedText(headline, sentence);
}

QRectF HtmlFrame::RingRect() const {
    return showsFocus_ ? QRectF(rect()) : QRectF();
}

qreal HtmlFrame::RingRadius() const {
    return Metric::radius;
}

void HtmlFrame::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    PlaceCover();
}

// The view has come to another place: a bar above it was shown or hidden.
bool HtmlFrame::event(QEvent* event) {
    const bool handled = QFrame::event(event);
    if (event->type() == QEvent::LayoutRequest) {
        layout()->activate();
        PlaceCover();
    }
    return handled;
}

void HtmlFrame::PlaceCover() {
    const bool whole = (!filled_ && State() != ListState::idle) || cover_->SaysNothingFound();
    QRect area = view_.geometry() & contentsRect();
    if (!whole) {
        area.setHeight(Metric::loadBar);
    }
    cover_->SetWhole(whole);
    cover_->setGeometry(area);
    cover_->raise();
    cover_->setVisible(State() == ListState::loading || whole);
}

}  // namespace quorvi
