// The phone that a command names by --serial, or leaves to adb.
#pragma once

#include <optional>
#include <string>

#include "cli/Command.h"
#include "cli/Output.h"

namespace quorvi::cli {

// Complains, and gives notFound, when adb lists its phones and the one of this serial, ANSI, is not
// among them. Done as well where adb cannot list them: whatever is done next then tells why.
[[nodiscard]] Status FindSerial(const std::string& serial, Output& output);

// The same for a command that adb itself would have wait, without a word, until a phone comes:
// complains, and gives noLink, when adb lists none at all.
[[nodiscard]] Status FindPhone(const std::optional<std::string>& serial, Output& output);

// Of several phones, the one that is meant where none was named.
enum class PhoneChoice {
    made,
    noServer,  // adb can't list them
    noPhone,
    several,  // and none of them is linked
};

struct ChosenPhone {
    PhoneChoice choice = PhoneChoice::noPhone;
    std::string serial{};  // ANSI; empty unless made
};

// The only phone that adb lists, or of several the one to which the link forwards the agent's port.
[[nodiscard]] ChosenPhone ChoosePhone();

}  // namespace quorvi::cli
