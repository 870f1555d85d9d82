#include "ui/page/OpenOnDesktop.h"

#include <QDesktopServices>
#include <QUrl>

namespace quorvi {

bool OpenOnDesktop(const QString& address) {
    QUrl url(address);
    if (url.isValid() && url.scheme().isEmpty()) {
        url = QUrl::fromUserInput(address);
    }
    return url.isValid() && QDesktopServices::openUrl(url);
}

}  // namespace quorvi
