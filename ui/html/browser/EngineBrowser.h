// A browser by the engine.
#pragma once

#include <QWebEngineView>

#include "ui/html/HtmlBrowser.h"

namespace quorvi {

class EngineBrowser : public HtmlBrowser {
  public:
    EngineBrowser(HtmlContent content, const HtmlLook& look, HtmlBrowserHost& host,
                  QWidget* parent);

    [[nodiscard]] QWidget* Widget() override { return view_.get(); }
    [[nodiscard]] QWebEngineView* View() override { return view_.get(); }
    [[nodiscard]] QUrl Url() const override { return view_->url(); }
    void Load(const QUrl& url, const QByteArray& postData) override;
    void Reload() override { view_->reload(); }
    void Back() override { view_->back(); }
    void SetLook(const HtmlLook& look) override;
    void Run(const QString& script, const Answer& answer) override;

  private:
    std::unique_ptr<QWebEngineView> view_;
};

// What the module is loaded for.
class EngineBrowserMaker : public QObject, public HtmlBrowserMaker {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "quorvi.HtmlBrowserMaker/1")
    Q_INTERFACES(quorvi::HtmlBrowserMaker)
  public:
    [[nodiscard]] std::unique_ptr<HtmlBrowser> Make(HtmlContent content, const HtmlLook& look,
                                                    HtmlBrowserHost& host,
                                                    QWidget* parent) override;
};

}  // namespace quorvi
