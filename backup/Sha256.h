// SHA-256, by which a backup knows its files again.
#pragma once

#include <memory>
#include <string>
#include <string_view>

struct evp_md_ctx_st;

namespace quorvi {

// Sums bytes that come in pieces. Used on one thread.
class Sha256 {
  public:
    Sha256();

    void Add(std::string_view bytes);
    // The sum of all that was added, 64 hexadecimal digits in lower case. Called once.
    [[nodiscard]] std::string Hex();

  private:
    struct Free {
        void operator()(evp_md_ctx_st* context) const;
    };
    std::unique_ptr<evp_md_ctx_st, Free> context_;
};

// That of bytes that are all there.
[[nodiscard]] std::string Sha256Hex(std::string_view bytes);

}  // namespace quorvi
