#include "ui/html/HtmlSite.h"

#include <unistd.h>

#include <QCoreApplication>
#include <utility>

#include "ui/html/HtmlLink.h"

namespace quorvi {
namespace {

constexpr char kFlagsVariable[] = "QTWEBENGINE_CHROMIUM_FLAGS";
constexpr char kSandboxVariable[] = "QTWEBENGINE_DISABLE_SANDBOX";
constexpr char kTextureVariable[] = "force_s3tc_enable";
constexpr char kDrawingVariable[] = "QT_QUICK_BACKEND";
constexpr char kGlVariable[] = "QT_XCB_GL_INTEGRATION";

// Where the templates stand.
constexpr std::string_view kTemplateScheme = "qrc:";

bool glVariableIsOurs = false;

}  // namespace

HtmlDecision DecideNavigation(HtmlContent content, std::string_view url,
                              HtmlNavigation navigation) {
    if (auto text = PrivateLinkText(url)) {
        // In a local document only a click gives a command: markup that came from the phone must
        // not give one by itself.
        if (content == HtmlContent::web || navigation == HtmlNavigation::clicked) {
            return {.goes = false, .command = std::move(text)};
        }
        return {};
    }
    // A template is loaded by the program, and by no link.
    return {.goes = (content == HtmlContent::web && IsWebLink(url)) ||
                    (navigation == HtmlNavigation::typed && url.starts_with(kTemplateScheme))};
}

void PrepareHtmlViews() {
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    qputenv(kFlagsVariable, (qgetenv(kFlagsVariable) + " --renderer-process-limit=1").trimmed());
    if (geteuid() == 0 && !qEnvironmentVariableIsSet(kSandboxVariable)) {
        qputenv(kSandboxVariable, "1");
    }
    // Drawn by OpenGL, the first view would have Qt take the whole window from the screen and put
    // up another, which draws by OpenGL too. Documents of text and small pictures do not need it.
    if (!qEnvironmentVariableIsSet(kDrawingVariable)) {
        qputenv(kDrawingVariable, "software");
    }
    // The context that the engine wants to share would have the driver of the graphics card loaded,
    // or the compiler of one in software, before the window is made.
    if (qgetenv(kDrawingVariable) == "software" && !qEnvironmentVariableIsSet(kGlVariable)) {
        qputenv(kGlVariable, "none");
        glVariableIsOurs = true;
    }
    // The browser engine sets this one itself as the first view is made. A new variable moves the
    // environment, and a program that another thread is just starting with it does not start.
    qputenv(kTextureVariable, "true");
}

void LeaveOpenGlToOthers() {
    if (std::exchange(glVariableIsOurs, false)) {
        qunsetenv(kGlVariable);
    }
}

}  // namespace quorvi
