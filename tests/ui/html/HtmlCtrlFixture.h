// An HTML view in a test: what owns it, and a web server that must hear nothing of it.
#pragma once

#include <gtest/gtest.h>

#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/HtmlDriver.h"
#include "ui/html/HtmlCtrl.h"
#include "ui/html/HtmlTemplate.h"

namespace quorvi {

// A web server on 127.0.0.1 that counts connections and answers every request with one page.
class WebServer : public QTcpServer {
  public:
    WebServer() {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* peer = nextPendingConnection()) {
                ++connections;
                connect(peer, &QTcpSocket::readyRead, peer, [this, peer] { Answer(*peer); });
            }
        });
    }

    [[nodiscard]] QString Url(const QString& path = {}) const {
        return QStringLiteral("http://127.0.0.1:%1/%2").arg(serverPort()).arg(path);
    }

    int connections = 0;
    QByteArrayList requests;
    QByteArray body = "<html><body id=body>site</body></html>";
    // Lines of the head, each with its line end; of the pages below the path alone.
    QByteArray headers;
    QByteArray headersPath;

  private:
    void Answer(QTcpSocket& peer) {
        requests.append(peer.readAll());
        const bool headed = requests.last().contains(" /" + headersPath);
        peer.write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n" +
                   (headed ? headers : QByteArray()) +
                   "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body);
        peer.disconnectFromHost();
    }
};

class Owner : public HtmlListener {
  public:
    void OnAppCmd(const std::string& text) override { commands.push_back(text); }
    void OnDelete(const std::string& text) override { deletes.push_back(text); }
    void OnMenu(const std::string& text, const QPoint& at) override {
        menus.push_back(text);
        menuAt = at;
    }
    void OnVisit(HtmlVisit visit) override { visits.push_back(visit); }
    std::vector<std::string> commands;
    std::vector<std::string> deletes;
    std::vector<std::string> menus;
    QPoint menuAt;
    std::vector<HtmlVisit> visits;
};

class HtmlCtrl : public testing::Test {
  protected:
    CHtmlCtrlFix& Show(HtmlContent content = HtmlContent::local) {
        view_ = std::make_unique<CHtmlCtrlFix>(1360, content, owner_, nullptr);
        view_->resize(640, 480);
        return *view_;
    }

    // A shown view with an empty element "block" in the document.
    CHtmlCtrlFix& ShowBlock() {
        CHtmlCtrlFix& view = Show();
        QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
        view.LoadFromText(HtmlFragment(u8"<body><div id=block></div></body>"));
        view.show();
        EXPECT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
        return view;
    }

    QVariant Ask(const QString& script) { return AskHtml(*view_, script); }
    QString InnerHtml(const QString& id) { return quorvi::InnerHtml(*view_, id); }
    void Click(const QString& selector, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {}) {
        ClickHtml(*view_, selector, button, modifiers);
    }

    // Clicks a private link until it is heard of: while the browser turns one link down, it drops a
    // click on another.
    void ClickUntilHeard(const QString& selector) {
        ASSERT_TRUE(WaitFor([&] {
            if (!Ask(QStringLiteral("document.querySelector('%1') !== null").arg(selector))
                     .toBool()) {
                return false;  // the view was wiped, and comes back
            }
            Click(selector);
            return !owner_.commands.empty();
        }));
    }

    Owner owner_;
    WebServer server_;
    std::unique_ptr<CHtmlCtrlFix> view_;
};

}  // namespace quorvi
