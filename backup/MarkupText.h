// Texts inside of HTML files.
#pragma once

#include <string>
#include <string_view>

namespace quorvi {

// Puts `utf8` behind `html` so that it shows as it is, between tags as well as in an attribute in
// quotes.
void AppendMarkupText(std::string_view utf8, std::string& html);

// The text that stands in `html` between tags or in an attribute: named entities of the basic signs
// and numbered ones become their characters, anything else stays as it is.
[[nodiscard]] std::string FromMarkupText(std::string_view html);

}  // namespace quorvi
