#include "ui/list/ListModel.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "ui/kit/QtText.h"
#include "ui/list/ListSort.h"
#include "ui/list/SkinListCtrl.h"

namespace quorvi {
namespace {

// What is read out for a cell that holds nothing.
constexpr std::u8string_view kEmpty = u8"空";

}  // namespace

ListModel::ListModel(CSkinListCtrl& list) : QAbstractTableModel(&list), list_(list) {}

int ListModel::Places() const {
    return places_ ? static_cast<int>(places_->size()) : rows_;
}

int ListModel::RowAt(int place) const {
    if (place < 0 || place >= Places()) {
        return -1;
    }
    return places_ ? (*places_)[static_cast<std::size_t>(place)] : place;
}

int ListModel::PlaceOf(int row) const {
    if (row < 0 || row >= rows_) {
        return -1;
    }
    return places_ ? placeOf_[static_cast<std::size_t>(row)] : row;
}

// Works out the places from what is shown and in which order.
void ListModel::Place() {
    placeOf_.clear();
    if (!shown_ || !order_) {
        places_ = shown_ ? shown_ : order_;
    } else {
        std::vector<char> isShown(static_cast<std::size_t>(rows_), 0);
        for (const int row : *shown_) {
            isShown[static_cast<std::size_t>(row)] = 1;
        }
        places_.emplace();
        std::ranges::copy_if(*order_, std::back_inserter(*places_), [&isShown](int row) {
            return isShown[static_cast<std::size_t>(row)] != 0;
        });
    }
    if (places_) {
        placeOf_.assign(static_cast<std::size_t>(rows_), -1);
        int place = 0;
        for (const int row : *places_) {
            placeOf_[static_cast<std::size_t>(row)] = place++;
        }
    }
}

void ListModel::Show(std::optional<std::vector<int>> rows) {
    beginResetModel();
    shown_ = std::move(rows);
    Place();
    endResetModel();
}

void ListModel::Order(std::optional<std::vector<int>> rows) {
    beginResetModel();
    order_ = std::move(rows);
    Place();
    endResetModel();
}

void ListModel::Reset(int rows) {
    beginResetModel();
    rows_ = rows;
    shown_.reset();
    order_.reset();
    Place();
    endResetModel();
}

void ListModel::Append(int count) {
    const bool isSeen = !shown_;
    if (isSeen) {
        beginInsertRows({}, rows_, rows_ + count - 1);
    }
    for (int row = rows_; order_ && row < rows_ + count; ++row) {
        order_->push_back(row);
    }
    rows_ += count;
    Place();
    if (isSeen) {
        endInsertRows();
    }
}

void ListModel::Remove(int row) {
    const int place = PlaceOf(row);
    if (place >= 0) {
        beginRemoveRows({}, place, place);
    }
    --rows_;
    for (std::optional<std::vector<int>>* rows : {&shown_, &order_}) {
        if (*rows) {
            std::erase(**rows, row);
            for (int& other : **rows) {
                other -= other > row ? 1 : 0;
            }
        }
    }
    Place();
    if (place >= 0) {
        endRemoveRows();
    }
}

void ListModel::Changed(int row) {
    if (const int place = PlaceOf(row); place >= 0) {
        Q_EMIT dataChanged(index(place, 0), index(place, list_.ColumnCount() - 1));
    }
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Places();
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : list_.ColumnCount();
}

// The lines of a cell that has any.
QString ListModel::Lines(int row, int column) const {
    const Cell cell = list_.CellAt(row, column);
    if (cell.text.isEmpty() || cell.second.isEmpty()) {
        return cell.text + cell.second;
    }
    return QStringLiteral("%1\n%2").arg(cell.text, cell.second);
}

// What is read out for a cell: its lines, or what its picture shows.
QString ListModel::Words(int row, int column) const {
    if (list_.Column(column).dead) {
        return ToQString(kEmpty);
    }
    const Cell cell = list_.CellAt(row, column);
    switch (list_.Column(column).kind) {
        case CellKind::star:
            return ToQString(cell.value > 0 ? u8"已收藏" : u8"未收藏");
        case CellKind::rating:
            return ToQString(u8"%1 星").arg(std::clamp(cell.value, 0, 5));
        case CellKind::check:
            return ToQString(list_.IsTicked(row) ? u8"已勾选" : u8"未勾选");
        case CellKind::progress:
            if (cell.value >= 0 && cell.value <= 100) {
                return QStringLiteral("%1 %").arg(cell.value);
            }
            break;
        case CellKind::picture:
            if (cell.text.isEmpty() && cell.icon.isEmpty()) {
                return ToQString(list_.PictureAt(row).bytes.empty() ? u8"没有%1" : u8"有%1")
                    .arg(ToQString(list_.Column(column).holds));
            }
            break;
        default:
            break;
    }
    if (const QString lines = Lines(row, column); !lines.trimmed().isEmpty()) {
        return cell.note.isEmpty() ? lines : QStringLiteral("%1\n%2").arg(lines, cell.note);
    }
    return ToQString(cell.icon.isEmpty() ? kEmpty : list_.Column(column).caption);
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
            return Lines(RowAt(index.row()), index.column());
        case Qt::AccessibleTextRole:
            return Words(RowAt(index.row()), index.column());
        case Qt::CheckStateRole:
            if (list_.Column(index.column()).kind == CellKind::check) {
                return list_.IsTicked(RowAt(index.row())) ? Qt::Checked : Qt::Unchecked;
            }
            return {};
        default:
            return {};
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal ||
        (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)) {
        return {};
    }
    const QString caption = ToQString(list_.Column(section).caption);
    const QString words = role == Qt::AccessibleTextRole ? HeadWords(section) : QString();
    return words.isEmpty() ? caption : caption + ToQString(u8"，") + words;
}

// What is read out behind the caption of a head: the order, and how many rows are ticked.
QString ListModel::HeadWords(int column) const {
    if (list_.Column(column).kind != CellKind::check || list_.Column(column).deadHead) {
        return list_.Sorting() == nullptr ? QString() : list_.Sorting()->WordsOf(column);
    }
    switch (list_.HeadTick()) {
        case look::Tick::on:
            return ToQString(u8"全部已勾选");
        case look::Tick::mixed:
            return ToQString(u8"部分已勾选");
        default:
            return ToQString(u8"未勾选");
    }
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return list_.Column(index.column()).kind == CellKind::check ? flags | Qt::ItemIsUserCheckable
                                                                : flags;
}

bool ListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::CheckStateRole ||
        list_.Column(index.column()).kind != CellKind::check) {
        return false;
    }
    const int row = RowAt(index.row());
    if (list_.IsTicked(row) != (value.toInt() == Qt::Checked)) {
        list_.FlipTick(row);
    }
    return true;
}

QModelIndexList ListModel::match(const QModelIndex& start, int role, const QVariant& value,
                                 int hits, Qt::MatchFlags flags) const {
    return QAbstractTableModel::match(start.siblingAtColumn(list_.NameColumn()), role, value, hits,
                                      flags);
}

}  // namespace quorvi
