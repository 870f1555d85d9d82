#include "base/HtmlFragment.h"

#include "base/Text.h"

namespace quorvi {
namespace {

// How a character is written so that it is no markup; nothing for one that is none.
std::string_view Escape(char c) {
    switch (c) {
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '&':
            return "&amp;";
        case '\'':
            return "&#39;";
        case '"':
            return "&quot;";
        default:
            return {};
    }
}

}  // namespace

HtmlFragment& HtmlFragment::Own(OwnMarkup markup) {
    html_ += Ansi(markup.Text());
    return *this;
}

// None of the escaped characters is a byte of a longer one in the code pages.
HtmlFragment& HtmlFragment::Text(std::string_view text) {
    for (const char c : text) {
        const std::string_view escape = Escape(c);
        if (escape.empty()) {
            html_ += c;
        } else {
            html_ += escape;
        }
    }
    return *this;
}

HtmlFragment& HtmlFragment::Foreign(std::string_view text) {
    const std::size_t begin = html_.size();
    html_ += text;
    foreign_.push_back({begin, html_.size()});
    return *this;
}

HtmlFragment& HtmlFragment::Append(const HtmlFragment& fragment) {
    const std::size_t begin = html_.size();
    html_ += fragment.html_;
    for (const Range& part : fragment.foreign_) {
        foreign_.push_back({begin + part.begin, begin + part.end});
    }
    return *this;
}

}  // namespace quorvi
