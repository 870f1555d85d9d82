// Where the main window stands and how large it is: kept in the settings, and always in view.
#pragma once

#include <QObject>
#include <QRect>
#include <QTimer>
#include <functional>
#include <optional>

#include "base/SettingsStore.h"

class QScreen;

namespace quorvi {

// The value under kSettingsKey: "x y width height" in logical pixels.
inline constexpr std::string_view kWindowPlace = "window_place";

// Follows one window. A change by the user is stored by a worker as soon as it has rested for a
// moment. When a screen goes or its free area becomes smaller, the window is brought into what is
// free. The window's thread.
class WindowPlace : public QObject {
  public:
    struct Sizes {
        QSize usual;  // where nothing is stored
        QSize least;  // less only where the screen itself is smaller
    };
    // Becomes a child of `window`. `settings` outlives the worker too.
    WindowPlace(QWidget& window, SettingsStore& settings, Sizes sizes);

    // Gives the window the place that is stored, brought into view; without one its usual size in
    // the middle of the primary screen. Reads the settings: before the first show.
    void Restore();
    // Stores a change that is not stored yet, and then calls `then`; at once when there is none,
    // and after a second at the latest.
    void StoreThen(std::function<void()> then);

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void Follow(QScreen* screen);
    void BringIntoView();
    void SetPlace(const QRect& wished);
    void Store();
    void GoOn();
    [[nodiscard]] std::optional<QRect> Stored() const;
    [[nodiscard]] QRect Place() const;
    [[nodiscard]] bool Stands() const;

    QWidget& window_;
    SettingsStore& settings_;
    Sizes sizes_;
    QRect known_;  // as stored, or as the program itself has set it
    QTimer rest_;
    bool storing_ = false;        // a worker is at it
    std::function<void()> then_;  // waits for the store
};

}  // namespace quorvi
