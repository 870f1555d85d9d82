// What a line of the suite's log may hold.
//
// The log goes to whoever helps a user. It tells how the suite fares, and nothing of what is on the
// phone: no name, number, text or path, and no serial whole. This is not left to the care of
// whoever writes a line: a field takes a LogWord, which the source itself spells, or a LogValue,
// which has no maker that keeps a text as it came. What is none of the two does not compile.
//
//   LogEvent("link.search", {{"result", WordOf(found)}, {"ms", LogValue::Since(start)}});
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <system_error>

namespace quorvi {

// Characters of a word and of a value.
inline constexpr std::size_t kMostLogValue = 40;

// A word that stands in the source: small letters, digits, '.', '-' and '_'.
class LogWord {
  public:
    template <std::size_t size>
    consteval LogWord(const char (&literal)[size]) : text_(literal, size - 1) {
        if (text_.empty() || text_.size() > kMostLogValue) {
            throw "a word has 1 to 40 characters";
        }
        for (const char c : text_) {
            if (!IsOfWord(c)) {
                throw "a word is of small letters, digits, '.', '-' and '_'";
            }
        }
    }

    [[nodiscard]] constexpr std::string_view Text() const { return text_; }

  private:
    static constexpr bool IsOfWord(char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '_';
    }

    std::string_view text_;
};

// What a field tells. All makers but the first keep too little of what they are given for it to be
// told from others: what a maker does not know becomes "unknown".
class LogValue {
  public:
    // Not explicit: a word is safe wherever it comes from.
    constexpr LogValue(LogWord word) { Append(word.Text()); }
    template <std::size_t size>
    consteval LogValue(const char (&literal)[size]) : LogValue(LogWord(literal)) {}

    // "no" or "yes".
    [[nodiscard]] static LogValue Flag(bool is);
    // A count, a code, a status. Of more than eight digits only that they are so many: the shortest
    // number of a phone that is told to others has more.
    [[nodiscard]] static LogValue Count(std::int64_t count);
    // Bytes as whole kilobytes, rounded up.
    [[nodiscard]] static LogValue Kilobytes(std::uint64_t bytes);
    // The time from `start` until now, in milliseconds.
    [[nodiscard]] static LogValue Since(std::chrono::steady_clock::time_point start);
    // A version: digits, a dot, digits, and what letters, digits and ".+-~_" follow.
    [[nodiscard]] static LogValue Version(std::string_view version);
    // A phone's serial, of which two characters at each end stay: "HT..42". Of one that is shorter
    // than eight, none.
    [[nodiscard]] static LogValue Serial(std::string_view serial);
    // The number of a system's error: "errno-28"; "none" for none.
    [[nodiscard]] static LogValue Error(std::error_code error);

    [[nodiscard]] constexpr std::string_view Text() const { return {text_.data(), length_}; }

  private:
    constexpr LogValue() = default;
    // What does not fit is dropped.
    constexpr void Append(std::string_view text) {
        for (const char c : text) {
            if (length_ < text_.size()) {
                text_[length_++] = c;
            }
        }
    }

    std::array<char, kMostLogValue> text_{};
    std::size_t length_ = 0;
};

struct LogField {
    LogWord name;
    LogValue value;
};

// Characters of a line, its line feed included; a field that has no room any more is left out.
inline constexpr std::size_t kMostLogLine = 400;

// Who writes a line.
struct LogWriter {
    LogWord program;
    int process = 0;
};

// "2026-11-22T09:30:12.345Z quorvi[4711] link.search result=found ms=812\n".
[[nodiscard]] std::string FormatLogLine(std::chrono::system_clock::time_point time,
                                        const LogWriter& writer, LogWord event,
                                        std::initializer_list<LogField> fields);

// Whether a line, without its line feed, has the form above: who reads a log that something else
// may have written into passes over all other lines.
[[nodiscard]] bool IsLogLine(std::string_view line);

}  // namespace quorvi
