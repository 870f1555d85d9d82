// Views in the theme of the window.
#include "tests/ui/html/WebViewFixture.h"
#include "ui/look/Theme.h"

namespace quorvi {
namespace {

using look::Color;
using look::Theme;

class ViewLook : public WebView {
  protected:
    void TearDown() override { look::SetTheme(Theme::light); }

    CHtmlCtrlFix& ShowContact() {
        CHtmlCtrlFix& view = Show();
        QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
        view.LoadFromResource(kContactTemplate);
        view.show();
        EXPECT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
        return view;
    }
    QString LookOfRoot() {
        return Ask(QStringLiteral("document.documentElement.dataset.look ?? ''")).toString();
    }
    // Colours as the engine tells them.
    QString Ground() {
        return Ask(QStringLiteral("getComputedStyle(document.body).backgroundColor")).toString();
    }
    static QString Told(Color color, Theme theme) {
        const QColor value = look::color(color, theme);
        return QStringLiteral("rgb(%1, %2, %3)")
            .arg(value.red())
            .arg(value.green())
            .arg(value.blue());
    }
    QColor EngineGround() { return view_->Browser()->page()->backgroundColor(); }
};

TEST_F(ViewLook, InLightTheRootNamesLight) {
    ShowContact();
    EXPECT_EQ(LookOfRoot(), QStringLiteral("light"));
    EXPECT_EQ(Ground(), Told(Color::surface, Theme::light));
}

TEST_F(ViewLook, ADocumentLoadsInTheThemeOfTheWindow) {
    look::SetTheme(Theme::dark);
    ShowContact();
    EXPECT_EQ(LookOfRoot(), QStringLiteral("dark"));
    EXPECT_EQ(Ground(), Told(Color::surface, Theme::dark));
    EXPECT_EQ(EngineGround(), look::color(Color::page, Theme::dark));
}

// No white document flashes up in a dark window.
TEST_F(ViewLook, ADocumentIsUnseenUntilItsLookIsNamed) {
    ShowContact();
    const QString visibility = QStringLiteral("getComputedStyle(document.body).visibility");
    EXPECT_EQ(Ask(visibility).toString(), QStringLiteral("visible"));
    Ask(QStringLiteral("delete document.documentElement.dataset.look"));
    EXPECT_EQ(Ask(visibility).toString(), QStringLiteral("hidden"));
    EXPECT_EQ(Ground(), QStringLiteral("rgba(0, 0, 0, 0)"));
}

TEST_F(ViewLook, ADocumentThatStandsFollowsAChange) {
    ShowContact();
    struct Change {
        Theme theme;
        QString name;
    };
    for (const Change& change : {Change{Theme::contrast, QStringLiteral("contrast")},
                                 Change{Theme::dark, QStringLiteral("dark")},
                                 Change{Theme::light, QStringLiteral("light")}}) {
        look::SetTheme(change.theme);
        EXPECT_TRUE(WaitFor([&] { return LookOfRoot() == change.name; }))
            << change.name.toStdString();
        EXPECT_EQ(Ground(), Told(Color::surface, change.theme));
        EXPECT_EQ(EngineGround(), look::color(Color::page, change.theme));
    }
}

TEST_F(ViewLook, ADocumentLoadedAfterAChangeHasTheNewLook) {
    CHtmlCtrlFix& view = ShowContact();
    look::SetTheme(Theme::dark);
    QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
    view.LoadFromResource(kDashboardTemplate);
    ASSERT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
    EXPECT_EQ(LookOfRoot(), QStringLiteral("dark"));
}

TEST_F(ViewLook, WhatStandsInPlaceOfAPhotoIsDrawnForTheTheme) {
    look::SetTheme(Theme::dark);
    CHtmlCtrlFix& view = ShowContact();
    view.SetInnerHtml("block",
                      HtmlFragment(u8"<div class='photo'><img src='avatar_photo.png'></div>"));
    const QString shown = QStringLiteral("getComputedStyle(document.querySelector('img')).content");
    EXPECT_TRUE(Ask(shown).toString().contains(QStringLiteral("/views/avatar_photo_dark.svg")));
    look::SetTheme(Theme::light);
    EXPECT_TRUE(WaitFor([&] { return Ask(shown).toString() == QStringLiteral("normal"); }));
}

// A site is written for a light ground, and knows nothing of the window.
TEST_F(ViewLook, ASiteKeepsItsOwnLook) {
    look::SetTheme(Theme::dark);
    Open("<p>page</p>");
    EXPECT_EQ(LookOfRoot(), QString());
    EXPECT_EQ(EngineGround(), look::color(Color::page, Theme::light));
    EXPECT_EQ(Ask(QStringLiteral("document.documentElement.attributes.length")).toInt(), 0);
}

TEST_F(ViewLook, WhatStandsInPlaceOfASiteHasTheThemeOfTheWindow) {
    look::SetTheme(Theme::dark);
    CHtmlCtrlFix& view = Show(HtmlContent::web);
    view.show();
    QTcpServer closed;
    closed.listen(QHostAddress::LocalHost);
    const int port = closed.serverPort();
    closed.close();
    view.Navigate2(QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(port)));
    ExpectUnreachable(view);
    EXPECT_EQ(LookOfRoot(), QStringLiteral("dark"));
    EXPECT_EQ(EngineGround(), look::color(Color::page, Theme::dark));
}

}  // namespace
}  // namespace quorvi
