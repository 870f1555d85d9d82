#include "ui/list/ListSort.h"

#include <optional>
#include <utility>

#include "ui/kit/QtText.h"
#include "ui/kit/SkinMenu.h"
#include "ui/list/ListColumns.h"
#include "ui/list/SkinListCtrl.h"

namespace quorvi {

ListSort::ListSort(CSkinListCtrl& list) : QObject(&list), list_(list) {}

void ListSort::SetRanks(std::vector<std::vector<RowRank>> ranks) {
    ranks_ = std::move(ranks);
    Apply();
}

void ListSort::Sort(int key, bool descending) {
    key_ = key;
    descending_ = descending;
    Apply();
    Q_EMIT sorted();
}

void ListSort::Click(int key) {
    if (key != key_) {
        Sort(key, false);
    } else if (!descending_) {
        Sort(key, true);
    } else {
        Sort(-1, false);
    }
}

void ListSort::Apply() {
    if (key_ < 0) {
        list_.OrderRows(std::nullopt);
        return;
    }
    const auto key = static_cast<std::size_t>(key_);
    const auto rows = static_cast<std::size_t>(list_.RowCount());
    if (key >= ranks_.size() || ranks_[key].size() > rows) {
        return;  // the rows to sort are on their way
    }
    ranks_[key].resize(rows, kNoRank);
    list_.OrderRows(RowsInOrder(ranks_[key], descending_));
}

void ListSort::AddOrders(CSkinMenu& menu) {
    auto* orders = new CSkinMenu(&menu);
    orders->setTitle(ToQString(u8"排序"));
    AddOrdersTo(*orders);
    menu.addMenu(orders);
}

void ListSort::AddOrdersTo(CSkinMenu& menu) {
    const auto add = [this, &menu](std::u8string_view text, int key, bool descending) {
        QAction* item = menu.AddItem(CSkinMenu::normal, 0, -1, ToQString(text));
        item->setCheckable(true);
        item->setChecked(key == key_ && descending == descending_);
        connect(item, &QAction::triggered, this,
                [this, key, descending] { Sort(key, descending); });
    };
    for (int column = 0; column < list_.ColumnCount(); ++column) {
        for (const SortKey& sort : list_.Column(column).sorts) {
            add(sort.up, sort.key, false);
            add(sort.down, sort.key, true);
        }
    }
    menu.addSeparator();
    add(u8"手机上的顺序", -1, false);
}

QString ListSort::WordsOf(int column) const {
    for (const SortKey& sort : list_.Column(column).sorts) {
        if (sort.key == key_) {
            return ToQString(descending_ ? sort.down : sort.up);
        }
    }
    return {};
}

}  // namespace quorvi
