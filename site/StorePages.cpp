#include "site/StorePages.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/HtmlFragment.h"
#include "base/Text.h"
#include "base/Utf8.h"

namespace quorvi::site {
namespace {

// How many others of its category an application's page shows.
constexpr std::size_t kMostNeighbours = 3;

std::string Page(std::u8string_view title, const HtmlFragment& body) {
    HtmlFragment page(
        u8R"(<!DOCTYPE html>
<html lang="zh-CN">
<head>
<meta charset="utf-8">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; img-src 'self'; style-src 'self'; base-uri 'none'; form-action 'none'">
<title>)");
    page.Text(Ansi(title))
        .Own(
            u8R"(</title>
<link rel="stylesheet" href="/store/store.css">
</head>
<body>
)");
    page.Append(body);
    page.Own(
        u8"<footer>这里的应用都是虚构的样品，只能装到模拟手机上。</footer>\n</body>\n</html>\n");
    return ToUtf8(page.Html());
}

void AddPicture(HtmlFragment& html, const StoreApp& app, int side) {
    html.Own(u8"<img src=\"/store/pictures/").Text(app.picture);
    const std::string length = fmt::format("{}", side);
    html.Own(u8"\" width=\"").Text(length).Own(u8"\" height=\"").Text(length);
    html.Own(u8"\" alt=\"\">");
}

void AddStars(HtmlFragment& html, const StoreApp& app) {
    html.Own(u8"<img class=\"stars\" src=\"/store/pictures/rating-");
    html.Text(fmt::format("{}", app.stars)).Own(u8".svg\" width=\"90\" height=\"18\" alt=\"");
    html.Text(fmt::format("{}", app.stars)).Own(u8" 星\">");
}

// The link that the suite takes for the order to download a package.
void AddGet(HtmlFragment& html, const StoreApp& app) {
    html.Own(u8"<a class=\"get\" href=\"qvh:").Text(app.package);
    html.Own(u8".apk\">下载到手机</a>");
}

void AddItemLink(HtmlFragment& html, const StoreApp& app) {
    html.Own(u8"<a class=\"app\" href=\"/store/archives/");
    html.Text(fmt::format("{}", app.number)).Own(u8".html\">");
}

void AddCards(HtmlFragment& html, const std::vector<const StoreApp*>& apps) {
    html.Own(u8"<ol class=\"shelf\">\n");
    for (const StoreApp* app : apps) {
        html.Own(u8"<li>");
        AddItemLink(html, *app);
        AddPicture(html, *app, 48);
        html.Own(u8"<span><b>").Text(Ansi(app->name)).Own(u8"</b><span>");
        html.Text(Ansi(CategoryName(app->category))).Own(u8" · ").Text(SizeText(*app));
        html.Own(u8"</span>");
        AddStars(html, *app);
        html.Own(u8"</span></a>");
        AddGet(html, *app);
        html.Own(u8"</li>\n");
    }
    html.Own(u8"</ol>\n");
}

// One chip a shelf; the one that is shown is filled.
void AddChips(HtmlFragment& html, std::string_view shown) {
    html.Own(u8"<nav>");
    for (const Shelf& shelf : Shelves()) {
        if (shelf.chip.empty()) {
            continue;
        }
        const bool first = shelf.word == Shelves().front().word;
        html.Own(u8"<a href=\"/store/");
        html.Text(first ? "" : fmt::format("list/{}.html", shelf.word)).Own(u8"\"");
        if (shelf.word == shown) {
            html.Own(u8" class=\"on\" aria-current=\"page\"");
        }
        html.Own(u8">").Text(Ansi(shelf.chip)).Own(u8"</a>");
    }
    html.Own(u8"</nav>\n");
}

void AddShelf(HtmlFragment& html, const Shelf& shelf, bool withMore) {
    html.Own(u8"<h2>").Text(Ansi(shelf.title));
    if (withMore) {
        html.Own(u8"<a href=\"/store/list/all.html\">更多</a>");
    } else {
        html.Own(u8"<small>").Text(fmt::format("{}", shelf.apps.size())).Own(u8" 款</small>");
    }
    html.Own(u8"</h2>\n");
    AddCards(html, shelf.apps);
}

// What a screen of an application may show, as drawings in its colour, 132 by 220.
constexpr OwnMarkup kListScreen =
    u8R"(<g fill-opacity=".18"><rect x="12" y="42" width="28" height="28" rx="6"/><rect x="12" y="82" width="28" height="28" rx="6"/><rect x="12" y="122" width="28" height="28" rx="6"/><rect x="12" y="162" width="28" height="28" rx="6"/></g>
<g fill-opacity=".42"><rect x="48" y="46" width="56" height="6" rx="3"/><rect x="48" y="86" width="44" height="6" rx="3"/><rect x="48" y="126" width="62" height="6" rx="3"/><rect x="48" y="166" width="38" height="6" rx="3"/></g>
<g fill-opacity=".16"><rect x="48" y="60" width="72" height="6" rx="3"/><rect x="48" y="100" width="64" height="6" rx="3"/><rect x="48" y="140" width="70" height="6" rx="3"/><rect x="48" y="180" width="58" height="6" rx="3"/></g>
)";
constexpr OwnMarkup kWelcomeScreen =
    u8R"(<circle cx="66" cy="92" r="44" fill-opacity=".14"/>
<rect x="30" y="148" width="72" height="7" rx="3.5" fill-opacity=".42"/>
<g fill-opacity=".16"><rect x="18" y="162" width="96" height="6" rx="3"/><rect x="30" y="173" width="72" height="6" rx="3"/></g>
<rect x="30" y="189" width="72" height="20" rx="10"/>
)";
constexpr OwnMarkup kOverviewScreen =
    u8R"(<g fill-opacity=".14"><rect x="12" y="42" width="108" height="66" rx="8"/><rect x="12" y="118" width="50" height="40" rx="8"/><rect x="70" y="118" width="50" height="40" rx="8"/><rect x="12" y="168" width="50" height="40" rx="8"/><rect x="70" y="168" width="50" height="40" rx="8"/></g>
