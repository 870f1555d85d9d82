// A file that is written piece by piece, and is there whole or not at all.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

#include "base/os/FileDescriptor.h"
#include "base/os/SmallFile.h"

namespace quorvi {

// When a file takes its place.
enum class Flush {
    toDisk,    // not before its bytes are on the disk: a power failure leaves it or the one before
    bySystem,  // at once; the system brings the bytes to the disk within seconds
};

// Writes beside its place, and takes it when all of it is written. Until then a file that
// stands there is as it was; without Commit, or after an error, nothing is left. Of several
// programs that write one file at a time each writes a file of its own, and the last to commit
// stays. What a link points to is replaced, and not the link. The folder must be there. Blocks as
// long as the disk does.
class WholeFile {
  public:
    explicit WholeFile(const std::filesystem::path& file, FileMode mode = FileMode::plain);
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    // After an error nothing more is written.
    void Append(std::string_view bytes);
    // The first error; none as long as all went well.
    [[nodiscard]] std::error_code Error() const { return error_; }
    // Puts the file in its place: the first error of all that was done.
    [[nodiscard]] std::error_code Commit(Flush flush = Flush::toDisk);

  private:
    std::filesystem::path target_;
    std::filesystem::path part_;  // empty where none could be made
    FileMode mode_;
    FileDescriptor descriptor_;
    std::error_code error_;
    bool committed_ = false;
};

}  // namespace quorvi
