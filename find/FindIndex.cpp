#include "find/FindIndex.h"

#include <unicode/ustring.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <set>
#include <span>

namespace quorvi {

void FindIndex::Clear() {
    all_.clear();
    spelt_.clear();
    texts_.clear();
    rows_.clear();
}

void FindIndex::AddRow() {
    rows_.push_back(texts_.size());
}

void FindIndex::AddText(std::u16string_view text, FindKind kind) {
    if (keepsSpellings_) {
        spelt_.resize(all_.size());
        spelt_ += text;
    }
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

std::span<const FindIndex::Text> FindIndex::TextsOf(std::size_t row) const {
    const std::size_t end = row + 1 < rows_.size() ? rows_[row + 1] : texts_.size();
    return std::span(texts_).subspan(rows_[row], end - rows_[row]);
}

std::vector<int> FindIndex::Find(const FindQuery& query) const {
    std::vector<int> found;
    const std::u16string_view all = all_;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (std::ranges::any_of(TextsOf(row), [&](const Text& text) {
                return query.In(all.substr(text.begin, text.length), text.kind).has_value();
            })) {
            found.push_back(static_cast<int>(row));
        }
    }
    return found;
}

std::vector<std::u16string> FindIndex::Spellings(const FindQuery& query, FindKind kind,
                                                 std::span<const int> rows) const {
    const std::u16string_view all = all_;
    const std::u16string_view spelt = spelt_;
    std::set<std::u16string_view> spellings;
    for (const int row : rows) {
        for (const Text& text : TextsOf(static_cast<std::size_t>(row))) {
            if (text.kind != kind || text.begin + text.length > spelt.size()) {
                continue;
            }
            std::size_t at = text.begin;
            const std::size_t end = text.begin + text.length;
            while (const std::optional<FoundPart> part = query.In(all.substr(at, end - at), kind)) {
                spellings.insert(spelt.substr(at + part->begin, part->length));
                at += part->begin + part->length;
            }
        }
        if (spellings.size() >= kMostSpellings) {
            break;
        }
    }
    std::vector<std::u16string> longestFirst(spellings.begin(), spellings.end());
    std::ranges::stable_sort(longestFirst, [](const std::u16string& a, const std::u16string& b) {
        return a.size() > b.size();
    });
    longestFirst.resize(std::min(longestFirst.size(), kMostSpellings));
    return longestFirst;
}

}  // namespace quorvi
