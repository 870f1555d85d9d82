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
namespace {

QtMessageHandler teller = nullptr;

// What Qt and the engine warn of, each once: that there is no OpenGL, which nothing here draws by.
bool IsExpected(const QString& text) {
    return text.startsWith(
               QLatin1String("QXcbIntegration: Cannot create platform OpenGL context")) ||
           text.startsWith(QLatin1String("No suitable graphics backend found"));
}

void TellUnlessExpected(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (!IsExpected(text)) {
        teller(type, context, text);
    }
}

}  // namespace

void PrepareQt() {
    QCoreApplication::setOrganizationName(QStringLiteral("Quorvi"));
    QCoreApplication::setApplicationName(QStringLiteral("Quorvi"));
    // The engine of the HTML views tells at length how it was started.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext=false"));
    if (teller == nullptr) {
        teller = qInstallMessageHandler(&TellUnlessExpected);
    }
    PrepareHtmlViews();
}

void PrepareApplication(QApplication& application) {
    LeaveOpenGlToOthers();
    // The window may be hidden while the program stays in the tray.
    QApplication::setQuitOnLastWindowClosed(false);
    SetCodePage(ChosenCodePage(SettingsFile(), TheDeployment().codePage));
    LoadQtChinese(application);
    ApplyLook(application);
}

}  // namespace quorvi
