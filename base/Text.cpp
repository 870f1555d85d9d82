#include "base/Text.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <limits>
#include <memory>
#include <utility>

#include "base/CodePageScope.h"
#include "base/Utf8.h"

namespace quorvi {
namespace {

constexpr char kBlanks[] = " \t\r\n";

// The most bytes re-encoded at a time, so that the memory for the UTF-16 in between does not grow
// with the text.
constexpr std::size_t kPiece = 64 * 1024;
// Bytes of a code page's longest character.
constexpr std::size_t kLongestCharacter = 4;
// What a malformed sequence becomes before it is re-encoded.
constexpr char32_t kReplacement = 0xFFFD;

std::atomic<CodePage> activeCodePage{CodePage::gbk};
// Of a thread's own, by CodePageScope; kNoneOfItsOwn without one.
constexpr int kNoneOfItsOwn = -1;
thread_local int ownCodePage = kNoneOfItsOwn;

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

struct ConverterCloser {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, ConverterCloser>;

const char* ConverterName(CodePage codePage) {
    return codePage == CodePage::gb18030 ? "gb18030" : "windows-936-2000";
}

// Writes the default character for whatever the code page lacks. The library's own rule would drop
// invisible characters, such as a soft hyphen or a joiner, without a trace.
void WriteDefaultCharacter(const void*, UConverterFromUnicodeArgs* arguments, const char16_t*,
                           int32_t, UChar32, UConverterCallbackReason reason, UErrorCode* status) {
    if (reason <= UCNV_IRREGULAR) {
        *status = U_ZERO_ERROR;
        ucnv_cbFromUWriteBytes(arguments, "?", 1, 0, status);
    }
}

// A converter is not safe to share, and opening one is dear: each thread keeps its own.
UConverter* AnsiConverter() {
    thread_local Converter converter;
    thread_local CodePage opened{};
    const CodePage wanted = ActiveCodePage();
    if (!converter || opened != wanted) {
        UErrorCode status = U_ZERO_ERROR;
        converter.reset(ucnv_open(ConverterName(wanted), &status));
        ucnv_setFromUCallBack(converter.get(), WriteDefaultCharacter, nullptr, nullptr, nullptr,
                              &status);
        opened = wanted;
    }
    return converter.get();
}

// `piece` is short enough for the converters' 32-bit lengths.
std::u16string Utf8ToUtf16(std::string_view piece) {
    // A code unit of UTF-8 gives at most one of UTF-16.
    std::u16string wide(piece.size(), u'\0');
    int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8WithSub(wide.data(), static_cast<int32_t>(wide.size()), &length, piece.data(),
                         static_cast<int32_t>(piece.size()), kReplacement, nullptr, &status);
    wide.resize(U_SUCCESS(status) ? static_cast<std::size_t>(length) : 0);
    return wide;
}

void AppendUtf8(std::u16string_view wide, std::string& utf8) {
    // A code unit of UTF-16 gives at most three of UTF-8.
    std::string piece(wide.size() * 3, '\0');
    int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strToUTF8WithSub(piece.data(), static_cast<int32_t>(piece.size()), &length, wide.data(),
                       static_cast<int32_t>(wide.size()), kReplacement, nullptr, &status);
    utf8.append(piece, 0, U_SUCCESS(status) ? static_cast<std::size_t>(length) : 0);
}

void AppendAnsi(UConverter* converter, std::u16string_view wide, std::string& ansi) {
    const int32_t most = UCNV_GET_MAX_BYTES_FOR_STRING(static_cast<int32_t>(wide.size()),
                                                       ucnv_getMaxCharSize(converter));
    std::string piece(static_cast<std::size_t>(most), '\0');
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = ucnv_fromUChars(converter, piece.data(), most, wide.data(),
                                           static_cast<int32_t>(wide.size()), &status);
    ansi.append(piece, 0, U_SUCCESS(status) ? static_cast<std::size_t>(length) : 0);
}

// The longest start of `utf8` within `most` bytes that does not end inside a character.
std::string_view WholeCharacters(std::string_view utf8, std::size_t most) {
    if (utf8.size() <= most) {
        return utf8;
    }
    const auto continues = [&](std::size_t at) {
        return (static_cast<unsigned char>(utf8[at]) & 0xC0) == 0x80;
    };
    std::size_t end = most;
    while (end > most - 3 && continues(end)) {
        --end;
    }
    return utf8.substr(0, end);
}

}  // namespace

void SetCodePage(CodePage codePage) {
    activeCodePage = codePage;
}

CodePage ActiveCodePage() {
    return ownCodePage == kNoneOfItsOwn ? activeCodePage.load()
                                        : static_cast<CodePage>(ownCodePage);
}

CodePageScope::CodePageScope(CodePage codePage)
    : before_(std::exchange(ownCodePage, static_cast<int>(codePage))) {}

CodePageScope::~CodePageScope() {
    ownCodePage = before_;
}

std::string ToAnsi(std::string_view utf8) {
    if (IsAscii(utf8)) {
        return std::string(utf8);
    }
    UConverter* converter = AnsiConverter();
    std::string ansi;
    while (!utf8.empty()) {
        const std::string_view piece = WholeCharacters(utf8, kPiece);
        AppendAnsi(converter, Utf8ToUtf16(piece), ansi);
        utf8.remove_prefix(piece.size());
    }
    return ansi;
}

std::string ToUtf8(std::string_view ansi) {
    if (IsAscii(ansi)) {
        return std::string(ansi);
    }
    UConverter* converter = AnsiConverter();
    ucnv_resetToUnicode(converter);
    std::string utf8;
    // A byte gives at most one code unit of UTF-16; a character cut by a piece's end waits inside
    // the converter for the next piece.
    std::u16string wide(std::min(ansi.size(), kPiece) + kLongestCharacter, u'\0');
    while (!ansi.empty()) {
        const std::string_view piece = ansi.substr(0, kPiece);
        ansi.remove_prefix(piece.size());
        const char* source = piece.data();
        char16_t* target = wide.data();
        UErrorCode status = U_ZERO_ERROR;
        ucnv_toUnicode(converter, &target, wide.data() + wide.size(), &source,
                       piece.data() + piece.size(), nullptr, ansi.empty(), &status);
        AppendUtf8({wide.data(), static_cast<std::size_t>(target - wide.data())}, utf8);
    }
    return utf8;
}

void Utf8ToAnsi(std::string& text) {
    if (!IsAscii(text)) {
        text = ToAnsi(text);
    }
}

void AnsiToUtf8(std::string& text) {
    if (!IsAscii(text)) {
        text = ToUtf8(text);
    }
}

bool FitsCodePage(std::string_view utf8) {
    return IsAscii(utf8) || ToUtf8(ToAnsi(utf8)) == utf8;
}

std::string Ansi(std::u8string_view text) {
    return ToAnsi(Utf8View(text));
}

std::vector<std::string_view> SplitAt(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    for (;;) {
        const std::size_t end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return pieces;
        }
        text.remove_prefix(end + 1);
    }
}

std::string_view TrimRight(std::string_view text) {
    const std::size_t last = text.find_last_not_of(kBlanks);
    return last == std::string_view::npos ? std::string_view{} : text.substr(0, last + 1);
}

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? std::string_view{} : TrimRight(text.substr(first));
}

namespace {
char LowerLetter(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
}  // namespace

std::string ToLower(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), LowerLetter);
    return lower;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return LowerLetter(x) == LowerLetter(y); });
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
    std::string result;
    if (!from.empty()) {
        for (std::size_t at = text.find(from); at != std::string_view::npos; at = text.find(from)) {
            result.append(text.substr(0, at)).append(to);
            text.remove_prefix(at + from.size());
        }
    }
    return result.append(text);
}

int ToInt(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t\r\n\v\f");
    if (start == std::string_view::npos) {
        return 0;
    }
    text.remove_prefix(start);
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+') {
        text.remove_prefix(1);
    }
    constexpr std::int64_t kLimit = std::numeric_limits<int>::max();
    std::int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            break;
        }
        value = std::min<std::int64_t>(value * 10 + (c - '0'), kLimit + 1);
    }
    return static_cast<int>(negative ? -value : std::min(value, kLimit));
}

}  // namespace quorvi
