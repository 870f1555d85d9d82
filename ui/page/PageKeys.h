// The keys of a page or dialog whose main thing is a list.
#pragma once

#include <QWidget>
#include <functional>

namespace quorvi {

// What its keys do; one without a function does nothing there.
struct PageKeys {
    std::function<void()> refresh = {};  // F5
    std::function<void()> add = {};      // Ctrl+N
    QWidget* list = nullptr;             // in which Delete counts; null for none
    std::function<void()> erase = {};    // Delete
};

// Has `place` heed these keys from now on, while it is shown and enabled and no dialog stands over
// it: F5 and Ctrl+N wherever in its window the focus is, Delete in its list alone. A field that has
// the focus keeps what it uses itself. A key that is held counts once. The window's thread.
void HeedKeys(QWidget& place, const PageKeys& keys);

}  // namespace quorvi
