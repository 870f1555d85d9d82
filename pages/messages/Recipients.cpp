#include "pages/messages/Recipients.h"

#include <algorithm>
#include <array>

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr char kSeparator = ';';
// What separates the numbers of lists elsewhere.
constexpr std::array<std::u8string_view, 7> kForeignSeparators{u8"\r", u8"\n", u8"\t", u8",",
                                                               u8"，", u8"；", u8"、"};

// Blanks and separators at the start of a text.
struct Gap {
    std::size_t length = 0;
    bool foreign = false;  // with a foreign separator among them
};

Gap GapAt(std::u8string_view text) {
    Gap gap;
    for (;;) {
        const std::u8string_view rest = text.substr(gap.length);
        const auto foreign =
            std::find_if(kForeignSeparators.begin(), kForeignSeparators.end(),
                         [&](std::u8string_view mark) { return rest.starts_with(mark); });
        if (foreign != kForeignSeparators.end()) {
            gap.length += foreign->size();
            gap.foreign = true;
        } else if (rest.starts_with(u8' ') || rest.starts_with(char8_t{kSeparator})) {
            ++gap.length;
        } else {
            return gap;
        }
    }
}

std::string_view Compared(std::string_view number) {
    return number.size() > kComparedNumberCharacters
               ? number.substr(number.size() - kComparedNumberCharacters)
               : number;
}

std::string NodeText(std::string_view caption, std::string_view inBrackets) {
    std::string text(caption);
    return text.append(" [").append(inBrackets).append("]");
}

std::string NumberOfPart(std::string_view part) {
    const std::size_t open = part.find('<');
    if (open == std::string_view::npos) {
        return std::string(part);
    }
    part.remove_prefix(open + 1);
    return std::string(part.substr(0, part.find('>')));
}

}  // namespace

std::string RecipientEntry(std::string_view name, std::string_view number) {
    std::string entry("\"");
    return entry.append(name).append("\" <").append(number).append(">;");
}

std::vector<std::string> RecipientNumbers(std::string_view field) {
    std::vector<std::string> numbers;
    for (const std::string_view part : SplitAt(field, kSeparator)) {
        if (part.empty()) {
            break;
        }
        numbers.push_back(NumberOfPart(part));
    }
    return numbers;
}

std::string WithOwnSeparators(std::string_view typed) {
    const std::string utf8 = ToUtf8(typed);
    std::u8string_view rest(reinterpret_cast<const char8_t*>(utf8.data()), utf8.size());
    std::string own;
    char closes = 0;  // what ends the quotes or brackets that are open
    while (!rest.empty()) {
        const Gap gap = closes == 0 ? GapAt(rest) : Gap();
        const std::size_t taken = std::max<std::size_t>(gap.length, 1);
        const char c = static_cast<char>(rest.front());
        if (!gap.foreign) {
            own.append(rest.begin(), rest.begin() + static_cast<std::ptrdiff_t>(taken));
        } else if (!own.empty()) {
            own += kSeparator;
        }
        if (closes == 0) {
            closes = c == '"' ? '"' : c == '<' ? '>' : '\0';
        } else if (c == closes) {
            closes = 0;
        }
        rest.remove_prefix(taken);
    }
    return ToAnsi(own);
}

std::optional<std::string> ResolveRecipient(std::string_view typed, const GroupMembers& members) {
    if (typed.empty() || typed.find(kSeparator) != std::string_view::npos) {
        return std::nullopt;
    }
    for (const auto& [group, people] : members) {
        for (const auto& [name, number] : people) {
            if (Compared(number) == Compared(typed)) {
                return RecipientEntry(name, typed);
            }
        }
    }
    return std::nullopt;
}

std::vector<RecipientGroup> RecipientTree(const GroupNames& names, const GroupMembers& members) {
    std::vector<RecipientGroup> tree;
    for (const auto& [id, people] : members) {
        const auto title = names.find(id);
        RecipientGroup group;
        group.text = NodeText(title == names.end() ? std::string_view() : title->second,
                              std::to_string(people.size()));
        for (const auto& [name, number] : people) {
            group.members.push_back(NodeText(name, number));
        }
        tree.push_back(std::move(group));
    }
    return tree;
}

std::string RecipientOfNode(std::string_view text) {
    const std::string utf8 = ToUtf8(text);
    const std::size_t open = utf8.find('[');
    if (open == std::string::npos) {
        return RecipientEntry(text, {});
    }
    const std::string number = utf8.substr(open + 1);
    return RecipientEntry(ToAnsi(utf8.substr(0, open)),
                          ToAnsi(number.substr(0, number.rfind(']'))));
}

}  // namespace quorvi
