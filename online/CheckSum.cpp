#include "online/CheckSum.h"

#include <fmt/format.h>

#include <algorithm>

#include "online/Md5.h"

namespace quorvi {
namespace {

// How many characters at the end of a package's name enter its checksum.
constexpr std::size_t kEnd = 3;

// `count` characters of the digest of `text`, from the position `start` on.
std::string Cut(std::string_view text, std::size_t start, std::size_t count) {
    CMd5 md5;
    const std::string& digest = md5.Hash(text);
    return digest.substr(std::min(start, digest.size()), count);
}

}  // namespace

std::string StoreLinkCheckSum(std::string_view package) {
    return Cut(package.substr(package.size() - std::min(package.size(), kEnd)), 6, 4);
}

std::string StoreSearchKey(std::string_view keywords) {
    return Cut(Cut(keywords, 6, 4), 8, 8);
}

std::string StoreCheckCheckSum(std::span<const std::string> packages) {
    const std::string_view last = packages.empty() ? std::string_view() : packages.back();
    return Cut(fmt::format("{}", packages.size()), 3, 3) + Cut(last, 3, 3);
}

std::string FeedbackCheckSum(std::string_view platform, std::string_view content) {
    CMd5 first;
    CMd5 second;
    return Cut(first.Hash(platform) + second.Hash(content), 3, 16);
}

}  // namespace quorvi
