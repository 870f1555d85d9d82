// Every text with which the link reports, as tables. Texts are ANSI. Any thread.
#pragma once

#include <string>

#include "link/AdbHostClient.h"
#include "link/AdbOutput.h"
#include "link/FindDevice.h"

namespace quorvi {

// The banner's text for a search that found no phone; empty for `found`.
[[nodiscard]] std::string BannerText(FindDeviceResult result);

// What a forward runs into, in the banner; empty for `standing`.
[[nodiscard]] std::string BannerText(ForwardEvent event);

// The same in the StatusLabel, for a phone chosen in the device manager; none is empty.
[[nodiscard]] std::string StatusText(ForwardEvent event);

// The banner's text for the end of an install. All but `success` are errors.
[[nodiscard]] std::string BannerText(InstallResult result);

}  // namespace quorvi
