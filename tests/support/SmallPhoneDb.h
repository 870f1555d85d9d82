// A directory of the test's own, and databases with the few records that a test needs.
#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "refdata/PhoneDb.h"
#include "refdata/PhoneDbFormat.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {

class ScratchDirectory : public TemporaryFolder {
  public:
    [[nodiscard]] std::filesystem::path Database() const { return Path() / kPhoneDbName; }
};

// The bytes of a database with these region ids by prefix, 0 for all others.
inline std::vector<std::byte> DatabaseOf(std::initializer_list<std::pair<int, int>> regions) {
    std::vector<std::byte> bytes(kPhoneDbSize);
    for (const auto& [prefix, region] : regions) {
        const auto at = static_cast<std::size_t>(prefix - kFirstPrefix) * kPhoneDbEntry;
        bytes[at] = static_cast<std::byte>(region & 0xFF);
        bytes[at + 1] = static_cast<std::byte>(region >> 8);
    }
    return bytes;
}

inline std::vector<std::byte> BytesOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(in), {});
    const auto* first = reinterpret_cast<const std::byte*>(text.data());
    return {first, first + text.size()};
}

inline void WriteBytes(const std::filesystem::path& file, const std::vector<std::byte>& bytes) {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
}

}  // namespace quorvi
