// Texts from the phone in a view that are written to do harm: none of them acts, and none leaves
// its own place.
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

#include "base/Text.h"
#include "tests/ui/html/HtmlCtrlFixture.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

struct Hostile {
    const char* name;
    const char* text;  // UTF-8; %1 is the web server's root
};

void PrintTo(const Hostile& hostile, std::ostream* out) {
    *out << hostile.name;
}

class ForeignText : public HtmlCtrl, public testing::WithParamInterface<Hostile> {
  protected:
    // A text from the phone, and a link of the program's behind it.
    void ShowText(std::string_view text) {
        view_->SetInnerHtml("block", HtmlFragment(u8"<div id=text>")
                                         .Foreign(text)
                                         .Own(u8"</div><p id=after>then <a id=own href='qvh:own'>"
                                              u8"own</a></p>"));
    }
    void ShowHostile() {
        ShowText(ToAnsi(ReplaceAll(GetParam().text, "%1", server_.Url().toStdString())));
    }

    // What of the text the Tab key would stop at, or other markup could name.
    QString ActingElements() {
        return Ask(QStringLiteral(
                       "[...document.querySelectorAll('#text foreign-text *')].filter(e =>"
                       "e.tabIndex >= 0 || ['id', 'class', 'name', 'style', 'href', 'accesskey',"
                       "'autofocus', 'contenteditable', 'action', 'formaction', 'usemap']"
                       ".some(name => e.hasAttribute(name))).map(e => e.outerHTML).join()"))
            .toString();
    }
    // Clicks everything that the view shows but the program's link.
    void ClickAround() {
        const QVariantList middles =
            Ask(QStringLiteral("[...document.querySelectorAll('body, #block *')]"
                               ".filter(e => !e.closest('#own')).map(e => e.getClientRects()[0])"
                               ".filter(r => r).map(r => [r.x + r.width / 2, r.y + r.height / 2])"))
                .toList();
        ASSERT_FALSE(middles.empty());
        for (const QVariant& middle : middles) {
            const QPoint at(middle.toList()[0].toInt(), middle.toList()[1].toInt());
            for (const auto button : {Qt::LeftButton, Qt::MiddleButton}) {
                ClickHtmlAt(*view_, at, button);
            }
        }
    }
    // By then all that was done before has had its effect.
    void ClickOwn() { ClickUntilHeard(QStringLiteral("#own")); }
    // Where the program's link stands, and how it and its line look.
    QJsonObject Following() {
        return QJsonDocument::fromJson(
                   Ask(QStringLiteral(
                           "JSON.stringify((() => {"
                           "const own = document.querySelector('#own');"
                           "const line = document.querySelector('#after');"
                           "const rect = own.getBoundingClientRect();"
                           "const x = rect.x + rect.width / 2, y = rect.y + rect.height / 2;"
                           "const look = e => { const s = getComputedStyle(e); return ["
                           "s.display, s.visibility, s.position, s.color, s.backgroundColor,"
                           "s.fontSize, s.fontWeight, s.fontStyle, s.fontFamily, s.whiteSpace,"
                           "s.textDecorationLine, s.textAlign, s.direction, s.opacity,"
                           "s.pointerEvents].join(' '); };"
                           "return {markup: line.outerHTML, within: line.parentElement.id,"
                           "lines: line.parentElement.children.length, link: look(own),"
                           "line: look(line), left: rect.x, width: rect.width,"
                           "inFront: document.elementFromPoint(x, y)?.id}; })())"))
                       .toString()
                       .toUtf8())
            .object();
    }
};

TEST_P(ForeignText, DoesNothingAndFetchesNothing) {
    ShowBlock();
    ShowHostile();
    EXPECT_EQ(ActingElements(), QString());
    ClickAround();
    ClickOwn();
    EXPECT_EQ(std::ranges::count(owner_.commands, "own"), std::ssize(owner_.commands));
    EXPECT_EQ(server_.connections, 0);
    EXPECT_EQ(view_->Browser()->url(), BlankTemplateUrl());
    // A script that had run would have left its mark in the document, which all worlds share.
    EXPECT_FALSE(Ask(QStringLiteral("document.documentElement.hasAttribute('ran')")).toBool());
}

