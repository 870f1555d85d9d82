// One change of an HTML view's document: an element's inner HTML.
#pragma once

#include <QString>
#include <string_view>

#include "base/HtmlFragment.h"

namespace quorvi {

// Where the document is scrolled to after its change.
enum class HtmlScroll { keep, top, end };

// The change as the script that makes it. Made on any thread, so that the one who has the text pays
// for its conversion.
struct HtmlEdit {
    QString id;
    QString script;
};

// The element with the id `id` receives `html` as its inner HTML; an empty id is the whole
// document. Nothing happens where there is no such element. The program's own markup is taken as it
// is. A text from the phone that holds markup stands in an element `foreign-text` of its own, made
// anew of what is words and form in it: see HtmlCtrl.h.
[[nodiscard]] HtmlEdit SetInnerHtmlEdit(std::string_view id, const HtmlFragment& html,
                                        HtmlScroll scroll);

}  // namespace quorvi
