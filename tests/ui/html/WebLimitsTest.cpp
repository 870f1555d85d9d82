// What a web site in a view may not do. Its pages try, and write down in their own documents what
// came of it.
#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <filesystem>
#include <fstream>

#include "base/Places.h"
#include "tests/ui/html/WebViewFixture.h"

namespace quorvi {
namespace {

class WebLimits : public WebView {
  protected:
    // What a script of the page has written down under this name.
    QString Noted(const QString& name) {
        QString text;
        const auto noted = [&] {
            text = Ask(QStringLiteral("document.body.dataset.%1 ?? ''").arg(name)).toString();
            return !text.isEmpty();
        };
        EXPECT_TRUE(WaitFor(noted)) << name.toStdString();
        return text;
    }
    static int ShownWindows() {
        int shown = 0;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            shown += window->isVisible() ? 1 : 0;
        }
        return shown;
    }
};

// A page that loads an address in each way there is, and notes what came.
QByteArray PageThatLoads(const QByteArray& url) {
    return "<body><script>const note = (name, text) => document.body.dataset[name] = text;"
           "const image = new Image();"
           "image.onload = () => note('image', 'loaded');"
           "image.onerror = () => note('image', 'refused');"
           "image.src = '" +
           url +
           "';"
           "fetch('" +
           url +
           "', {mode: 'no-cors'}).then(() => note('fetch', 'loaded'),"
           "                                             () => note('fetch', 'refused'));"
           "const script = document.createElement('script');"
           "script.onload = () => note('script', 'loaded');"
           "script.onerror = () => note('script', 'refused');"
           "script.src = '" +
           url +
           "';"
           "document.body.append(script);"
           "</script></body>";
}

TEST_F(WebLimits, ASiteLoadsNoFileOfTheUsers) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("picture.svg"));
    std::ofstream(file.toStdString()) << "<svg xmlns='http://www.w3.org/2000/svg' width='8'/>";
    Open(PageThatLoads(QUrl::fromLocalFile(file).toEncoded()));
    EXPECT_EQ(Noted(QStringLiteral("image")), QStringLiteral("refused"));
    EXPECT_EQ(Noted(QStringLiteral("fetch")), QStringLiteral("refused"));
    EXPECT_EQ(Noted(QStringLiteral("script")), QStringLiteral("refused"));
}

TEST_F(WebLimits, ASiteLoadsNothingThatIsPartOfTheProgram) {
    Open(PageThatLoads("qrc:/views/store_failed.svg"));
    EXPECT_EQ(Noted(QStringLiteral("image")), QStringLiteral("refused"));
    EXPECT_EQ(Noted(QStringLiteral("fetch")), QStringLiteral("refused"));
    EXPECT_EQ(Noted(QStringLiteral("script")), QStringLiteral("refused"));
}

// On this computer adb and the agent listen.
TEST_F(WebLimits, ASiteReachesNoOtherServerOfThisComputer) {
    const WebServer other;
    Open(PageThatLoads(other.Url(QStringLiteral("x")).toLatin1()));
    EXPECT_EQ(Noted(QStringLiteral("image")), QStringLiteral("refused"));
    EXPECT_EQ(Noted(QStringLiteral("fetch")), QStringLiteral("refused"));
    EXPECT_EQ(Noted(QStringLiteral("script")), QStringLiteral("refused"));
    Open("<form id=form method=post action='" + other.Url().toLatin1() +
         "'><input id=hit type=submit></form> <a id=next href='qvh:1'>y</a>");
    Click(QStringLiteral("#hit"));
    Open("<a id=next href='qvh:1'>y</a>");
    Click(QStringLiteral("#next"));
    ASSERT_TRUE(WaitFor([&] { return !owner_.commands.empty(); }));
    EXPECT_EQ(other.connections, 0);
}

TEST_F(WebLimits, ASiteReachesItsOwnServer) {
    Open(
        "<body><script>fetch('/own').then(() => document.body.dataset.fetch = 'loaded');"
        "</script></body>");
    EXPECT_EQ(Noted(QStringLiteral("fetch")), QStringLiteral("loaded"));
}

TEST_F(WebLimits, AScriptOpensNoWindow) {
    const int windows = [&] {
        Open("<p>first</p>");
        return ShownWindows();
    }();
    Open(
        "<body><script>document.body.dataset.opened = String(window.open('/other'));"
        "</script></body>");
    EXPECT_EQ(Noted(QStringLiteral("opened")), QStringLiteral("null"));
    EXPECT_EQ(Path(), QStringLiteral("/first"));
    EXPECT_EQ(ShownWindows(), windows);
}

TEST_F(WebLimits, AScriptAsksTheUserNothing) {
    Open(
        "<body><script>alert('a');"
        "document.body.dataset.answers = [confirm('b'), prompt('c', 'd')].join();"
        "</script></body>");
    EXPECT_EQ(Noted(QStringLiteral("answers")), QStringLiteral("false,"));
}

