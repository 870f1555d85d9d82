#include "pages/autostart/AutoStartModel.h"

#include <utility>

#include "agent/StartEvents.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinnedTree.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

using look::Color;

enum class Level : std::uint8_t { event, application, package };

// What tells the nodes of a model apart is their row and their id. Ours says under which nodes one
// hangs: the lowest byte holds the branch and the bits above it the application, both counted from
// 1, and 0 where there is none.
constexpr quintptr kBranchBits = 8;
constexpr quintptr kBranchMask = (1U << kBranchBits) - 1;
static_assert(kStartEvents < kBranchMask, "a byte holds the branch of each event");

constexpr quintptr IdBelow(std::size_t branch) {
    return branch + 1;
}
constexpr quintptr IdBelow(std::size_t branch, std::size_t application) {
    return IdBelow(branch) | ((application + 1) << kBranchBits);
}

Level LevelOf(const QModelIndex& index) {
    const quintptr id = index.internalId();
    return id == 0 ? Level::event : (id >> kBranchBits) == 0 ? Level::application : Level::package;
}

// Of an application or a package.
std::size_t BranchOf(const QModelIndex& index) {
    return (index.internalId() & kBranchMask) - 1;
}
// Of a package.
std::size_t ApplicationOf(const QModelIndex& index) {
    return (index.internalId() >> kBranchBits) - 1;
}

std::size_t RowOf(const QModelIndex& index) {
    return static_cast<std::size_t>(index.row());
}

}  // namespace

void AutoStartModel::Set(EventGroups groups) {
    beginResetModel();
    branches_.clear();
    for (auto& [event, items] : groups) {
        branches_.push_back({event, std::move(items)});
    }
    endResetModel();
}

QModelIndex AutoStartModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent)) {
        return {};
    }
    if (!parent.isValid()) {
        return createIndex(row, column, quintptr{0});
    }
    return createIndex(row, column,
                       LevelOf(parent) == Level::event ? IdBelow(RowOf(parent))
                                                       : IdBelow(BranchOf(parent), RowOf(parent)));
}

QModelIndex AutoStartModel::parent(const QModelIndex& index) const {
    if (!index.isValid() || LevelOf(index) == Level::event) {
        return {};
    }
    const std::size_t branch = BranchOf(index);
    if (LevelOf(index) == Level::application) {
        return createIndex(static_cast<int>(branch), 0, quintptr{0});
    }
    return createIndex(static_cast<int>(ApplicationOf(index)), 0, IdBelow(branch));
}

int AutoStartModel::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid()) {
        return static_cast<int>(branches_.size());
    }
    switch (LevelOf(parent)) {
        case Level::event:
            return static_cast<int>(branches_[RowOf(parent)].items.size());
        case Level::application:
            return 1;
        default:
            return 0;
    }
}

int AutoStartModel::columnCount(const QModelIndex& /*parent*/) const {
    return 1;
}

QString AutoStartModel::TextOf(const QModelIndex& index) const {
    switch (LevelOf(index)) {
        case Level::event:
            return ToQString(
                StartEventCaption(static_cast<std::size_t>(branches_[RowOf(index)].event)));
        case Level::application:
            return ToShownQString(branches_[BranchOf(index)].items[RowOf(index)].name);
        default:
            return ToShownQString(branches_[BranchOf(index)].items[ApplicationOf(index)].package);
    }
}

QVariant AutoStartModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const Level level = LevelOf(index);
    switch (role) {
        case Qt::DisplayRole:
            return TextOf(index);
        case treeRoleFind:  // an application by its package, too
            return level == Level::application
                       ? TextOf(index) + u'\n' + TextOf(this->index(0, 0, index))
                       : QVariant();
        case treeRoleIcon:
            return QStringLiteral("autostart");
        case treeRoleIconInk:
            return static_cast<int>(level == Level::event ? Color::plum6 : Color::ink2);
        case treeRoleTextInk:
            return static_cast<int>(level == Level::package ? Color::ink2 : Color::ink);
        default:
            return {};
    }
}

QVariant AutoStartModel::headerData(int section, Qt::Orientation orientation, int role) const {
    return role == Qt::DisplayRole && orientation == Qt::Horizontal
               ? QVariant(ToQString(u8"启动事件"))
               : QAbstractItemModel::headerData(section, orientation, role);
}

}  // namespace quorvi
