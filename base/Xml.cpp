#include "base/Xml.h"

#include <unicode/unistr.h>

#include <algorithm>

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr std::string_view kDeclaration = "<?xml";

// The encoding that the document's declaration names; empty for none.
std::string DeclaredEncoding(std::string_view bytes) {
    if (!bytes.starts_with(kDeclaration)) {
        return {};
    }
    const std::string_view declaration = bytes.substr(0, bytes.find("?>"));
    const std::size_t word = declaration.find("encoding");
    const std::size_t open = declaration.find_first_of("\"'", word);
    if (word == std::string_view::npos || open == std::string_view::npos) {
        return {};
    }
    const std::size_t end = declaration.find(declaration[open], open + 1);
    return end == std::string_view::npos
               ? std::string()
               : std::string(declaration.substr(open + 1, end - open - 1));
}

// The document in UTF-8; nothing where its encoding is not known. A mark of the byte order counts
// for more than what is declared.
std::optional<std::string> InUtf8(std::string_view bytes) {
    std::string encoding;
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        bytes.remove_prefix(3);
    } else if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
        encoding = "UTF-16";
    } else {
        encoding = DeclaredEncoding(bytes);
    }
    if (encoding.empty() || EqualsNoCase(encoding, "utf-8")) {
        return std::string(bytes);
    }
    // The national code page of documents from China, whatever name of its editions they bear.
    if (EqualsNoCase(encoding, "gb2312") || EqualsNoCase(encoding, "gbk")) {
        encoding = "gb18030";
    }
    const icu::UnicodeString text(bytes.data(), static_cast<std::int32_t>(bytes.size()),
                                  encoding.c_str());
    if (text.isEmpty()) {
        return std::nullopt;  // also for a name that nobody knows
    }
    std::string utf8;
    text.toUTF8String(utf8);
    return utf8;
}

class DepthWalker : public pugi::xml_tree_walker {
  public:
    [[nodiscard]] bool TooDeep() const { return tooDeep_; }
    bool for_each(pugi::xml_node&) override {
        tooDeep_ = depth() >= kDeepestXml;
        return !tooDeep_;
    }

  private:
    bool tooDeep_ = false;
};

class TextWalker : public pugi::xml_tree_walker {
  public:
    [[nodiscard]] std::string_view Text() const { return text_; }
    bool for_each(pugi::xml_node& node) override {
        if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) {
            text_ += node.value();
        }
        return true;
    }

  private:
    std::string text_;
};

class NameWalker : public pugi::xml_tree_walker {
  public:
    explicit NameWalker(std::string_view name) : name_(name) {}
    [[nodiscard]] std::vector<XmlElement> Found() && { return std::move(found_); }
    bool for_each(pugi::xml_node& node) override {
        if (node.type() == pugi::node_element && name_ == node.name()) {
            found_.emplace_back(node);
        }
        return true;
    }

  private:
    std::string_view name_;
    std::vector<XmlElement> found_;
};

}  // namespace

std::optional<std::string> XmlElement::Attribute(const char* name) const {
    const pugi::xml_attribute attribute = node_.attribute(name);
    return attribute ? std::optional(ToAnsi(attribute.value())) : std::nullopt;
}

std::string XmlElement::Text() const {
    TextWalker walker;
    pugi::xml_node(node_).traverse(walker);
    return ToAnsi(Trim(walker.Text()));
}

std::vector<XmlElement> XmlElement::Children() const {
    std::vector<XmlElement> children;
    for (const pugi::xml_node child : node_.children()) {
        if (child.type() == pugi::node_element) {
            children.emplace_back(child);
        }
    }
    return children;
}

std::optional<XmlElement> XmlElement::Child(std::string_view name) const {
    const std::vector<XmlElement> children = Children();
    const auto found = std::find_if(children.begin(), children.end(),
                                    [&](const XmlElement& child) { return child.Name() == name; });
    return found == children.end() ? std::nullopt : std::optional(*found);
}

std::vector<XmlElement> XmlElement::Descendants(std::string_view name) const {
    NameWalker walker(name);
    pugi::xml_node(node_).traverse(walker);
    return std::move(walker).Found();
}

XmlDocument::XmlDocument(std::string_view bytes) {
    if (bytes.size() > kMostXmlBytes) {
        fault_ = XmlFault::tooLarge;
        return;
    }
    const std::optional<std::string> utf8 = InUtf8(bytes);
    if (!utf8) {
        fault_ = XmlFault::unknownEncoding;
        return;
    }
    for (std::size_t end = utf8->find('\n'); end != std::string::npos;
         end = utf8->find('\n', end + 1)) {
        lineEnds_.push_back(end);
    }
    const pugi::xml_parse_result result =
        document_.load_buffer(utf8->data(), utf8->size(), pugi::parse_default, pugi::encoding_utf8);
    DepthWalker depth;
    if (!result || !document_.document_element()) {
        fault_ = XmlFault::malformed;
        faultOffset_ = static_cast<std::size_t>(std::max<std::ptrdiff_t>(result.offset, 0));
    } else if (!document_.traverse(depth) && depth.TooDeep()) {
        fault_ = XmlFault::tooDeep;
    }
}

std::size_t XmlDocument::LineOf(std::size_t offset) const {
    const auto next = std::lower_bound(lineEnds_.begin(), lineEnds_.end(), offset);
    return static_cast<std::size_t>(next - lineEnds_.begin()) + 1;
}

std::optional<XmlElement> XmlDocument::Top(std::string_view name) const {
    const pugi::xml_node top = document_.document_element();
    if (fault_ != XmlFault::none || name != top.name()) {
        return std::nullopt;
    }
    return XmlElement(top);
}

}  // namespace quorvi
