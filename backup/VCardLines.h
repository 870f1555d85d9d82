// The content lines of a vCard file, put together of the lines over which their writer spread them.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace quorvi {

// A content line is no longer: of a longer one the beginning is handed on. Room for a photo of
// three megabytes.
inline constexpr std::size_t kMostVCardLineBytes = 4 * 1024 * 1024;

// Takes a file piece by piece and hands on its content lines, in order. It holds one at a time.
//
// Lines end with CR LF, LF or CR. A line goes on
//   behind a blank or a tab at the beginning of the next one, which versions 3 and 4 take out, and
//     version 2.1 leaves in, but for Base64;
//   in quoted-printable, behind a "=" at its end;
//   in Base64, also where the next one has nothing in front, until an empty line.
class VCardLines {
  public:
    using Take = std::function<void(std::string_view line, bool tooLong)>;
    explicit VCardLines(Take take) : take_(std::move(take)) {}

    void Feed(std::string_view text);
    // The file has ended.
    void End();

    // Whether a blank in front of a continuation belongs to the text, as in version 2.1. Holds from
    // the next line on.
    void KeepBlanks(bool keep) { keepBlanks_ = keep; }

  private:
    // How the value of a content line is encoded, as far as it has come.
    enum class Encoding { none, quotedPrintable, base64 };

    void EndOfPhysicalLine();
    void Append(std::string_view text);
    void HandOver();
    [[nodiscard]] Encoding EncodingOf(std::string_view line) const;

    Take take_;
    bool keepBlanks_ = false;
    bool lastWasReturn_ = false;  // a line feed that follows ends no other line
    std::string physical_;
    bool physicalTooLong_ = false;
    std::string line_;
    bool tooLong_ = false;
    Encoding encoding_ = Encoding::none;
    bool afterEmptyLine_ = false;
};

}  // namespace quorvi
