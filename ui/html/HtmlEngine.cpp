#include "ui/html/HtmlEngine.h"

#include <QOpenGLContext>
#include <QPluginLoader>
#include <cstdio>
#include <utility>

#include "base/Places.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

constexpr const char* kModule = "libquorvi_browser.so";

}  // namespace

HtmlEngine::HtmlEngine(std::filesystem::path module)
    : module_(QString::fromStdString(module.string())) {}

void HtmlEngine::Use(QObject* user, User use) {
    if (held_) {
        waiting_.push_back({user, std::move(use)});
        return;
    }
    Load();
    if (maker_ != nullptr) {
        use(*maker_);
    }
}

void HtmlEngine::Release() {
    if (!held_) {
        return;
    }
    // Without a context for all to share, the engine makes one as it is loaded, which it may do on
    // the window's thread only.
    if (QOpenGLContext::globalShareContext() == nullptr) {
        Serve();
        return;
    }
    RunJob(
        this, [module = module_] { return QPluginLoader(module).load(); },
        [this](bool /*loaded*/) { Serve(); });
}

void HtmlEngine::Load() {
    if (std::exchange(asked_, true)) {
        return;
    }
    QPluginLoader loader(module_);
    maker_ = qobject_cast<HtmlBrowserMaker*>(loader.instance());
    if (maker_ == nullptr) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(module_), qPrintable(loader.errorString()));
    }
}

void HtmlEngine::Serve() {
    held_ = false;
    // Each in a turn of the window's own, so that it answers between two browsers.
    for (Waiting& waiting : std::exchange(waiting_, {})) {
        PostToWindow(waiting.user,
                     [this, user = waiting.user, use = std::move(waiting.use)] { Use(user, use); });
    }
}

HtmlEngine& TheHtmlEngine() {
    // Lives as long as the process: views may ask it as late as that.
    static auto* const engine = new HtmlEngine(ThePlaces().Delivered(kModule));
    return *engine;
}

}  // namespace quorvi
