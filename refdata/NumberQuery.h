// The question after the region of one mobile number, and its answer in texts. ANSI.
#pragma once

#include <string>
#include <string_view>

#include "refdata/PhoneDb.h"

namespace quorvi {

// The box of the question holds no more characters than this.
inline constexpr int kQueryLength = 11;

struct NumberAnswer {
    std::string heading;     // the characters asked for, " 属于城市:"
    std::string place;       // "没有记录" for none
    std::string areaCode;    // behind a 0: "0519", and "00" for none
    std::string postalCode;  // "没有找到" for none
};

// Asks for the first seven characters of `text`, read as a number. Fewer give a smaller number,
// which has no record. Any thread.
[[nodiscard]] NumberAnswer QueryNumber(std::string_view text, const CPhoneDb& db);

}  // namespace quorvi
