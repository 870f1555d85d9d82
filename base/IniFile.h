// The text of a settings file: "[group]" lines with "key=value" lines below, as the window's
// toolkit writes and reads them. Pure functions over a file's text; nothing here touches the disk.
//
// Names: a place is "group/rest/of/the/key"; the file carries "group" in the brackets and
// "rest\of\the\key" before the equals sign, each with "%41" for a byte and "%U5317" for a UTF-16
// unit that the form does not carry plainly. The group "General" is that of places without "/".
//
// Values: UTF-8 with "\n", "\t", "\\", "\"" and their like, "\x5317" for a UTF-16 unit, in double
// quotes where a comma, a semicolon or an equals sign stands in them. Values without quotes that
// hold commas are lists.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

// The value of a place, found without regard to the case of ASCII letters; where it stands several
// times, the last one. Nothing when it is not there, or is written as a type that is no text. A
// list comes as one text with commas between. Text in and out is UTF-8; any bytes may be read.
[[nodiscard]] std::optional<std::string> IniValue(std::string_view file, std::string_view place);

// The file with this value: in the line where the place stands already, in whatever case, otherwise
// behind the last line of its group. All else stays as it is, comments and unknown lines included.
[[nodiscard]] std::string WithIniValue(std::string_view file, std::string_view place,
                                       std::string_view value);

// The file without any line of this place.
[[nodiscard]] std::string WithoutIniValue(std::string_view file, std::string_view place);

}  // namespace quorvi
