#include "ui/page/PageKeys.h"

#include <QKeySequence>
#include <QShortcut>

namespace quorvi {
namespace {

void Heed(QWidget& place, QKeySequence key, Qt::ShortcutContext where,
          const std::function<void()>& deed) {
    if (!deed) {
        return;
    }
    auto* shortcut = new QShortcut(key, &place);
    shortcut->setContext(where);
    shortcut->setAutoRepeat(false);
    QObject::connect(shortcut, &QShortcut::activated, &place, deed);
}

}  // namespace

void HeedKeys(QWidget& place, const PageKeys& keys) {
    Heed(place, Qt::Key_F5, Qt::WindowShortcut, keys.refresh);
    Heed(place, Qt::CTRL | Qt::Key_N, Qt::WindowShortcut, keys.add);
    if (keys.list != nullptr) {
        Heed(*keys.list, Qt::Key_Delete, Qt::WidgetShortcut, keys.erase);
    }
}

}  // namespace quorvi
