#include <gtest/gtest.h>

#include <string>

#include "base/Text.h"
#include "base/Xml.h"

namespace quorvi {
namespace {

// What a document's top element `a` holds.
std::string TextOfTop(std::string_view bytes) {
    const XmlDocument document(bytes);
    const auto top = document.Top("a");
    return top ? top->Text() : "none";
}

TEST(Xml, GivesTheTextOfAllThatIsInsideWithoutTheBlanksAround) {
    EXPECT_EQ(TextOfTop("<a>\n  one <b>two</b><![CDATA[ <three>]]>\n</a>"), "one two <three>");
}

TEST(Xml, ChildrenAreElementsAlone) {
    const XmlDocument document("<a>text<!-- words --><b x='1'/><?do it?><c/></a>");
    const auto children = document.Top("a").value().Children();
    ASSERT_EQ(children.size(), 2U);
    EXPECT_EQ(children[0].Name(), "b");
    EXPECT_EQ(children[0].Attribute("x"), "1");
    EXPECT_EQ(children[0].Attribute("y"), std::nullopt);
    EXPECT_EQ(children[1].Name(), "c");
}

TEST(Xml, DescendantsStandInTheOrderOfTheDocumentAtWhateverDepth) {
    const XmlDocument document("<a><item n='1'><item n='2'/></item><b><item n='3'/></b></a>");
    std::string order;
    for (const XmlElement& item : document.Top("a").value().Descendants("item")) {
        order += item.Attribute("n").value();
    }
    EXPECT_EQ(order, "123");
}

TEST(Xml, TellsTheTopElementByItsName) {
    EXPECT_FALSE(XmlDocument("<A/>").Top("a").has_value());
    EXPECT_TRUE(XmlDocument("<a/>").Top("a").has_value());
}

TEST(Xml, ReadsWhatTheDocumentDeclaresItselfToBe) {
    const std::string sea = Ansi(u8"海");
    EXPECT_EQ(TextOfTop("<?xml version='1.0' encoding='UTF-8'?><a>\xE6\xB5\xB7</a>"), sea);
    EXPECT_EQ(TextOfTop("<a>\xE6\xB5\xB7</a>"), sea);
    EXPECT_EQ(TextOfTop("\xEF\xBB\xBF<a>\xE6\xB5\xB7</a>"), sea);
    EXPECT_EQ(TextOfTop("<?xml version=\"1.0\" encoding=\"gb2312\"?><a>\xBA\xA3</a>"), sea);
    EXPECT_EQ(TextOfTop("<?xml version=\"1.0\" encoding=\"GBK\"?><a>\xBA\xA3</a>"), sea);
    EXPECT_EQ(TextOfTop("<?xml version='1.0' encoding='big5'?><a>\xAE\xFC</a>"), sea);
}

TEST(Xml, ReadsSixteenBitsACharacter) {
    const std::u16string text = u"\uFEFF<a>海</a>";
    EXPECT_EQ(TextOfTop({reinterpret_cast<const char*>(text.data()), text.size() * 2}),
              Ansi(u8"海"));
}

TEST(Xml, AnEncodingThatNobodyKnowsIsAFault) {
    EXPECT_EQ(XmlDocument("<?xml version='1.0' encoding='x-nobody'?><a/>").Fault(),
              XmlFault::unknownEncoding);
}

TEST(Xml, ResolvesItsOwnEntitiesAndNoOther) {
    EXPECT_EQ(
        TextOfTop("<!DOCTYPE a [<!ENTITY more 'much'><!ENTITY out SYSTEM 'file:///etc/passwd'>]>"
                  "<a>&lt;&amp;&#65;&more;&out;</a>"),
        "<&A&more;&out;");
}

TEST(Xml, AnEntityOfEntitiesStaysSmall) {
    EXPECT_EQ(TextOfTop("<!DOCTYPE a [<!ENTITY x 'ha'><!ENTITY y '&x;&x;&x;&x;&x;&x;&x;&x;'>]>"
                        "<a>&y;&y;&y;</a>"),
              "&y;&y;&y;");
}

TEST(Xml, MalformedAndEmptyDocumentsAreFaultsWithTheirLine) {
    EXPECT_EQ(XmlDocument("").Fault(), XmlFault::malformed);
    EXPECT_EQ(XmlDocument("words").Fault(), XmlFault::malformed);
    const XmlDocument broken("<a>\n<b>\n</a>");
    EXPECT_EQ(broken.Fault(), XmlFault::malformed);
    EXPECT_EQ(broken.FaultLine(), 3U);
    EXPECT_FALSE(broken.Top("a").has_value());
}

TEST(Xml, KnowsTheLineOfAnElement) {
    const XmlDocument document("<a>\n\n<b/>\n<c/></a>");
    const auto children = document.Top("a").value().Children();
    EXPECT_EQ(document.LineOf(children[0].Offset()), 3U);
    EXPECT_EQ(document.LineOf(children[1].Offset()), 4U);
}

TEST(Xml, TooManyBytesAreRefused) {
    EXPECT_EQ(XmlDocument(std::string(kMostXmlBytes + 1, ' ')).Fault(), XmlFault::tooLarge);
    std::string most = "<a/>";
    most.append(kMostXmlBytes - most.size(), ' ');
    EXPECT_EQ(XmlDocument(most).Fault(), XmlFault::none);
}

std::string Nested(int levels) {
    std::string text;
    for (int i = 0; i < levels; ++i) {
        text += "<a>";
    }
    for (int i = 0; i < levels; ++i) {
        text += "</a>";
    }
    return text;
}

TEST(Xml, DeepNestingIsRefused) {
    EXPECT_EQ(XmlDocument(Nested(kDeepestXml)).Fault(), XmlFault::none);
    EXPECT_EQ(XmlDocument(Nested(kDeepestXml + 1)).Fault(), XmlFault::tooDeep);
    EXPECT_EQ(XmlDocument(Nested(10'000)).Fault(), XmlFault::tooDeep);
}

}  // namespace
}  // namespace quorvi
