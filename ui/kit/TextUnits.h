// Qt's texts as the searching logic takes them.
#pragma once

#include <QString>
#include <cstddef>
#include <string_view>

namespace quorvi {

// The units of UTF-16 of a text, which outlives them.
[[nodiscard]] inline std::u16string_view Units(const QString& text) {
    const QStringView view(text);
    return {view.utf16(), static_cast<std::size_t>(view.size())};
}

}  // namespace quorvi
