#include "ui/kit/EditedText.h"

#include <algorithm>

namespace quorvi {
namespace {

// The place in a loaded text behind what shows as its first `count` characters: a carriage return
// and a line feed show as one, all else character by character.
qsizetype LoadedPlace(const QString& loaded, qsizetype count) {
    qsizetype place = 0;
    for (; count > 0 && place < loaded.size(); --count) {
        const bool pair = QStringView(loaded).sliced(place).startsWith(u"\r\n");
        place += pair ? 2 : 1;
    }
    return count == 0 ? place : -1;
}

}  // namespace

QString EditedText(const ShownText& text, const QString& now) {
    const auto& [loaded, shown] = text;
    if (now == shown) {
        return loaded;
    }
    if (LoadedPlace(loaded, shown.size()) != loaded.size()) {
        return now;  // shown in a way that is not known here
    }
    const auto start = std::mismatch(shown.begin(), shown.end(), now.begin(), now.end());
    const qsizetype before = start.first - shown.begin();
    const qsizetype most = std::min(shown.size(), now.size()) - before;
    qsizetype behind = 0;
    while (behind < most && shown[shown.size() - 1 - behind] == now[now.size() - 1 - behind]) {
        ++behind;
    }
    return loaded.left(LoadedPlace(loaded, before)) +
           now.mid(before, now.size() - before - behind) +
           loaded.mid(LoadedPlace(loaded, shown.size() - behind));
}

}  // namespace quorvi
