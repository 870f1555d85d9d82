// MD5 digests, of which the site's checksums are cut.
#pragma once

#include <string>
#include <string_view>

namespace quorvi {

// Keeps the last result. A local object of one thread.
class CMd5 {
  public:
    // The digest of the bytes of `text`, as 32 lower-case hexadecimal digits. Where the library
    // gives none, it is the words of what failed, which callers cut like a digest: the site then
    // refuses the request.
    const std::string& Hash(std::string_view text);

  private:
    std::string result_;
};

}  // namespace quorvi