<g fill-opacity=".5"><rect x="24" y="82" width="10" height="16" rx="2"/><rect x="42" y="70" width="10" height="28" rx="2"/><rect x="60" y="76" width="10" height="22" rx="2"/><rect x="78" y="58" width="10" height="40" rx="2"/><rect x="96" y="66" width="10" height="32" rx="2"/></g>
<g fill-opacity=".42"><rect x="20" y="128" width="26" height="6" rx="3"/><rect x="78" y="128" width="30" height="6" rx="3"/><rect x="20" y="178" width="30" height="6" rx="3"/><rect x="78" y="178" width="22" height="6" rx="3"/></g>
)";

void AddScreen(HtmlFragment& html, const StoreApp& app, OwnMarkup drawing, bool withSign) {
    html.Own(
        u8R"(<svg width="132" height="220" viewBox="0 0 132 220" role="img" aria-label="界面示意">
<rect width="132" height="220" fill="#fff"/><rect width="132" height="30" fill=")");
    html.Text(app.colour)
        .Own(
            u8R"("/>
<text x="12" y="20" fill="#fff" font-size="12">)");
    html.Text(Ansi(app.name)).Own(u8"</text>\n<g fill=\"").Text(app.colour).Own(u8"\">\n");
    html.Own(drawing).Own(u8"</g>");
    if (withSign) {
        html.Own(u8"<image x=\"42\" y=\"68\" width=\"48\" height=\"48\" href=\"/store/pictures/");
        html.Text(app.picture).Own(u8"\"/>");
    }
    html.Own(u8"</svg>\n");
}

void AddFact(HtmlFragment& html, OwnMarkup caption, std::string_view text) {
    html.Own(u8"<li><span>").Own(caption).Own(u8"</span>").Text(text).Own(u8"</li>");
}

std::vector<const StoreApp*> NeighboursOf(const StoreApp& app) {
    std::vector<const StoreApp*> neighbours;
    for (const StoreApp& other : StoreApps()) {
        if (other.category == app.category && other.number != app.number &&
            neighbours.size() < kMostNeighbours) {
            neighbours.push_back(&other);
        }
    }
    return neighbours;
}

