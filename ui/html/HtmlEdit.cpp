#include "ui/html/HtmlEdit.h"

#include <QJsonArray>
#include <QJsonDocument>

#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

// Where a text from the phone goes, in the program's own markup. One without these characters is
// nothing but words, and stands there at once: most are, and thousands go in one parse.
constexpr std::string_view kMarkupCharacters = "<&";
constexpr std::string_view kPlace = "<foreign-text></foreign-text>";

// The program's own markup is parsed in a document that nothing loads or runs for, with the
// element's own kind as the context, so that it gives the same tree as a plain assignment; then it
// moves over in one step. A text from the phone is parsed alone, and its tree is not taken over: of
// the elements in `form` new ones are made, with these attributes and no other, all other elements
// leave what stands in them, and those in `unseen` not even that.
//
// The Tab key stops at each link, but where the element names its stops by a selector
// (`data-stops`): then at these alone, and one without a word is called by the words of its list
// item. A picture's link that is no stop is not read out.
constexpr char16_t kFunction[] =
    uR"((function(id, html, texts, scroll) {
  const element = id === '' ? document.documentElement : document.getElementById(id);
  if (!element) return;
  const inert = document.implementation.createHTMLDocument('');
  const form = new Map(('b big blockquote br center code del div em font h1 h2 h3 h4 h5 h6 hr i ' +
      'img ins kbd li mark ol p pre s samp small span strike strong sub sup table tbody td tfoot ' +
      'th thead tr tt u ul var wbr').split(' ').map(name => [name, []]));
  form.set('font', ['color', 'size', 'face']);
  form.set('img', ['src', 'alt', 'width', 'height']);
  const unseen = new Set(('script style template title iframe object noembed noframes audio video ' +
      'canvas datalist').split(' '));
  const copy = (from, to) => {
    for (const node of from.childNodes) {
      if (node.nodeType === Node.TEXT_NODE) {
        to.append(node.data);
      } else if (node.nodeType === Node.ELEMENT_NODE && !unseen.has(node.localName)) {
        const attributes = form.get(node.localName);
        let into = to;
        if (attributes) {
          into = inert.createElement(node.localName);
          for (const name of attributes) {
            if (node.hasAttribute(name)) into.setAttribute(name, node.getAttribute(name));
          }
          to.append(into);
        }
        copy(node, into);
      }
    }
  };
  const fill = (place, text) => {
    const parsed = inert.createElement('div');
    parsed.innerHTML = text;
    copy(parsed, place);
  };
  const shell = inert.createElement(element.localName);
  shell.innerHTML = html;
  shell.querySelectorAll('foreign-text').forEach((place, i) => fill(place, texts[i]));
  const stops = element.dataset.stops;
  for (const link of stops ? shell.querySelectorAll('a') : []) {
    const silent = link.textContent.trim() === '';
    if (link.matches(stops)) {
      if (silent) link.setAttribute('aria-label', link.closest('li').textContent.trim());
    } else {
      link.tabIndex = -1;
      if (silent) link.setAttribute('aria-hidden', 'true');
    }
  }
  const content = document.createDocumentFragment();
  while (shell.firstChild) content.append(shell.firstChild);
  globalThis.narrowed?.delete(id);
  element.replaceChildren(content);
  if (scroll !== null) window.scrollTo(0, scroll);
}))";

