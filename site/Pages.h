// What the sample site has at its addresses but for the downloads and the forms.
#pragma once

#include <string_view>

#include "site/Answer.h"

namespace quorvi::site {

// Of an address below the site's root: the path, decoded, and the query behind '?' as it came. The
// addresses are those of a table and of the catalogue: nothing of a request becomes a file's name.
// Any thread.
[[nodiscard]] Answer AnswerPage(std::string_view path, std::string_view query);

}  // namespace quorvi::site
