// How names are put in order.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace quorvi {

// Chinese names by the pinyin of their characters in turn, those that are read alike by the
// characters: 李娜, 李强, 里昂, 林远舟. All else stands among them by its letters, whatever their
// case, accents or width, as its language's dictionaries have it, and numbers by their value. One
// thread at a time.
class NameOrder {
  public:
    NameOrder();
    ~NameOrder();
    NameOrder(const NameOrder&) = delete;
    NameOrder& operator=(const NameOrder&) = delete;

    // What the name is compared by, byte by byte; empty for a name without a character that shows.
    // The name is UTF-8.
    [[nodiscard]] std::string Key(std::string_view name) const;

  private:
    struct Rules;
    std::unique_ptr<Rules> rules_;
};

}  // namespace quorvi
