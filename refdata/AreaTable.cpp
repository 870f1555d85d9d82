#include "refdata/AreaTable.h"

#include <array>
#include <cstddef>
#include <string>

#include "base/Text.h"

namespace quorvi {
namespace {

struct AreaRow {
    int code;
    std::u8string_view place;
    std::string_view postalCode;
};
constexpr AreaRow kAreas[] = {
#include "refdata/data/AreaTable.inc"
};

// One above the highest area code of the table.
constexpr std::size_t kCodes = 1000;
// A code that stands for a region nobody knows. It has a name, but no row.
constexpr int kUnknownRegion = 1234;

constexpr bool AllCodesFit() {
    for (const AreaRow& row : kAreas) {
        if (row.code < 0 || static_cast<std::size_t>(row.code) >= kCodes) {
            return false;
        }
    }
    return true;
}
static_assert(AllCodesFit());

// The texts by area code, turned to ANSI once, so that a look-up converts nothing.
struct Directory {
    Directory() {
        names.fill(noName);
        postalCodes.fill(noPostalCode);
        for (const AreaRow& row : kAreas) {
            const auto code = static_cast<std::size_t>(row.code);
            names[code] = Ansi(row.place);
            postalCodes[code] = row.postalCode;
            hasRow[code] = true;
        }
    }

    std::string noName = Ansi(u8"没有记录");
    std::string noPostalCode = Ansi(u8"没有找到");
    std::string unknownRegion = Ansi(u8"未知地区");
    std::array<std::string, kCodes> names;
    std::array<std::string_view, kCodes> postalCodes;
    std::array<bool, kCodes> hasRow{};
};

const Directory& TheDirectory() {
    static const Directory directory;
    return directory;
}

bool InTable(int code) {
    return code >= 0 && static_cast<std::size_t>(code) < kCodes;
}

}  // namespace

std::string_view AreaName(int code) {
    const Directory& directory = TheDirectory();
    if (InTable(code)) {
        return directory.names[static_cast<std::size_t>(code)];
    }
    return code == kUnknownRegion ? directory.unknownRegion : directory.noName;
}

std::string_view PostalCode(int code) {
    const Directory& directory = TheDirectory();
    return InTable(code) ? directory.postalCodes[static_cast<std::size_t>(code)]
                         : std::string_view(directory.noPostalCode);
}

bool HasArea(int code) {
    return InTable(code) && TheDirectory().hasRow[static_cast<std::size_t>(code)];
}

}  // namespace quorvi
