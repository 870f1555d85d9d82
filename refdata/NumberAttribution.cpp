#include "refdata/NumberAttribution.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "base/Text.h"
#include "refdata/AreaTable.h"
#include "refdata/ServiceNumbers.h"

namespace quorvi {
namespace {

// "+" and a country code that is taken to have two digits.
constexpr std::size_t kCountryCode = 3;
// The longest number with a rule of its own.
constexpr std::size_t kLongest = 17;
constexpr std::size_t kPrefix = 7;
constexpr std::size_t kCarrierPrefix = 5;

struct Captions {
    std::string withheld = Ansi(u8"私有号码");
    std::string bulk = Ansi(u8"<SP号码>");
    std::string unknown = Ansi(u8"未知");
    std::string landLine = Ansi(u8"座机");
    std::string trainTickets = Ansi(u8"火车票电话预订");
    std::string selfService = Ansi(u8"中国移动自助服务");
};

const Captions& Words() {
    static const Captions captions;
    return captions;
}

// The same as ToInt(text), but quick for the common case that all characters are digits.
int NumberOf(std::string_view text) {
    int value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            return ToInt(text);
        }
        value = value * 10 + (c - '0');
    }
    return value;
}

ClassifiedNumber Place(int areaCode) {
    return {AreaName(areaCode), HasArea(areaCode) ? areaCode : 0};
}

ClassifiedNumber OrUnknown(std::string_view caption) {
    return {caption.empty() ? std::string_view(Words().unknown) : caption};
}

ClassifiedNumber BulkOrUnknown(std::string_view digits) {
    return {digits.starts_with("106") ? Words().bulk : Words().unknown};
}

// The place of a land line that begins with "0" or is taken to: a second digit below 3 means an
// area code of two digits.
ClassifiedNumber LandLine(std::string_view digits) {
    const std::size_t codeLength = NumberOf(digits.substr(1, 1)) < 3 ? 2 : 3;
    return Place(NumberOf(digits.substr(1, codeLength)));
}

ClassifiedNumber Mobile(std::string_view digits, const CPhoneDb& db) {
    return Place(db.LookupAreaCode(NumberOf(digits.substr(0, kPrefix))));
}

// ---- one rule a length -------------------------------------------------------------------------

using Rule = ClassifiedNumber (*)(std::string_view digits, const CPhoneDb& db);

ClassifiedNumber OtherLength(std::string_view digits, const CPhoneDb&) {
    return BulkOrUnknown(digits);
}

ClassifiedNumber ThreeDigits(std::string_view digits, const CPhoneDb&) {
    return OrUnknown(ThreeDigitService(NumberOf(digits)));
}

ClassifiedNumber FiveDigits(std::string_view digits, const CPhoneDb&) {
    return OrUnknown(FiveDigitService(NumberOf(digits)));
}

ClassifiedNumber SixDigits(std::string_view digits, const CPhoneDb&) {
    return {digits == "100861" ? Words().selfService : Words().unknown};
}

ClassifiedNumber EightDigits(std::string_view digits, const CPhoneDb&) {
    if (digits[0] == '0') {
        return Place(NumberOf(digits.substr(1, 2)));
    }
    if (digits.starts_with("10")) {
        return {Words().bulk};
    }
    return {digits == "95105105" ? Words().trainTickets : Words().landLine};
}

ClassifiedNumber NineDigits(std::string_view digits, const CPhoneDb&) {
    if (digits[0] == '0') {
        return Place(NumberOf(digits.substr(1, 3)));
    }
    return {digits.starts_with("10") ? Words().bulk : Words().unknown};
}

ClassifiedNumber TenDigits(std::string_view digits, const CPhoneDb&) {
    return OrUnknown(TenDigitService(digits));
}

// What does not begin with "1" is a land line, whatever it begins with. "106…" is looked up like
// any mobile number: that rule is not for this length.
ClassifiedNumber ElevenDigits(std::string_view digits, const CPhoneDb& db) {
    return digits[0] == '1' ? Mobile(digits, db) : LandLine(digits);
}

ClassifiedNumber TwelveDigits(std::string_view digits, const CPhoneDb&) {
    return digits[0] == '0' ? Place(NumberOf(digits.substr(1, 3))) : BulkOrUnknown(digits);
}

// A carrier's prefix before a normal number.
ClassifiedNumber SixteenDigits(std::string_view digits, const CPhoneDb& db) {
    if (digits.starts_with("106")) {
        return {Words().bulk};
    }
    if (digits[0] != '1') {
        return {Words().unknown};
    }
    const std::string_view rest = digits.substr(kCarrierPrefix);
    return rest[0] == '0' ? LandLine(rest) : Mobile(rest, db);
}

ClassifiedNumber SeventeenDigits(std::string_view digits, const CPhoneDb&) {
    if (digits[0] == '1' && digits[kCarrierPrefix] == '0') {
        return Place(NumberOf(digits.substr(kCarrierPrefix + 1, 3)));
    }
    return BulkOrUnknown(digits);
}

constexpr std::array<Rule, kLongest + 1> kRules = {
    OtherLength,      // 0
    OtherLength,      // 1
    OtherLength,      // 2
    ThreeDigits,      // 3
    OtherLength,      // 4
    FiveDigits,       // 5
    SixDigits,        // 6
    OtherLength,      // 7
    EightDigits,      // 8
    NineDigits,       // 9
    TenDigits,        // 10
    ElevenDigits,     // 11
    TwelveDigits,     // 12
    OtherLength,      // 13
    OtherLength,      // 14
    OtherLength,      // 15
    SixteenDigits,    // 16
    SeventeenDigits,  // 17
};

ClassifiedNumber ByLength(std::string_view digits, const CPhoneDb& db) {
    return digits.size() <= kLongest ? kRules[digits.size()](digits, db) : BulkOrUnknown(digits);
}

}  // namespace

ClassifiedNumber ClassifyNumber(std::string_view number, const CPhoneDb& db) {
    if (number.starts_with('-')) {
        return {Words().withheld};
    }
    if (number.starts_with('+')) {
        number.remove_prefix(std::min(kCountryCode, number.size()));
    }
    if (number.find('-') == std::string_view::npos) {
        return ByLength(number, db);
    }
    // As many digits as any rule looks at, and one more, by which a longer number is seen to be
    // longer.
    std::array<char, kLongest + 1> digits;
    std::size_t length = 0;
    for (const char c : number) {
        if (c != '-') {
            digits[length++] = c;
            if (length == digits.size()) {
                break;
            }
        }
    }
    return ByLength({digits.data(), length}, db);
}

AttributionOf MakeNumberAttribution() {
    struct Data {
        std::once_flag made;
        std::optional<CPhoneDb> db;
    };
    return [data = std::make_shared<Data>()](std::string_view number) {
        std::call_once(data->made, [&] { data->db.emplace(); });
        return std::string(NumberAttribution(number, *data->db));
    };
}

}  // namespace quorvi
