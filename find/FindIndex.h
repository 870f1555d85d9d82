// The texts of a list's rows, made ready to be searched.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "find/FindQuery.h"

namespace quorvi {

// A row has any number of texts. One thread at a time.
class FindIndex {
  public:
    void Clear();
    // Appends a row without a text.
    void AddRow();
    // Appends a text to the last row.
    void AddText(std::u16string_view text, FindKind kind);
    // The same of a text in UTF-8; what is none in it is a text that is not found.
    void AddUtf8(std::string_view text, FindKind kind);

    [[nodiscard]] std::size_t RowCount() const { return rows_.size(); }
    // The rows that have the query in one of their texts, in their order.
    [[nodiscard]] std::vector<int> Find(const FindQuery& query) const;

  private:
    struct Text {
        std::size_t begin;  // in all_
        std::size_t length;
        FindKind kind;
    };

    std::u16string all_;  // the texts, folded
    std::vector<Text> texts_;
    std::vector<std::size_t> rows_;  // for each row the first of its texts
};

}  // namespace quorvi