TEST_P(ForeignText, LeavesWhatFollowsAsItIs) {
    ShowBlock();
    ShowText("x");
    const QJsonObject before = Following();
    ASSERT_EQ(before[QStringLiteral("inFront")], QStringLiteral("own"));
    ShowHostile();
    EXPECT_EQ(Following(), before);
}

#define RAN "document.documentElement.setAttribute(&quot;ran&quot;,1)"

constexpr Hostile kHostile[] = {
    {"Script", "<script>document.documentElement.setAttribute('ran',1)</script>"},
    {"ScriptOfTheSite", "<script src='%1x.js'></script>"},
    {"ScriptModule", "<script type=module>import '%1x.js'</script>"},
    {"ErrorAttribute", "<img src='none.png' onerror='" RAN "'>"},
    {"LoadAttribute", "<svg onload='" RAN "'></svg>"},
    {"ToggleAttribute", "<details open ontoggle='" RAN "'>x</details>"},
    {"ClickAttribute", "<p onclick='" RAN "'>x</p>"},
    {"FocusAttribute", "<input autofocus onfocus='" RAN "'>"},
    {"ScriptInSvg", "<svg><script>document.documentElement.setAttribute('ran',1)</script></svg>"},
    {"ScriptLink", "<a href='javascript:" RAN "'>x</a>"},
    {"ScriptLinkInSvg",
     "<svg width=80 height=40><a href='javascript:" RAN "'><rect width=80 height=40 /></a></svg>"},
    {"WebLink", "<a href='%1page'>x</a>"},
    {"WebLinkInNewWindow", "<a target=_blank href='%1page'>x</a>"},
    {"DownloadLink", "<a download=x href='%1page'>x</a>"},
    {"PingLink", "<a ping='%1ping' href='#there'>x</a>"},
    {"FileLink", "<a href='file:///etc/passwd'>x</a>"},
    {"DataLink", "<a href='data:text/html,gone'>x</a>"},
    {"BlobLink", "<a href='blob:null/x'>x</a>"},
    {"BlankLink", "<a href='about:blank'>x</a>"},
    {"ResourceLink", "<a href='qrc:/views/contact.html'>x</a>"},
    {"BrowserLink", "<a href='chrome://version'>x</a>"},
    {"SourceLink", "<a href='view-source:%1page'>x</a>"},
    {"FtpLink", "<a href='ftp://127.0.0.1/x'>x</a>"},
    {"MailLink", "<a href='mailto:a@example.com'>x</a>"},
    {"PhoneLink", "<a href='tel:10086'>x</a>"},
    {"IntentLink", "<a href='intent://x#Intent;end'>x</a>"},
    {"SocketLink", "<a href='ws://127.0.0.1/x'>x</a>"},
    {"SchemeThatBeginsLikeOurs", "<a href='qvh2:did=1'>x</a>"},
    {"ImageMap",
     "<img usemap='#m' src='w_os.gif'><map name=m>"
     "<area shape=default href='%1page'></map>"},
    {"Form", "<form action='%1page'><input type=submit></form>"},
    {"FormByPost", "<form method=post action='%1page'><button>x</button></form>"},
    {"FormThatCommands", "<form action='qvh:did=1'><button>x</button></form>"},
    {"ButtonWithItsOwnAction", "<form><button formaction='%1page'>x</button></form>"},
    {"Frame", "<iframe src='%1page'></iframe>"},
    {"FrameWithText", "<iframe srcdoc='<img src=%1x.png>'></iframe>"},
    {"FrameThatCommands", "<iframe src='qvh:did=1'></iframe>"},
    {"Object", "<object data='%1page'></object>"},
    {"Embed", "<embed src='%1page'>"},
    {"Image", "<img src='%1x.png'>"},
    {"ImageSet", "<img srcset='%1x.png 1x, %1y.png 2x'>"},
    {"Picture", "<picture><source srcset='%1x.png'><img src='w_os.gif'></picture>"},
    {"ImageInSvg", "<svg><image href='%1x.png' width=9 height=9 /></svg>"},
    {"UseInSvg", "<svg><use href='%1x.svg#x' /></svg>"},
    {"FilterInSvg", "<svg><filter><feImage href='%1x.png' /></filter></svg>"},
    {"InputImage", "<input type=image src='%1x.png'>"},
    {"Video", "<video autoplay src='%1x.mp4' poster='%1x.png'></video>"},
    {"Audio", "<audio autoplay><source src='%1x.mp3'></audio>"},
    {"Track", "<video><track default src='%1x.vtt'></video>"},
    {"Background", "<table background='%1x.png'><tr><td>x</table>"},
    {"StyleAttribute", "<p style='background:url(%1x.png)'>x</p>"},
    {"StyleElement", "<style>@import '%1x.css'; p { background: url(%1x.png) }</style><p>x</p>"},
    {"FontFace", "<style>@font-face{font-family:f;src:url(%1f)} p{font-family:f}</style><p>x</p>"},
    {"StyleSheet", "<link rel=stylesheet href='%1x.css'>"},
    {"Preconnect", "<link rel=preconnect href='%1'>"},
    {"Prefetch", "<link rel=prefetch href='%1x'>"},
    {"Preload", "<link rel=preload as=image href='%1x.png'>"},
    {"Prerender", "<link rel=prerender href='%1x'>"},
    {"Icon", "<link rel=icon href='%1x.ico'>"},
    {"Manifest", "<link rel=manifest href='%1x.json'>"},
    {"Base", "<base href='%1'><img src='x.png'>"},
    {"Refresh", "<meta http-equiv=refresh content='0;url=%1page'>"},
    {"RefreshThatCommands", "<meta http-equiv=refresh content='0;url=qvh:did=1'>"},
    {"RefreshThatRuns", "<meta http-equiv=refresh content='0;url=javascript:" RAN "'>"},
    {"MarkupAcrossParsers",
     "<svg><style><img title='</style><img src=%1x.png onerror=" RAN ">'></svg>"},
    {"TemplateWithShadow", "<div><template shadowroot=open><img src='%1x.png'></template></div>"},
    {"PrivateLink", "<a href='qvh:did=6'>x</a>"},
    {"PrivateLinkInCapitals", "<A HREF=QVH:did=6>x</A>"},
    {"PrivateLinkInEntities", "<a href='&#113;&#x76;h&colon;did=6'>x</a>"},
    {"PrivateLinkWithBlanks", "<a href=' q\tv\nh:did=6'>x</a>"},
    {"PrivateLinkWithALineBreakInEntities", "<a href='q&NewLine;v&Tab;h:did=6'>x</a>"},
    {"PrivateLinkInBold", "<b><i><a href='qvh:did=6'>x</i></b>y</a>"},
    {"PrivateLinkLeftOpen", "<a href='qvh:did=6'>"},
    {"PrivateLinkInATagLeftOpen", "<a href='qvh:did=6' x"},
    {"PrivateLinkInAnAttributeLeftOpen", "<a href='qvh:did=6' title='"},
    {"PrivateLinkBehindClosingTags", "</p></div></div></ul><a href='qvh:did=6'>x</a><div><div>"},
    {"PrivateLinkBehindTheEndOfTheDocument", "</body></html><a href='qvh:did=6'>x</a>"},
    {"PrivateLinkBehindAComment", "<!-- --><a href='qvh:did=6'>x</a><!--"},
    {"PrivateLinkInWhatIsNoComment", "<!--><a href='qvh:did=6'>x</a>-->"},
    {"PrivateLinkInARawText", "<style></style><a href='qvh:did=6'>x</a><style>"},
    {"PrivateLinkInATemplate", "<template><a href='qvh:did=6'>x</a></template>"},
    {"PrivateLinkInAShadow",
     "<div><template shadowroot=open shadowrootmode=open><a href='qvh:did=6'>x</a></template>"
     "</div>"},
    {"PrivateLinkInATable", "<table><a href='qvh:did=6'>x</a><tr><td></a>y</td></tr></table>"},
    {"PrivateLinkInSelect", "<select><option><a href='qvh:did=6'>x</a></select>"},
    {"PrivateLinkInSvg",
     "<svg width=80 height=40><a href='qvh:did=6'><rect width=80 height=40 /></a></svg>"},
    {"PrivateLinkInSvgOfOld",
     "<svg width=80 height=40><a xlink:href='qvh:did=6'><text y=20>x</text></a></svg>"},
    {"PrivateLinkInSvgsForeignObject",
     "<svg><foreignObject width=80 height=40><a href='qvh:did=6'>x</a></foreignObject></svg>"},
    {"PrivateLinkSetInSvg",
     "<svg width=80 height=40><a><set attributeName=href to='qvh:did=6'></set>"
     "<rect width=80 height=40 /></a></svg>"},
    {"PrivateLinkInMath", "<math href='qvh:did=6'><mtext>x</mtext></math>"},
    {"PrivateLinkAcrossParsers",
     "<math><mtext><table><mglyph><style><!--</style><a href='qvh:did=6'>x</a>"},
    {"PrivateLinkOfABase", "<base href='qvh:did=6'><a href=''>x</a>"},
    {"PrivateLinkInANewWindow", "<a target=_blank href='qvh:did=6'>x</a>"},
    {"PrivateLinkOfTheProgramsForm",
     "</a></span></li><li><span class=tool><a href='qvh:did=6'>x</a> </span>"},
    {"PrivateLinkOfThePlace", "</foreign-text><foreign-text><a href='qvh:did=6'>x</a>"},
    {"PrivateLinkInAFrame", "<iframe srcdoc=\"<a href='qvh:did=6'>x</a>\"></iframe>"},
    {"PrivateLinkOverAll",
     "<a href='qvh:did=6' style='position:fixed;top:0;left:0;width:100%;height:100%'>x</a>"},
    {"PrivateLinkThatAsksForTheFocus",
     "<a href='qvh:did=6' tabindex=1 accesskey=a autofocus>x</a>"},
    {"PrivateMap",
     "<img usemap='#m' src='w_os.gif' width=80 height=40><map name=m>"
     "<area shape=default href='qvh:did=6'></map>"},
    {"PrivateForm", "<form action='qvh:did=6'><button>x</button>"},
    {"PrivateFormByPost", "<form action='qvh:did=6' method=post><input type=submit value=x>"},
    {"PrivateButton", "<form><button formaction='qvh:did=6'>x</button></form>"},
    {"PrivatePicture", "<form><input type=image src='w_os.gif' formaction='qvh:did=6'></form>"},
    {"PrivateDialog", "<dialog open><form action='qvh:did=6'><button>x</button></form></dialog>"},
    {"PrivateObject", "<object data='qvh:did=6'></object><embed src='qvh:did=6'>"},
    {"PrivateImage", "<img src='qvh:did=6'>"},
    {"PrivateStyleSheet", "<link rel=stylesheet href='qvh:did=6'>"},
    {"BoldLeftOpen", "<b>x"},
    {"ManyLeftOpen", "<b><i><u><font color=red size=7><center><h1><pre><small>x"},
    {"TextAreaLeftOpen", "<textarea>x"},
    {"TitleLeftOpen", "<title>x"},
    {"PlainText", "<plaintext>x"},
    {"CommentLeftOpen", "x<!-- "},
    {"TagLeftOpen", "x<b title=\""},
    {"SelectLeftOpen", "<select><option>x"},
    {"TableLeftOpen", "<table><tr><td>x"},
    {"ListLeftOpen", "<ul><li>x<dl><dd>"},
    {"ButtonLeftOpen", "<button>x"},
    {"FormLeftOpen", "<form><fieldset disabled>x"},
    {"DetailsLeftOpen", "<details>x"},
    {"MarqueeLeftOpen", "<marquee>x"},
    {"RubyLeftOpen", "<ruby>x<rt>y"},
    {"BodyOfItsOwn", "<html><head></head><body bgcolor=red text=white link=white>x"},
    {"StyleOfItsOwn", "<style>* { display: none !important }</style>x"},
    {"StyleLeftOpen", "x<style>* { display: none }"},
    {"StyleThatCoversAll", "<div style='position:fixed;inset:0;background:red;z-index:9'>x</div>"},
    {"ClassOfTheProgram", "<div class='none'>x</div><p class=clear>y"},
    {"IdsOfTheProgram", "<div id=block>x</div><p id=after>y</p><i id=own name=own>z</i>"},
    {"DirectionOverride", "x\u202E\u2067y"},
    {"DirectionOfItsOwn", "<bdo dir=rtl>x<p dir=rtl>y"},
    {"ControlCharacters", "x\u0001\u007F"},
};

