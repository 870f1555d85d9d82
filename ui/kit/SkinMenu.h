// The popup menu: a grey column of item images, white beside it.
#pragma once

#include <QMenu>
#include <QStringList>
#include <cstdint>

class QPainter;
class QStyleOptionMenuItem;

namespace quorvi {

// A popup menu whose items are known by command number. Take the answer from `commandChosen`, or
// from the return of QMenu::exec by `CommandOf`. The window's thread.
class CSkinMenu : public QMenu {
    Q_OBJECT
  public:
    // Flags of AddItem; any sum of them.
    enum Flag : std::uint32_t { normal = 0, disabled = 1, separator = 2 };

    explicit CSkinMenu(QWidget* parent = nullptr);

    // The menu's strip of images: icon names, the image index of an item being an index in it.
    void SetStrip(QStringList icons);
    // Appends an item. `imageIndex` outside the strip gives none. Returns the item.
    QAction* AddItem(std::uint32_t flags, int command, int imageIndex, const QString& text);
    // The command of an item, or 0 for none.
    [[nodiscard]] static int CommandOf(const QAction* action);

  Q_SIGNALS:
    void commandChosen(int command);

  private:
    QStringList strip_;
};

// How the style paints any menu; an item's image is the icon name in its action's `image` property.
void PaintMenuPanel(QPainter& painter, const QRect& rect);
void PaintMenuItem(QPainter& painter, const QStyleOptionMenuItem& item);
[[nodiscard]] QSize MenuItemSize(const QStyleOptionMenuItem& item);

}  // namespace quorvi
