// The contact editor's form as a JSON object.
#pragma once

#include <string_view>
#include <variant>

#include "cli/FormInput.h"
#include "pages/contacts/ContactForm.h"

namespace quorvi::cli {

using ContactFormInput = FormInput<ContactForm>;

// {favourite, name, nickname, note, phones: [up to three of {type, text}], im: {type, text},
// email: {type, text}, website, organisation, address}; a member left out is a field left as the
// editor for a new contact opens with it, that is, empty: an update deletes it. A member of another
// name, or of another kind, is refused.
[[nodiscard]] std::variant<ContactFormInput, FormComplaint> ReadContactForm(std::string_view utf8);

}  // namespace quorvi::cli
