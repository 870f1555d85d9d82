#include "refdata/NumberQuery.h"

#include "base/Text.h"
#include "refdata/AreaTable.h"

namespace quorvi {
namespace {

constexpr std::size_t kPrefix = 7;

}  // namespace

NumberAnswer QueryNumber(std::string_view text, const CPhoneDb& db) {
    const std::string_view asked = text.substr(0, kPrefix);
    const int code = db.LookupAreaCode(ToInt(asked));
    return {std::string(asked) + Ansi(u8" 属于城市:"), std::string(AreaName(code)),
            "0" + std::to_string(code), std::string(PostalCode(code))};
}

}  // namespace quorvi
