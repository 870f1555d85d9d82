#include "backup/JsonLine.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace quorvi {
namespace {

// What stands behind the backslash for a character that has a short form; 0 for any other.
constexpr auto kShortForms = [] {
    std::array<char, 256> forms{};
    forms['"'] = '"';
    forms['\\'] = '\\';
    forms['\b'] = 'b';
    forms['\f'] = 'f';
    forms['\n'] = 'n';
    forms['\r'] = 'r';
    forms['\t'] = 't';
    return forms;
}();
constexpr unsigned char kFirstPrintable = 0x20;

bool StandsAsItIs(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= kFirstPrintable && kShortForms[byte] == 0;
}

}  // namespace

// Behind a value stands a comma, behind what begins or names one nothing. The end of a text is a
// quote, so that no text is taken for a bracket.
void JsonLine::Separate() {
    if (!text_.empty() && text_.back() != '[' && text_.back() != '{' && text_.back() != ':') {
        text_ += ',';
    }
}

JsonLine& JsonLine::Begin(char bracket) {
    Separate();
    text_ += bracket;
    return *this;
}

JsonLine& JsonLine::End(char bracket) {
    text_ += bracket;
    return *this;
}

JsonLine& JsonLine::Name(std::string_view name) {
    Separate();
    Quote(name);
    text_ += ':';
    return *this;
}

JsonLine& JsonLine::Text(std::string_view utf8) {
    Separate();
    Quote(utf8);
    return *this;
}

JsonLine& JsonLine::Number(std::int64_t number) {
    Separate();
    fmt::format_to(std::back_inserter(text_), "{}", number);
    return *this;
}

JsonLine& JsonLine::Flag(bool flag) {
    Separate();
    text_ += flag ? "true" : "false";
    return *this;
}

void JsonLine::Quote(std::string_view utf8) {
    text_ += '"';
    while (!utf8.empty()) {
        const auto end = std::ranges::find_if_not(utf8, StandsAsItIs);
        text_.append(utf8.begin(), end);
        utf8 = {end, utf8.end()};
        if (utf8.empty()) {
            break;
        }
        const auto byte = static_cast<unsigned char>(utf8.front());
        if (kShortForms[byte] != 0) {
            text_ += '\\';
            text_ += kShortForms[byte];
        } else {
            fmt::format_to(std::back_inserter(text_), "\\u{:04x}", byte);
        }
        utf8.remove_prefix(1);
    }
    text_ += '"';
}

}  // namespace quorvi
