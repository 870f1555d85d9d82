// Classifies a number of any bytes, with the program's database and with none.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <span>
#include <string_view>

#include "refdata/AreaTable.h"
#include "refdata/NumberAttribution.h"

namespace {

using quorvi::CPhoneDb;

void Require(bool held) {
    if (!held) {
        std::abort();
    }
}

// No directory: nothing is written, and nothing has a record.
const CPhoneDb& NoDatabase() {
    static const CPhoneDb db("/nonexistent", std::span<const std::byte>());
    return db;
}

const CPhoneDb& WholeDatabase() {
    static const CPhoneDb db(std::filesystem::temp_directory_path(), quorvi::PhoneDbResource());
    return db;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view number(reinterpret_cast<const char*>(data), size);
    const auto known = quorvi::ClassifyNumber(number, WholeDatabase());
    Require(!known.caption.empty());
    Require(known.areaCode == 0 || quorvi::AreaName(known.areaCode) == known.caption);
    Require(quorvi::NumberAttribution(number, WholeDatabase()) == known.caption);
    const auto unknown = quorvi::ClassifyNumber(number, NoDatabase());
    // Without records a number is still of the same kind: only places of prefixes are missing.
    Require(unknown.caption == known.caption || unknown.caption == quorvi::AreaName(0));
    return 0;
}
