#include "find/NameOrder.h"

#include <unicode/coll.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <vector>

#include "find/Pinyin.h"

namespace quorvi {
namespace {

// How a character is read as a surname where that is not its most frequent reading.
struct SurnameReading {
    char32_t character;
    std::string_view reading;
};
constexpr std::array<SurnameReading, 22> kSurnameReadings{{
    {U'单', "shan"},  {U'解', "xie"},   {U'仇', "qiu"},   {U'区', "ou"},   {U'查', "zha"},
    {U'曾', "zeng"},  {U'任', "ren"},   {U'华', "hua"},   {U'翟', "zhai"}, {U'缪', "miao"},
    {U'覃', "qin"},   {U'乐', "yue"},   {U'冼', "xian"},  {U'朴', "piao"}, {U'盖', "ge"},
    {U'种', "chong"}, {U'黑', "he"},    {U'盛', "sheng"}, {U'员', "yun"},  {U'柏', "bai"},
    {U'纪', "ji"},    {U'长', "chang"},
}};

std::string_view ReadingAt(char32_t character, bool begins) {
    if (begins) {
        const auto* surname =
            std::ranges::find(kSurnameReadings, character, &SurnameReading::character);
        if (surname != kSurnameReadings.end()) {
            return surname->reading;
        }
    }
    const std::string_view readings = ReadingsOf(character);
    return readings.substr(0, readings.find(' '));
}

// Each Chinese character as its reading with itself behind it, each a word of its own.
icu::UnicodeString Spelt(const icu::UnicodeString& name) {
    icu::UnicodeString spelt;
    bool begins = true;
    for (std::int32_t i = 0; i < name.length(); i = name.moveIndex32(i, 1)) {
        const UChar32 character = name.char32At(i);
        const std::string_view reading = ReadingAt(static_cast<char32_t>(character), begins);
        if (!reading.empty()) {
            spelt += icu::UnicodeString::fromUTF8(
                {reading.data(), static_cast<std::int32_t>(reading.size())});
            spelt += u' ';
        }
        spelt += character;
        if (!reading.empty()) {
            spelt += u' ';
        }
        begins = begins && u_isUWhiteSpace(character) != 0;
    }
    return spelt;
}

}  // namespace

struct NameOrder::Rules {
    std::unique_ptr<icu::Collator> collator;
};

NameOrder::NameOrder() : rules_(std::make_unique<Rules>()) {
    UErrorCode error = U_ZERO_ERROR;
    rules_->collator.reset(icu::Collator::createInstance(icu::Locale::getRoot(), error));
    if (U_FAILURE(error)) {
        rules_->collator.reset();  // without ICU's data, letters stand in the order of their codes
        return;
    }
    rules_->collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, error);
}

NameOrder::~NameOrder() = default;

std::string NameOrder::Key(std::string_view name) const {
    icu::UnicodeString text =
        icu::UnicodeString::fromUTF8({name.data(), static_cast<std::int32_t>(name.size())});
    text.trim();
    if (text.isEmpty()) {
        return {};
    }
    const icu::UnicodeString spelt = Spelt(text);
    if (rules_->collator == nullptr) {
        std::string letters;
        spelt.toUTF8String(letters);
        return letters;
    }
    constexpr std::int32_t kUsual = 256;
    std::string key(kUsual, '\0');
    const auto fill = [&] {
        return rules_->collator->getSortKey(spelt, reinterpret_cast<std::uint8_t*>(key.data()),
                                            static_cast<std::int32_t>(key.size()));
    };
    const std::int32_t size = fill();
    if (static_cast<std::size_t>(size) > key.size()) {
        key.resize(static_cast<std::size_t>(size));
        fill();
    }
    key.resize(static_cast<std::size_t>(size));
    return key;
}

}  // namespace quorvi
