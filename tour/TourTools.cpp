// The tour's stops at the tools of the phone.
#include "tour/PageStops.h"

namespace quorvi {

std::vector<TourStop> ToolsStops() {
    return {};
}

}  // namespace quorvi
