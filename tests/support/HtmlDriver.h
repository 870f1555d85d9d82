// Drives an HTML view as a user does, and reads what it shows.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QSignalSpy>
#include <QTest>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineView>

#include "tests/support/WaitFor.h"
#include "ui/html/HtmlCtrl.h"

namespace quorvi {

// Shows a window and waits until the view in it has loaded its document.
inline void ShowWithDocument(QWidget& window, const CHtmlCtrlBase& view) {
    const QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
    window.show();
    ASSERT_TRUE(WaitFor([&] { return !loaded.isEmpty(); }));
}

// What a script of the program's own gives back.
[[nodiscard]] inline QVariant AskHtml(const CHtmlCtrlBase& view, const QString& script) {
    QVariant answer;
    bool answered = false;
    view.Browser()->page()->runJavaScript(script, QWebEngineScript::ApplicationWorld,
                                          [&](const QVariant& value) {
                                              answer = value;
                                              answered = true;
                                          });
    EXPECT_TRUE(WaitFor([&] { return answered; }));
    return answer;
}

[[nodiscard]] inline QString InnerHtml(const CHtmlCtrlBase& view, const QString& id) {
    return AskHtml(view, QStringLiteral("document.getElementById('%1')?.innerHTML").arg(id))
        .toString();
}

// The middle of the first element that the selector finds, scrolled into view. Waits for the
// element: a view that a link has led away from its document shows it again soon.
inline QPoint MiddleOf(const CHtmlCtrlBase& view, const QString& selector) {
    const QString script = QStringLiteral(
                               "(e => { e.scrollIntoView({block: 'nearest'});"
                               "const r = e.getBoundingClientRect();"
                               "return [r.x + r.width / 2, r.y + r.height / 2]; })"
                               "(document.querySelector(\"%1\"))")
                               .arg(selector);
    QVariantList middle;
    const auto found = [&] {
        middle = AskHtml(view, script).toList();
        return middle.size() == 2;
    };
    EXPECT_TRUE(WaitFor(found)) << selector.toStdString();
    return middle.size() == 2 ? QPoint(middle[0].toInt(), middle[1].toInt()) : QPoint();
}

// Until the document has been painted once: before that the engine drops what the mouse does, and
// on a busy machine a document stands long before. Asked again of a document that takes the place
// of another, which begins anew.
inline void WaitUntilPainted(const CHtmlCtrlBase& view) {
    const QString asks = QStringLiteral(
        "(() => {"
        "if (globalThis.wasPainted === undefined) {"
        "  globalThis.wasPainted = false;"
        "  requestAnimationFrame(() => requestAnimationFrame(() => globalThis.wasPainted = true));"
        "}"
        "return globalThis.wasPainted; })()");
    ASSERT_TRUE(WaitFor([&] { return AskHtml(view, asks).toBool(); }));
}

// A click at a place in the view, in a document that has been painted.
inline void ClickHtmlAt(const CHtmlCtrlBase& view, const QPoint& at,
                        Qt::MouseButton button = Qt::LeftButton,
                        Qt::KeyboardModifiers modifiers = {}) {
    WaitUntilPainted(view);
    QTest::mouseClick(view.Browser()->focusProxy(), button, modifiers, at);
}

// A click in the middle of the first element that the selector finds.
inline void ClickHtml(const CHtmlCtrlBase& view, const QString& selector,
                      Qt::MouseButton button = Qt::LeftButton,
                      Qt::KeyboardModifiers modifiers = {}) {
    const QPoint middle = MiddleOf(view, selector);
    ASSERT_FALSE(middle.isNull());
    ClickHtmlAt(view, middle, button, modifiers);
}

// Asks for a menu, as the right button does at a place, or the menu key anywhere.
inline void OpenMenuOf(const CHtmlCtrlBase& view, const QPoint& at,
                       QContextMenuEvent::Reason reason) {
    QWidget& keys = *view.Browser()->focusProxy();
    QContextMenuEvent event(reason, at, keys.mapToGlobal(at));
    QApplication::sendEvent(&keys, &event);
}

}  // namespace quorvi
