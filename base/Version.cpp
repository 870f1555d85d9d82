#include "base/Version.h"

namespace quorvi {

std::string_view ProductVersion() {
    return QUORVI_VERSION;
}

}  // namespace quorvi
