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

// The name of the first member of this number, or null.
const std::string* FindName(std::string_view number, const GroupMembers& members) {
    for (const auto& [group, people] : members) {
        for (const auto& [name, numberOfName] : people) {
            if (Compared(numberOfName) == Compared(number)) {
                return &name;
            }
        }
    }
    return nullptr;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string NodeText(std::string_view caption, std::string_view inBrackets) {
    std::string text(caption);
    return text.append(" [").append(inBrackets).append("]");
}

// A name as it stands in its entry, without the quotes and blanks around it.
std::string_view WithoutQuotes(std::string_view name) {
    name = Trim(name);
    if (name.starts_with('"')) {
        name.remove_prefix(1);
    }
    if (name.ends_with('"')) {
        name.remove_suffix(1);
    }
    return Trim(name);
}

Recipient ReadPart(std::string_view part) {
    Recipient recipient;
    const std::size_t open = part.find('<');
    if (open == std::string_view::npos) {
        recipient.number = part;
    } else {
        recipient.name = WithoutQuotes(part.substr(0, open));
        const std::string_view behind = part.substr(open + 1);
        recipient.number = behind.substr(0, behind.find('>'));
    }
    recipient.isNumber = IsPhoneNumber(recipient.number);
    return recipient;
}

}  // namespace

std::string RecipientEntry(std::string_view name, std::string_view number) {
    std::string entry("\"");
    return entry.append(name).append("\" <").append(number).append(">;");
}

bool IsPhoneNumber(std::string_view text) {
    text = Trim(text);
    if (text.starts_with('+')) {
        text.remove_prefix(1);
    }
    const auto digits = static_cast<std::size_t>(std::ranges::count_if(text, IsDigit));
    return digits >= kLeastDigits && digits <= kMostDigits &&
           text.find_first_not_of("0123456789 -.()") == std::string_view::npos;
}

RecipientList ReadRecipients(std::string_view field) {
    RecipientList list;
    for (const std::string_view part : SplitAt(field, kSeparator)) {
        if (part.empty()) {
            list.cut = field.substr(static_cast<std::size_t>(part.data() - field.data()))
                           .find_first_not_of("; ") != std::string_view::npos;
            break;
        }
        list.recipients.push_back(ReadPart(part));
    }
    return list;
}

std::vector<std::string> RecipientNumbers(std::string_view field) {
    std::vector<std::string> numbers;
    for (Recipient& recipient : ReadRecipients(field).recipients) {
        numbers.push_back(std::move(recipient.number));
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
    const std::string* name = FindName(typed, members);
    return name == nullptr ? std::nullopt : std::optional(RecipientEntry(*name, typed));
}

std::string_view NameOfNumber(std::string_view number, const GroupMembers& members) {
    const std::string* name = FindName(number, members);
    return name == nullptr ? std::string_view() : *name;
}

std::vector<RecipientGroup> RecipientTree(const GroupNames& names, const GroupMembers& members) {
    std::vector<RecipientGroup> tree;
    for (const auto& [id, people] : members) {
        const auto title = names.find(id);
        RecipientGroup group;
        if (title != names.end()) {
            group.title = title->second;
        }
        group.text = NodeText(group.title, std::to_string(people.size()));
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
