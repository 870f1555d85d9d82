// A module in the place of the browser engine's: as it is loaded it writes into the file that
// QUORVI_NOTED_ENGINE names whether the window stands on the screen by then, and its scale. It
// makes no browsers.
#include <QByteArray>
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
    const double scale = windows.isEmpty() ? 0 : windows.front()->devicePixelRatio();
    const QByteArray line = (shown ? "window " : "nothing ") + QByteArray::number(scale);
    return note.open(QIODevice::WriteOnly) && note.write(line) == line.size();
}();

}  // namespace
}  // namespace quorvi

#include "NotedEngine.moc"
