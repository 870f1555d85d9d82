// JSON documents at the program's borders. Text inside a document is UTF-8; these words turn it to
// and from the ANSI text of memory. No exception leaves this file's functions.
#pragma once

#include <json/value.h>

#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

// A text of memory as a string value.
[[nodiscard]] Json::Value JsonText(std::string_view ansi);

// The text in ANSI of a string member; empty when `object` is no object, or the member is missing
// or no string.
[[nodiscard]] std::string TextMember(const Json::Value& object, const char* member);

// The document in `utf8`; nothing when it is malformed, nested too deeply, or an object names a
// member twice. Any thread.
[[nodiscard]] std::optional<Json::Value> ParseJson(std::string_view utf8);

// The value at the beginning of `utf8`, whatever follows it; comments are allowed, and of members
// of one name the last stands. Nothing where there is none, or it is nested too deeply. Any thread.
[[nodiscard]] std::optional<Json::Value> ParseFirstJson(std::string_view utf8);

enum class JsonForm {
    lines,    // for people: two blanks a level
    oneLine,  // for programs
    // The form of the JSON library's own toStyledString: three blanks a level, an array that fits
    // into 74 columns on one line, a line feed at the end.
    styled,
};

// The document in UTF-8, members by name, characters beyond ASCII as themselves, without a line
// feed at the end but in the styled form.
[[nodiscard]] std::string WriteJson(const Json::Value& document, JsonForm form);

}  // namespace quorvi
