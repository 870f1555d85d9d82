#include "ui/page/Page.h"

#include "ui/kit/ControlNumber.h"

namespace quorvi {

Page::Page(PageHost& host, int dialog, QWidget* parent) : QWidget(parent), host_(host) {
    SetDialogNumber(*this, dialog);
}

}  // namespace quorvi
