#include "base/IniFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::string_view kNoGroup = "General";
// How the file names a group that is really called so.
constexpr std::string_view kGroupOfThatName = "%General";

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

// The value of a hexadecimal digit; nothing for any other character.
std::optional<unsigned> HexDigit(char c) {
    if (c >= '0' && c <= '9') {
        return static_cast<unsigned>(c - '0');
    }
    const char lower = static_cast<char>(c | 0x20);
    if (lower >= 'a' && lower <= 'f') {
        return static_cast<unsigned>(lower - 'a' + 10);
    }
    return std::nullopt;
}

// UTF-8 that grows by whole bytes and by UTF-16 units, of which two may make one character.
class Utf8Text {
  public:
    void AddByte(char byte) {
        EndPair();
        text_ += byte;
    }
    void AddUnit(char32_t unit) {
        if (high_ != 0 && IsLowSurrogate(unit)) {
            Encode(0x10000 + ((high_ - 0xD800) << 10) + (unit - 0xDC00));
            high_ = 0;
            return;
        }
        EndPair();
        if (IsHighSurrogate(unit)) {
            high_ = unit;
        } else {
            Encode(IsLowSurrogate(unit) || unit > 0xFFFF ? kReplacement : unit);
        }
    }
    [[nodiscard]] std::string Take() {
        EndPair();
        return std::move(text_);
    }
    void Truncate(std::size_t size) {
        EndPair();
        text_.resize(std::min(size, text_.size()));
    }
    // Without the half of a pair that the next unit may complete.
    [[nodiscard]] std::size_t Size() const { return text_.size(); }
    [[nodiscard]] bool EndsInBlank() {
        EndPair();
        return !text_.empty() && (text_.back() == ' ' || text_.back() == '\t');
    }

  private:
    void EndPair() {
        if (high_ != 0) {
            high_ = 0;
            Encode(kReplacement);
        }
    }
    void Encode(char32_t c) {
        const auto tail = [&](unsigned shift) {
            text_ += static_cast<char>(0x80 | (c >> shift & 0x3F));
        };
        if (c < 0x80) {
            text_ += static_cast<char>(c);
        } else if (c < 0x800) {
            text_ += static_cast<char>(0xC0 | c >> 6);
            tail(0);
        } else if (c < 0x10000) {
            text_ += static_cast<char>(0xE0 | c >> 12);
            tail(6);
            tail(0);
        } else {
            text_ += static_cast<char>(0xF0 | c >> 18);
            tail(12);
            tail(6);
            tail(0);
        }
    }

    std::string text_;
    char32_t high_ = 0;  // the first half of a pair, until the second comes
};

// A number in hexadecimal digits, at most `most` of them; moves `at` behind it. Larger ones than a
// unit holds stay larger than one.
char32_t TakeHex(std::string_view text, std::size_t& at, std::size_t most) {
    char32_t value = 0;
    for (std::size_t count = 0; count < most && at < text.size(); ++count, ++at) {
        const auto digit = HexDigit(text[at]);
        if (!digit) {
            break;
        }
        value = std::min<char32_t>(value * 16 + *digit, 0x10FFFF);
    }
    return value;
}

// A key or group of the file as a part of a place.
std::string UnescapedKey(std::string_view key) {
    Utf8Text text;
    for (std::size_t at = 0; at < key.size();) {
        const char c = key[at++];
        if (c == '\\') {
            text.AddByte('/');
        } else if (c == '%' && at < key.size()) {
            const bool isUnit = key[at] == 'U';
            std::size_t digits = at + (isUnit ? 1 : 0);
            const std::size_t first = digits;
            const std::size_t count = isUnit ? 4 : 2;
            const char32_t unit = TakeHex(key, digits, count);
            if (digits == first + count) {
                text.AddUnit(unit);
                at = digits;
            } else {
                text.AddByte('%');
            }
        } else {
            text.AddByte(c);
        }
    }
    return text.Take();
}

// The characters of UTF-8 as UTF-16 units; a byte that is no UTF-8 stands for itself.
std::vector<char32_t> Units(std::string_view utf8) {
    std::vector<char32_t> units;
    for (std::size_t at = 0; at < utf8.size();) {
        const auto first = static_cast<unsigned char>(utf8[at++]);
        const unsigned tails = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
        char32_t c = tails == 0 ? first : first & (0x3FU >> tails);
        for (unsigned i = 0; i < tails && at < utf8.size(); ++i, ++at) {
            c = c << 6 | (static_cast<unsigned char>(utf8[at]) & 0x3F);
        }
        if (c > 0xFFFF) {
            c = std::min<char32_t>(c, 0x10FFFF) - 0x10000;
            units.push_back(0xD800 + (c >> 10));
            c = 0xDC00 + (c & 0x3FF);
        }
        units.push_back(c);
    }
    return units;
}

