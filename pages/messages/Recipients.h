// Whom a message goes to: the text of the recipients field, and the tree from which it is picked.
//
// The field holds a run of entries, each `"name" <number>;`. A bare number is an entry as well.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pages/messages/GroupTree.h"

namespace quorvi {

// Numbers are compared by this many last characters, so that one with a country prefix equals the
// same one without it. A shorter number must equal in whole.
inline constexpr std::size_t kComparedNumberCharacters = 11;

// One entry of the field. All texts are ANSI.
[[nodiscard]] std::string RecipientEntry(std::string_view name, std::string_view number);

// One of those to whom a message goes. All texts are ANSI.
struct Recipient {
    std::string name;       // as the entry has it, without the blanks around it; empty without one
    std::string number;     // as it is sent to
    bool isNumber = false;  // whether a phone can call that
};

// Whether a message can be sent to the text: kLeastDigits to kMostDigits digits, with a "+" before
// them or not, and blanks, hyphens, dots and round brackets anywhere among them.
inline constexpr std::size_t kLeastDigits = 3;
inline constexpr std::size_t kMostDigits = 20;  // the most that an address of GSM 03.40 holds
[[nodiscard]] bool IsPhoneNumber(std::string_view text);

// To whom the field sends.
struct RecipientList {
    std::vector<Recipient> recipients;
    bool cut = false;  // an empty part ended the reading, and something stands behind it
};

// The field, split at its semicolons and read part by part in their order, up to the first empty
// one. The number of an entry is what stands between its first "<" and the ">" behind it (or its
// end, where there is none), that of another part the whole. So a name that holds one of these
// marks is cut into parts of which some are no number: kept on purpose, who looks at the list of
// recipients sees them (test ReadRecipients.ANameWithAMarkInItGivesPartsThatAreNoNumber).
[[nodiscard]] RecipientList ReadRecipients(std::string_view field);

// The same, the numbers alone.
[[nodiscard]] std::vector<std::string> RecipientNumbers(std::string_view field);

// The name of the first member, group by group in the order of the tree, who has this number; empty
// when there is none.
[[nodiscard]] std::string_view NameOfNumber(std::string_view number, const GroupMembers& members);

// The field as a user types and pastes it, with the separators of lists elsewhere (line breaks,
// tabs, commas, full-width marks) turned into the field's own. Where one of them stands, the blanks
// and separators around it go with it, so that no part comes out empty. What stands in quotes or
// angle brackets is left alone, and so is a text that has none of them.
[[nodiscard]] std::string WithOwnSeparators(std::string_view typed);

// The entry that takes the place of a typed number: that of the first member, group by group in the
// order of the tree, whose number equals it, with the number as it was typed. Nothing when there is
// none, or nothing is typed. A text with a separator is several entries and no number: it would
// come to stand in one pair of angle brackets, and be cut into numbers that nobody typed.
[[nodiscard]] std::optional<std::string> ResolveRecipient(std::string_view typed,
                                                          const GroupMembers& members);

// A group of the tree with the texts of its nodes: "title [count]" over "name [number]" each.
struct RecipientGroup {
    std::string title;
    std::string text;
    std::vector<std::string> members;
};

// The groups that have members, in ascending order of their signed ids; members in that of their
// names. A group without a title shows an empty one.
[[nodiscard]] std::vector<RecipientGroup> RecipientTree(const GroupNames& names,
                                                        const GroupMembers& members);

// The entry of a ticked member, read back from its node's text: the name is what stands in front of
// the first "[", the blank before it included, and the number what stands between that and the last
// "]". So a "[" in a name cuts the name: kept on purpose, the
// node's text is all that is known of it (test RecipientOfNode.ABracketInANameCutsTheName).
// Brackets are characters: a byte of a Chinese character that looks like one is none.
[[nodiscard]] std::string RecipientOfNode(std::string_view text);

}  // namespace quorvi
