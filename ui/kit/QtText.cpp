#include "ui/kit/QtText.h"

#include <utility>

#include "base/Text.h"

namespace quorvi {
namespace {

// Bytes of a text that a cell shows: more than its width can hold.
constexpr std::size_t kShownBytes = 1024;

QString InOneLine(QString text) {
    text.remove(QChar(u'\0'));
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    for (const char16_t lineBreak : {u'\r', u'\n', u'\u2028', u'\u2029'}) {
        text.replace(lineBreak, u' ');
    }
    return text;
}

}  // namespace

QString ToQString(std::string_view ansi) {
    return QString::fromStdString(ToUtf8(ansi));
}

QString ToQString(std::u8string_view text) {
    return QString::fromUtf8(reinterpret_cast<const char*>(text.data()),
                             static_cast<qsizetype>(text.size()));
}

QString ToShownQString(std::string_view ansi) {
    if (ansi.size() <= kShownBytes) {
        return InOneLine(ToQString(ansi));
    }
    QString start = ToQString(ansi.substr(0, kShownBytes));
    if (start.endsWith(QChar::ReplacementCharacter)) {
        start.chop(1);  // the cut fell between the bytes of one character
    }
    return InOneLine(std::move(start)) + QStringLiteral("…");
}

std::string FromQString(const QString& text) {
    return ToAnsi(text.toStdString());
}

bool FitsCodePage(const QString& text) {
    return ToQString(FromQString(text)) == text;
}

}  // namespace quorvi
