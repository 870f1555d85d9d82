#include "ui/html/HtmlEdit.h"

#include <QJsonArray>
#include <QJsonDocument>

#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

// The text is parsed in a document that nothing loads or runs for, with the element's own kind as
// the context, so that it gives the same tree as a plain assignment; then it moves over in one
// step.
constexpr char16_t kFunction[] =
    uR"((function(id, html, scroll) {
  const element = id === '' ? document.documentElement : document.getElementById(id);
  if (!element) return;
  const shell = document.implementation.createHTMLDocument('').createElement(element.localName);
  shell.innerHTML = html;
  for (const acting of shell.querySelectorAll(
      'meta, link, base, script, iframe, frame, object, embed, portal')) {
    acting.remove();
  }
  const content = document.createDocumentFragment();
  while (shell.firstChild) content.append(shell.firstChild);
  element.replaceChildren(content);
  if (scroll !== null) window.scrollTo(0, scroll);
}))";

// Past the end of any document.
constexpr int kScrollEnd = 9'999'999;

QJsonValue ScrollTarget(HtmlScroll scroll) {
    switch (scroll) {
        case HtmlScroll::top:
            return 0;
        case HtmlScroll::end:
            return kScrollEnd;
        case HtmlScroll::keep:
            break;
    }
    return QJsonValue::Null;
}

}  // namespace

HtmlEdit SetInnerHtmlEdit(std::string_view id, std::string_view html, HtmlScroll scroll) {
    const QString element = ToQString(id);
    const QJsonArray arguments{element, ToQString(html), ScrollTarget(scroll)};
    const QByteArray json = QJsonDocument(arguments).toJson(QJsonDocument::Compact);
    QString script = QString::fromUtf16(kFunction);
    script += QStringLiteral("(...") + QString::fromUtf8(json) + QStringLiteral(")");
    return {element, script};
}

}  // namespace quorvi
