#include "site/Pages.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>

#include "base/Text.h"
#include "online/CheckSum.h"
#include "site/StorePages.h"
#include "site/Weather.h"

namespace quorvi::site {
namespace {

constexpr int kMovedForNow = 302;
constexpr int kBadRequest = 400;
constexpr int kNotFound = 404;

struct EmbeddedFile {
    std::string_view name;
    std::initializer_list<unsigned char> bytes;
};
const EmbeddedFile kFiles[] = {
#include "site/Files.inc"
};

struct FileKind {
    std::string_view end;
    std::string_view type;
};
constexpr std::array<FileKind, 3> kKinds{{
    {".svg", "image/svg+xml"},
    {".css", "text/css; charset=utf-8"},
    {".xml", "text/xml; charset=utf-8"},
}};

Answer Lost() {
    return {.status = kNotFound, .body = LostPage()};
}

Answer FileNamed(std::string_view name) {
    const auto* const file = std::ranges::find(kFiles, name, &EmbeddedFile::name);
    const auto kind = std::ranges::find_if(
        kKinds, [name](const FileKind& one) { return name.ends_with(one.end); });
    if (file == std::end(kFiles) || kind == kKinds.end()) {
        return Lost();
    }
    return {.type = kind->type, .body = {file->bytes.begin(), file->bytes.end()}};
}

std::optional<int> NumberOf(std::string_view text) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    return read.ec == std::errc() && read.ptr == end && number >= 0 ? std::optional(number)
                                                                    : std::nullopt;
}

Answer ShelfNamed(std::string_view word, std::string_view) {
    const Shelf* shelf = ShelfOfWord(word);
    return shelf == nullptr ? Lost() : Answer{.body = ShelfPage(*shelf)};
}

Answer ItemNumbered(std::string_view text, std::string_view) {
    const auto number = NumberOf(text);
    const StoreApp* app = number ? AppOfNumber(*number) : nullptr;
    return app == nullptr ? Lost() : Answer{.body = ItemPage(*app)};
}

Answer WeatherOf(std::string_view text, std::string_view) {
    const auto number = NumberOf(text);
    auto document = number ? WeatherDocument(*number) : std::nullopt;
    return document ? Answer{.type = kJson, .body = std::move(*document)} : Lost();
}

Answer PictureNamed(std::string_view name, std::string_view) {
    return FileNamed(std::string(name) + ".svg");
}

// Each %XX is the byte that it stands for; '+' is a plus, since keywords are not encoded as forms
// are.
std::string Decoded(std::string_view text) {
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned byte = 0;
        constexpr int kHexadecimal = 16;
        if (text[i] == '%' && i + 2 < text.size() &&
            std::from_chars(text.data() + i + 1, text.data() + i + 3, byte, kHexadecimal).ptr ==
                text.data() + i + 3) {
            decoded += static_cast<char>(byte);
            i += 2;
        } else {
            decoded += text[i];
        }
    }
    return decoded;
}

// A value of the query, decoded; empty where it has none of this name.
std::string ValueOf(std::string_view query, std::string_view name) {
    for (const std::string_view pair : SplitAt(query, '&')) {
        if (pair.starts_with(name) && pair.substr(name.size()).starts_with('=')) {
            return Decoded(pair.substr(name.size() + 1));
        }
    }
    return {};
}

Answer Search(std::string_view between, std::string_view query) {
    if (!between.empty()) {
        return Lost();
    }
    const std::string keywords = ValueOf(query, "keywords");
    if (ValueOf(query, "key") != StoreSearchKey(keywords)) {
        return {.status = kBadRequest, .body = BrokenSearchPage()};
    }
    return {.body = SearchPage(keywords)};
}

Answer ToStore() {
    return {.status = kMovedForNow, .location = kStorePath};
}

Answer Front() {
    return {.body = FirstPage()};
}

Answer Style() {
    return FileNamed("store.css");
}

Answer Versions() {
    return FileNamed("update.xml");
}

// An address behind which nothing may stand.
template <Answer (*answer)()>
Answer Whole(std::string_view between, std::string_view) {
    return between.empty() ? answer() : Lost();
}

struct Address {
    std::string_view begin;
    std::string_view end;
    // Is given what lies between the two.
    Answer (*answer)(std::string_view between, std::string_view query);
};
constexpr std::array<Address, 9> kAddresses{{
    {"/", "", &Whole<&ToStore>},
    {"/update.xml", "", &Whole<&Versions>},
    {"/data/", ".html", &WeatherOf},
    {"/store/", "", &Whole<&Front>},
    {"/store/store.css", "", &Whole<&Style>},
    {"/store/pictures/", ".svg", &PictureNamed},
    {"/store/list/", ".html", &ShelfNamed},
    {"/store/archives/", ".html", &ItemNumbered},
    {"/store/search.php", "", &Search},
}};

}  // namespace

Answer AnswerPage(std::string_view path, std::string_view query) {
    const Address* closest = nullptr;
    for (const Address& address : kAddresses) {
        if (path.starts_with(address.begin) && path.ends_with(address.end) &&
            path.size() >= address.begin.size() + address.end.size() &&
            (closest == nullptr || address.begin.size() > closest->begin.size())) {
            closest = &address;
        }
    }
    if (closest == nullptr) {
        return Lost();
    }
    path.remove_prefix(closest->begin.size());
    path.remove_suffix(closest->end.size());
    return closest->answer(path, query);
}

}  // namespace quorvi::site
