#include "find/FindQuery.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>

#include "find/Pinyin.h"

namespace quorvi {
namespace {

constexpr std::u16string_view kBlanks = u" \t\n\u3000";
constexpr std::u16string_view kBetweenDigits = u" +-().\u00A0";
constexpr std::u16string_view kBetweenLetters = u" '.-_\u2019\u00B7\u00A0";

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

bool IsLetter(char16_t unit) {
    return unit >= u'a' && unit <= u'z';
}

bool IsWordUnit(char16_t unit) {
    return IsLetter(unit) || IsDigit(unit);
}

bool Has(std::u16string_view set, char16_t unit) {
    return set.find(unit) != std::u16string_view::npos;
}

// Full-width forms lie this far behind the ASCII that they show.
constexpr char16_t kFullWidthFirst = 0xFF01;
constexpr char16_t kFullWidthLast = 0xFF5E;
constexpr char16_t kFullWidthOffset = 0xFEE0;
constexpr char16_t kFullWidthBlank = 0x3000;

char32_t FoldedUnit(char32_t character) {
    if (character >= kFullWidthFirst && character <= kFullWidthLast) {
        character -= kFullWidthOffset;
    } else if (character == kFullWidthBlank) {
        return U' ';
    }
    if (character < 0x80) {
        return character >= U'A' && character <= U'Z' ? character + (U'a' - U'A') : character;
    }
    return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(character), U_FOLD_CASE_DEFAULT));
}

std::u16string Without(std::u16string_view text, std::u16string_view set) {
    std::u16string left(text);
    std::erase_if(left, [set](char16_t unit) { return Has(set, unit); });
    return left;
}

// The letters of an initial: one, or zh, ch, sh.
std::size_t InitialLength(std::string_view reading) {
    constexpr std::string_view kBeforeH = "zcs";
    return reading.size() > 1 && reading[1] == 'h' &&
                   kBeforeH.find(reading[0]) != std::string_view::npos
               ? 2
               : 1;
}

bool StartsWith(std::u16string_view letters, std::string_view start) {
    return letters.size() >= start.size() &&
           std::equal(start.begin(), start.end(), letters.begin(),
                      [](char a, char16_t b) { return static_cast<char16_t>(a) == b; });
}

// Where in the typed letters the next character may go on: bit i stands for the i-th letter.
using Places = std::uint64_t;
static_assert(FindQuery::kLongest < 64);

// What one character does to that: it spells some of the letters from `at` on.
struct Spelling {
    std::u16string_view letters;
    Places next = 0;
    bool isEnd = false;  // the letters end within it

    void Read(std::size_t at, std::string_view reading) {
        const std::u16string_view rest = letters.substr(at);
        if (rest.size() <= reading.size()) {
            isEnd = isEnd || StartsWith(rest, reading.substr(0, rest.size()));
        } else if (StartsWith(rest, reading)) {
            next |= Places{1} << (at + reading.size());
        }
        for (std::size_t length = 1; length <= InitialLength(reading); ++length) {
            if (rest.size() > length && StartsWith(rest, reading.substr(0, length))) {
                next |= Places{1} << (at + length);
            }
        }
    }
    // The character itself.
    void Stand(std::size_t at, std::u16string_view character) {
        const std::u16string_view rest = letters.substr(at);
        if (rest.starts_with(character)) {
            isEnd = isEnd || rest.size() == character.size();
            next |= Places{1} << (at + character.size());
        }
    }
};

void ReadAll(Spelling& spelling, std::size_t at, std::string_view readings) {
    while (!readings.empty()) {
        const std::size_t end = std::min(readings.find(' '), readings.size());
        spelling.Read(at, readings.substr(0, end));
        readings.remove_prefix(std::min(end + 1, readings.size()));
    }
}

// The character or word that begins at `at`.
struct NamePart {
    std::size_t end = 0;
    std::string_view readings;  // of a character
    std::string word;           // of a word
    bool isSkipped = false;     // what may stand between two of them
};

