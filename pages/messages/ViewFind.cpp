#include "pages/messages/ViewFind.h"

#include <optional>
#include <utility>
#include <vector>

#include "ui/html/HtmlCtrl.h"
#include "ui/html/HtmlFrame.h"
#include "ui/kit/FindBar.h"
#include "ui/kit/TextUnits.h"

namespace quorvi {

ViewFind::ViewFind(HtmlFrame& frame, CHtmlCtrlBase& view, const Searched& searched)
    : QObject(&frame),
      frame_(frame),
      view_(view),
      searched_(searched),
      bar_(new FindBar(view, searched.by, &frame)) {
    bar_->SetFieldName(searched.name);
    frame_.SetBar(*bar_);
    connect(bar_, &FindBar::openAsked, this, &ViewFind::Open);
    connect(bar_, &FindBar::typed, this, &ViewFind::Narrow);
    connect(bar_, &FindBar::closeAsked, this, &ViewFind::Close);
    connect(bar_, &FindBar::listAsked, this, &ViewFind::GoToView);
}

void ViewFind::LeaveKey() {
    bar_->LeaveKey();
}

bool ViewFind::IsOpen() const {
    return bar_->IsOpen();
}

void ViewFind::Open() {
    if (!IsOpen()) {
        if (rows_) {
            index_ = rows_();  // now, so that no key has to wait for it
        }
        bar_->SetOpen(true);
    }
    bar_->TakeFocus();
}

void ViewFind::Close() {
    if (!IsOpen()) {
        return;
    }
    bar_->SetOpen(false);
    bar_->SetText({});  // shows all again
    index_.Clear();
    GoToView();
}

void ViewFind::SetRows(IndexOf index) {
    rows_ = std::move(index);
    if (IsOpen()) {
        index_ = rows_();
        Narrow();
    }
}

void ViewFind::Narrow() {
    const QString typed = bar_->Text();
    const FindQuery query(Units(typed));
    if (query.IsEmpty()) {
        bar_->SetFound(std::nullopt);
        frame_.SetNothingFound({});
        view_.ShowChildren(searched_.list, std::nullopt);
        return;
    }
    const std::vector<int> found = index_.Find(query);
    // What is on its way has nothing to count.
    const bool none = index_.RowCount() == 0;
    bar_->SetFound(none ? std::nullopt : std::optional(found.size()));
    frame_.SetNothingFound(!none && found.empty() ? bar_->NothingFound() : QString());
    std::vector<HtmlMark> marks;
    for (const auto& [within, kind] : searched_.texts) {
        marks.push_back({within, index_.Spellings(query, kind, found)});
    }
    view_.ShowChildren(searched_.list, found, searched_.scroll, marks);
}

void ViewFind::GoToView() {
    view_.setFocus(Qt::OtherFocusReason);
}

}  // namespace quorvi
