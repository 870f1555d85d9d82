#include "ui/list/ListModel.h"

#include <algorithm>

#include "ui/kit/QtText.h"
#include "ui/list/SkinListCtrl.h"

namespace quorvi {

ListModel::ListModel(CSkinListCtrl& list) : QAbstractTableModel(&list), list_(list) {}

void ListModel::Reset(int rows) {
    beginResetModel();
    rows_ = rows;
    endResetModel();
}

void ListModel::Append(int count) {
    beginInsertRows({}, rows_, rows_ + count - 1);
    rows_ += count;
    endInsertRows();
}

void ListModel::Remove(int row) {
    beginRemoveRows({}, row, row);
    --rows_;
    endRemoveRows();
}

void ListModel::Changed(int row) {
    Q_EMIT dataChanged(index(row, 0), index(row, list_.ColumnCount() - 1));
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : list_.ColumnCount();
}

// What is read out for a cell: its lines, or a picture in words.
QString ListModel::Words(int row, int column) const {
    const Cell cell = list_.CellAt(row, column);
    switch (list_.Column(column).kind) {
        case CellKind::star:
            return ToQString(cell.value > 0 ? u8"是" : u8"否");
        case CellKind::rating:
            return QString::number(std::clamp(cell.value, 0, 5));
        case CellKind::progress:
            return cell.value >= 0 ? QStringLiteral("%1 %").arg(cell.value) : cell.text;
        case CellKind::check:
            return {};
        default:
            return cell.second.isEmpty() ? cell.text
                                         : QStringLiteral("%1\n%2").arg(cell.text, cell.second);
    }
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
            return Words(index.row(), index.column());
        case Qt::CheckStateRole:
            if (list_.Column(index.column()).kind == CellKind::check) {
                return list_.IsTicked(index.row()) ? Qt::Checked : Qt::Unchecked;
            }
            return {};
        default:
            return {};
    }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return ToQString(list_.Column(section).caption);
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
    list_.SetTicked(index.row(), value.toInt() == Qt::Checked);
    return true;
}

QModelIndexList ListModel::match(const QModelIndex& start, int role, const QVariant& value,
                                 int hits, Qt::MatchFlags flags) const {
    return QAbstractTableModel::match(start.siblingAtColumn(list_.NameColumn()), role, value, hits,
                                      flags);
}

}  // namespace quorvi
