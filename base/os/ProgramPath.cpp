#include "base/os/ProgramPath.h"

#include <system_error>

namespace quorvi {

std::filesystem::path ProgramPath() {
    std::error_code failed;
    return std::filesystem::read_symlink("/proc/self/exe", failed);
}

}  // namespace quorvi
