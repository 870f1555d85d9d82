// How a list is painted: rows first, cells on them, then what lies above both.
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <array>
#include <optional>

#include "ui/kit/FoundText.h"
#include "ui/kit/PlainTip.h"
#include "ui/list/ListFind.h"
#include "ui/list/ListModel.h"
#include "ui/list/SkinListCtrl.h"
#include "ui/look/FocusRing.h"

namespace quorvi {

using look::Color;
using look::Metric;
using look::Size;

namespace {

// What a cell is painted with.
struct CellPaint {
    QPainter& painter;
    QRect area;
    const Cell& cell;
    const ListColumn& column;
    bool linkHot = false;  // the cursor is over the cell's link
    bool enabled = true;
    bool marked = false;  // the row is selected or under the cursor
    // What was looked for in its two lines.
    std::optional<FoundPart> part = {};
    std::optional<FoundPart> secondPart = {};
};

Qt::Alignment AlignmentOf(CellAlign align) {
    return Qt::AlignVCenter | (align == CellAlign::left ? Qt::AlignLeft : Qt::AlignHCenter);
}

// The cell without its padding.
QRect Padded(const QRect& area, const ListColumn& column) {
    return column.cells == CellAlign::left
               ? area.adjusted(Metric::cellPadding, 0, -Metric::gap1, 0)
               : area.adjusted(Metric::hairline, 0, -Metric::hairline, 0);
}

QRect Centred(const QRect& area, int width, int height) {
    return {area.center().x() + 1 - width / 2, area.center().y() + 1 - height / 2, width, height};
}

// One line, for a row: what comes after a line feed is not shown.
QString OneLine(const QString& text) {
    const qsizetype end = text.indexOf(QLatin1Char('\n'));
    return end < 0 ? text : text.left(end);
}

void DrawLine(const CellPaint& paint, const QRect& area, const QString& text, const QFont& font,
              Color ink, const std::optional<FoundPart>& part = {}) {
    paint.painter.setFont(font);
    paint.painter.setPen(look::color(paint.enabled ? ink : Color::inkOff));
    if (part) {
        DrawFoundText(paint.painter, area, OneLine(text), font, AlignmentOf(paint.column.cells),
                      {static_cast<int>(part->begin), static_cast<int>(part->length)},
                      paint.enabled);
        return;
    }
    paint.painter.drawText(
        area, static_cast<int>(AlignmentOf(paint.column.cells)) | Qt::TextSingleLine,
        QFontMetrics(font).elidedText(OneLine(text), Qt::ElideRight, area.width()));
}

// The two lines of a cell, 20 each, centred in the row.
std::pair<QRect, QRect> Lines(const QRect& area) {
    const int top = area.center().y() + 1 - Metric::cellLine;
    return {QRect(area.left(), top, area.width(), Metric::cellLine),
            QRect(area.left(), top + Metric::cellLine, area.width(), Metric::cellLine)};
}

QFont LinkFont(bool hot) {
    QFont font = look::font(Size::s12);
    font.setUnderline(hot);
    return font;
}

void PaintText(const CellPaint& paint) {
    DrawLine(paint, Padded(paint.area, paint.column), paint.cell.text, look::font(Size::s12),
             paint.cell.ink, paint.part);
}

template <Size FirstLine>
void PaintTwoLines(const CellPaint& paint) {
    if (paint.area.height() < 2 * Metric::cellLine) {
        PaintText(paint);  // a compact row has room for one
        return;
    }
    const auto [first, second] = Lines(Padded(paint.area, paint.column));
    DrawLine(paint, first, paint.cell.text, look::font(FirstLine), paint.cell.ink, paint.part);
    DrawLine(paint, second, paint.cell.second, look::font(Size::s12), paint.cell.secondInk,
             paint.secondPart);
}

void PaintCaptioned(const CellPaint& paint) {
    const QRect area = Padded(paint.area, paint.column);
    const QFont font = look::font(Size::s12);
    DrawLine(paint, area, paint.cell.text, font, paint.cell.secondInk);
    DrawLine(paint, area.adjusted(Metric::rowCaption, 0, 0, 0), paint.cell.second, font,
             paint.cell.ink);
}

void PaintTwoLinesLink(const CellPaint& paint) {
    const auto [first, second] = Lines(Padded(paint.area, paint.column));
    DrawLine(paint, first, paint.cell.text, look::font(Size::s12), paint.cell.ink);
    DrawLine(paint, second, paint.cell.second, LinkFont(paint.linkHot), paint.cell.secondInk);
}

void PaintLink(const CellPaint& paint) {
    DrawLine(paint, Padded(paint.area, paint.column), paint.cell.text, LinkFont(paint.linkHot),
             paint.cell.ink);
}

void PaintIcon(const CellPaint& paint) {
    look::drawIcon(paint.painter, paint.area, paint.cell.icon, paint.cell.iconSide,
                   look::color(paint.enabled ? paint.cell.iconInk : Color::inkOff));
}

bool HasIcon(const Cell& cell) {
    return !cell.icon.isEmpty() || !cell.themeIcon.isNull();
}

void PaintIconText(const CellPaint& paint) {
    const QFont font = look::font(Size::s12);
    const QRect area = Padded(paint.area, paint.column);
    const QIcon& theme = paint.cell.themeIcon;
    if (!HasIcon(paint.cell)) {
        DrawLine(paint, area, paint.cell.text, font, paint.cell.ink, paint.part);
        return;
    }
    const int side = paint.cell.iconSide;
    const int mark = side + Metric::rowIconGap;
    const int room = area.width() - mark;
    const int words =
        paint.part
            ? room  // which is wider than its text
            : std::min(QFontMetrics(font).horizontalAdvance(OneLine(paint.cell.text)) + 1, room);
    const int left = paint.column.cells == CellAlign::left
                         ? area.left()
                         : area.left() + (area.width() - mark - words) / 2;
    const QRect place(left, area.top(), side, area.height());
    if (theme.isNull()) {
        look::drawIcon(paint.painter, QRectF(place), paint.cell.icon, side,
                       look::color(paint.enabled ? paint.cell.iconInk : Color::inkOff));
    } else {
        theme.paint(&paint.painter, Centred(place, side, side), Qt::AlignCenter,
                    paint.enabled ? QIcon::Normal : QIcon::Disabled);
    }
    DrawLine(paint, QRect(left + mark, area.top(), words, area.height()), paint.cell.text, font,
             paint.cell.ink, paint.part);
}

// The plate's colours are those of the rows: on a row that is marked it is white.
void DrawPlate(const CellPaint& paint, const QRectF& square, QStringView icon, bool off) {
    const Color ground = paint.marked ? Color::surface : off ? Color::fieldOff : Color::rowHover;
    look::plate(paint.painter, square, Metric::radiusPanel, look::color(ground), Qt::transparent);
    look::drawIcon(paint.painter, square, icon, Metric::iconNav,
                   look::color(!paint.enabled ? Color::inkOff
                               : off          ? Color::ink3
                                              : Color::plum6));
}

void PaintPlate(const CellPaint& paint) {
    if (paint.cell.icon.isEmpty()) {
        return;
    }
    const int side = Metric::rowPlate;
    DrawPlate(paint, Centred(paint.area, side, side), paint.cell.icon, paint.cell.off);
}

void PaintState(const CellPaint& paint) {
    const QRect area = Padded(paint.area, paint.column);
    const QFont font = look::font(Size::s12);
    if (paint.cell.text.isEmpty()) {
        return;
    }
    const int mark = Metric::dot + Metric::dotGap;
    const int words = std::min(QFontMetrics(font).horizontalAdvance(OneLine(paint.cell.text)) + 1,
                               area.width() - mark);
    const int left = paint.column.cells == CellAlign::left
                         ? area.left()
                         : area.left() + (area.width() - mark - words) / 2;
    const QColor none = Qt::transparent;
    const QColor ink = look::color(!paint.enabled   ? Color::inkOff
                                   : paint.cell.off ? Color::ink3
                                                    : paint.cell.iconInk);
    const QRectF dot(left, area.top() + (area.height() - Metric::dot) / 2.0, Metric::dot,
                     Metric::dot);
    look::plate(paint.painter, dot, Metric::dot / 2.0, paint.cell.off ? none : ink,
                paint.cell.off ? ink : none);
    DrawLine(paint, QRect(left + mark, area.top(), words, area.height()), paint.cell.text, font,
             paint.cell.ink);
}

void PaintStar(const CellPaint& paint) {
    const bool on = paint.cell.value > 0;
    look::drawIcon(paint.painter, paint.area, on ? u"star-on" : u"star-off", Metric::starCell,
                   look::color(on ? Color::star : Color::ink3));
}

void PaintRating(const CellPaint& paint) {
    const int value = paint.cell.value >= 0 && paint.cell.value <= 5 ? paint.cell.value : 0;
    look::drawCentred(
        paint.painter, paint.area,
        look::picture(QStringLiteral("rating-%1").arg(value),
                      {Metric::ratingWidth, Metric::ratingHeight}, look::scaleOf(paint.painter)));
}

void PaintProgressCell(const CellPaint& paint) {
    if (paint.cell.value < 0 || paint.cell.value > 100) {
        PaintText(paint);
        return;
    }
    look::paintProgress(
        paint.painter,
        QRectF(paint.area.left() + Metric::progressInset,
               paint.area.center().y() + 1 - Metric::progressHeight / 2.0,
               paint.area.width() - 2 * Metric::progressInset, Metric::progressHeight),
        paint.cell.value);
}

void PaintNothing(const CellPaint&) {}

struct CellPainter {
    CellKind kind;
    void (*paint)(const CellPaint&);
};

// Row i paints kind i. CSkinListCtrl paints pictures and ticks itself.
constexpr std::array<CellPainter, 16> kPainters{{
    {CellKind::text, PaintText},
    {CellKind::twoLines, PaintTwoLines<Size::s13>},
    {CellKind::twoSmallLines, PaintTwoLines<Size::s12>},
    {CellKind::captioned, PaintCaptioned},
    {CellKind::twoLinesLink, PaintTwoLinesLink},
    {CellKind::link, PaintLink},
    {CellKind::imageLink, PaintIcon},
    {CellKind::picture, PaintNothing},
    {CellKind::icon, PaintIcon},
    {CellKind::iconText, PaintIconText},
    {CellKind::plate, PaintPlate},
    {CellKind::state, PaintState},
    {CellKind::star, PaintStar},
    {CellKind::rating, PaintRating},
    {CellKind::progress, PaintProgressCell},
    {CellKind::check, PaintNothing},
}};

constexpr bool PaintersInOrder() {
    for (std::size_t i = 0; i < kPainters.size(); ++i) {
        if (static_cast<std::size_t>(kPainters[i].kind) != i) {
            return false;
        }
    }
    return true;
}
static_assert(PaintersInOrder());

// The grey blocks painted for a row that is still being loaded: widths of its first and second
// line, in percent of the column's width.
struct BlockWidths {
    int first;
    int second;
};
constexpr std::array<BlockWidths, Metric::loadRows> kBlocks{
    {{44, 75}, {54, 71}, {40, 78}, {47, 68}}};

// Where the tick of a cell stands.
QRect TickBox(const QRect& area, const ListColumn& column) {
    QRect box = Centred(area, Metric::tickInRow, Metric::tickInRow);
    if (column.cells == CellAlign::left) {
        box.moveLeft(Padded(area, column).left());
    }
    return box;
}

}  // namespace

// ---- rows and cells ----------------------------------------------------------------------------

void CSkinListCtrl::PaintRows(QPainter& painter, const QRect& dirty) const {
    const int first = std::max(0, rowAt(dirty.top()));
    const int current = CurrentRow();
    for (int place = first; place < model_->Places(); ++place) {
        const int row = model_->RowAt(place);
        const QRect area = RowRect(row);
        if (area.top() > dirty.bottom()) {
            break;
        }
        const bool selected = row == current;
        const bool hovered = row == hoverRow_;
        if (selected || hovered) {
            look::fill(painter, area, look::color(selected ? Color::rowSelected : Color::rowHover));
            look::topLine(painter, area, look::color(Color::rowBorder));
            look::bottomLine(painter, area, look::color(Color::rowBorder));
        } else if (place % 2 == 0) {
            look::fill(painter, area, look::color(Color::rowLight));
        }
        if (selected) {
            QRect bar = area;
            bar.setWidth(Metric::rowBar);
            look::fill(painter, bar, look::color(Color::plum6));
        }
    }
}

bool CSkinListCtrl::IsMarked(int row) const {
    return row == CurrentRow() || row == hoverRow_;
}

void CSkinListCtrl::PaintCell(QPainter& painter, const QRect& rect, int row, int column) {
    if (row < 0 || row >= RowCount()) {
        return;
    }
    const ListColumn& kind = Column(column);
    painter.save();
    painter.setClipRect(rect);
    if (kind.kind == CellKind::check) {
        look::paintTick(painter, TickBox(rect, kind),
                        IsTicked(row) ? look::Tick::on : look::Tick::off, {.enabled = isEnabled()});
    } else if (kind.kind == CellKind::picture) {
        PaintPicture(painter, rect, row, column);
    } else {
        const Cell cell = CellAt(row, column);
        CellPaint paint{
            painter,     rect,         cell, kind, row == hoverRow_ && column == hoverColumn_,
            isEnabled(), IsMarked(row)};
        if (find_ != nullptr && column == NameColumn()) {
            paint.part = find_->PartOf(cell.text, FindKind::name);
            paint.secondPart = find_->PartOf(cell.second, FindKind::number);
        }
        kPainters[static_cast<std::size_t>(kind.kind)].paint(paint);
    }
    painter.restore();
}

void CSkinListCtrl::PaintPicture(QPainter& painter, const QRect& rect, int row, int column) {
    const qreal scale = look::scaleOf(painter);
    const int side = rowHeight_ >= Metric::rowTall ? Metric::rowPicture : Metric::rowIcon;
    const RowPicture picture = PictureAt(row);
    QPixmap shown;
    if (!picture.bytes.empty()) {
        shown = pictures_.Get(picture.id, picture.bytes, side, picture.rounded, scale);
    }
    QRect area = rect;
    if (column == 0) {
        area = QRect(rect.left() + Metric::rowPictureInset, rect.top(),
                     rect.width() - 2 * Metric::rowPictureInset, rect.height());
    }
    if (shown.isNull()) {
        const Cell cell = CellAt(row, column);
        if (!picture.plate.empty() && side == Metric::rowPicture) {
            DrawPlate({painter, rect, cell, Column(column), false, isEnabled(), IsMarked(row)},
                      Centred(area, side, side), QStringView(picture.plate), cell.off);
            return;
        }
        if (!cell.icon.isEmpty()) {
            shown = look::picture(cell.icon, {side, side}, scale);
        } else if (!picture.fallback.empty()) {
            shown = look::picture(QStringView(picture.fallback), {side, side}, scale);
        }
    }
    if (!shown.isNull()) {
        look::drawCentred(painter, area, shown);
    }
}

void CSkinListCtrl::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const bool loading = status_->Get() == ListState::loading;
    if (!redraw_ && !frozen_.isNull()) {
        painter.drawPixmap(0, 0, frozen_);
    } else if (loading && (!redraw_ || RowCount() == 0)) {
        PaintSkeleton(painter);
    } else if (redraw_ && RowCount() == 0) {
        status_->PaintVoid(painter);
    } else if (redraw_ && model_->Places() == 0) {
        status_->PaintNothingFound(painter, find_ == nullptr ? QString() : find_->NothingFound());
    } else if (redraw_) {
        PaintRows(painter, event->rect());
        painter.end();
        QTableView::paintEvent(event);
        painter.begin(viewport());
        if (FocusRing::ShownOn(this) && currentIndex().isValid()) {
            look::innerRing(painter, RowRect(RowUnderCursor()));
        }
    }
    if (loading) {
        status_->PaintBar(painter);
    }
}

