#include "link/FindDevice.h"

#include <utility>

#include "base/Text.h"
#include "link/DeviceList.h"

namespace quorvi {

FindDeviceResult FindDevice(DeviceContext& device, const DeviceChooser& choose,
                            const LinkEnvironment& environment) {
    SerialList list = ListSerials(environment);
    switch (list.outcome) {
        case RunOutcome::noPipe:
            return FindDeviceResult::noPipe;
        case RunOutcome::noProcess:
            return FindDeviceResult::noAdb;
        case RunOutcome::started:
            break;
    }
    if (list.serials.empty()) {
        return FindDeviceResult::noDevice;
    }
    if (list.serials.size() == 1) {
        device.SetSerial(std::move(list.serials.front()));
        return FindDeviceResult::found;
    }
    device.SetSerial({});
    choose(Ansi(u8"连接管理器 - Quorvi"));
    return device.Serial().empty() ? FindDeviceResult::noneChosen : FindDeviceResult::found;
}

}  // namespace quorvi
