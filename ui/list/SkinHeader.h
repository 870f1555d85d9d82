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

    // Shows a widget of the header's over the captions, as high as it is; null for none.
    void SetBar(QWidget* bar);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    [[nodiscard]] int BarHeight() const;

    QWidget* bar_ = nullptr;
    std::span<const ListColumn> columns_;
};

}  // namespace quorvi