INSTANTIATE_TEST_SUITE_P(All, ForeignText, testing::ValuesIn(kHostile),
                         [](const auto& hostile) { return std::string(hostile.param.name); });

struct Shown {
    const char* name;
    std::string_view text;
    std::u8string_view html;  // inside of the text's own element
};

void PrintTo(const Shown& shown, std::ostream* out) {
    *out << shown.name;
}

class ForeignTextShown : public HtmlCtrl, public testing::WithParamInterface<Shown> {};

TEST_P(ForeignTextShown, IsWordsAndTheirForm) {
    ShowBlock().SetInnerHtml("block", HtmlFragment().Foreign(ToAnsi(GetParam().text)));
    // A text without markup stands for itself.
    EXPECT_EQ(Ask(QStringLiteral("(document.querySelector('foreign-text') ??"
                                 "document.querySelector('#block')).innerHTML"))
                  .toString(),
              ToQString(GetParam().html));
}

using namespace std::string_view_literals;

INSTANTIATE_TEST_SUITE_P(
    All, ForeignTextShown,
    testing::Values(
        Shown{"Plain", "三月 > 二月", u8"三月 &gt; 二月"},
        Shown{"Entity", "a &lt; b &amp; c", u8"a &lt; b &amp; c"},
        Shown{"Bold", "a <b>b</B> c", u8"a <b>b</b> c"},
        Shown{"BoldLeftOpen", "a <b>b", u8"a <b>b</b>"},
        Shown{"Colour", "<font color=red style='x' onclick=y>r</font>",
              u8"<font color=\"red\">r</font>"},
        Shown{"Link", "<a href='qvh:did=6' class=x>read <i>on</i></a>", u8"read <i>on</i>"},
        Shown{"Unknown", "<SP号码>10655", u8"10655"},
        Shown{"Lines", "one<br>two<p align=right>three", u8"one<br>two<p>three</p>"},
        Shown{"Picture", "<img src=w_os.gif usemap='#m' alt=p>",
              u8"<img src=\"w_os.gif\" alt=\"p\">"},
        Shown{"Script", "a<script>b</script><style>c</style><!-- d -->e", u8"ae"},
        Shown{"Svg", "<svg><a href='qvh:1'><text>words</text></a><style>x</style></svg>",
              u8"words"},
        Shown{"ControlsLeaveTheirWords", "<button>press</button><textarea>type</textarea>",
              u8"presstype"},
        Shown{"Nul", "a\0b"sv, u8"ab"}, Shown{"NulInMarkup", "<b>a\0b</b>"sv, u8"<b>ab</b>"},
        Shown{"CarriageReturns", "a\r\nb\rc\nd", u8"a\nb\nc\nd"}, Shown{"Empty", "", u8""}),
    [](const auto& shown) { return std::string(shown.param.name); });

TEST_F(HtmlCtrl, EachTextFromThePhoneStandsInItsOwnPlace) {
    ShowBlock().SetInnerHtml("block", HtmlFragment(u8"<b>")
                                          .Foreign("one")
                                          .Own(u8"</b><i>")
                                          .Foreign("<u>two")
                                          .Own(u8"</i>")
                                          .Foreign("")
                                          .Text("<&>"));
    EXPECT_EQ(InnerHtml(QStringLiteral("block")),
              QStringLiteral("<b>one</b><i><foreign-text><u>two</u></foreign-text></i>"
                             "&lt;&amp;&gt;"));
}

}  // namespace
}  // namespace quorvi
