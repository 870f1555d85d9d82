// One change of an HTML view's document: an element's inner HTML.
#pragma once

#include <QString>
#include <string_view>

namespace quorvi {

// Where the document is scrolled to after its change.
enum class HtmlScroll { keep, top, end };

// The change as the script that makes it. Made on any thread, so that the one who has the text pays
// for its conversion.
struct HtmlEdit {
    QString id;
    QString script;
};

// The element with the id `id` receives `html` (ANSI) as its inner HTML; an empty id is the whole
// document. Nothing happens where there is no such element. Markup is kept as it is, with the
// exception of elements that act by themselves and that a content policy does not hold (`meta`,
// `link`, `base`) and of those that the policy blocks anyway.
[[nodiscard]] HtmlEdit SetInnerHtmlEdit(std::string_view id, std::string_view html,
                                        HtmlScroll scroll);

}  // namespace quorvi
