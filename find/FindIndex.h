// The texts of a list's rows, made ready to be searched.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "find/FindQuery.h"

namespace quorvi {

// A row has any number of texts. One thread at a time.
class FindIndex {
  public:
    void Clear();
    // From the next text on the index knows how each is spelt, so that it can tell of Spellings.
    void KeepSpellings() { keepsSpellings_ = true; }
    // Appends a row without a text.
    void AddRow();
    // Appends a text to the last row.
    void AddText(std::u16string_view text, FindKind kind);
    // The same of a text in UTF-8; what is none in it is a text that is not found.
    void AddUtf8(std::string_view text, FindKind kind);

    [[nodiscard]] std::size_t RowCount() const { return rows_.size(); }
    // The rows that have the query in one of their texts, in their order.
    [[nodiscard]] std::vector<int> Find(const FindQuery& query) const;
    // What these rows' texts of a kind have of the query, as it is spelt there, each spelling once
    // and the longest first: wherever a text of that kind holds one of them, it has the query
    // there. At most kMostSpellings, those of the first rows.
    [[nodiscard]] std::vector<std::u16string> Spellings(const FindQuery& query, FindKind kind,
                                                        std::span<const int> rows) const;

    static constexpr std::size_t kMostSpellings = 500;

  private:
    struct Text {
        std::size_t begin;  // in all_
        std::size_t length;
        FindKind kind;
    };

    [[nodiscard]] std::span<const Text> TextsOf(std::size_t row) const;

    std::u16string all_;    // the texts, folded
    std::u16string spelt_;  // the texts as they are, unit for unit; empty unless they are kept
    std::vector<Text> texts_;
    std::vector<std::size_t> rows_;  // for each row the first of its texts
    bool keepsSpellings_ = false;
};

}  // namespace quorvi
