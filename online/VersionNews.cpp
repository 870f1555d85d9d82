#include "online/VersionNews.h"

#include <array>
#include <chrono>
#include <cstddef>

#include "base/Text.h"
#include "base/Xml.h"
#include "log/EventLog.h"

namespace quorvi {
namespace {

struct Detail {
    std::string_view element;
    NewsKind kind;
    std::u8string_view caption;
};
constexpr std::array kDetails{
    Detail{"add", NewsKind::added, u8"新增功能"},
    Detail{"update", NewsKind::improved, u8"常规改进"},
    Detail{"fix", NewsKind::mended, u8"漏洞修复"},
};

// Of the elements behind the version, by their positions.
constexpr std::array<std::u8string_view, 3> kDataCaptions{u8"手机参数", u8"祝福短信", u8"论坛映射"};

void ReadVersion(const XmlElement& block, VersionNews& news) {
    const std::vector<XmlElement> children = block.Children();
    if (!children.empty()) {
        news.newest = children.front().Text();
    }
    for (std::size_t i = 0; i < kDataCaptions.size() && i + 1 < children.size(); ++i) {
        news.rows.push_back({NewsKind::data, Ansi(kDataCaptions.at(i)), children[i + 1].Text()});
    }
}

void ReadDetails(const XmlElement& block, VersionNews& news) {
    for (const XmlElement& child : block.Children()) {
        for (const Detail& detail : kDetails) {
            if (child.Name() == detail.element) {
                news.rows.push_back({detail.kind, Ansi(detail.caption), child.Text()});
            }
        }
    }
}

}  // namespace

VersionNews ParseVersionNews(std::string_view xml) {
    VersionNews news;
    const XmlDocument document(xml);
    const auto root = document.Top("root");
    if (!root) {
        news.broken = true;
        return news;
    }
    for (const XmlElement& block : root->Descendants("item")) {
        const auto type = block.Attribute("type");
        if (!type) {
            news.broken = true;
            return news;
        }
        if (EqualsNoCase(*type, "version")) {
            ReadVersion(block, news);
        } else if (EqualsNoCase(*type, "detail")) {
            ReadDetails(block, news);
        }
    }
    return news;
}

VersionNews FetchVersionNews(const Deployment& deployment, const HttpLimits& limits) {
    const auto start = std::chrono::steady_clock::now();
    const HttpReply reply = HttpGet(deployment.siteRoot + "update.xml", limits);
    LogEvent("update.check", {{"status", LogValue::Count(reply.status)},
                              {"whole", LogValue::Flag(reply.whole)},
                              {"ms", LogValue::Since(start)}});
    return ParseVersionNews(reply.IsPage() ? reply.body : std::string_view());
}

}  // namespace quorvi
