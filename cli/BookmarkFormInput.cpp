#include "cli/BookmarkFormInput.h"

#include <cstdint>

namespace quorvi::cli {
namespace {

constexpr std::uint32_t kMostVisits = INT32_MAX;  // what the editor's number field can hold

constexpr FormMember<BookmarkSettings> kMembers[] = {
    {"title", kInto<&BookmarkSettings::title>},
    {"url", kInto<&BookmarkSettings::url>},
    {"visits", kCountInto<&BookmarkSettings::visits, kMostVisits>},
};

}  // namespace

std::variant<BookmarkFormInput, FormComplaint> ReadBookmarkForm(std::string_view utf8) {
    return ReadForm<BookmarkSettings>(kMembers, utf8);
}

}  // namespace quorvi::cli