// A page that has nothing to show but what happened and what to do.
std::string NothingPage(std::u8string_view title, const HtmlFragment& sentence) {
    HtmlFragment html;
    AddChips(html, "");
    html.Own(
        u8"<div class=\"none\"><img src=\"/store/pictures/nothing.svg\" width=\"144\" "
        u8"height=\"112\" alt=\"\"><h1>");
    html.Text(Ansi(title)).Own(u8"</h1><p>").Append(sentence).Own(u8"</p></div>\n");
    if (const Shelf* week = ShelfOfWord("week")) {
        AddShelf(html, *week, true);
    }
    return Page(title, html);
}

}  // namespace

std::string FirstPage() {
    HtmlFragment html;
    if (const Shelf* summer = ShelfOfWord("summer")) {
        html.Own(u8"<a class=\"top\" href=\"/store/list/summer.html\"><span><strong>");
        html.Text(Ansi(summer->title));
        html.Own(u8"</strong>地图、天气、听书，六款小软件陪您上路</span><span class=\"pics\">");
        for (std::size_t i = 0; i < 3; ++i) {
            AddPicture(html, *summer->apps.at(i), 48);
        }
        html.Own(u8"</span></a>\n");
    }
    AddChips(html, "week");
    for (const std::string_view word : {"week", "new"}) {
        if (const Shelf* shelf = ShelfOfWord(word)) {
            AddShelf(html, *shelf, true);
        }
    }
    return Page(u8"软件商城", html);
}

std::string ShelfPage(const Shelf& shelf) {
    HtmlFragment html;
    AddChips(html, shelf.word);
    AddShelf(html, shelf, false);
    return Page(shelf.title, html);
}

std::string ItemPage(const StoreApp& app) {
    HtmlFragment html(u8"<div class=\"item\">");
    AddPicture(html, app, 72);
    html.Own(u8"<div><h1>").Text(Ansi(app.name)).Own(u8"</h1><p>");
    html.Text(Ansi(app.summary)).Own(u8"</p>");
    AddStars(html, app);
    html.Own(u8"</div>");
    AddGet(html, app);
    html.Own(u8"</div>\n<h2>简介</h2>\n<p class=\"story\">").Text(Ansi(app.story));
    html.Own(u8"</p>\n<h2>应用信息</h2>\n<ul class=\"facts\">");
    AddFact(html, u8"分类", Ansi(CategoryName(app.category)));
    AddFact(html, u8"大小", SizeText(app));
    AddFact(html, u8"版本", app.version);
    AddFact(html, u8"包名", app.package);
    html.Own(u8"</ul>\n<h2>界面</h2>\n<div class=\"screens\">\n");
    AddScreen(html, app, kWelcomeScreen, true);
    AddScreen(html, app, kListScreen, false);
    AddScreen(html, app, kOverviewScreen, false);
    html.Own(u8"</div>\n");
    if (const auto neighbours = NeighboursOf(app); !neighbours.empty()) {
        html.Own(u8"<h2>同类应用</h2>\n");
        AddCards(html, neighbours);
    }
    return Page(app.name, html);
}

std::string SearchPage(std::string_view keywords) {
    const auto found = FindApps(keywords);
    const std::string shown = ToAnsi(keywords);
    if (found.empty()) {
        HtmlFragment sentence(u8"没有哪个应用提到“");
        sentence.Text(shown).Own(u8"”，换一个短一点的词再搜，或者看看下面的推荐。");
        return NothingPage(u8"没有找到应用", sentence);
    }
    HtmlFragment html;
    AddChips(html, "");
    html.Own(u8"<h2>搜索“").Text(shown).Own(u8"”<small>");
    html.Text(fmt::format("{}", found.size())).Own(u8" 款</small></h2>\n");
    AddCards(html, found);
    return Page(u8"搜索结果", html);
}

std::string BrokenSearchPage() {
    return NothingPage(u8"没有收到完整的搜索词",
                       HtmlFragment(u8"请换一个不带符号的词，在窗口上方的搜索框里再搜一次。"));
}

std::string LostPage() {
    return NothingPage(u8"没有这一页",
                       HtmlFragment(u8"它可能已经下架了，请按“商城主页”回到首页。"));
}

}  // namespace quorvi::site
