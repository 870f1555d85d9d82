// What the text of a field stands for, where the field does not show a text just as it is.
#pragma once

#include <QString>

namespace quorvi {

// A text that was put into a field, and what the field made of it: a field of several lines shows
// each kind of line end as a line feed, and a no-break space as a blank.
struct ShownText {
    QString loaded;
    QString shown;
};

// The text of a field that shows `now`: what was loaded, with that changed which differs from what
// was shown. So the parts before and behind the first and the last difference are as they came.
[[nodiscard]] QString EditedText(const ShownText& text, const QString& now);

}  // namespace quorvi
