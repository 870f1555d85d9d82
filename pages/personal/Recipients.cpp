#include "pages/personal/Recipients.h"

#include "base/Text.h"

namespace quorvi {
namespace {

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
    for (const std::string_view part : SplitAt(field, ';')) {
        if (part.empty()) {
            break;
        }
        numbers.push_back(NumberOfPart(part));
    }
    return numbers;
}

std::optional<std::string> ResolveRecipient(std::string_view typed, const GroupMembers& members) {
    if (typed.empty()) {
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
