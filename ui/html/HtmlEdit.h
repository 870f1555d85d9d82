// One change of an HTML view's document: an element's inner HTML, or which of its children are
// shown.
#pragma once

#include <QString>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/HtmlFragment.h"

namespace quorvi {

// Where the document is scrolled to after its change.
enum class HtmlScroll { keep, top, end };

// The change as the script that makes it. Made on any thread, so that the one who has the text pays
// for its conversion.
struct HtmlEdit {
    QString id;  // one change of the same id takes the place of the other
    QString script;
};

// The element with the id `id` receives `html` as its inner HTML; an empty id is the whole
// document. Nothing happens where there is no such element. The program's own markup is taken as it
// is. A text from the phone that holds markup stands in an element `foreign-text` of its own, made
// anew of what is words and form in it: see HtmlCtrl.h.
[[nodiscard]] HtmlEdit SetInnerHtmlEdit(std::string_view id, const HtmlFragment& html,
                                        HtmlScroll scroll);

// Words that stand out in what is shown of an element's children.
struct HtmlMark {
    std::string_view within;  // which elements of a child, a selector; a literal
    // What is marked wherever it stands in such an element as a text of its own or of the phone;
    // where two begin at the same place, the one that is named first.
    std::vector<std::u16string> words;
};

// Of the element with the id `id` the children at these places are shown, in this order, counted
// from 0 as its inner HTML has them; all of them for none. The document is as if the element held
// no others, and stands at its top or its end as `scroll` says; with all of them it is scrolled to
// where it was before, and the link that had the focus has it again. The marked words stand in
// elements `found-text`, until the next change of this kind.
[[nodiscard]] HtmlEdit ShowChildrenEdit(std::string_view id,
                                        const std::optional<std::vector<int>>& children,
                                        HtmlScroll scroll = HtmlScroll::top,
                                        const std::vector<HtmlMark>& marks = {});

}  // namespace quorvi