// What an element holds is kept with where it was scrolled to: the first child in sight, since
// children that have not come near yet may change their height.
//
// Words are marked in the texts right in an element that is named and in the phone's texts in it,
// so that what the program says there in an element of its own is not. They move as they are;
// nothing is parsed.
constexpr char16_t kShowChildren[] =
    uR"((function(id, places, scroll, marks) {
  const element = document.getElementById(id);
  if (!element) return;
  const narrowed = globalThis.narrowed ??= new Map();
  if (!narrowed.has(id)) {
    if (places === null) return;
    const all = [...element.children];
    const first = all.find(child => child.getBoundingClientRect().bottom > 0);
    narrowed.set(id, {all, first, top: first?.getBoundingClientRect().top,
                      focused: document.activeElement});
  }
  for (const marked of element.querySelectorAll('found-text')) {
    const text = marked.parentNode;
    marked.replaceWith(...marked.childNodes);
    text.normalize();
  }
  const {all, first, top, focused} = narrowed.get(id);
  const content = document.createDocumentFragment();
  for (const child of places?.map(place => all[place]) ?? all) {
    if (child) content.append(child);
  }
  for (const [within, words] of marks) {
    const any = words.map(word => word.replace(/[.*+?^${}()|[\]\\]/g, '\\$&')).join('|');
    if (any === '') continue;
    const pattern = new RegExp(any, 'g');
    for (const found of content.querySelectorAll(within)) {
      const walker = document.createTreeWalker(found, NodeFilter.SHOW_TEXT);
      const texts = [];
      while (walker.nextNode()) {
        const text = walker.currentNode;
        if (text.parentNode === found || text.parentNode.closest('foreign-text')) texts.push(text);
      }
      for (const text of texts) {
        for (const hit of [...text.data.matchAll(pattern)].reverse()) {
          const word = text.splitText(hit.index);
          word.splitText(hit[0].length);
          const marked = document.createElement('found-text');
          word.replaceWith(marked);
          marked.append(word);
        }
      }
    }
  }
  element.replaceChildren(content);
  window.scrollTo(0, scroll);
  if (places === null) {
    narrowed.delete(id);
    if (first) window.scrollBy(0, first.getBoundingClientRect().top - top);
    if (element.contains(focused) && document.activeElement === document.body) {
      focused.focus({preventScroll: true});
    }
  }
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

struct Script {
    std::string html;  // the program's own and all words, with a place for each text of markup
    QJsonArray texts;
};

Script ScriptOf(const HtmlFragment& fragment) {
    const std::string_view all = fragment.Html();
    Script script;
    script.html.reserve(all.size());
    std::size_t own = 0;
    for (const HtmlFragment::Range& part : fragment.ForeignParts()) {
        script.html.append(all.substr(own, part.begin - own));
        const std::string_view text = all.substr(part.begin, part.end - part.begin);
        if (text.find_first_of(kMarkupCharacters) == std::string_view::npos) {
            script.html.append(text);
        } else {
            script.html.append(kPlace);
            script.texts.append(ToQString(text));
        }
        own = part.end;
    }
    script.html.append(all.substr(own));
    return script;
}

QString CallOf(const char16_t* function, const QJsonArray& arguments) {
    const QByteArray json = QJsonDocument(arguments).toJson(QJsonDocument::Compact);
    return QString::fromUtf16(function) + QStringLiteral("(...") + QString::fromUtf8(json) +
           QStringLiteral(")");
}

}  // namespace

HtmlEdit SetInnerHtmlEdit(std::string_view id, const HtmlFragment& html, HtmlScroll scroll) {
    const QString element = ToQString(id);
    const Script parts = ScriptOf(html);
    const QJsonArray arguments{element, ToQString(parts.html), parts.texts, ScrollTarget(scroll)};
    return {element, CallOf(kFunction, arguments)};
}

HtmlEdit ShowChildrenEdit(std::string_view id, const std::optional<std::vector<int>>& children,
                          HtmlScroll scroll, const std::vector<HtmlMark>& marks) {
    const QString element = ToQString(id);
    QJsonValue places = QJsonValue::Null;
    if (children) {
        QJsonArray array;
        for (const int place : *children) {
            array.append(place);
        }
        places = array;
    }
    QJsonArray marked;
    for (const HtmlMark& mark : marks) {
        QJsonArray words;
        for (const std::u16string& word : mark.words) {
            words.append(QString::fromUtf16(word.data(), static_cast<qsizetype>(word.size())));
        }
        marked.append(QJsonArray{ToQString(mark.within), words});
    }
    // A blank is in no id, so this takes no other change's place.
    return {element + QStringLiteral(" children"),
            CallOf(kShowChildren, QJsonArray{element, places, ScrollTarget(scroll), marked})};
}

}  // namespace quorvi