std::string EscapedKey(std::string_view place) {
    std::string key;
    for (const char32_t c : Units(place)) {
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                             (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '.';
        if (c == '/') {
            key += '\\';
        } else if (isPlain) {
            key += static_cast<char>(c);
        } else if (c <= 0xFF) {
            key += fmt::format("%{:02X}", static_cast<unsigned>(c));
        } else {
            key += fmt::format("%U{:04X}", static_cast<unsigned>(c));
        }
    }
    return key;
}

struct Escape {
    char letter;
    char stands;
};
constexpr Escape kEscapes[] = {{'a', '\a'}, {'b', '\b'},  {'f', '\f'}, {'n', '\n'},
                               {'r', '\r'}, {'t', '\t'},  {'v', '\v'}, {'"', '"'},
                               {'?', '?'},  {'\'', '\''}, {'\\', '\\'}};

// What stands behind a backslash at `at`; moves behind it.
void TakeEscape(std::string_view value, std::size_t& at, Utf8Text& text) {
    const char c = value[at++];
    const auto* const known = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                           [&](const Escape& row) { return row.letter == c; });
    if (known != std::end(kEscapes)) {
        text.AddByte(known->stands);
    } else if (c == 'x') {
        const std::size_t digits = at;
        const char32_t unit = TakeHex(value, at, value.size());
        if (at != digits) {
            text.AddUnit(unit);
        }
    } else if (c >= '0' && c <= '7') {
        char32_t unit = static_cast<char32_t>(c - '0');
        for (; at < value.size() && value[at] >= '0' && value[at] <= '7'; ++at) {
            unit = std::min<char32_t>(unit * 8 + static_cast<char32_t>(value[at] - '0'), 0x10FFFF);
        }
        text.AddUnit(unit);
    } else if (c == '\r' && at < value.size() && value[at] == '\n') {
        ++at;  // a line that goes on
    }
    // Any other character is dropped with its backslash, a line feed among them.
}

// A value as it is written, read as text. Commas outside quotes separate the parts of a list; the
// blanks around a part are not of it.
std::string UnescapedValue(std::string_view value) {
    Utf8Text text;
    bool quoted = false;
    bool atStart = true;   // of a part
    std::size_t kept = 0;  // up to here, blanks at the end of a part stay
    const auto chop = [&] {
        while (text.EndsInBlank() && text.Size() > kept) {
            text.Truncate(text.Size() - 1);
        }
    };
    for (std::size_t at = 0; at < value.size();) {
        const char c = value[at++];
        if (c == '\\' && at < value.size()) {
            TakeEscape(value, at, text);
            kept = text.Size();
            atStart = false;
        } else if (c == '"') {
            quoted = !quoted;
            kept = text.Size();
            atStart = false;
        } else if (c == ',' && !quoted) {
            chop();
            text.AddByte(',');
            kept = text.Size();
            atStart = true;
        } else if (quoted || !atStart || (c != ' ' && c != '\t')) {
            text.AddByte(c);
            atStart = false;
        }
        if (quoted) {
            kept = text.Size();
        }
    }
    chop();
    return text.Take();
}

std::string EscapedValue(std::string_view value) {
    std::string text;
    bool needsQuotes = value.starts_with(' ') || value.ends_with(' ');
    bool behindNumber = false;  // a hexadecimal digit here would be read as part of the number
    for (const char c : value) {
        needsQuotes = needsQuotes || c == ';' || c == ',' || c == '=';
        const auto* const known = std::find_if(
            std::begin(kEscapes), std::end(kEscapes),
            [&](const Escape& row) { return row.stands == c && c != '?' && c != '\''; });
        if (known != std::end(kEscapes)) {
            text.append("\\").append(1, known->letter);
            behindNumber = false;
        } else if ((c >= '\0' && c < ' ') || (behindNumber && HexDigit(c))) {
            text += fmt::format("\\x{:x}", static_cast<unsigned>(c));
            behindNumber = true;
        } else {
            text += c;
            behindNumber = false;
        }
    }
    return needsQuotes ? '"' + text + '"' : text;
}

// A text that looks like the mark of another type carries one more mark.
std::string MarkedText(std::string_view value) {
    if (value.find('\0') != std::string_view::npos) {
        return "@String(" + std::string(value) + ")";
    }
    return (value.starts_with('@') ? "@" : "") + std::string(value);
}
std::optional<std::string> UnmarkedText(std::string value) {
    constexpr std::string_view kText = "@String(";
    constexpr std::string_view kBytes = "@ByteArray(";
    if (!value.starts_with('@')) {
        return value;
    }
    if (value.starts_with("@@")) {
        return value.substr(1);
    }
    for (const std::string_view mark : {kText, kBytes}) {
        if (value.starts_with(mark) && value.ends_with(')')) {
            return value.substr(mark.size(), value.size() - mark.size() - 1);
        }
    }
    // "@Invalid()", a picture's size, and their like.
    return value.ends_with(')') ? std::nullopt : std::optional(value);
}

struct Line {
    std::size_t begin = 0;
    std::size_t end = 0;  // behind its line feed
    std::string group;    // that it stands in, as in a place: empty, or with "/" at its end
    bool isGroup = false;
    std::string_view key;  // as written; empty where the line is no value
    std::string_view value;
};

