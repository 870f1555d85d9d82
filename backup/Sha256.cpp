#include "backup/Sha256.h"

#include <openssl/evp.h>

#include <array>
#include <span>

#include "base/Hex.h"

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
    return HexOf(std::as_bytes(std::span(sum).first(length)));
}

std::string Sha256Hex(std::string_view bytes) {
    Sha256 sum;
    sum.Add(bytes);
    return sum.Hex();
}

}  // namespace quorvi
