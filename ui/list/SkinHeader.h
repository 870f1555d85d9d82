// The head of a list: captions in 30 pixels of pale lilac.
#pragma once

#include <QHeaderView>
#include <cstdint>
#include <vector>

namespace quorvi {

class CSkinListCtrl;

// A click on a caption sorts the list by it (ListSort), one on the head of the tick column ticks
// all rows that are shown, or none when all of them are ticked. The border between two columns is
// dragged, and a double click on it gives the told width back (ColumnWidths). The right button
// opens a menu of both. The window's thread.
class CSkinHeader : public QHeaderView {
    Q_OBJECT
  public:
    // The header of `list`, which is its parent.
    explicit CSkinHeader(CSkinListCtrl& list);
    [[nodiscard]] QSize sizeHint() const override;

    // Shows a widget of the header's over the captions, as high as it is; null for none.
    void SetBar(QWidget* bar);

    // Where a column's border is dragged, and where a caption is clicked that sorts by this key, in
    // the viewport's coordinates; empty for nowhere.
    [[nodiscard]] QRect GripRect(int column) const;
    [[nodiscard]] QRect SortRect(int key) const;
    // The head of a column.
    [[nodiscard]] QRect HeadRect(int column) const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool viewportEvent(QEvent* event) override;

  private:
    // What of the header a point meets.
    struct Hit {
        enum class What : std::uint8_t { nothing, border, ticks, sort };
        What what = What::nothing;
        int index = -1;  // the border's or tick's column, the sort's key

        friend bool operator==(const Hit&, const Hit&) = default;
    };
    // A part of a caption.
    struct Piece {
        QString text;
        int key = -1;  // that a click on it sorts by
        int left = 0;
        int width = 0;  // with the arrow behind it
        bool arrow = false;
    };

    [[nodiscard]] int BarHeight() const;
    [[nodiscard]] Hit At(const QPoint& at) const;
    [[nodiscard]] int SortAt(int column, int x) const;
    [[nodiscard]] std::vector<Piece> PiecesOf(int column) const;
    void PaintCaption(QPainter& painter, int column) const;
    void PaintTicks(QPainter& painter, int column) const;
    void SetHover(const Hit& hit);
    void DragTo(int x);
    void EndDrag();
    [[nodiscard]] QString TipOf(const Hit& hit) const;

    CSkinListCtrl& list_;
    QWidget* bar_ = nullptr;
    Hit hover_;
    Hit pressed_;
    int dragFrom_ = 0;       // where the border was taken hold of
    std::vector<int> laid_;  // and the widths at that moment
};

}  // namespace quorvi
