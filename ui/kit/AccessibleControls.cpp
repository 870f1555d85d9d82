#include "ui/kit/AccessibleControls.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>

#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinFields.h"

namespace quorvi {
namespace {

// A box that is on or off. Qt's own action flips it without a click, which is all that a page
// listens to: what the program sets must not come back to it as the user's wish.
class AccessibleCheck : public QAccessibleWidget {
  public:
    AccessibleCheck(QAbstractButton& button, QAccessible::Role role)
        : QAccessibleWidget(&button, role), button_(button) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const QString text = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && text.isEmpty() ? button_.text() : text;
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = button_.isChecked();
        const auto* box = qobject_cast<const QCheckBox*>(&button_);
        state.checkStateMixed = box != nullptr && box->checkState() == Qt::PartiallyChecked;
        state.pressed = button_.isDown();
        return state;
    }
    [[nodiscard]] QStringList actionNames() const override {
        QStringList names;
        if (button_.isEnabled()) {
            names.append(toggleAction());
        }
        return names + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name == toggleAction() || name == pressAction()) {
            if (button_.isEnabled()) {
                button_.click();
            }
        } else {
            QAccessibleWidget::doAction(name);
        }
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override {
        return name == toggleAction() ? QStringList{QStringLiteral("Space")}
                                      : QAccessibleWidget::keyBindingsForAction(name);
    }

  private:
    QAbstractButton& button_;
};

// Its drop list is its only child.
class AccessibleCombo : public QAccessibleWidget {
  public:
    explicit AccessibleCombo(CSkinCombo& combo)
        : QAccessibleWidget(&combo, QAccessible::ComboBox), combo_(combo) {}

    [[nodiscard]] int childCount() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(combo_.view()) : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        return child != nullptr && child->object() == combo_.view() ? 0 : -1;
    }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? combo_.currentText() : QAccessibleWidget::text(kind);
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = combo_.view()->isVisible();
        state.collapsed = !state.expanded;
        state.hasPopup = true;
        return state;
    }
    [[nodiscard]] QStringList actionNames() const override {
        QStringList names;
        if (combo_.isEnabled()) {
            names = {showMenuAction(), pressAction()};
        }
        return names + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name != showMenuAction() && name != pressAction()) {
            QAccessibleWidget::doAction(name);
        } else if (combo_.view()->isVisible()) {
            combo_.hidePopup();
        } else if (combo_.isEnabled()) {
            combo_.showPopup();
        }
    }

  private:
    CSkinCombo& combo_;
};

// A button that leads nowhere: nothing is said to be pressed.
class AccessibleInertButton : public QAccessibleWidget {
  public:
    explicit AccessibleInertButton(CSkinButton& button)
        : QAccessibleWidget(&button, QAccessible::StaticText, button.text()) {}

    [[nodiscard]] QStringList actionNames() const override { return {}; }
    void doAction(const QString&) override {}
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
    if (auto* combo = qobject_cast<CSkinCombo*>(object)) {
        return new AccessibleCombo(*combo);
    }
    if (auto* radio = qobject_cast<SkinRadio*>(object)) {
        return new AccessibleCheck(*radio, QAccessible::RadioButton);
    }
    if (auto* check = qobject_cast<QCheckBox*>(object);
        qobject_cast<CSkinCheck*>(check) != nullptr ||
        qobject_cast<CSkinToggle*>(check) != nullptr) {
        return new AccessibleCheck(*check, QAccessible::CheckBox);
    }
    if (auto* button = qobject_cast<CSkinButton*>(object); button != nullptr && button->IsInert()) {
        return new AccessibleInertButton(*button);
    }
    return nullptr;
}

}  // namespace

void InstallAccessibleControls() {
    QAccessible::installFactory(&MakeAccessible);
}

}  // namespace quorvi
