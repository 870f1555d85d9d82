// What a list, tree or view says in words while it has nothing to show.
#pragma once

#include <QString>
#include <string_view>

#include "ui/kit/QtText.h"

namespace quorvi {

// What the user can do when there is no phone; `refresh` is the caption of the button that fetches
// again, empty where there is none.
[[nodiscard]] QString CheckTheCable(std::u8string_view refresh);

// An empty list; `sentence` tells why it may be empty.
template <typename View>
void SayWhenEmpty(View& view, std::u8string_view sentence) {
    view.SetEmptyText(ToQString(u8"列表是空的"), ToQString(sentence));
}

// A load that did not reach the phone.
template <typename View>
void SayWhenFailed(View& view, std::u8string_view refresh) {
    view.SetFailedText(ToQString(u8"没有连上手机"), CheckTheCable(refresh));
}

}  // namespace quorvi
