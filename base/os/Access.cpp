#include "base/os/Access.h"

#include <fcntl.h>
#include <unistd.h>

namespace quorvi {

bool MayWriteIn(const std::filesystem::path& folder) {
    return faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

}  // namespace quorvi
