#include "ui/list/ListFind.h"

#include <QScrollBar>
#include <utility>
#include <vector>

#include "ui/kit/FindBar.h"
#include "ui/kit/QtText.h"
#include "ui/kit/TextUnits.h"
#include "ui/list/SkinHeader.h"
#include "ui/list/SkinListCtrl.h"

namespace quorvi {

ListFind::ListFind(CSkinListCtrl& list)
    : QObject(&list),
      list_(list),
      bar_(new FindBar(list, ToQString(u8"名称、拼音或号码"), list.horizontalHeader())) {
    connect(bar_, &FindBar::openAsked, this, &ListFind::Open);
    connect(bar_, &FindBar::typed, this, &ListFind::Narrow);
    connect(bar_, &FindBar::closeAsked, this, &ListFind::Close);
    connect(bar_, &FindBar::listAsked, this, &ListFind::GoToList);
}

bool ListFind::IsOpen() const {
    return bar_->IsOpen();
}

void ListFind::Open() {
    if (!IsOpen()) {
        offset_ = list_.verticalScrollBar()->value();
        selected_ = list_.CurrentRow();
        ReadRows();  // now, so that no key has to wait for it
        bar_->SetOpen(true);
        static_cast<CSkinHeader*>(list_.horizontalHeader())->SetBar(bar_);
    }
    bar_->TakeFocus();
}

void ListFind::Close() {
    if (!IsOpen()) {
        return;
    }
    bar_->SetOpen(false);
    static_cast<CSkinHeader*>(list_.horizontalHeader())->SetBar(nullptr);
    bar_->SetText({});  // shows all rows again
    index_.Clear();
    isStale_ = true;
    if (list_.CurrentRow() == selected_) {
        list_.ScrollTo(offset_);
    } else {
        list_.ScrollToCurrent();
    }
    list_.setFocus(Qt::OtherFocusReason);
}

void ListFind::OnRowsChanged() {
    isStale_ = true;
    if (!IsOpen() || std::exchange(isToBeRead_, true)) {
        return;
    }
    QMetaObject::invokeMethod(
        this,
        [this] {
            isToBeRead_ = false;
            Narrow();
        },
        Qt::QueuedConnection);
}

void ListFind::ReadRows() {
    if (!std::exchange(isStale_, false)) {
        return;
    }
    index_.Clear();
    const int column = list_.NameColumn();
    for (int row = 0; row < list_.RowCount(); ++row) {
        const Cell cell = list_.CellAt(row, column);
        index_.AddRow();
        index_.AddText(Units(cell.text), FindKind::name);
        index_.AddText(Units(cell.second), FindKind::number);
    }
}

void ListFind::Narrow() {
    query_ = FindQuery(Units(bar_->Text()));
    if (query_.IsEmpty()) {
        bar_->SetFound(std::nullopt);
        list_.ShowRows(std::nullopt);
        return;
    }
    ReadRows();
    std::vector<int> found = index_.Find(query_);
    // A list that is on its way has nothing to count.
    bar_->SetFound(list_.RowCount() == 0 ? std::nullopt : std::optional(found.size()));
    list_.ShowRows(std::move(found));
}

std::optional<FoundPart> ListFind::PartOf(const QString& text, FindKind kind) const {
    if (query_.IsEmpty()) {
        return std::nullopt;
    }
    return query_.In(Folded(Units(text)), kind);
}

QString ListFind::NothingFound() const {
    return query_.IsEmpty() ? QString() : bar_->NothingFound();
}

// To the selected row, or where that is not shown to the first that is.
void ListFind::GoToList() {
    list_.setFocus(Qt::OtherFocusReason);
    list_.SelectShownRow();
}

}  // namespace quorvi
