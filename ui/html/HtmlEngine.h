// Loads the browser engine, at the latest moment: it takes longer than all else at the program's
// start, and no window needs it to stand on the screen.
#pragma once

#include <QObject>
#include <QPointer>
#include <filesystem>
#include <functional>
#include <vector>

#include "ui/html/HtmlBrowser.h"

namespace quorvi {

// The window's thread.
class HtmlEngine : public QObject {
    Q_OBJECT
  public:
    using User = std::function<void(HtmlBrowserMaker& maker)>;

    // `module`: the file with the HtmlBrowserMaker.
    explicit HtmlEngine(std::filesystem::path module);

    // Calls `use`, the module loaded; at once, unless the engine is held. Never when `user` is gone
    // by then, or when there is no module: a line on standard error says so then.
    void Use(QObject* user, User use);

    // From here on who wants to use the engine waits for Release.
    void Hold() { held_ = true; }
    // Loads the module beside the window's thread, and then serves who waits, one after the other.
    void Release();

  private:
    struct Waiting {
        QPointer<QObject> user;
        User use;
    };

    void Load();
    void Serve();

    QString module_;
    HtmlBrowserMaker* maker_ = nullptr;
    bool asked_ = false;
    bool held_ = false;
    std::vector<Waiting> waiting_;
};

// The program's one engine, in the module that is delivered with it.
[[nodiscard]] HtmlEngine& TheHtmlEngine();

}  // namespace quorvi
