#include "pages/screen/AccessiblePicture.h"

#include <QAccessibleWidget>

#include "pages/screen/ScreenCaptureCtrl.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

class AccessiblePicture : public QAccessibleWidget {
  public:
    explicit AccessiblePicture(ScreenCaptureCtrl& picture)
        : QAccessibleWidget(&picture, QAccessible::Graphic), picture_(picture) {}

    [[nodiscard]] QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (picture_.Picture()) {
            names.prepend(CopyPictureAction());
        }
        return names;
    }
    [[nodiscard]] QString localizedActionName(const QString& name) const override {
        return name == CopyPictureAction() ? ToQString(u8"复制图片")
                                           : QAccessibleWidget::localizedActionName(name);
    }
    void doAction(const QString& name) override {
        if (name == CopyPictureAction()) {
            picture_.Copy();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override {
        return name == CopyPictureAction() ? QStringList{QStringLiteral("Ctrl+C")}
                                           : QAccessibleWidget::keyBindingsForAction(name);
    }

  private:
    ScreenCaptureCtrl& picture_;
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
    auto* picture = qobject_cast<ScreenCaptureCtrl*>(object);
    return picture == nullptr ? nullptr : new AccessiblePicture(*picture);
}

}  // namespace

QString CopyPictureAction() {
    return QStringLiteral("Copy");
}

void InstallAccessiblePicture() {
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(&MakeAccessible);
        return true;
    }();
}

}  // namespace quorvi
