#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "base/Text.h"
#include "refdata/PhoneSpecs.h"

namespace quorvi {
namespace {

class Check {
  public:
    explicit Check(std::string_view bytes) : file_(bytes) {}

    std::vector<SpecsFinding> Run() && {
        if (file_.Fault() != XmlFault::none) {
            Find(file_.FaultLine(), FaultText(file_.Fault()));
        } else if (const auto top = file_.Top("main")) {
            Look(*top);
        } else {
            Find(1, u8"最外层的元素应当是 main。");
        }
        std::stable_sort(
            findings_.begin(), findings_.end(),
            [](const SpecsFinding& a, const SpecsFinding& b) { return a.line < b.line; });
        return std::move(findings_);
    }

  private:
    static std::u8string_view FaultText(XmlFault fault) {
        switch (fault) {
            case XmlFault::tooLarge:
                return u8"文件超过 4 MB。";
            case XmlFault::tooDeep:
                return u8"元素嵌套过深。";
            case XmlFault::unknownEncoding:
                return u8"不认识文件声明的编码，请使用 UTF-8。";
            case XmlFault::malformed:
            case XmlFault::none:
                break;
        }
        return u8"从这里起不是有效的 XML。";
    }

    void Find(std::size_t line, std::u8string_view text) {
        findings_.push_back({line, Ansi(text)});
    }
    // `text` stands behind the name of the element.
    void Find(const XmlElement& element, std::u8string_view text) {
        findings_.push_back({file_.LineOf(element.Offset()),
                             fmt::format("{}: {}", ToAnsi(element.Name()), Ansi(text))});
    }

    void Look(const XmlElement& top) {
        for (const SpecsPlatform& platform : kSpecsPlatforms) {
            if (!top.Child(platform.element)) {
                findings_.push_back(
                    {file_.LineOf(top.Offset()),
                     fmt::format("{}: {}", platform.element, Ansi(u8"缺少这个平台。"))});
            }
        }
        std::set<std::string_view> seen;
        for (const XmlElement& section : top.Children()) {
            const bool known = std::any_of(
                kSpecsPlatforms.begin(), kSpecsPlatforms.end(),
                [&](const SpecsPlatform& one) { return one.element == section.Name(); });
            if (!known) {
                Find(section, u8"没有这个平台，它的内容不会显示。");
            } else if (!seen.insert(section.Name()).second) {
                Find(section, u8"这个平台已经出现过，后一个不会显示。");
            } else {
                LookAtMakers(section);
            }
        }
    }

    void LookAtMakers(const XmlElement& section) {
        std::set<std::string_view> seen;
        for (const XmlElement& maker : section.Children()) {
            if (!seen.insert(maker.Name()).second) {
                Find(maker, u8"这个平台中已有同名的厂商元素，它的机型不会显示。");
            }
            if (maker.Attribute("manufacturer").value_or(std::string()).empty()) {
                Find(maker, u8"缺少属性 manufacturer，厂商没有名称。");
            }
            const std::vector<XmlElement> models = maker.Descendants("item");
            if (models.empty()) {
                Find(maker, u8"没有机型（item）。");
            }
            for (const XmlElement& model : models) {
                LookAtModel(model);
            }
        }
    }

    void LookAtModel(const XmlElement& model) {
        if (model.Attribute("device").value_or(std::string()).empty()) {
            Find(model, u8"缺少属性 device，机型没有名称。");
        }
        const std::size_t values = model.Children().size();
        if (values != kSpecCaptions.size()) {
            findings_.push_back({file_.LineOf(model.Offset()),
                                 fmt::format("{}: {}", ToAnsi(model.Name()),
                                             Ansi(u8"应有 18 项参数，实有 ") +
                                                 fmt::format("{}", values) + Ansi(u8" 项。"))});
        }
    }

    XmlDocument file_;
    std::vector<SpecsFinding> findings_;
};

}  // namespace

std::vector<SpecsFinding> CheckSpecs(std::string_view bytes) {
    return Check(bytes).Run();
}

}  // namespace quorvi
