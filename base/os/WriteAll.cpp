#include "base/os/WriteAll.h"

#include <unistd.h>

#include <cerrno>

namespace quorvi {

std::error_code WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (written == 0) {
            return std::make_error_code(std::errc::io_error);
        } else if (errno != EINTR) {
            return {errno, std::generic_category()};
        }
    }
    return {};
}

}  // namespace quorvi
