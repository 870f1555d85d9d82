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

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const bool loading = status_.Get() == ListState::loading;
        if (whole_ || loading) {
            look::fill(painter, rect(), look::color(Color::surface));
        }
        if (whole_) {
            if (loading) {
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
    bool whole_ = false;
};

HtmlFrame::HtmlFrame(QWidget& view, QWidget* parent) : QFrame(parent), cover_(new Cover(this)) {
    setFrameShape(QFrame::StyledPanel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
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

void HtmlFrame::SetFailedText(const QString& headline, const QString& sentence) {
    cover_->Status().SetFailedText(headline, sentence);
}

void HtmlFrame::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    PlaceCover();
}

void HtmlFrame::PlaceCover() {
    const bool whole = !filled_ && State() != ListState::idle;
    QRect area = contentsRect();
    if (!whole) {
        area.setHeight(Metric::loadBar);
    }
    cover_->SetWhole(whole);
    cover_->setGeometry(area);
    cover_->raise();
    cover_->setVisible(State() == ListState::loading || whole);
}

}  // namespace quorvi
