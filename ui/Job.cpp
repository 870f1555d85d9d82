#include "ui/Job.h"

#include <QCoreApplication>
#include <QMetaObject>

namespace quorvi {
namespace {

// Lives as long as the process, so that a worker may post to it at any time.
QObject& WindowThread() {
    static QObject* const object = [] {
        auto* made = new QObject;
        if (QCoreApplication::instance() != nullptr) {
            made->moveToThread(QCoreApplication::instance()->thread());
        }
        return made;
    }();
    return *object;
}

}  // namespace

void PostToWindow(QPointer<QObject> receiver, std::function<void()> what) {
    QMetaObject::invokeMethod(
        &WindowThread(),
        [receiver = std::move(receiver), what = std::move(what)] {
            if (receiver) {
                what();
            }
        },
        Qt::QueuedConnection);
}

}  // namespace quorvi
