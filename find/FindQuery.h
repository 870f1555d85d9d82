// What a user looks for in a list, and where a text has it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

// How a text is searched beside letter by letter.
enum class FindKind : std::uint8_t {
    name,    // by its pinyin and its initials, and as a number
    number,  // by its digits, whatever stands between them
    text,    // in no other way
};

// A part of a text, in the units of its UTF-16.
struct FoundPart {
    std::size_t begin = 0;
    std::size_t length = 0;

    friend bool operator==(const FoundPart&, const FoundPart&) = default;
};

// A text as it is compared: small letters, and full-width letters, digits and signs as ordinary
// ones. As long as the text, unit by unit. Any thread.
[[nodiscard]] std::u16string Folded(std::u16string_view text);

// What was typed, worked out once. A value; any thread.
class FindQuery {
  public:
    // Looks for nothing, and finds it nowhere.
    FindQuery() = default;
    // Blanks at the ends don't count. Of what was typed the first kLongest units do.
    explicit FindQuery(std::u16string_view typed);

    [[nodiscard]] bool IsEmpty() const { return folded_.empty(); }

    // Where a text, which was Folded, has it first; none where it has not.
    //
    // * Any text: any part of it, letter by letter.
    // * Numbers and names: the digits, where nothing but digits was typed. Blanks and the signs
    //   +-(). are skipped on both sides: "138-12" is found in "+86 138 1234 5678".
    // * Names: pinyin, where letters were typed. Blanks, apostrophes and what joins names are
    // skipped. Each character in turn, from any on, is spelt by
    //   one of its readings or by its initial (z or zh), the last one by any beginning of a
    //   reading; a word in letters counts like one character. Characters may stand for themselves:
    //   林远舟 is found by "lyz", "linyuan", "yuanzh" and "林yz".
    [[nodiscard]] std::optional<FoundPart> In(std::u16string_view folded, FindKind kind) const;

    static constexpr std::size_t kLongest = 63;

  private:
    [[nodiscard]] std::optional<FoundPart> DigitsIn(std::u16string_view text) const;
    [[nodiscard]] std::optional<FoundPart> PinyinIn(std::u16string_view text) const;
    // The end of what is spelt from `begin` on.
    [[nodiscard]] std::optional<std::size_t> SpeltFrom(std::u16string_view text,
                                                       std::size_t begin) const;

    std::u16string folded_;
    std::u16string digits_;   // empty where something else was typed
    std::u16string letters_;  // without blanks and apostrophes; empty where no letter was typed
};

}  // namespace quorvi
