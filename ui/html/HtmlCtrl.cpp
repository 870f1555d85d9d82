#include "ui/html/HtmlCtrl.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "ui/html/HtmlLink.h"
#include "ui/html/HtmlTemplate.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/look/Theme.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

// Times that one document is loaded again after its renderer has died; then the view stays empty
// until the page loads something else.
constexpr int kMaxRevivals = 3;

// A view that becomes lower leaves the document where it was scrolled to.
constexpr char16_t kStayAtEnd[] =
    uR"((() => {
  let before = window.innerHeight;
  window.addEventListener('resize', () => {
    const whole = document.documentElement.scrollHeight;
    if (window.innerHeight < before && window.scrollY + before >= whole - 1) {
      window.scrollTo(0, whole);
    }
    before = window.innerHeight;
  });
})())";

// Pressed alone.
bool IsPlain(const QKeyEvent& key) {
    return (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

QUrl WithoutFragment(const QUrl& url) {
    return url.adjusted(QUrl::RemoveFragment);
}

// What is in front of a widget in the Tab key's round.
QWidget* FocusableBefore(const QWidget& widget) {
    QWidget* before = widget.previousInFocusChain();
    while (before != &widget && before->focusPolicy() == Qt::NoFocus) {
        before = before->previousInFocusChain();
    }
    return before;
}

// Moves a widget to behind another in that round. Qt moves only what takes the focus itself.
void MoveBehind(QWidget* before, QWidget& widget) {
    const Qt::FocusPolicy own = widget.focusPolicy();
    const Qt::FocusPolicy beforeOwn = before == nullptr ? Qt::NoFocus : before->focusPolicy();
    widget.setFocusPolicy(Qt::TabFocus);
    if (before != nullptr) {
        before->setFocusPolicy(Qt::TabFocus);
        QWidget::setTabOrder(before, &widget);
        before->setFocusPolicy(beforeOwn);
    }
    widget.setFocusPolicy(own);
}

}  // namespace

void WatchedDocumentCookie::SetInnerHtml(std::string_view id, const HtmlFragment& html,
                                         HtmlScroll scroll) const {
    PostToWindow(view_, [view = view_, edit = SetInnerHtmlEdit(id, html, scroll)]() mutable {
        static_cast<CHtmlCtrlBase*>(view.data())->Edit(std::move(edit));
    });
}

CHtmlCtrlBase::CHtmlCtrlBase(int controlId, HtmlContent content, HtmlEngine& engine,
                             QWidget* parent)
    : QWidget(parent), content_(content), engine_(engine) {
    SetControlNumber(this, controlId);
    setFocusPolicy(Qt::StrongFocus);  // until the browser is there, which then gets its focus
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    connect(&look::TheThemeNotice(), &look::ThemeNotice::changed, this, &CHtmlCtrlBase::Dress);
}

CHtmlCtrlBase::~CHtmlCtrlBase() = default;

void CHtmlCtrlBase::LoadFromResource(int resourceId) {
    const QUrl url = TemplateUrl(resourceId);
    if (url.isValid() && !url.isEmpty()) {
        edits_.clear();
        Load(url);
    }
}

void CHtmlCtrlBase::LoadFromText(const HtmlFragment& html) {
    edits_.clear();
    edits_.push_back(SetInnerHtmlEdit({}, html, HtmlScroll::top));
    Load(BlankTemplateUrl());
}

void CHtmlCtrlBase::Navigate2(const QUrl& url, std::string_view postData) {
    if (content_ == HtmlContent::web && url.isValid()) {
        postData_ = QByteArray(postData.data(), static_cast<qsizetype>(postData.size()));
        Load(url);
    }
}

void CHtmlCtrlBase::GoBack() {
    if (browser_) {
        browser_->Back();
    }
}

void CHtmlCtrlBase::SetInnerHtml(std::string_view id, const HtmlFragment& html, HtmlScroll scroll) {
    Edit(SetInnerHtmlEdit(id, html, scroll));
}

void CHtmlCtrlBase::Edit(HtmlEdit edit) {
    if (ready_) {
        browser_->Run(edit.script, {});
    }
    Keep(std::move(edit));
}

void CHtmlCtrlBase::Keep(HtmlEdit edit) {
    std::erase_if(edits_, [&](const HtmlEdit& earlier) { return earlier.id == edit.id; });
    edits_.push_back(std::move(edit));
}

void CHtmlCtrlBase::ShowChildren(std::string_view id,
                                 const std::optional<std::vector<int>>& children, HtmlScroll scroll,
                                 const std::vector<HtmlMark>& marks) {
    HtmlEdit edit = ShowChildrenEdit(id, children, scroll, marks);
    if (narrows_) {
        narrowNext_ = edit.script;
    } else if (ready_) {
        Narrow(edit.script);
    }
    Keep(std::move(edit));
}

void CHtmlCtrlBase::Narrow(const QString& script) {
    narrows_ = true;
    browser_->Run(script, [self = QPointer(this)](const QVariant&) {
        if (!self) {
            return;
        }
        self->narrows_ = false;
        if (const QString next = std::exchange(self->narrowNext_, {});
            self->ready_ && !next.isEmpty()) {
            self->Narrow(next);
        }
    });
}

bool CHtmlCtrlBase::Holds(const QWidget& widget) {
    const QWidget* part = &widget;
    while (part != nullptr && qobject_cast<const CHtmlCtrlBase*>(part) == nullptr) {
        part = part->parentWidget();
    }
    return part != nullptr;
}

void CHtmlCtrlBase::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!wanted_) {
        wanted_ = true;
        engine_.Use(this, [this](HtmlBrowserMaker& maker) { CreateBrowser(maker); });
    }
}

