#include "online/Md5.h"

#include <openssl/evp.h>

#include <array>
#include <span>

#include "base/Hex.h"

namespace quorvi {

const std::string& CMd5::Hash(std::string_view text) {
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned length = 0;
    if (EVP_Digest(text.data(), text.size(), digest.data(), &length, EVP_md5(), nullptr) != 1) {
        result_ = "Error hashing data";
        return result_;
    }
    result_ = HexOf(std::as_bytes(std::span(digest).first(length)));
    return result_;
}

}  // namespace quorvi
