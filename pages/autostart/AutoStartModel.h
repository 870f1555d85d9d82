// The tree of the auto-start page, as a model of what was read.
#pragma once

#include <QAbstractItemModel>
#include <vector>

#include "pages/autostart/AutoStart.h"

namespace quorvi {

// Three levels: the caption of an event, an application that listens for it, the name of its
// package. Holds the records as they came and makes a text when it is asked for, so that a list of
// any length is there at once. The window's thread.
class AutoStartModel : public QAbstractItemModel {
    Q_OBJECT
  public:
    using QAbstractItemModel::QAbstractItemModel;

    // Puts these in the place of all that was there. Events are below kStartEvents.
    void Set(EventGroups groups);

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    using QObject::parent;
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    // The head of the column is hidden; a screen reader reads it all the same.
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

  private:
    struct Branch {
        std::int32_t event;
        std::vector<AutoStartItem> items;
    };

    [[nodiscard]] QString TextOf(const QModelIndex& index) const;

    std::vector<Branch> branches_;
};

}  // namespace quorvi