// Keys that the browser has no use for come here, and from here they would go to the window.
void CHtmlCtrlBase::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    event->setAccepted(enter && content_ == HtmlContent::local);
}

void CHtmlCtrlBase::CreateBrowser(HtmlBrowserMaker& maker) {
    before_ = FocusableBefore(*this);
    browser_ = maker.Make(content_, Look(), *this, this);
    layout()->addWidget(browser_->Widget());
    setFocusProxy(browser_->Widget());
    if (!document_.isEmpty()) {
        Begin();
    }
}

// A site is written for a light ground, whatever the window looks like.
HtmlLook CHtmlCtrlBase::Look() const {
    const bool site = browser_ && IsWebLink(browser_->Url().toEncoded().toStdString());
    const look::Theme theme = look::CurrentTheme();
    return {look::color(look::Color::page, site ? look::Theme::light : theme),
            theme == look::Theme::dark       ? QStringLiteral("dark")
            : theme == look::Theme::contrast ? QStringLiteral("contrast")
                                             : QStringLiteral("light")};
}

void CHtmlCtrlBase::Dress() {
    if (browser_) {
        browser_->SetLook(Look());
    }
}

void CHtmlCtrlBase::Load(const QUrl& document) {
    document_ = document;
    announced_ = false;
    revivals_ = 0;
    if (browser_) {
        Begin();
    }
}

void CHtmlCtrlBase::Begin() {
    ready_ = false;
    browser_->Load(document_, postData_);
}

bool CHtmlCtrlBase::MayNavigate(const QUrl& url, HtmlNavigation navigation) {
    const HtmlDecision decision =
        DecideNavigation(content_, url.toEncoded().toStdString(), navigation);
    if (decision.command) {
        // After the browser's own call has returned: the owner may open a dialog.
        PostToWindow(this, [this, text = *decision.command] { OnAppCmd(text); });
    }
    return decision.goes;
}

// A web site's new window opens in the one view that there is.
void CHtmlCtrlBase::OnNewWindow(const QUrl& url) {
    if (content_ == HtmlContent::web && IsWebLink(url.toEncoded().toStdString())) {
        browser_->Load(url, {});
    }
}

void CHtmlCtrlBase::OnRendererGone() {
    ready_ = false;
    if (revivals_ == kMaxRevivals) {
        return;
    }
    ++revivals_;
    QTimer::singleShot(0, this, [this] {
        if (content_ == HtmlContent::web) {
            browser_->Reload();
        } else {
            Begin();
        }
    });
}

void CHtmlCtrlBase::OnUrlChanged(const QUrl& url) {
    if (content_ == HtmlContent::web) {
        Dress();
    }
    // A link to about:blank is not asked about; a local document that it has wiped comes back.
    if (content_ == HtmlContent::local && WithoutFragment(url) != document_) {
        ready_ = false;
        QTimer::singleShot(0, this, &CHtmlCtrlBase::Begin);
    }
}

bool CHtmlCtrlBase::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && content_ == HtmlContent::local) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (key.key() == Qt::Key_Delete && IsPlain(key)) {
            if (!key.isAutoRepeat()) {
                TellOfDelete();
            }
            return true;
        }
        if (key.key() == Qt::Key_Escape) {
            // The browser would keep it; in a dialog it is the way out.
            QKeyEvent escape(QEvent::KeyPress, key.key(), key.modifiers());
            QCoreApplication::sendEvent(parentWidget(), &escape);
            return true;
        }
    }
    if (event->type() == QEvent::ContextMenu && content_ == HtmlContent::local) {
        TellOfMenu(*static_cast<QContextMenuEvent*>(event));
        return true;
    }
    if (event->type() == QEvent::Wheel &&
        static_cast<QWheelEvent*>(event)->modifiers().testFlag(Qt::ControlModifier)) {
        return true;  // the browser would change its size of letters
    }
    return QWidget::eventFilter(watched, event);
}

