// XML documents from outside. Any declared encoding is read; names and attributes are told apart by
// case. Of entities only those of XML itself and of character numbers are resolved: what a document
// declares, and what it refers to outside, stays a text, and nothing is ever fetched.
#pragma once

#include <cstddef>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

// A document of more bytes is refused.
inline constexpr std::size_t kMostXmlBytes = 4 << 20;
// So is one whose elements stand in each other deeper than this.
inline constexpr int kDeepestXml = 200;

// An element. Valid as long as its document. Texts are ANSI.
class XmlElement {
  public:
    explicit XmlElement(pugi::xml_node node) : node_(node) {}

    // UTF-8, as it is written.
    [[nodiscard]] std::string_view Name() const { return node_.name(); }
    [[nodiscard]] std::optional<std::string> Attribute(const char* name) const;
    // All text inside, that of the elements below too, without blanks and line ends around it.
    [[nodiscard]] std::string Text() const;
    // The elements right below, in their order.
    [[nodiscard]] std::vector<XmlElement> Children() const;
    // The first of this name right below.
    [[nodiscard]] std::optional<XmlElement> Child(std::string_view name) const;
    // All of this name below, at whatever depth, in the order of the document.
    [[nodiscard]] std::vector<XmlElement> Descendants(std::string_view name) const;
    // Where it begins: bytes from the start of the document, once that is UTF-8.
    [[nodiscard]] std::size_t Offset() const {
        return static_cast<std::size_t>(node_.offset_debug());
    }

  private:
    pugi::xml_node node_;
};

enum class XmlFault { none, tooLarge, tooDeep, malformed, unknownEncoding };

// Any thread, one at a time.
class XmlDocument {
  public:
    explicit XmlDocument(std::string_view bytes);

    // Without a fault there is a top element.
    [[nodiscard]] XmlFault Fault() const { return fault_; }
    // The line, from 1, of an offset, or of where the document is malformed.
    [[nodiscard]] std::size_t LineOf(std::size_t offset) const;
    [[nodiscard]] std::size_t FaultLine() const { return LineOf(faultOffset_); }
    // The top element, if it has this name and there is no fault.
    [[nodiscard]] std::optional<XmlElement> Top(std::string_view name) const;

  private:
    std::vector<std::size_t> lineEnds_;
    pugi::xml_document document_;
    XmlFault fault_ = XmlFault::none;
    std::size_t faultOffset_ = 0;
};

}  // namespace quorvi
