// HTML for a view, put together of the program's own markup and of texts from the phone.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

// Markup that stands in the program's sources. It is made of a literal and nothing else, so that no
// text from elsewhere is taken for it.
class OwnMarkup {
  public:
    // NOLINTNEXTLINE(google-explicit-constructor): a literal is markup of our own as it stands.
    consteval OwnMarkup(const char8_t* literal) : text_(literal) {}

    [[nodiscard]] constexpr std::u8string_view Text() const { return text_; }

  private:
    std::u8string_view text_;
};

// A fragment remembers which of its bytes came from the phone. Its HTML holds them as they came; a
// view shows them in elements of their own, where no markup in them does anything
// (ui/html/HtmlCtrl.h tells how). All texts are ANSI.
class HtmlFragment {
  public:
    HtmlFragment() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): the same as Own.
    HtmlFragment(OwnMarkup markup) { Own(markup); }

    void Reserve(std::size_t bytes) { html_.reserve(bytes); }

    // The program's own markup, as it stands.
    HtmlFragment& Own(OwnMarkup markup);
    // A text that the program puts in, escaped: it shows as it is, between tags as well as in an
    // attribute in quotes.
    HtmlFragment& Text(std::string_view text);
    // A text from the phone, unescaped. Stands between tags, never inside of one.
    HtmlFragment& Foreign(std::string_view text);
    HtmlFragment& Append(const HtmlFragment& fragment);

    // All of it, in order.
    [[nodiscard]] const std::string& Html() const { return html_; }

    // A part of the HTML that came from the phone: from which byte to which.
    struct Range {
        std::size_t begin;
        std::size_t end;
    };
    [[nodiscard]] const std::vector<Range>& ForeignParts() const { return foreign_; }

  private:
    std::string html_;
    std::vector<Range> foreign_;  // in order; none overlaps another
};

}  // namespace quorvi
