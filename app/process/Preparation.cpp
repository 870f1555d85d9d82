#include "app/process/Preparation.h"

#include <QApplication>
#include <QLoggingCategory>

#include "base/CodePageChoice.h"
#include "base/Deployment.h"
#include "base/SettingsFile.h"
#include "base/Text.h"
#include "ui/html/HtmlSite.h"
#include "ui/kit/ApplyLook.h"
#include "ui/kit/QtChinese.h"

namespace quorvi {

void PrepareQt() {
    QCoreApplication::setOrganizationName(QStringLiteral("Quorvi"));
    QCoreApplication::setApplicationName(QStringLiteral("Quorvi"));
    // The engine of the HTML views tells at length how it was started.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext=false"));
    PrepareHtmlViews();
}

void PrepareApplication(QApplication& application) {
    // The window may be hidden while the program stays in the tray.
    QApplication::setQuitOnLastWindowClosed(false);
    SetCodePage(ChosenCodePage(SettingsFile(), TheDeployment().codePage));
    LoadQtChinese(application);
    ApplyLook(application);
}

}  // namespace quorvi