// ---- empty, loading, failed --------------------------------------------------------------------

void CSkinListCtrl::PaintSkeleton(QPainter& painter) const {
    for (int row = 0; row < Metric::loadRows; ++row) {
        const BlockWidths& widths = kBlocks[static_cast<std::size_t>(row)];
        for (int column = 0; column < ColumnCount(); ++column) {
            if (isColumnHidden(column)) {
                continue;
            }
            const ListColumn& kind = Column(column);
            const QRect cell(columnViewportPosition(column), row * rowHeight_, columnWidth(column),
                             rowHeight_);
            const QRect area = Padded(cell, kind);
            const auto line = [&](const QRect& where, int percent) {
                const int width = area.width() * percent / 100;
                QRect block = Centred(where, width, Metric::skeletonLine);
                if (kind.cells == CellAlign::left) {
                    block.moveLeft(area.left());
                }
                ViewStatus::PaintBlock(painter, block);
            };
            switch (kind.kind) {
                case CellKind::picture: {
                    const int side =
                        rowHeight_ >= Metric::rowTall ? Metric::rowPicture : Metric::rowIcon;
                    ViewStatus::PaintBlock(painter, Centred(cell, side, side));
                    break;
                }
                case CellKind::plate:
                    ViewStatus::PaintBlock(painter,
                                           Centred(cell, Metric::rowPlate, Metric::rowPlate));
                    break;
                case CellKind::check:
                    ViewStatus::PaintBlock(painter, TickBox(cell, kind));
                    break;
                case CellKind::star:
                case CellKind::icon:
                case CellKind::imageLink:
                    ViewStatus::PaintBlock(painter,
                                           Centred(cell, Metric::iconField, Metric::iconField));
                    break;
                case CellKind::twoLines:
                case CellKind::twoSmallLines:
                case CellKind::twoLinesLink: {
                    const auto [first, second] = Lines(area);
                    line(first, widths.first);
                    line(second, widths.second);
                    break;
                }
                default:
                    line(area, widths.first);
            }
        }
    }
    status_->PaintProgress(painter);
}

