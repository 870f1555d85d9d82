#include "backup/Charset.h"

#include <unicode/ucnv.h>
#include <unicode/ustring.h>
#include <unicode/utf8.h>

#include <array>
#include <limits>
#include <memory>

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr UChar32 kReplacement = 0xFFFD;

// Names by which files call a set that is read as a larger one: they hold its characters all the
// same.
struct LargerSet {
    std::string_view name;
    const char* read;
};
constexpr std::array<LargerSet, 7> kLargerSets{{
    {"gb2312", "gb18030"},
    {"gbk", "gb18030"},
    {"cp936", "gb18030"},
    {"x-gbk", "gb18030"},
    {"iso-8859-1", "windows-1252"},
    {"latin1", "windows-1252"},
    {"us-ascii", "windows-1252"},
}};

// Longer than the name of any set.
constexpr std::size_t kMostNameBytes = 64;

struct ConverterCloser {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, ConverterCloser>;

Converter Open(std::string_view charset) {
    if (charset.empty() || charset.size() > kMostNameBytes) {
        return {};
    }
    std::string name = ToLower(charset);
    for (const LargerSet& set : kLargerSets) {
        if (set.name == name) {
            name = set.read;
        }
    }
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(ucnv_open(name.c_str(), &status));
    return U_SUCCESS(status) ? std::move(converter) : Converter();
}

std::string FromUtf16(std::u16string_view wide) {
    std::string utf8(wide.size() * 3, '\0');  // the most that a code unit gives
    int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strToUTF8WithSub(utf8.data(), static_cast<int32_t>(utf8.size()), &length, wide.data(),
                       static_cast<int32_t>(wide.size()), kReplacement, nullptr, &status);
    utf8.resize(U_SUCCESS(status) ? static_cast<std::size_t>(length) : 0);
    return utf8;
}

// Nothing when the library gives up, which it does at a malformed sequence if it is told to stop
// there.
std::optional<std::string> Convert(UConverter& converter, std::string_view bytes) {
    // Longer than any value that is read, and within the library's 32 bits.
    if (bytes.size() > std::numeric_limits<int32_t>::max() / 8) {
        return std::nullopt;
    }
    std::u16string wide(bytes.size() * 2 + 1, u'\0');
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = ucnv_toUChars(&converter, wide.data(), static_cast<int32_t>(wide.size()),
                                         bytes.data(), static_cast<int32_t>(bytes.size()), &status);
    if (U_FAILURE(status)) {
        return std::nullopt;
    }
    wide.resize(static_cast<std::size_t>(length));
    return FromUtf16(wide);
}

}  // namespace

void AppendUtf8(char32_t character, std::string& utf8) {
    std::array<char, U8_MAX_LENGTH> bytes{};
    std::size_t count = 0;
    U8_APPEND_UNSAFE(bytes.data(), count, static_cast<UChar32>(character));
    utf8.append(bytes.data(), count);
}

bool IsWellFormedUtf8(std::string_view text) {
    if (text.size() > std::numeric_limits<int32_t>::max()) {
        return false;
    }
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    u_strFromUTF8(nullptr, 0, &length, text.data(), static_cast<int32_t>(text.size()), &status);
    return status != U_INVALID_CHAR_FOUND;
}

std::string WellFormedUtf8(std::string text) {
    if (IsWellFormedUtf8(text)) {
        return text;
    }
    return ToUtf8From("utf-8", text).value_or(std::string());
}

std::optional<std::string> ToUtf8From(std::string_view charset, std::string_view bytes) {
    const Converter converter = Open(charset);
    return converter ? Convert(*converter, bytes) : std::nullopt;
}

std::string GuessedToUtf8(std::string bytes) {
    if (IsWellFormedUtf8(bytes)) {
        return bytes;
    }
    if (const Converter chinese = Open("gb18030")) {
        UErrorCode status = U_ZERO_ERROR;
        ucnv_setToUCallBack(chinese.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                            &status);
        if (auto text = Convert(*chinese, bytes)) {
            return *std::move(text);
        }
    }
    return ToUtf8From("windows-1252", bytes).value_or(std::string());
}

}  // namespace quorvi
