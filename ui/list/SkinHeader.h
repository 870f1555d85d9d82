// The head of a list: captions in 30 pixels of pale lilac.
#pragma once

#include <QHeaderView>
#include <span>

#include "ui/list/ListColumns.h"

namespace quorvi {

class CSkinHeader : public QHeaderView {
    Q_OBJECT
  public:
    // `columns` outlives the header.
    CSkinHeader(std::span<const ListColumn> columns, QWidget* parent);
    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::span<const ListColumn> columns_;
};

}  // namespace quorvi
