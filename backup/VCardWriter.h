// Contacts as vCards that other programs read.
#pragma once

#include <cstddef>
#include <string>

#include "backup/ContactCard.h"

namespace quorvi {

// A line has at most so many octets in front of its line end; what is longer goes on in the next
// line, behind a blank.
inline constexpr std::size_t kVCardLineOctets = 75;

// The card as a vCard of version 3.0 in UTF-8, its lines ended by CR LF: ReadVCards gives the same
// card back. A file of several cards holds one behind the other.
//
//   N FN NICKNAME TEL EMAIL X-<messenger> URL ADR ORG NOTE CATEGORIES PHOTO
//
// The whole name stands in the place of the family name, since the phone has it in one piece, and
// the whole address in that of the street. Types that vCards have no words for are
// "TYPE=x-type-17", with the type's label beside it in X-ABLabel for programs that show it. The
// mark of a favourite, which vCards do not have, is X-QUORVI-FAVOURITE.
[[nodiscard]] std::string WriteVCard(const ContactCard& card);

}  // namespace quorvi
