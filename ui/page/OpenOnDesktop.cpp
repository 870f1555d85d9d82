#include "ui/page/OpenOnDesktop.h"

#include <QDesktopServices>
#include <QUrl>

#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

// The outside search engine; the text goes behind it.
constexpr std::u8string_view kSearchAddress = u8"https://duckduckgo.com/?q=";

}  // namespace

bool OpenOnDesktop(const QString& address) {
    QUrl url(address);
    if (url.isValid() && url.scheme().isEmpty()) {
        url = QUrl::fromUserInput(address);
    }
    return url.isValid() && QDesktopServices::openUrl(url);
}

QString WebSearchAddress(const QString& text) {
    return ToQString(kSearchAddress) + QString::fromLatin1(QUrl::toPercentEncoding(text));
}

}  // namespace quorvi