std::string GroupPrefix(std::string_view written) {
    if (EqualsNoCase(written, kNoGroup)) {
        return {};
    }
    if (EqualsNoCase(written, kGroupOfThatName)) {
        return std::string(kNoGroup) + "/";
    }
    return UnescapedKey(written) + "/";
}

// The end of the line that begins at `at`, without its line feed. One within quotes or behind a
// backslash does not end it.
std::size_t EndOfLine(std::string_view file, std::size_t at) {
    bool quoted = false;
    for (; at < file.size() && (file[at] != '\n' || quoted); ++at) {
        if (file[at] == '\\') {
            ++at;
            if (at + 1 < file.size() && file[at] == '\r' && file[at + 1] == '\n') {
                ++at;
            }
        } else if (file[at] == '"') {
            quoted = !quoted;
        }
    }
    return std::min(at, file.size());
}

// What is before a semicolon outside quotes: a comment begins there.
std::string_view WithoutComment(std::string_view value) {
    bool quoted = false;
    for (std::size_t at = 0; at < value.size(); ++at) {
        if (value[at] == '\\') {
            ++at;
        } else if (value[at] == '"') {
            quoted = !quoted;
        } else if (value[at] == ';' && !quoted) {
            return value.substr(0, at);
        }
    }
    return value;
}

std::vector<Line> Lines(std::string_view file) {
    std::vector<Line> lines;
    std::string group;
    for (std::size_t at = 0; at < file.size();) {
        Line line;
        line.begin = at;
        const bool mayGoOn = file[at] != ';' && file[at] != '[';
        const std::size_t end =
            mayGoOn ? EndOfLine(file, at) : std::min(file.find('\n', at), file.size());
        at = std::min(end + 1, file.size());
        line.end = at;
        const std::string_view text = Trim(file.substr(line.begin, end - line.begin));
        const std::size_t equals = text.find('=');
        if (text.starts_with('[')) {
            group = GroupPrefix(Trim(text.substr(1, text.find(']') - 1)));
            line.isGroup = true;
        } else if (!text.starts_with(';') && equals != std::string_view::npos) {
            line.key = Trim(text.substr(0, equals));
            line.value = Trim(WithoutComment(text.substr(equals + 1)));
        }
        line.group = group;
        lines.push_back(std::move(line));
    }
    return lines;
}

bool IsOf(const Line& line, std::string_view place) {
    return !line.key.empty() && EqualsNoCase(line.group + UnescapedKey(line.key), place);
}

// The line of a place, the last one; null when there is none.
const Line* Find(const std::vector<Line>& lines, std::string_view place) {
    const auto found = std::find_if(lines.rbegin(), lines.rend(),
                                    [&](const Line& line) { return IsOf(line, place); });
    return found == lines.rend() ? nullptr : &*found;
}

std::string KeyLine(std::string_view key, std::string_view value) {
    std::string line(key);
    line.append("=").append(EscapedValue(MarkedText(value))).append("\n");
    return line;
}

// `text` with a line feed at its end, if it has any bytes.
void EndLine(std::string& text) {
    if (!text.empty() && text.back() != '\n') {
        text += '\n';
    }
}

}  // namespace

std::optional<std::string> IniValue(std::string_view file, std::string_view place) {
    const std::vector<Line> lines = Lines(file);
    const Line* const line = Find(lines, place);
    return line == nullptr ? std::nullopt : UnmarkedText(UnescapedValue(line->value));
}

std::string WithIniValue(std::string_view file, std::string_view place, std::string_view value) {
    const std::vector<Line> lines = Lines(file);
    if (const Line* const line = Find(lines, place)) {
        std::string result(file.substr(0, line->begin));
        result += KeyLine(line->key, value);
        return result.append(file.substr(line->end));
    }
    const std::size_t slash = place.find('/');
    const std::string_view name =
        slash == std::string_view::npos ? kNoGroup : place.substr(0, slash);
    const std::string key =
        EscapedKey(slash == std::string_view::npos ? place : place.substr(slash + 1));
    const std::string group =
        slash == std::string_view::npos ? std::string() : std::string(place.substr(0, slash + 1));
    // Behind the last line of the group that says something.
    std::optional<std::size_t> behind;
    for (const Line& line : lines) {
        if ((line.isGroup || !line.key.empty()) && EqualsNoCase(line.group, group)) {
            behind = line.end;
        }
    }
    std::string result(file.substr(0, behind.value_or(file.size())));
    EndLine(result);
    if (!behind) {
        const bool isNamedSo = slash != std::string_view::npos && EqualsNoCase(name, kNoGroup);
        result.append(result.empty() ? "[" : "\n[")
            .append(isNamedSo ? std::string(kGroupOfThatName) : EscapedKey(name))
            .append("]\n");
    }
    result += KeyLine(key, value);
    return result.append(file.substr(behind.value_or(file.size())));
}

std::string WithoutIniValue(std::string_view file, std::string_view place) {
    std::string result;
    for (const Line& line : Lines(file)) {
        if (!IsOf(line, place)) {
            result.append(file.substr(line.begin, line.end - line.begin));
        }
    }
    return result;
}

}  // namespace quorvi