// ---- links and tips ----------------------------------------------------------------------------

// A text link is hit in its column, 6 pixels from either edge, as high as its text; an icon link in
// its cell without 14 pixels at the sides and 20 above and below, or as much as the row has.
QRect CSkinListCtrl::LinkRect(int row, int column) const {
    if (row < 0 || row >= RowCount() || column < 0 || column >= ColumnCount()) {
        return {};
    }
    const QRect cell = CellRect(row, column);
    const int height = QFontMetrics(look::font(Size::s12)).height();
    const auto words = [&](const QRect& line) {
        const int spare = (line.height() - height) / 2;
        return line.adjusted(Metric::linkPadding, spare, -Metric::linkPadding, -spare);
    };
    switch (Column(column).kind) {
        case CellKind::link:
            return CellAt(row, column).off ? QRect() : words(cell);
        case CellKind::twoLinesLink:
            return words(Lines(cell).second);
        case CellKind::imageLink: {
            const int y =
                std::min(Metric::imageLinkInsetY, (cell.height() - Metric::iconField) / 2);
            return cell.adjusted(Metric::imageLinkInsetX, y, -Metric::imageLinkInsetX, -y);
        }
        default:
            return {};
    }
}

// Shows a text that its cell cuts off, and a cell's note.
bool CSkinListCtrl::ShowTip(const QPoint& at, const QPoint& global) {
    const QModelIndex index = indexAt(at);
    if (!index.isValid() || !redraw_) {
        return false;
    }
    const ListColumn& column = Column(index.column());
    const int row = RowOf(index);
    const Cell cell = CellAt(row, index.column());
    const int mark = column.kind == CellKind::iconText && HasIcon(cell)
                         ? cell.iconSide + Metric::rowIconGap
                         : 0;  // stands before the text
    const int space = Padded(CellRect(row, index.column()), column).width() - mark;
    const auto cut = [&](const QString& text, Size size, int before = 0) {
        return before + QFontMetrics(look::font(size)).horizontalAdvance(OneLine(text)) > space;
    };
    const bool two = column.kind == CellKind::twoLines;
    const int before = column.kind == CellKind::captioned ? Metric::rowCaption : 0;
    if (cell.note.isEmpty() && !cut(cell.text, two ? Size::s13 : Size::s12) &&
        !cut(cell.second, Size::s12, before)) {
        return false;
    }
    QString whole = OneLine(cell.text);
    for (const QString& line : {OneLine(cell.second), cell.note}) {
        whole += line.isEmpty() ? line : QLatin1Char('\n') + line;
    }
    ShowPlainTip(global, whole, viewport(), CellRect(row, index.column()));
    return true;
}

}  // namespace quorvi
