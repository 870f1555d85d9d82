// The icon of an application, as a picture column shows it.
#pragma once

#include <bit>

#include "agent/Reply.h"
#include "base/ByteText.h"
#include "ui/list/ListColumns.h"

namespace quorvi {

// `icon` lies in the reply that the rows share, and is decoded when its row is first painted. Its
// address there is what it is cached by: it is unique as long as the rows stand, while a phone may
// list a package twice.
[[nodiscard]] inline RowPicture AppIconOf(const ReplyBytes& icon) {
    const auto bytes = icon.Bytes();
    return {.id = std::bit_cast<std::uintptr_t>(bytes.data()),
            .bytes = AsText(bytes),
            .fallback = u"app-default",
            .rounded = false};
}

}  // namespace quorvi
