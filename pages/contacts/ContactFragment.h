// What the detail view shows of a contact.
#pragma once

#include "base/HtmlFragment.h"
#include "pages/contacts/ContactRecord.h"

namespace quorvi {

// Inner HTML of the element "block" of the contact view, with the phone's texts unescaped.
// The block of class "summary" is opened and never closed: kept on purpose, the fragment is fixed
// byte for byte (test ContactFragment.SummaryBlockIsNeverClosed). The photo is always the
// fixed picture.
[[nodiscard]] HtmlFragment ContactFragment(const ContactRecord& record);

}  // namespace quorvi
