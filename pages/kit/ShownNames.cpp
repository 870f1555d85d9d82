#include "pages/kit/ShownNames.h"

#include <algorithm>

#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

constexpr qsizetype kLongestName = 16;  // in UTF-16
constexpr qsizetype kNamed = 5;

// What is drawn by itself between these two has no say in the order of what is around it.
constexpr QChar kFirstStrongIsolate(0x2068);
constexpr QChar kPopIsolate(0x2069);

// Characters that are not seen and change the order of those that are.
bool ChangesTheOrder(QChar c) {
    const char16_t code = c.unicode();
    return (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069) ||
           code == 0x200E || code == 0x200F || code == 0x061C;
}

bool IsReadFromTheRight(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar c) {
        return c.direction() == QChar::DirR || c.direction() == QChar::DirAL || c.isHighSurrogate();
    });
}

}  // namespace

QString ShortName(const QString& name) {
    QString shown = name.left(4 * kLongestName);  // a name may be as long as a phone likes
    shown.removeIf([](QChar c) { return ChangesTheOrder(c); });
    for (QChar& c : shown) {
        if (c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
            c.category() == QChar::Separator_Paragraph) {
            c = u' ';
        }
    }
    shown = shown.trimmed();
    if (shown.size() > kLongestName) {
        shown.truncate(shown.at(kLongestName - 1).isHighSurrogate() ? kLongestName - 1
                                                                    : kLongestName);
        shown += QStringLiteral("…");
    }
    return IsReadFromTheRight(shown) ? kFirstStrongIsolate + shown + kPopIsolate : shown;
}

QString NamesInWords(const QStringList& names) {
    QStringList named;
    for (const QString& name : names.first(std::min(names.size(), kNamed))) {
        const QString shown = ShortName(name);
        named.append(shown.isEmpty() ? ToQString(u8"（没有名称）") : shown);
    }
    const QString words = named.join(QStringLiteral("、"));
    return names.size() <= kNamed ? words : words + ToQString(u8"… 等 %1 个").arg(names.size());
}

}  // namespace quorvi
