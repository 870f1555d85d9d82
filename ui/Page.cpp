#include "ui/Page.h"

namespace quorvi {

Page::Page(PageHost& host, int dialog, QWidget* parent) : QWidget(parent), host_(host) {
    setObjectName(QStringLiteral("dialog %1").arg(dialog));
}

}  // namespace quorvi
