// The size of the text that the user has chosen, as the scale of all that is drawn.
#pragma once

#include <QByteArray>
#include <optional>

#include "base/SettingsStore.h"

namespace quorvi {

// Hands the scale over to Qt, which reads it from the environment as the application is made, and
// gives the environment its own value back at the end, so that no program that is started by this
// one is enlarged too. A scale that the environment asks for is multiplied.
//
// Lives while the application is made; no other thread runs by then.
class InterfaceScale {
  public:
    explicit InterfaceScale(const SettingsStore& settings);
    ~InterfaceScale();
    InterfaceScale(const InterfaceScale&) = delete;
    InterfaceScale& operator=(const InterfaceScale&) = delete;

  private:
    bool changed_ = false;
    std::optional<QByteArray> before_;
};

}  // namespace quorvi
