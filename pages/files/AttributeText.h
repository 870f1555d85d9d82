// What the column 属性 of the file list says of an entry.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace quorvi {

// A text that lies in a longer one, which it shares with others. ANSI.
class SharedText {
  public:
    SharedText() = default;
    SharedText(std::shared_ptr<const std::string> all, std::size_t start, std::size_t length)
        : all_(std::move(all)), start_(start), length_(length) {}

    [[nodiscard]] std::string_view View() const {
        return all_ ? std::string_view(*all_).substr(start_, length_) : std::string_view();
    }

  private:
    std::shared_ptr<const std::string> all_;
    std::size_t start_ = 0;
    std::size_t length_ = 0;
};

// The one text that lives through the reading of a reply. A readable entry sets it to 可读; a
// writable one then appends 可写, a hidden one 隐藏. Kept on purpose: an entry that can't be read
// does not reset it, and shows what the entry before it showed, with its own words appended (test
// AttributeText.AnEntryThatIsNotReadableCarriesOverWhatTheOneBeforeShowed).
//
// The texts of all entries lie in one string, so that a long run of entries that carry over takes
// as much memory as any other.
class AttributeText {
  public:
    // Bytes of the longest text: one that has carried over so much takes no more words.
    static constexpr std::size_t kLongest = 1024;

    // The text of the next entry.
    [[nodiscard]] SharedText Next(bool readable, bool writable, bool hidden);

  private:
    void Append(std::u8string_view word);

    std::shared_ptr<std::string> all_ = std::make_shared<std::string>();
    std::size_t start_ = 0;  // of the text as it is now; it ends where the string does
};

}  // namespace quorvi
