#include "app/process/InterfaceScale.h"

#include <QtGlobal>

#include "base/LookChoice.h"

namespace quorvi {
namespace {

constexpr char kVariable[] = "QT_SCALE_FACTOR";

}  // namespace

InterfaceScale::InterfaceScale(const SettingsStore& settings) {
    const int percent = ChosenTextPercent(settings);
    if (percent == kTextPercents.front()) {
        return;
    }
    double scale = 1;
    if (qEnvironmentVariableIsSet(kVariable)) {
        before_ = qgetenv(kVariable);
        bool isNumber = false;
        const double asked = before_->toDouble(&isNumber);
        scale = isNumber && asked > 0 ? asked : scale;
    }
    changed_ = true;
    qputenv(kVariable, QByteArray::number(scale * percent / 100));
}

InterfaceScale::~InterfaceScale() {
    if (changed_ && before_) {
        qputenv(kVariable, *before_);
    } else if (changed_) {
        qunsetenv(kVariable);
    }
}

}  // namespace quorvi
