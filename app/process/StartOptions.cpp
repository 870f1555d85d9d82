#include "app/process/StartOptions.h"

#include "base/Text.h"

namespace quorvi {

std::string CommandText(const std::vector<std::string>& arguments) {
    std::string text;
    for (const std::string& argument : arguments) {
        if (!text.empty()) {
            text += ' ';
        }
        text += argument;
    }
    return text;
}

bool StartsHidden(std::string_view commandText) {
    const std::size_t slash = commandText.rfind('/');
    return slash != std::string_view::npos && EqualsNoCase(commandText.substr(slash + 1), "hide");
}

}  // namespace quorvi
