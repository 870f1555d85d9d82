#include "find/FindIndex.h"

#include <unicode/ustring.h>

#include <algorithm>
#include <cstdint>
#include <span>

namespace quorvi {

void FindIndex::Clear() {
    all_.clear();
    texts_.clear();
    rows_.clear();
}

void FindIndex::AddRow() {
    rows_.push_back(texts_.size());
}

void FindIndex::AddText(std::u16string_view text, FindKind kind) {
    texts_.push_back({all_.size(), text.size(), kind});
    all_ += Folded(text);
}

void FindIndex::AddUtf8(std::string_view text, FindKind kind) {
    constexpr UChar32 kReplacement = 0xFFFD;
    std::u16string wide(text.size(), u'\0');  // no text is longer in UTF-16 than in UTF-8
    std::int32_t length = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strFromUTF8WithSub(wide.data(), static_cast<std::int32_t>(wide.size()), &length, text.data(),
                         static_cast<std::int32_t>(text.size()), kReplacement, nullptr, &error);
    wide.resize(U_SUCCESS(error) != 0 ? static_cast<std::size_t>(length) : 0);
    AddText(wide, kind);
}

std::vector<int> FindIndex::Find(const FindQuery& query) const {
    std::vector<int> found;
    const std::u16string_view all = all_;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        const std::size_t end = row + 1 < rows_.size() ? rows_[row + 1] : texts_.size();
        const std::span texts = std::span(texts_).subspan(rows_[row], end - rows_[row]);
        if (std::ranges::any_of(texts, [&](const Text& text) {
                return query.In(all.substr(text.begin, text.length), text.kind).has_value();
            })) {
            found.push_back(static_cast<int>(row));
        }
    }
    return found;
}

}  // namespace quorvi
