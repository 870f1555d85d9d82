#include "backup/BookmarkFile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "backup/Charset.h"
#include "backup/ContactCard.h"
#include "backup/MarkupText.h"
#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::string_view kHead =
    "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n"
    "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=UTF-8\">\n"
    "<TITLE>Bookmarks</TITLE>\n"
    "<H1>Bookmarks</H1>\n"
    "<DL><p>\n";
constexpr std::string_view kFoot = "</DL><p>\n";

constexpr std::array<std::string_view, 3> kWebSchemes{"http", "https", "ftp"};

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// A tag: from behind "<" to its ">", which may stand in quotes before. No value has a "<": where
// one comes, quotes were never closed, and the tag ends at its first ">". So no byte is looked at
// more than twice.
std::string_view TagAt(std::string_view html) {
    char quote = '\0';
    std::size_t end = 0;
    for (; end < html.size() && html[end] != '<'; ++end) {
        const char c = html[end];
        if (quote != '\0') {
            quote = c == quote ? '\0' : quote;
        } else if (c == '>') {
            return html.substr(0, end);
        } else if (c == '"' || c == '\'') {
            quote = c;
        }
    }
    const std::string_view open = html.substr(0, end);
    return open.substr(0, open.find('>'));
}

// The name at the beginning of a tag or of an attribute.
std::string_view TakeWord(std::string_view& tag) {
    std::size_t end = 0;
    while (end < tag.size() && !IsBlank(tag[end]) && tag[end] != '=') {
        ++end;
    }
    const std::string_view word = tag.substr(0, end);
    tag.remove_prefix(end);
    return word;
}

void SkipBlanks(std::string_view& text) {
    while (!text.empty() && IsBlank(text.front())) {
        text.remove_prefix(1);
    }
}

std::string_view TakeValue(std::string_view& tag) {
    const char quote = tag.empty() ? '\0' : tag.front();
    std::size_t end = 0;
    if (quote == '"' || quote == '\'') {
        tag.remove_prefix(1);
        end = std::min(tag.find(quote), tag.size());
    } else {
        while (end < tag.size() && !IsBlank(tag[end])) {
            ++end;
        }
    }
    const std::string_view value = tag.substr(0, end);
    tag.remove_prefix(std::min(end + 1, tag.size()));
    return value;
}

// The attributes of a tag that a bookmark needs.
struct Link {
    std::optional<std::string_view> href{};
    std::string_view visits{};
};

Link ReadLink(std::string_view attributes) {
    Link link;
    while (SkipBlanks(attributes), !attributes.empty()) {
        const std::string_view name = TakeWord(attributes);
        SkipBlanks(attributes);
        if (!attributes.starts_with('=')) {
            if (name.empty()) {
                break;
            }
            continue;
        }
        attributes.remove_prefix(1);
        SkipBlanks(attributes);
        const std::string_view value = TakeValue(attributes);
        if (EqualsNoCase(name, "href")) {
            link.href = value;
        } else if (EqualsNoCase(name, "visits")) {
            link.visits = value;
        }
    }
    return link;
}

// Where the element ends that began in front of `html`.
std::size_t EndOfTitle(std::string_view html) {
    for (std::size_t i = html.find('<'); i != std::string_view::npos; i = html.find('<', i + 1)) {
        const std::string name = ToLower(html.substr(i + 1, 3));
        if (name.starts_with("/a") || name.starts_with("dt") || name.starts_with("/dl") ||
            name.starts_with("a ")) {
            return i;
        }
    }
    return html.size();
}

std::string TextOf(std::string_view markup) {
    return CardText(FromMarkupText(GuessedToUtf8(std::string(markup))));
}

// The text of some HTML, tags left out, blanks in a row as one.
std::string TitleOf(std::string_view html) {
    std::string text;
    while (!html.empty()) {
        const std::size_t tag = std::min(html.find('<'), html.size());
        text += html.substr(0, tag);
        html.remove_prefix(tag);
        if (!html.empty()) {
            const std::size_t end = html.find('>');
            html.remove_prefix(end == std::string_view::npos ? html.size() : end + 1);
        }
    }
    std::string title;
    for (const char c : text) {
        if (!IsBlank(c)) {
            title += c;
        } else if (!title.empty() && title.back() != ' ') {
            title += ' ';
        }
    }
    return TextOf(TrimRight(title));
}

std::uint32_t Number(std::string_view digits) {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() && end == digits.data() + digits.size() ? number : 0;
}

void AddLink(const Link& link, std::string_view title, BookmarkFile& file) {
    if (title.size() > kMostBookmarkBytes || link.href->size() > kMostBookmarkBytes) {
        constexpr std::size_t kShownBytes = 200;
        file.tooLong.push_back(TitleOf(title.substr(0, kShownBytes)));
        return;
    }
    file.bookmarks.push_back({TitleOf(title), TextOf(Trim(*link.href)), Number(link.visits)});
}

// Readers make one blank of several, and none of those at the ends: these are written by number.
void AppendWithBlanks(std::string_view text, std::string& html) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool inside = i > 0 && i + 1 < text.size() && !IsBlank(text[i - 1]);
        if (IsBlank(text[i]) && (text[i] != ' ' || !inside)) {
            html += "&#" + std::to_string(static_cast<int>(text[i])) + ';';
        } else {
            AppendMarkupText(text.substr(i, 1), html);
        }
    }
}

}  // namespace

std::string WriteBookmarkFile(std::span<const FileBookmark> bookmarks) {
    std::string html(kHead);
    for (const FileBookmark& bookmark : bookmarks) {
        html += "    <DT><A HREF=\"";
        AppendWithBlanks(bookmark.url, html);
        html += '"';
        if (bookmark.visits != 0) {
            html += " VISITS=\"" + std::to_string(bookmark.visits) + '"';
        }
        html += '>';
        AppendWithBlanks(bookmark.title, html);
        html += "</A>\n";
    }
    return html += kFoot;
}

bool IsWebAddress(std::string_view url) {
    const std::size_t colon = url.find(':');
    return colon != std::string_view::npos &&
           std::ranges::find(kWebSchemes, ToLower(url.substr(0, colon))) != kWebSchemes.end() &&
           url.substr(colon).size() > std::string_view("://").size();
}

BookmarkFile ReadBookmarkFile(std::string_view file) {
    BookmarkFile read;
    for (;;) {
        const std::size_t begin = file.find('<');
        if (begin == std::string_view::npos) {
            return read;
        }
        file.remove_prefix(begin + 1);
        if (file.empty() || (file.front() != 'a' && file.front() != 'A')) {
            continue;
        }
        const std::string_view tag = TagAt(file);
        std::string_view attributes = tag;
        if (!EqualsNoCase(TakeWord(attributes), "a")) {
            continue;
        }
        file.remove_prefix(std::min(tag.size() + 1, file.size()));
        const Link link = ReadLink(attributes);
        const std::size_t end = EndOfTitle(file);
        if (link.href && read.bookmarks.size() + read.tooLong.size() == kMostBookmarks) {
            read.tooMany = true;
            return read;
        }
        if (link.href) {
            AddLink(link, file.substr(0, end), read);
        }
        file.remove_prefix(end);
    }
}

}  // namespace quorvi
