// The guide for users, which is delivered with the suite and needs no network.
#pragma once

#include <QObject>
#include <functional>

#include "base/Places.h"

namespace quorvi {

// Opens it with the desktop's browser; looks for the file on a worker, since the disk may be slow.
// `failed` is called when there is no such file or no browser, and not at all when `context` is
// gone by then. `places` differ in tests only. The window's thread.
void OpenGuide(QObject* context, std::function<void()> failed, Places places = ThePlaces());

}  // namespace quorvi
