// A text file that comes in pieces, as UTF-8 whatever the width of its characters.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace quorvi {

// Takes a file piece by piece and hands on its bytes: those of UTF-16 as UTF-8, of anything else as
// they are, without the mark at the beginning. UTF-16 is known by its mark, or by the zero in the
// first or second byte of a file that begins with an ASCII letter.
class TextPieces {
  public:
    using Take = std::function<void(std::string_view)>;
    explicit TextPieces(Take take) : take_(std::move(take)) {}

    void Feed(std::string_view bytes);
    // The file has ended.
    void End();

  private:
    enum class Form { unknown, bytes, utf16Big, utf16Little };

    void Begin();
    void HandOn(std::string_view bytes);
    void TakeUnit(char16_t unit, std::string& utf8);

    Take take_;
    Form form_ = Form::unknown;
    std::string kept_;            // the beginning, until the form is known; later half a unit
    char16_t highSurrogate_ = 0;  // whose second half has not come yet
};

}  // namespace quorvi
