// Looks prefixes up in a database of any bytes and of any length, as one from outside may be.
//
// Input: three bytes for the first prefix that is looked up, counted from kFirstPrefix (high byte
// first), the file.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "refdata/PhoneDb.h"
#include "refdata/PhoneDbFormat.h"

namespace {

constexpr std::size_t kHeader = 3;
constexpr int kLookUps = 64;

// A folder of this process, gone with it.
const std::filesystem::path& Folder() {
    static const struct Scratch {
        Scratch() {
            std::string name =
                (std::filesystem::temp_directory_path() / "phone-db.XXXXXX").string();
            path = ::mkdtemp(name.data());
        }
        ~Scratch() { std::filesystem::remove_all(path); }
        std::filesystem::path path;
    } scratch;
    return scratch.path;
}

// What the form of the file says, read without care for anything else.
int Expected(const std::vector<std::byte>& file, int prefix) {
    const int index = prefix - quorvi::kFirstPrefix;
    const auto at = static_cast<std::size_t>(index) * quorvi::kPhoneDbEntry;
    if (index < 0 || prefix > quorvi::kLastPrefix || at + 1 >= file.size()) {
        return 0;
    }
    return quorvi::AreaCodeOfRegion(std::to_integer<int>(file[at]) +
                                    256 * std::to_integer<int>(file[at + 1]));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < kHeader) {
        return 0;
    }
    const int first =
        quorvi::kFirstPrefix - kLookUps / 2 + (data[0] << 16 | data[1] << 8 | data[2]);
    const auto* bytes = reinterpret_cast<const std::byte*>(data);
    const std::vector<std::byte> file(bytes + kHeader, bytes + size);
    const quorvi::CPhoneDb db(Folder(), file);
    for (int prefix = first; prefix < first + kLookUps; ++prefix) {
        if (db.LookupAreaCode(prefix) != Expected(file, prefix)) {
            std::abort();
        }
    }
    return 0;
}
