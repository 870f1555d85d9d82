#include "app/window/NavigationBar.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <algorithm>

#include "app/window/PageTable.h"
#include "ui/kit/QtText.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Look.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;
using look::Size;

constexpr int kImageRole = Qt::UserRole;
constexpr int kBadgeRole = Qt::UserRole + 1;
// The picture at the foot of the welcome tab.
constexpr QSize kWave(Metric::navWidth, Metric::waveHeight);

void PaintBadge(QPainter& painter, const QRectF& item, int count) {
    const QString text = QString::number(count);
    const QFont font = look::font(Size::s11, true);
    const qreal width = std::max<qreal>(
        Metric::badge, QFontMetricsF(font).horizontalAdvance(text) + 2 * Metric::badgePadding);
    const QRectF badge(item.right() - Metric::badgeRight - width,
                       item.center().y() - Metric::badge / 2.0, width, Metric::badge);
    look::plate(painter, badge, Metric::badge / 2.0, look::color(Color::plum6), Qt::transparent);
    painter.setFont(font);
    painter.setPen(look::color(Color::onAccent));
    painter.drawText(badge, Qt::AlignCenter, text);
}

class ItemDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {Metric::navWidth, Metric::navPitch};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const bool selected = (option.state & QStyle::State_Selected) != 0;
        const bool hovered = (option.state & QStyle::State_MouseOver) != 0;
        const QRectF area(option.rect.left() + Metric::navInset, option.rect.top(),
                          option.rect.width() - 2 * Metric::navInset, Metric::navItemHeight);
        if (selected || hovered) {
            look::plate(*painter, area, Metric::radius,
                        look::color(selected ? Color::rowHover : Color::rowLight), Qt::transparent);
        }
        if (selected) {
            const QRectF bar(area.left(), area.center().y() - Metric::navBarHeight / 2.0,
                             Metric::navBarWidth, Metric::navBarHeight);
            painter->save();
            painter->setClipRect(bar);
            look::plate(*painter, bar.adjusted(-Metric::navBarWidth, 0, 0, 0), Metric::navBarWidth,
                        look::color(Color::plum6), Qt::transparent);
            painter->restore();
        }
        look::drawIcon(
            *painter,
            QRectF(area.left() + Metric::navIconX, area.top(), Metric::iconNav, area.height()),
            index.data(kImageRole).toString(), Metric::iconNav,
            look::color(selected ? Color::plum6 : Color::ink2));
        painter->setFont(look::font(Size::s13, selected));
        painter->setPen(look::color(selected ? Color::plum7 : Color::ink));
        painter->drawText(area.adjusted(Metric::navTextX, 0, 0, 0),
                          Qt::AlignLeft | Qt::AlignVCenter, index.data(Qt::DisplayRole).toString());
        if (const int badge = index.data(kBadgeRole).toInt(); badge > 0) {
            PaintBadge(*painter, area, badge);
        }
        if (selected && FocusRing::ShownOn(option.widget)) {
            look::innerRing(*painter, area, Metric::radius);
        }
    }
};

}  // namespace

NavigationBar::NavigationBar(QWidget* parent) : QListWidget(parent) {
    setObjectName(QStringLiteral("navigation"));
    setAccessibleName(ToQString(u8"导航"));
    setFixedWidth(Metric::navWidth);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setViewportMargins(0, Metric::navTop, 0, 0);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    setAutoFillBackground(false);
    setItemDelegate(new ItemDelegate(this));
    for (std::size_t item = 0; item < kItemCount; ++item) {
        addItem(QString());
    }
    // Mouse, keys and assistive tools all end in the selection.
    connect(this, &QListWidget::itemSelectionChanged, this, [this] {
        const QList<QListWidgetItem*> selected = selectedItems();
        if (selected.isEmpty()) {
            Show(tab_, item_);
        } else {
            Q_EMIT chosen(row(selected.constFirst()));
        }
    });
}

void NavigationBar::Show(int tab, int item) {
    const QSignalBlocker quiet(this);
    if (tab != tab_) {
        tab_ = tab;
        welcome_ = tab == 0;
        const TabRow& row = kTabs[static_cast<std::size_t>(tab)];
        for (std::size_t i = 0; i < kItemCount; ++i) {
            QListWidgetItem* line = this->item(static_cast<int>(i));
            const CaptionedPicture& entry = row.items[i];
            line->setText(ToQString(entry.caption));
            line->setData(kImageRole, ToQString(entry.image));
        }
        SetTaskCount(tasks_);
    }
    item_ = item;
    setCurrentRow(item, QItemSelectionModel::ClearAndSelect);
    viewport()->update();
}

void NavigationBar::WatchTasks(const Observed<int>& count) {
    taskWatch_ = count.Observe([this, guard = QPointer<QObject>(this), count](int) {
        PostToWindow(guard, [this, count] { SetTaskCount(count.Get()); });
    });
    SetTaskCount(count.Get());
}

void NavigationBar::SetTaskCount(int tasks) {
    tasks_ = tasks;
    for (int i = 0; i < count(); ++i) {
        const bool here = tab_ == TabOf(kDownloadsPage) && i == ItemOf(kDownloadsPage);
        item(i)->setData(kBadgeRole, here ? tasks : 0);
    }
}

void NavigationBar::mousePressEvent(QMouseEvent* event) {
    const QListWidgetItem* pressed = itemAt(event->position().toPoint());
    const bool again = pressed != nullptr && pressed == currentItem();
    QListWidget::mousePressEvent(event);
    if (again && event->button() == Qt::LeftButton) {
        Q_EMIT chosen(currentRow());
    }
}

void NavigationBar::paintEvent(QPaintEvent* event) {
    if (welcome_) {
        QPainter painter(viewport());
        // In a low window its crests alone are seen, below the last item.
        const int items = visualItemRect(item(count() - 1)).bottom() + 1;
        const int top = std::max(items, viewport()->height() - kWave.height());
        look::drawCentred(painter, QRectF(QPointF(0, top), QSizeF(kWave)),
                          look::picture(u"welcome-wave", kWave, devicePixelRatioF()));
    }
    QListWidget::paintEvent(event);
}

}  // namespace quorvi
