// A plain QTableView over records: what a list of the kit is measured beside.
#pragma once

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QTableView>
#include <utility>
#include <vector>

#include "ui/look/Look.h"

namespace quorvi {

// Shows `textOf` of each record and column, and knows nothing of the kit.
template <typename Record>
class PlainModel : public QAbstractTableModel {
  public:
    using TextOf = QString (*)(const Record& record, int column);

    PlainModel(int columns, TextOf textOf) : columns_(columns), textOf_(textOf) {}

    void SetRecords(std::vector<Record> records) {
        beginResetModel();
        records_ = std::move(records);
        endResetModel();
    }
    [[nodiscard]] int rowCount(const QModelIndex&) const override {
        return static_cast<int>(records_.size());
    }
    [[nodiscard]] int columnCount(const QModelIndex&) const override { return columns_; }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole) {
            return {};
        }
        return textOf_(records_[static_cast<std::size_t>(index.row())], index.column());
    }

  private:
    int columns_;
    TextOf textOf_;
    std::vector<Record> records_;
};

template <typename Record>
class PlainTable : public QTableView {
  public:
    PlainTable(int columns, typename PlainModel<Record>::TextOf textOf) : model_(columns, textOf) {
        verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        verticalHeader()->setDefaultSectionSize(look::Metric::rowTall);
        setVerticalScrollMode(ScrollPerPixel);
        setModel(&model_);
    }
    ~PlainTable() override { setModel(nullptr); }

    void SetRecords(std::vector<Record> records) { model_.SetRecords(std::move(records)); }

  private:
    PlainModel<Record> model_;
};

}  // namespace quorvi