NamePart PartAt(std::u16string_view text, std::size_t at) {
    NamePart part;
    if (Has(kBetweenLetters, text[at])) {
        part.end = at + 1;
        part.isSkipped = true;
    } else if (IsWordUnit(text[at])) {
        part.end = at;
        while (part.end < text.size() && IsWordUnit(text[part.end])) {
            part.word.push_back(static_cast<char>(text[part.end++]));
        }
    } else {
        std::size_t end = at;
        UChar32 character = 0;
        U16_NEXT(text.data(), end, text.size(), character);
        part.end = end;
        part.readings = ReadingsOf(static_cast<char32_t>(character));
    }
    return part;
}

}  // namespace

std::u16string Folded(std::u16string_view text) {
    std::u16string folded;
    folded.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        UChar32 character = 0;
        U16_NEXT(text.data(), at, text.size(), character);
        const auto small = FoldedUnit(static_cast<char32_t>(character));
        if (at - begin == 1 && small <= 0xFFFF) {
            folded.push_back(static_cast<char16_t>(small));
        } else if (at - begin == 2 && small > 0xFFFF) {
            folded.push_back(U16_LEAD(small));
            folded.push_back(U16_TRAIL(small));
        } else {
            folded.append(text.substr(begin, at - begin));
        }
    }
    return folded;
}

FindQuery::FindQuery(std::u16string_view typed) : folded_(Folded(typed)) {
    folded_.erase(0, std::min(folded_.find_first_not_of(kBlanks), folded_.size()));
    folded_.resize(std::min(folded_.size(), kLongest));
    folded_.erase(folded_.find_last_not_of(kBlanks) + 1);
    digits_ = Without(folded_, kBetweenDigits);
    if (!std::ranges::all_of(digits_, IsDigit)) {
        digits_.clear();
    }
    letters_ = Without(folded_, kBetweenLetters);
    std::ranges::replace(letters_, u'\u00FC', u'v');
    if (std::ranges::none_of(letters_, IsLetter)) {
        letters_.clear();
    }
}

std::optional<FoundPart> FindQuery::In(std::u16string_view folded, FindKind kind) const {
    if (IsEmpty()) {
        return std::nullopt;
    }
    if (const std::size_t at = folded.find(folded_); at != std::u16string_view::npos) {
        return FoundPart{at, folded_.size()};
    }
    if (!digits_.empty() && kind != FindKind::text) {
        return DigitsIn(folded);
    }
    if (!letters_.empty() && kind == FindKind::name) {
        return PinyinIn(folded);
    }
    return std::nullopt;
}

std::optional<FoundPart> FindQuery::DigitsIn(std::u16string_view text) const {
    for (std::size_t begin = 0; begin < text.size(); ++begin) {
        if (text[begin] != digits_.front()) {
            continue;
        }
        std::size_t met = 0;
        for (std::size_t at = begin; at < text.size(); ++at) {
            if (text[at] == digits_[met]) {
                if (++met == digits_.size()) {
                    return FoundPart{begin, at + 1 - begin};
                }
            } else if (!Has(kBetweenDigits, text[at])) {
                break;
            }
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> FindQuery::SpeltFrom(std::u16string_view text, std::size_t begin) const {
    Places reached = 1;
    for (std::size_t at = begin; at < text.size() && reached != 0;) {
        const NamePart part = PartAt(text, at);
        if (!part.isSkipped) {
            Spelling spelling{letters_};
            for (std::size_t letter = 0; letter < letters_.size(); ++letter) {
                if ((reached >> letter & 1) == 0) {
                    continue;
                }
                if (part.word.empty()) {
                    spelling.Stand(letter, text.substr(at, part.end - at));
                    ReadAll(spelling, letter, part.readings);
                } else {
                    spelling.Read(letter, part.word);
                }
            }
            if (spelling.isEnd) {
                return part.end;
            }
            reached = spelling.next;
        }
        at = part.end;
    }
    return std::nullopt;
}

std::optional<FoundPart> FindQuery::PinyinIn(std::u16string_view text) const {
    for (std::size_t begin = 0; begin < text.size();) {
        const NamePart part = PartAt(text, begin);
        if (!part.isSkipped) {
            if (const std::optional<std::size_t> end = SpeltFrom(text, begin)) {
                return FoundPart{begin, *end - begin};
            }
        }
        begin = part.end;
    }
    return std::nullopt;
}

}  // namespace quorvi
