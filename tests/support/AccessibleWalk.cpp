#include "tests/support/AccessibleWalk.h"

#include <QAccessible>
#include <QComboBox>
#include <QMetaEnum>
#include <QWidget>
#include <map>
#include <set>

namespace quorvi {
namespace {

using Actions = QAccessibleActionInterface;

// The action that a control of a role has.
const std::map<QAccessible::Role, QString>& ActionOfRole() {
    static const std::map<QAccessible::Role, QString> actions{
        {QAccessible::Button, Actions::pressAction()},
        {QAccessible::CheckBox, Actions::toggleAction()},
        {QAccessible::RadioButton, Actions::toggleAction()},
        {QAccessible::ComboBox, Actions::showMenuAction()},
        {QAccessible::PageTab, Actions::pressAction()},
    };
    return actions;
}

const std::set<QAccessible::Role> kControls{
    QAccessible::Button,   QAccessible::CheckBox,     QAccessible::RadioButton,
    QAccessible::ComboBox, QAccessible::EditableText, QAccessible::Table,
    QAccessible::Tree,     QAccessible::List,         QAccessible::PageTabList,
    QAccessible::PageTab,  QAccessible::ProgressBar,  QAccessible::Slider,
    QAccessible::Link,     QAccessible::SpinBox,      QAccessible::Graphic,
};

class Walk {
  public:
    void Through(QAccessibleInterface* at) {
        if (at == nullptr || !at->isValid() || at->state().invisible) {
            return;
        }
        const bool widget = at->object() != nullptr && at->object()->isWidgetType();
        const bool control = kControls.contains(at->role());
        if (widget && at->object()->inherits("quorvi::CHtmlCtrlBase")) {
            // The browser has no name for its document, which takes the keys: what a tool reads is
            // that of the view around it.
            LookAtName(*at);
        } else if (control || (widget && at->state().focusable)) {
            Look(*at, control);
        }
        if (at->tableInterface() != nullptr && at->role() != QAccessible::Tree) {
            LookAtCells(*at);
            return;
        }
        if (at->role() == QAccessible::ComboBox) {
            return;  // its entries are seen when it is opened
        }
        for (int i = 0; i < at->childCount(); ++i) {
            Through(at->child(i));
        }
    }

    QStringList faults;
    int parts = 0;

  private:
    static QString Place(QAccessibleInterface& at) {
        const QObject* object = at.object();
        const QString role =
            QString::fromLatin1(QMetaEnum::fromType<QAccessible::Role>().valueToKey(at.role()));
        return object == nullptr ? role
                                 : QStringLiteral("%1 %2 (%3)")
                                       .arg(QLatin1String(object->metaObject()->className()),
                                            object->objectName(), role);
    }
    void Blame(QAccessibleInterface& at, const char* fault) {
        faults.append(Place(at) + QStringLiteral(": ") + QLatin1String(fault));
    }

    void LookAtName(QAccessibleInterface& at) {
        ++parts;
        const QString name = at.text(QAccessible::Name);
        if (name.trimmed().isEmpty()) {
            Blame(at, "no name");
        } else if (at.role() != QAccessible::Link && !names_.emplace(at.role(), name).second) {
            Blame(at, "the name of another");
        }
    }

    void Look(QAccessibleInterface& at, bool control) {
        LookAtName(at);
        if (!control) {
            Blame(at, "takes the focus and has no control's role");
            return;
        }
        if (at.role() == QAccessible::ComboBox) {
            const auto* combo = qobject_cast<const QComboBox*>(at.object());
            const QString name = at.text(QAccessible::Name);
            if (combo != nullptr && name != combo->accessibleName()) {
                Blame(at, "called by its entry");
            }
            if (combo != nullptr && at.text(QAccessible::Value) != combo->currentText()) {
                Blame(at, "its value is not its entry");
            }
        }
        const auto action = ActionOfRole().find(at.role());
        if (action != ActionOfRole().end() && !at.state().disabled &&
            (at.actionInterface() == nullptr ||
             !at.actionInterface()->actionNames().contains(action->second))) {
            Blame(at, "without its action");
        }
    }

    // One line a column is enough to find what is wrong with it.
    void LookAtCells(QAccessibleInterface& at) {
        QAccessibleTableInterface& table = *at.tableInterface();
        for (int column = 0; column < table.columnCount(); ++column) {
            int silent = 0;
            for (int row = 0; row < table.rowCount(); ++row) {
                const QAccessibleInterface* cell = table.cellAt(row, column);
                const bool says =
                    cell != nullptr && !cell->text(QAccessible::Name).trimmed().isEmpty();
                silent += says ? 0 : 1;
                ++parts;
            }
            if (silent > 0) {
                faults.append(Place(at) + QStringLiteral(": %1 cells of column %2 have no words")
                                              .arg(silent)
                                              .arg(column));
            }
        }
    }

    std::set<std::pair<QAccessible::Role, QString>> names_;
};

Walk Walked(QWidget& window) {
    Walk walk;
    walk.Through(QAccessible::queryAccessibleInterface(&window));
    return walk;
}

}  // namespace

QStringList AccessibleFaults(QWidget& window) {
    return Walked(window).faults;
}

int AccessibleParts(QWidget& window) {
    return Walked(window).parts;
}

}  // namespace quorvi
