#include "ui/QtText.h"

#include "base/Text.h"

namespace quorvi {

QString ToQString(std::string_view ansi) {
    return QString::fromStdString(ToUtf8(ansi));
}

QString ToQString(std::u8string_view text) {
    return QString::fromUtf8(reinterpret_cast<const char*>(text.data()),
                             static_cast<qsizetype>(text.size()));
}

std::string FromQString(const QString& text) {
    return ToAnsi(text.toStdString());
}

}  // namespace quorvi
