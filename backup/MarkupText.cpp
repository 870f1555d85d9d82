#include "backup/MarkupText.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

#include "backup/Charset.h"
#include "base/HtmlFragment.h"
#include "base/Text.h"

namespace quorvi {
namespace {

struct Entity {
    std::string_view name;
    std::string_view text;
};
constexpr std::array<Entity, 6> kEntities{{
    {"amp", "&"},
    {"lt", "<"},
    {"gt", ">"},
    {"quot", "\""},
    {"apos", "'"},
    {"nbsp", "\u00A0"},
}};

// Longer than any entity that is known.
constexpr std::size_t kMostEntityBytes = 12;

constexpr std::uint32_t kLastCharacter = 0x10FFFF;

std::optional<std::string> NumberedCharacter(std::string_view number) {
    const bool hex = number.starts_with('x') || number.starts_with('X');
    number.remove_prefix(hex ? 1 : 0);
    std::uint32_t character = 0;
    const auto [end, error] =
        std::from_chars(number.data(), number.data() + number.size(), character, hex ? 16 : 10);
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    if (error != std::errc() || end != number.data() + number.size() || character == 0 ||
        character > kLastCharacter || surrogate) {
        return std::nullopt;
    }
    std::string text;
    AppendUtf8(character, text);
    return text;
}

// What stands between "&" and ";".
std::optional<std::string> TextOfEntity(std::string_view name) {
    if (name.starts_with('#')) {
        return NumberedCharacter(name.substr(1));
    }
    for (const Entity& entity : kEntities) {
        if (EqualsNoCase(entity.name, name)) {
            return std::string(entity.text);
        }
    }
    return std::nullopt;
}

}  // namespace

void AppendMarkupText(std::string_view utf8, std::string& html) {
    html += HtmlFragment().Text(utf8).Html();
}

std::string FromMarkupText(std::string_view html) {
    std::string text;
    text.reserve(html.size());
    while (!html.empty()) {
        const std::size_t begin = html.find('&');
        text += html.substr(0, begin);
        if (begin == std::string_view::npos) {
            break;
        }
        html.remove_prefix(begin);
        const std::size_t end = html.substr(0, kMostEntityBytes).find(';');
        const auto entity =
            end == std::string_view::npos ? std::nullopt : TextOfEntity(html.substr(1, end - 1));
        text += entity ? *entity : "&";
        html.remove_prefix(entity ? end + 1 : 1);
    }
    return text;
}

}  // namespace quorvi
