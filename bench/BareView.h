// A browser view that knows nothing of the suite, and how any view is asked what it holds.
#pragma once

#include <QApplication>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineView>
#include <chrono>
#include <memory>

#include "bench/WindowTurns.h"

namespace quorvi {

// Keeps asking a document how many blocks it holds, one question at a time.
class BlockWatch {
  public:
    BlockWatch(QWebEnginePage& page, const QString& selector, int blocks)
        : page_(page),
          script_(QStringLiteral("document.querySelectorAll('%1').length").arg(selector)),
          blocks_(blocks) {}

    // True once the document holds them all.
    [[nodiscard]] bool Reached() {
        if (!reached_ && !asked_) {
            asked_ = true;
            page_.runJavaScript(script_, QWebEngineScript::ApplicationWorld,
                                [this](const QVariant& count) {
                                    asked_ = false;
                                    if (count.toInt() == blocks_) {
                                        reached_ = true;
                                        at_ = std::chrono::steady_clock::now();
                                    }
                                });
        }
        return reached_;
    }
    [[nodiscard]] std::chrono::steady_clock::time_point At() const { return at_; }

  private:
    QWebEnginePage& page_;
    QString script_;
    int blocks_;
    bool asked_ = false;
    bool reached_ = false;
    std::chrono::steady_clock::time_point at_;
};

class BareView {
  public:
    explicit BareView(QSize size) : size_(size) {}

    [[nodiscard]] QWebEnginePage& Page() { return *view_->page(); }
    // Makes and shows it, and runs the window's thread until the document stands.
    Absence Open(const QUrl& url) {
        bool loaded = false;
        return RunWindowUntil([&] { return loaded; },
                              [&] {
                                  view_ = std::make_unique<QWebEngineView>();
                                  view_->resize(size_);
                                  view_->setPage(new QWebEnginePage(Profile(), view_.get()));
                                  QObject::connect(&Page(), &QWebEnginePage::loadFinished,
                                                   view_.get(), [&] { loaded = true; });
                                  view_->load(url);
                                  view_->show();
                              });
    }

  private:
    // Outlives its pages.
    static QWebEngineProfile* Profile() {
        static auto* const profile = new QWebEngineProfile(qApp);
        return profile;
    }

    QSize size_;
    std::unique_ptr<QWebEngineView> view_;
};

}  // namespace quorvi
