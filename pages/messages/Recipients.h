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

// The numbers of the field in their order, up to the first empty part: of an entry what stands
// between its first "<" and the ">" behind it (or its end, where there is none), else the whole.
[[nodiscard]] std::vector<std::string> RecipientNumbers(std::string_view field);

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
