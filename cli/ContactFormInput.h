// The contact editor's form as a JSON object.
#pragma once

#include <json/value.h>

#include <string>
#include <string_view>
#include <variant>

#include "pages/contacts/ContactForm.h"

namespace quorvi::cli {

// Why an object is no form, naming the member. ANSI.
struct FormComplaint {
    std::string text;
};

struct ContactFormInput {
    ContactForm form;
    // A text holds characters that the code page lacks: they are '?' in the form.
    bool charactersLost = false;
};

// {favourite, name, nickname, note, phones: [up to three of {type, text}], im: {type, text},
// email: {type, text}, website, organisation, address}; a member left out is a field left as the
// editor for a new contact opens with it, that is, empty: an update deletes it. A member of another
// name, or of another kind, is refused.
[[nodiscard]] std::variant<ContactFormInput, FormComplaint> ReadContactForm(std::string_view utf8);

}  // namespace quorvi::cli