void CHtmlCtrlBase::TellOfDelete() {
    browser_->Run(QStringLiteral("document.activeElement?.href ?? ''"),
                  [self = QPointer(this)](const QVariant& url) {
                      const auto text = PrivateLinkText(url.toString().toStdString());
                      if (self && text) {
                          self->OnDelete(*text);
                      }
                  });
}

void CHtmlCtrlBase::TellOfMenu(const QContextMenuEvent& event) {
    const QString under =
        event.reason() == QContextMenuEvent::Keyboard
            ? QStringLiteral("document.activeElement")
            : QStringLiteral("document.elementFromPoint(%1, %2)").arg(event.x()).arg(event.y());
    browser_->Run(QStringLiteral("%1?.closest('a')?.href ?? ''").arg(under),
                  [self = QPointer(this), at = event.globalPos()](const QVariant& url) {
                      if (self) {
                          self->OnMenu(PrivateLinkText(url.toString().toStdString()).value_or(""),
                                       at);
                      }
                  });
}

// `keys` is the browser's own widget to which keys go.
void CHtmlCtrlBase::TakeKeys(QWidget& keys) {
    keys.installEventFilter(this);
    // When the browser came, it took this control and all in it to the end of the Tab key's round.
    // They go back to where the control stood.
    QWidget* browser = browser_->Widget();
    setFocusProxy(nullptr);
    browser->setFocusProxy(nullptr);
    QWidget* before = before_;
    for (QWidget* widget : {static_cast<QWidget*>(this), browser, &keys}) {
        MoveBehind(before, *widget);
        before = widget;
    }
    browser->setFocusProxy(&keys);
    setFocusProxy(browser);
}

void CHtmlCtrlBase::OnVisitOf(const QUrl& url, HtmlVisit visit) {
    if (visit == HtmlVisit::failed) {
        unreachable_ = url;
        browser_->Load(TemplateUrl(kUnreachableTemplate), {});
    }
    OnVisit(visit);
}

// In the template of a site that does not answer: who did not.
void CHtmlCtrlBase::NameUnreachable() {
    HtmlFragment words;
    words.Text(FromQString(unreachable_.host())).Own(u8" 没有回应");
    browser_->Run(SetInnerHtmlEdit(kUnreachableHost, words, HtmlScroll::keep).script, {});
}

void CHtmlCtrlBase::OnLoadFinished() {
    if (content_ == HtmlContent::local && WithoutFragment(browser_->Url()) != document_) {
        return;
    }
    ready_ = true;
    Dress();
    narrows_ = false;  // in a document that is gone
    narrowNext_.clear();
    if (browser_->Url() == TemplateUrl(kUnreachableTemplate)) {
        NameUnreachable();
    }
    if (QWidget* keys = browser_->Widget()->focusProxy(); keys != nullptr) {
        TakeKeys(*keys);  // the browser may have made it anew
    }
    for (const HtmlEdit& edit : edits_) {
        browser_->Run(edit.script, {});
    }
    if (staysAtEnd_) {
        browser_->Run(QString::fromUtf16(kStayAtEnd), {});
    }
    if (!announced_) {
        announced_ = true;
        Q_EMIT documentLoaded();
    }
}

CHtmlCtrlFix::CHtmlCtrlFix(int controlId, HtmlContent content, HtmlListener& listener,
                           QWidget* parent)
    : CHtmlCtrlBase(controlId, content, TheHtmlEngine(), parent), listener_(listener) {}

CHtmlCtrlFix* CHtmlCtrlFix::CreateFromStatic(int controlId, QWidget& parent,
                                             HtmlListener& listener) {
    auto* place =
        parent.findChild<QWidget*>(QString::number(controlId), Qt::FindDirectChildrenOnly);
    auto* view = new CHtmlCtrlFix(controlId, HtmlContent::local, listener, &parent);
    if (place != nullptr) {
        view->setGeometry(place->geometry());
        if (parent.layout() != nullptr) {
            delete parent.layout()->replaceWidget(place, view);
        }
        delete place;
    }
    view->show();
    return view;
}

}  // namespace quorvi
