// The heads of the engine's one question and its answer: text to ask by, and what is read of what
// comes back. Nothing here knows a socket.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvi {

// What is asked for.
struct HttpRequest {
    std::string host;
    std::string object;
    std::string cookie{};         // empty: none
    std::string referer{};        // empty: none
    std::int64_t rangeStart = 0;  // bytes that are there already
    std::int64_t rangeEnd = 0;    // not above rangeStart: to the end
};

// The request's text. Three of its lines differ from what others send, and are kept on purpose, as
// sites have always got them: no blank stands behind most colons, the host has no port, and a
// cookie is preceded by "Set Cookie:0" (HttpHead.ARequestHasTheseBytes,
// HttpHead.ACookieFollowsAZero).
[[nodiscard]] std::string BuildRequest(const HttpRequest& request);

// The head of an answer, taken byte by byte, so that not one byte of the body is lost.
class ResponseHead {
  public:
    static constexpr std::size_t kMostBytes = 1024;

    enum class Next {
        more,      // wants another byte
        whole,     // ends here: by its blank line, or because it has kMostBytes; what follows a
                   // longer one is taken as the body (HttpHead.EndsAfter1024Bytes)
        rejected,  // is none: not one of its first four bytes is that of "HTTP" in its place. One
                   // that is suffices, kept on purpose (HttpHead.OneLetterOfHttpIsEnough)
    };
    Next Take(char byte);
    // Says that no more will come: from now on it is valid, whatever has come.
    void End() { valid_ = true; }

    [[nodiscard]] bool IsValid() const { return valid_; }
    [[nodiscard]] const std::string& Bytes() const { return bytes_; }

    // -1 of a head that is not valid; otherwise the number that the bytes 9 to 11 make.
    [[nodiscard]] int GetStatusCode() const;

    // What follows the first occurrence of `name` anywhere in the head: from the second byte behind
    // it to the end of its line. Nothing of a head that is not valid, or without the name. Kept on
    // purpose: a name in other letters is not found, one inside another line is, and a value
    // without its blank loses a byte (HttpHead.ANameInLowerCaseIsNotFound,
    // HttpHead.TheFirstOccurrenceOfANameCounts, HttpHead.AValueWithoutItsBlankLosesAByte).
    [[nodiscard]] std::optional<std::string_view> GetHeaderValue(std::string_view name) const;

  private:
    std::string bytes_;
    bool valid_ = false;
};

// The number at the start of a header's value as atoi reads it, in 64 bits: 0 where there is none,
// and no further from 0 than kMostLength.
inline constexpr std::int64_t kMostLength = std::int64_t{1} << 53;
[[nodiscard]] std::int64_t ToLength(std::string_view value);

}  // namespace quorvi
