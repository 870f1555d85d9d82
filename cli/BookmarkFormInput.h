// What a save sends of a bookmark, as a JSON object.
#pragma once

#include <string_view>
#include <variant>

#include "cli/FormInput.h"
#include "pages/bookmarks/BookmarkForm.h"

namespace quorvi::cli {

using BookmarkFormInput = FormInput<BookmarkSettings>;

// {title, url, visits: 0 to 2147483647}; a member left out is a field as the editor for a new
// bookmark opens with it, that is, empty. Empty texts are sent, as the editor sends them. A member
// of another name, of another kind or out of its bounds is refused.
[[nodiscard]] std::variant<BookmarkFormInput, FormComplaint> ReadBookmarkForm(
    std::string_view utf8);

}  // namespace quorvi::cli
