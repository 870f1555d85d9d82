#include "backup/Sha256.h"

#include <fmt/format.h>
#include <openssl/evp.h>

#include <array>

namespace quorvi {

void Sha256::Free::operator()(evp_md_ctx_st* context) const {
    EVP_MD_CTX_free(context);
}

Sha256::Sha256() : context_(EVP_MD_CTX_new()) {
    EVP_DigestInit_ex(context_.get(), EVP_sha256(), nullptr);
}

void Sha256::Add(std::string_view bytes) {
    EVP_DigestUpdate(context_.get(), bytes.data(), bytes.size());
}

std::string Sha256::Hex() {
    std::array<unsigned char, EVP_MAX_MD_SIZE> sum{};
    unsigned int length = 0;
    EVP_DigestFinal_ex(context_.get(), sum.data(), &length);
    std::string hex;
    for (unsigned int i = 0; i < length; ++i) {
        hex += fmt::format("{:02x}", sum[i]);
    }
    return hex;
}

std::string Sha256Hex(std::string_view bytes) {
    Sha256 sum;
    sum.Add(bytes);
    return sum.Hex();
}

}  // namespace quorvi
