// A module in the place of the browser engine's: as it is loaded it writes into the file that
// QUORVI_NOTED_ENGINE names whether the window stands on the screen by then. It makes no browsers.
#include <QFile>
#include <QGuiApplication>
#include <QObject>
#include <QWindow>
#include <QtPlugin>
#include <algorithm>

namespace quorvi {

class NotedEngine : public QObject {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "quorvi.NotedEngine/1")
};

namespace {

[[maybe_unused]] const bool theNote = [] {
    QFile note(qEnvironmentVariable("QUORVI_NOTED_ENGINE"));
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const bool shown =
        std::ranges::any_of(windows, [](const QWindow* window) { return window->isExposed(); });
    return note.open(QIODevice::WriteOnly) && note.write(shown ? "window" : "nothing") > 0;
}();

}  // namespace
}  // namespace quorvi

#include "NotedEngine.moc"
