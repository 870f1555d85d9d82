// A view of a web site in a test.
#pragma once

#include <functional>

#include "tests/ui/html/HtmlCtrlFixture.h"
#include "ui/kit/QtText.h"

namespace quorvi {

class WebView : public HtmlCtrl {
  protected:
    // Shows the page "first" of the server's, which consists of this body.
    CHtmlCtrlFix& Open(const QByteArray& body) {
        server_.body = body;
        CHtmlCtrlFix& view = Show(HtmlContent::web);
        view.show();
        Visit([&] { view.Navigate2(QUrl(server_.Url(QStringLiteral("first")))); });
        return view;
    }
    void Visit(const std::function<void()>& go) {
        QSignalSpy loaded(view_->Browser()->page(), &QWebEnginePage::loadFinished);
        go();
        EXPECT_TRUE(WaitFor([&] { return loaded.count() >= 1; }));
    }
    QString Path() const { return view_->Browser()->url().path(); }

    QString Words(const QString& selector) {
        return Ask(QStringLiteral("document.querySelector('%1')?.innerText").arg(selector))
            .toString();
    }
    void ExpectUnreachable(CHtmlCtrlFix& view) {
        ASSERT_TRUE(WaitFor([&] { return view.Browser()->url() == TemplateUrl(663); }));
        EXPECT_TRUE(
            WaitFor([&] { return Words(QStringLiteral("h1")) == ToQString(u8"软件商城打不开"); }));
        EXPECT_TRUE(WaitFor(
            [&] { return Words(QStringLiteral("#host")) == ToQString(u8"127.0.0.1 没有回应"); }));
    }
};

}  // namespace quorvi