TEST_F(WebLimits, AFormGetsNoFile) {
    Open("<input id=hit type=file> <a id=next href='qvh:1'>y</a>");
    const int windows = ShownWindows();
    Click(QStringLiteral("#hit"));
    ClickUntilHeard(QStringLiteral("#next"));
    EXPECT_EQ(ShownWindows(), windows);
}

TEST_F(WebLimits, AScriptWithoutTheUsersClickGivesNoPrivateLink) {
    Open(
        "<body><a id=next href='qvh:1'>y</a><a id=own href='qvh:3'>z</a>"
        "<script>onload = () => setTimeout(() => {"
        "document.getElementById('own').click(); location.href = 'qvh:2';"
        "document.body.dataset.tried = 'yes'; }, 0);</script></body>");
    EXPECT_EQ(Noted(QStringLiteral("tried")), QStringLiteral("yes"));
    Click(QStringLiteral("#next"));
    ASSERT_TRUE(WaitFor([&] { return !owner_.commands.empty(); }));
    EXPECT_EQ(owner_.commands, std::vector<std::string>{"1"});
}

TEST_F(WebLimits, WhatASiteAsksOfTheSystemIsRefused) {
    Open(
        "<body><script>const note = (name, text) => document.body.dataset[name] = text;"
        "navigator.geolocation.getCurrentPosition(() => note('place', 'told'),"
        "                                         e => note('place', 'code ' + e.code));"
        "Notification.requestPermission().then(answer => note('notices', answer));"
        "navigator.mediaDevices.getUserMedia({audio: true})"
        ".then(() => note('sound', 'heard'), e => note('sound', 'refused'));"
        "navigator.clipboard.readText()"
        ".then(() => note('clipboard', 'read'), e => note('clipboard', 'refused'));"
        "</script></body>");
    EXPECT_EQ(Noted(QStringLiteral("place")), QStringLiteral("code 1"));  // permission denied
    EXPECT_EQ(Noted(QStringLiteral("notices")), QStringLiteral("denied"));
    EXPECT_EQ(Noted(QStringLiteral("sound")), QStringLiteral("refused"));
    EXPECT_EQ(Noted(QStringLiteral("clipboard")), QStringLiteral("refused"));
}

TEST_F(WebLimits, ASiteDownloadsNothing) {
    CHtmlCtrlFix& view = Open("<a id=hit href='/file.apk'>x</a> <a id=next href='qvh:1'>y</a>");
    server_.headersPath = "file.apk";
    server_.headers = "Content-Disposition: attachment; filename=file.apk\r\n";
    QWebEngineDownloadRequest::DownloadState state{};
    bool asked = false;
    // Heard behind the program's own answer.
    QObject::connect(view.Browser()->page()->profile(), &QWebEngineProfile::downloadRequested,
                     &view, [&](const QWebEngineDownloadRequest* download) {
                         state = download->state();
                         asked = true;
                     });
    Click(QStringLiteral("#hit"));
    ASSERT_TRUE(WaitFor([&] { return asked; }));
    EXPECT_EQ(state, QWebEngineDownloadRequest::DownloadCancelled);
    EXPECT_EQ(Path(), QStringLiteral("/first"));
    EXPECT_EQ(owner_.visits.back(), HtmlVisit::ended);
}

TEST_F(WebLimits, WhatASiteKeepsIsInTheProgramsOwnFolder) {
    namespace fs = std::filesystem;
    constexpr std::string_view kMark = "kept-by-the-site";
    server_.headers = "Set-Cookie: kept-by-the-site=b; Max-Age=9999\r\n";
    CHtmlCtrlFix& view = Open(
        "<body><script>localStorage.a = 'kept-by-the-site';"
        "document.body.dataset.kept = localStorage.a;</script></body>");
    EXPECT_EQ(Noted(QStringLiteral("kept")), QStringLiteral("kept-by-the-site"));
    const QWebEngineProfile& profile = *view.Browser()->page()->profile();
    const std::string data =
        QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString() + "/";
    EXPECT_TRUE(profile.cachePath().toStdString().starts_with(data));
    const fs::path storage = profile.persistentStoragePath().toStdString();
    EXPECT_TRUE(storage.string().starts_with(data)) << storage;
    EXPECT_TRUE(WaitFor([&] { return fs::exists(storage / "Cookies"); }));
    EXPECT_TRUE(WaitFor([&] { return fs::exists(storage / "Local Storage"); }));
    // The engine goes on writing there, and a folder that goes meanwhile would end the walk.
    const fs::path own = fs::path(data).parent_path();
    const fs::recursive_directory_iterator end;
    for (fs::recursive_directory_iterator entry(ThePlaces().home); entry != end; ++entry) {
        if (entry->path() == own) {
            entry.disable_recursion_pending();
        } else if (entry->is_regular_file()) {
            std::ifstream file(entry->path(), std::ios::binary);
            const std::string content{std::istreambuf_iterator(file), {}};
            EXPECT_EQ(content.find(kMark), std::string::npos) << entry->path();
        }
    }
}

}  // namespace
}  // namespace quorvi
